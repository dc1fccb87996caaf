#include "OvTarnpick/OvTarnpickHelper.h"
#include "OvTarnpick/OvTarnpickHelper_p.h"
#include "OvTarnpick/controller/OvLinkWindowDlg.h"
#include "OvTarnpick/controller/OvMdiArea.h"

#include "OvBase/OvAbstractJob.h"
#include "OvGui/OvMultiPlaneViewController.h"
#include "OvGui/OvPlaneViewController.h"

#include <QMdiSubWindow>

#include <memory>

bool OvTarnpickHelperPrivate::linkWindow()
{
    OvMultiPlaneViewController* parallel = parallelView();
    QList<OvPlaneViewController*> available = linkableViews();
    QList<OvPlaneViewController*> linked;
    if (parallel)
        linked = parallel->usedViewControllers();
    for (OvPlaneViewController* view : qAsConst(linked))
        available.removeOne(view);

    OvLinkWindowDlg dialog(available, linked, nullptr);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    linked = dialog.chosenViewControllers();
    if (linked.isEmpty()) {
        removeParallelView(parallel);
        return false;
    }
    if (parallel)
        parallel->setUsedViewControllers(linked);
    else
        parallel = addParallelView(linked);
    bringForward(qobject_cast<QMdiSubWindow*>(parallel->parentWidget()));
    return true;
}

OvMultiPlaneViewController* OvTarnpickHelperPrivate::parallelView() const
{
    const auto subWindows = mdiArea->subWindowList(QMdiArea::CreationOrder);
    for (const QMdiSubWindow* subWindow : subWindows) {
        if (auto* view = qobject_cast<OvMultiPlaneViewController*>(subWindow->widget()))
            return view;
    }
    return nullptr;
}

QList<OvPlaneViewController*> OvTarnpickHelperPrivate::linkableViews() const
{
    QList<OvPlaneViewController*> views;
    const auto subWindows = mdiArea->subWindowList(QMdiArea::CreationOrder);
    for (const QMdiSubWindow* subWindow : subWindows) {
        // The parallel view is no plane view, and so never among them.
        auto* view = qobject_cast<OvPlaneViewController*>(subWindow->widget());
        if (view && view->delegateJob()->isEnabled())
            views.append(view);
    }
    return views;
}

OvMultiPlaneViewController*
OvTarnpickHelperPrivate::addParallelView(const QList<OvPlaneViewController*>& views)
{
    auto view = std::make_unique<OvMultiPlaneViewController>();
    view->setUsedViewControllers(views);
    QMdiSubWindow* subWindow = addWorkspace(view.get());
    // The event filter deletes the view, and the view's end the sub-window.
    subWindow->setAttribute(Qt::WA_DeleteOnClose, false);
    subWindow->installEventFilter(q);
    QObject::connect(view.get(), &QObject::destroyed, q,
                     &OvTarnpickHelper::slotTileSubWindowsVertically);
    return view.release();
}

void OvTarnpickHelperPrivate::removeParallelView(OvMultiPlaneViewController* view)
{
    if (!view)
        return;
    mdiArea->removeSubWindow(view->parentWidget());
    delete view;
}
