#include "OvTarnpick/OvTarnpick.h"
#include "OvTarnpick/OvTarnpickHelper.h"
#include "OvTarnpick/OvTarnpick_p.h"
#include "OvTarnpick/gadget/OvMainGadget.h"

#include "OvBase/OvProjectManager.h"
#include "OvPlugins/OvGeneralFactory.h"
#include "OvPlugins/OvGeneralPlugin.h"
#include "OvPlugins/OvModuleFactory.h"
#include "OvPlugins/OvModulePlugin.h"

#include <QAbstractButton>
#include <QCoreApplication>

#include <algorithm>

namespace {

void logImport(const QString& line)
{
    qDebug("%s", line.toLocal8Bit().constData());
}

void resetWidget(QWidget* widget)
{
    // Having "reset" is the widget's choice; asking for a missing one would log a warning.
    if (widget && widget->metaObject()->indexOfMethod("reset()") >= 0)
        QMetaObject::invokeMethod(widget, "reset", Qt::AutoConnection);
}

// The toolkit names the title buttons of a dock for screen readers once, when it makes them.
void retranslateDockButtons(const QWidget* window)
{
    static const struct
    {
        const char *button, *name, *description;
    } texts[] = {
        {"qt_dockwidget_floatbutton", "Float", "Undocks and re-attaches the dock widget"},
        {"qt_dockwidget_closebutton", "Close", "Closes the dock widget"},
    };
    for (const auto& text : texts) {
        const auto buttons = window->findChildren<QAbstractButton*>(QLatin1String(text.button));
        for (QAbstractButton* button : buttons) {
            button->setAccessibleName(QCoreApplication::translate("QDockWidget", text.name));
            button->setAccessibleDescription(
                QCoreApplication::translate("QDockWidget", text.description));
        }
    }
}

} // namespace

void OvTarnpickPrivate::initModule()
{
    const auto modules = OvModuleFactory::instance().plugins();
    for (OvModulePlugin* plugin : modules) {
        QMenu* menu = plugin->menu();
        moduleMenus.append(menu);
        ui.menuBar->insertMenu(ui.menuTool->menuAction(), menu);
        logImport(OvTarnpick::tr("Import module [%1] successfully.").arg(plugin->name()));
    }
}

void OvTarnpickPrivate::populate(OvAbstractViewController* workspace)
{
    Q_UNUSED(workspace)
    const auto modules = OvModuleFactory::instance().plugins();
    for (OvModulePlugin* plugin : modules)
        resetWidget(plugin->toolBarWidget());
}

void OvTarnpickPrivate::refreshPlugins()
{
    initExtension();
    initToolBar();
    initialized = true;
    updateProjectState(OvProjectManager::instance().define().isValid());
}

void OvTarnpickPrivate::retranslate()
{
    ui.retranslateUi(q);
    updateWindowTitle(OvProjectManager::instance().define().isValid());
    if (controller)
        controller->refreshWindowTitles();
    const auto modules = OvModuleFactory::instance().plugins();
    for (OvModulePlugin* plugin : modules)
        plugin->changeLanguage();
    refreshPlugins();
    retranslateDockButtons(q);
}

void OvTarnpickPrivate::initExtension()
{
    qDeleteAll(extensionActions);
    extensionActions.clear();
    extensionPlugins.clear();
    const auto extensions = OvGeneralFactory::instance().plugins();
    for (OvGeneralPlugin* plugin : extensions) {
        QAction* action = plugin->action();
        extensionPlugins.insert(action, plugin);
        extensionActions.append(action);
        if (!initialized)
            logImport(OvTarnpick::tr("Import extension [%1] successfully.").arg(plugin->name()));
    }
    if (extensionActions.isEmpty())
        return;
    QAction* first = ui.menuTool->actions().constFirst();
    ui.menuTool->insertActions(first, extensionActions);
    if (!first->isSeparator())
        ui.menuTool->insertSeparator(first);
}

void OvTarnpickPrivate::initToolBar()
{
    if (!initialized) {
        mainGadget = new OvMainGadget(ui.mainToolBar);
        ui.mainToolBar->addWidget(mainGadget);
        addModuleWidgets();
        ui.mainToolBar->addSeparator();
    }
    mainGadget->setActions(collectGadgetActions());
}

void OvTarnpickPrivate::addModuleWidgets()
{
    const auto modules = OvModuleFactory::instance().plugins();
    for (OvModulePlugin* plugin : modules) {
        if (QWidget* widget = plugin->toolBarWidget()) {
            ui.mainToolBar->addSeparator();
            ui.mainToolBar->addWidget(widget);
        }
    }
}

QList<QAction*> OvTarnpickPrivate::collectGadgetActions()
{
    ui.actionExport_to_Image->setData(90);
    ui.actionExplorer->setData(110);
    ui.actionFB_to_SEGY_Header->setData(120);

    QList<QAction*> actions;
    collectFormActions(&actions);
    for (QMenu* menu : qAsConst(moduleMenus))
        OvTarnpickHelper::collectActions(menu->menuAction(), actions);

    const auto hasNoData = [](const QAction* action) { return !action->data().isValid(); };
    actions.erase(std::remove_if(actions.begin(), actions.end(), hasNoData), actions.end());
    const auto byData = [](const QAction* left, const QAction* right) {
        return left->data().toInt() < right->data().toInt();
    };
    std::stable_sort(actions.begin(), actions.end(), byData);
    return actions;
}

void OvTarnpickPrivate::collectFormActions(QList<QAction*>* actions)
{
    const auto menus = ui.menuBar->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    for (QMenu* menu : menus)
        OvTarnpickHelper::collectActions(menu->menuAction(), *actions);
}
