#include "OvTarnpick/OvTarnpick_p.h"

#include "OvTarnpick/OvTarnpick.h"
#include "OvTarnpick/OvTarnpickHelper.h"
#include "OvTarnpick/utility/OvConsole.h"

#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskMonitor.h"
#include "OvBase/OvTranslator.h"
#include "OvPlugins/OvGeneralPlugin.h"

#include <QActionGroup>

#include <utility>

namespace {
constexpr int leastConsoleWidth = 200; // pixels that lines can be read in
constexpr int initialDockHeight = 120;
} // namespace

bool OvTarnpickPrivate::firstShow = false;

OvTarnpickPrivate::OvTarnpickPrivate(OvTarnpick* window)
    : q(window)
{
    ui.setupUi(q);
    ui.actionReport_Bug->setVisible(false);
    ui.menu_New_Window->menuAction()->setVisible(false);
    ui.actionTechnel_Support->setVisible(false);
    QObject::connect(&OvProjectManager::instance(), SIGNAL(projectChanged(OvProjectDefine)), q,
                     SLOT(slotProjectChanged(OvProjectDefine)));
}

OvTarnpickPrivate::~OvTarnpickPrivate()
{
    qDeleteAll(extensionActions);
}

void OvTarnpickPrivate::init()
{
    initLanguageGroup();
    initDockWidgets();
    initModule();
    populate(nullptr);
    OvProjectManager::instance().init();
    refreshPlugins();
    controller = new OvTarnpickHelper(q, nullptr);
    connectTiling();
}

void OvTarnpickPrivate::connectTiling()
{
    QObject::connect(ui.actionTile, &QAction::triggered, controller,
                     &OvTarnpickHelper::slotTileSubWindows);
    QObject::connect(ui.actionTileHorizontally, &QAction::triggered, controller,
                     &OvTarnpickHelper::slotTileSubWindowsHorizontally);
    QObject::connect(ui.actionTileVertically, &QAction::triggered, controller,
                     &OvTarnpickHelper::slotTileSubWindowsVertically);
    QObject::connect(ui.actionCascade, &QAction::triggered, controller,
                     &OvTarnpickHelper::slotCascadeSubWindows);
}

void OvTarnpickPrivate::deleteController()
{
    // Forgotten first: nothing that its going sets off may reach it any more.
    delete std::exchange(controller, nullptr);
}

void OvTarnpickPrivate::initLanguageGroup()
{
    auto* group = new QActionGroup(q);
    group->setExclusive(true);
    group->addAction(ui.actionEnglish);
    group->addAction(ui.actionChinese);
    const bool english = OvTranslator::instance().languageType() == OvTranslator::English;
    (english ? ui.actionEnglish : ui.actionChinese)->setChecked(true);
}

void OvTarnpickPrivate::initDockWidgets()
{
    for (QDockWidget* dock : {static_cast<QDockWidget*>(&OvConsole::instance()),
                              static_cast<QDockWidget*>(&OvTaskMonitor::instance())}) {
        q->addDockWidget(Qt::BottomDockWidgetArea, dock);
        ui.menu_Window->addAction(dock->toggleViewAction());
    }
    setDockHeightLimit(initialDockHeight);
    OvConsole::instance().close();
    // Queued: the row is laid out first.
    QObject::connect(
        &OvConsole::instance(), &QDockWidget::visibilityChanged, q, [this] { giveConsoleRoom(); },
        Qt::QueuedConnection);
}

void OvTarnpickPrivate::giveConsoleRoom()
{
    // Left to itself the row gives the console no more than its narrow size hint.
    OvConsole& console = OvConsole::instance();
    if (console.isVisible() && console.width() < leastConsoleWidth)
        q->resizeDocks({&console, &OvTaskMonitor::instance()}, {1, 1}, Qt::Horizontal);
}

void OvTarnpickPrivate::setDockHeightLimit(int pixels)
{
    OvConsole::instance().setMaximumHeight(pixels);
    OvTaskMonitor::instance().setMaximumHeight(pixels);
}

void OvTarnpickPrivate::updateProjectState(bool valid)
{
    updateWindowTitle(valid);
    updateActions(valid);
}

void OvTarnpickPrivate::updateWindowTitle(bool valid)
{
    q->setWindowTitle(OvTarnpick::tr("Maravel"));
    const OvProjectDefine& define = OvProjectManager::instance().define();
    if (valid && define.isValid())
        q->setWindowTitle(define.name + QLatin1String(" - ") + define.dataPath);
}

void OvTarnpickPrivate::updateActions(bool valid)
{
    ui.action_Close_Project->setEnabled(valid);
    for (QAction* action : qAsConst(extensionActions)) {
        const OvGeneralPlugin* plugin = extensionPlugins.value(action);
        if (plugin && plugin->needsProject())
            action->setEnabled(valid);
    }
}
