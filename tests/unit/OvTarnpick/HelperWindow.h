#pragma once

#include "OvTarnpick/OvTarnpickHelper.h"
#include "OvTarnpick/controller/OvMdiArea.h"
#include "OvTarnpick/gadget/OvMainBillBoard.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvProjectManager.h"
#include "TestView.h"
#include "ui_OvTarnpick.h"

#include <QMdiSubWindow>

#include <memory>

/// The main window's form on a plain window, with the workspace controller.
class HelperWindow
{
public:
    HelperWindow()
    {
        form.setupUi(&window);
        helper = std::make_unique<OvTarnpickHelper>(&window, nullptr);
        window.resize(1000, 700);
        window.show();
    }

    OvMdiArea* area() const { return qobject_cast<OvMdiArea*>(window.centralWidget()); }
    QList<QMdiSubWindow*> subWindows() const { return area()->subWindowList(); }
    OvMainBillBoard* billBoard() const { return window.findChild<OvMainBillBoard*>(); }

    /// Adds a view as the framework does.
    template <typename View = TestView>
    View* add(const QString& name, bool editable = true)
    {
        return show(new View(name, editable));
    }

    template <typename View>
    static View* show(View* view)
    {
        OvProjectManager::instance().addWorkspace(view);
        return view;
    }

    void activate(const QWidget* view)
    {
        area()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(view->parentWidget()));
    }

    QMainWindow window;
    Ui::OvTarnpick form;
    std::unique_ptr<OvTarnpickHelper> helper; ///< last: it needs the window
};
