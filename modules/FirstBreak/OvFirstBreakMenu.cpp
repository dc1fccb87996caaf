#include "OvFirstBreakMenu.h"

#include <QApplication>
#include <QIcon>
#include <QMainWindow>

namespace {

// Between the snapshot and the data folder on the main gadget.
constexpr int exportOrder = 100;

QAction* actionOf(const QMainWindow* window, const char* name)
{
    return window->findChild<QAction*>(QLatin1String(name));
}

QIcon iconOf(const QString& name)
{
    const QString file = QStringLiteral(":/firstbreak/images/%1_%2.png");
    QIcon icon;
    icon.addFile(file.arg(name).arg(1), {}, QIcon::Normal);
    icon.addFile(file.arg(name).arg(0), {}, QIcon::Disabled);
    icon.addFile(file.arg(name).arg(2), {}, QIcon::Active);
    icon.addFile(file.arg(name).arg(2), {}, QIcon::Normal, QIcon::On);
    return icon;
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
    m_pickGather = makeAction("actionPick_Gather", {QKeySequence(QStringLiteral("Ctrl+Shift+P"))});
    connect(m_pickGather, &QAction::triggered, this, &OvFirstBreakMenu::pickGatherRequested);
    addSeparator();
    makeEditActions();
    addSeparator();
    setUsable(false);
    retranslate();
}

OvFirstBreakMenu::~OvFirstBreakMenu() = default;

QAction* OvFirstBreakMenu::makeAction(const char* name, const QList<QKeySequence>& keys)
{
    QAction* action = addAction(QString());
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    return action;
}

void OvFirstBreakMenu::makeEditActions()
{
    setToolTipsVisible(true);
    m_edit = makeAction("actionEdit_Picks", {QKeySequence(QStringLiteral("Ctrl+E"))});
    m_edit->setCheckable(true);
    m_edit->setIcon(iconOf(QStringLiteral("edit_picks")));
    m_undo = makeAction("actionUndo_Pick_Edit", {QKeySequence(QStringLiteral("Ctrl+Z"))});
    m_undo->setIcon(iconOf(QStringLiteral("undo")));
    m_redo = makeAction("actionRedo_Pick_Edit", {QKeySequence(QStringLiteral("Ctrl+Y")),
                                                 QKeySequence(QStringLiteral("Ctrl+Shift+Z"))});
    m_redo->setIcon(iconOf(QStringLiteral("redo")));
    m_reject = makeAction("actionReject_Pick", {QKeySequence(QStringLiteral("Ctrl+R"))});
    m_classify = makeAction("actionClassify_Error_Picks", {QKeySequence(QStringLiteral("Ctrl+K"))});
    m_undo->setEnabled(false);
    m_redo->setEnabled(false);
    connect(m_reject, &QAction::triggered, this, &OvFirstBreakMenu::rejectRequested);
    connect(m_classify, &QAction::triggered, this, &OvFirstBreakMenu::classifyRequested);
}

void OvFirstBreakMenu::relabel(QAction* action, const QString& text, const QString& toolTip)
{
    action->setText(text);
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    // Reasons name files: never read as rich text.
    action->setToolTip(QStringLiteral("<qt>%1 (%2)</qt>").arg(toolTip.toHtmlEscaped(), keys));
}

void OvFirstBreakMenu::retranslateEdit()
{
    relabel(m_edit, tr("&Edit Picks"),
            m_obstacle.isEmpty()
                ? tr("Set picks by click or drag, remove them with Shift, reject them with Ctrl")
                : m_obstacle);
    relabel(m_pickGather, tr("&Pick This Gather"),
            m_obstacle.isEmpty()
                ? tr("Pick the gather shown with the saved values; picks made by hand stay")
                : m_obstacle);
    relabel(m_undo, tr("&Undo Pick Edit"), tr("Undo the last edit of picks"));
    relabel(m_redo, tr("&Redo Pick Edit"), tr("Redo the edit of picks that was undone"));
    relabel(m_reject, tr("Re&ject or Restore Pick"),
            tr("Reject the pick of the marked trace, or restore a rejected one"));
    relabel(m_classify, tr("&Classify Error Picks"),
            tr("Reject the automatic picks of this gather that are probably wrong"));
}

void OvFirstBreakMenu::setEditObstacle(const QString& obstacle)
{
    m_obstacle = obstacle;
    const bool possible = m_usable && obstacle.isEmpty();
    for (QAction* action : {m_pickGather, m_edit, m_reject, m_classify})
        action->setEnabled(possible);
    retranslateEdit();
}

void OvFirstBreakMenu::retranslate()
{
    retranslateEdit();
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
    setEditObstacle(m_obstacle);
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
