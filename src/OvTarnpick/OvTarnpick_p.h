#pragma once

#include "ui_OvTarnpick.h"

#include <QList>
#include <QMap>

class OvAbstractViewController;
class OvGeneralPlugin;
class OvMainGadget;
class OvTarnpick;
class OvTarnpickHelper;

/// The state of the main window. Plug-ins are visited in the order of their factory throughout.
class OvTarnpickPrivate
{
public:
    explicit OvTarnpickPrivate(OvTarnpick* window);
    ~OvTarnpickPrivate();

    void init();
    void initLanguageGroup();
    void initDockWidgets();
    /// Puts the modules' menus between File and Tools.
    void initModule();
    /// Puts the extensions' actions at the top of the Tools menu, anew on each call.
    void initExtension();
    void initToolBar();
    void refreshPlugins();
    void populate(OvAbstractViewController* controller);
    /// The actions of all menus that carry data, ascending by it.
    QList<QAction*> collectGadgetActions();

    void updateProjectState(bool valid);
    void updateWindowTitle(bool valid);
    void updateActions(bool valid);

    /// Everything that a change of language asks of the window.
    void retranslate();
    void setDockHeightLimit(int pixels);
    void deleteController();

    OvTarnpick* q;
    Ui::OvTarnpick ui;
    OvTarnpickHelper* controller = nullptr; ///< null until the end of start-up and after close
    QList<QMenu*> moduleMenus;              ///< owned by the modules
    OvMainGadget* mainGadget = nullptr;     ///< owned by the tool bar
    bool initialized = false;               ///< set by the first complete refreshPlugins()
    QList<QAction*> extensionActions;       ///< owned
    QMap<QAction*, OvGeneralPlugin*> extensionPlugins;

    static bool firstShow; ///< whether a main window has been shown in this process

private:
    void connectTiling();
    void giveConsoleRoom();
    void collectFormActions(QList<QAction*>* actions);
    void addModuleWidgets();
    Q_DISABLE_COPY(OvTarnpickPrivate)
};
