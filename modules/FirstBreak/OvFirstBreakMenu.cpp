#include "OvFirstBreakMenu.h"

#include <QApplication>
#include <QMainWindow>

namespace {

// Between the snapshot and the data folder on the main gadget.
constexpr int exportOrder = 100;

QAction* actionOf(const QMainWindow* window, const char* name)
{
    return window->findChild<QAction*>(QLatin1String(name));
}

QAction* exportActionOf(const QMainWindow* window)
{
    return actionOf(window, "actionFirstBreak_Output");
}

} // namespace

OvFirstBreakMenu::OvFirstBreakMenu(QWidget* parent)
    : QMenu(parent)
{
    setObjectName(QStringLiteral("menu_FirstBreak"));
    m_pick = addAction(QString(), this, &OvFirstBreakMenu::pickRequested,
                       QKeySequence(QStringLiteral("Ctrl+P")));
    m_pick->setObjectName(QStringLiteral("actionAuto_Pick"));
    addSeparator();
    setUsable(false);
    retranslate();
}

OvFirstBreakMenu::~OvFirstBreakMenu() = default;

void OvFirstBreakMenu::retranslate()
{
    setTitle(tr("First &Break"));
    m_pick->setText(tr("&Automatic Picking..."));
    if (m_headerExport)
        m_headerExport->setToolTip(
            tr("Writing first breaks to trace headers is not available yet."));
}

void OvFirstBreakMenu::setUsable(bool usable)
{
    m_usable = usable;
    m_pick->setEnabled(usable);
    if (m_export)
        m_export->setEnabled(usable);
}

QMainWindow* OvFirstBreakMenu::windowToAdopt() const
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        auto* window = qobject_cast<QMainWindow*>(widget);
        const QAction* action = window ? exportActionOf(window) : nullptr;
        // A window whose actions are not here yet is newer than the one that they came from.
        if (action && !actions().contains(const_cast<QAction*>(action)))
            return window;
    }
    return nullptr;
}

void OvFirstBreakMenu::adoptWindowActions()
{
    const QMainWindow* window = windowToAdopt();
    if (!window)
        return;
    dropActions();
    adoptExport(exportActionOf(window));
    if (QAction* action = actionOf(window, "actionFB_to_SEGY_Header"))
        adoptHeaderExport(action);
    setUsable(m_usable);
    retranslate();
}

void OvFirstBreakMenu::adoptExport(QAction* action)
{
    m_export = action;
    action->setData(exportOrder);
    addAction(action);
    connect(action, &QAction::triggered, this, &OvFirstBreakMenu::exportRequested);
}

void OvFirstBreakMenu::adoptHeaderExport(QAction* action)
{
    m_headerExport = action;
    action->setEnabled(false);
    addAction(action);
}

void OvFirstBreakMenu::dropActions()
{
    if (m_export) {
        m_export->disconnect(this);
        removeAction(m_export);
    }
    if (m_headerExport)
        removeAction(m_headerExport);
}
