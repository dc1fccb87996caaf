#include "OvFirstBreakBar.h"

#include "OvTarnpick/utility/OvSensitivityEditor.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>

namespace {

constexpr int rowHeight = 28;
constexpr int iconEdge = 20;

} // namespace

OvFirstBreakBar::OvFirstBreakBar(QAction* edit, QAction* undo, QAction* redo, QWidget* parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
    , m_editor(new OvSensitivityEditor(this))
{
    setObjectName(QStringLiteral("firstBreakBar"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 2, 4, 2);
    grid->setHorizontalSpacing(2);
    grid->setVerticalSpacing(2);
    grid->addWidget(m_label, 0, 0);
    grid->addWidget(m_editor, 0, 1, 1, 2);
    m_editor->setMaximumHeight(rowHeight);
    m_label->setBuddy(m_editor);
    addButton(grid, edit, 0);
    addButton(grid, undo, 1);
    addButton(grid, redo, 2);
    connect(m_editor, &OvSensitivityEditor::valueChanged, this,
            &OvFirstBreakBar::snapWindowChanged);
    retranslate();
}

OvFirstBreakBar::~OvFirstBreakBar() = default;

void OvFirstBreakBar::addButton(QGridLayout* grid, QAction* action, int column)
{
    auto* button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setIconSize(QSize(iconEdge, iconEdge));
    button->setFixedHeight(rowHeight);
    grid->addWidget(button, 1, column, Qt::AlignCenter);
}

int OvFirstBreakBar::snapWindow() const
{
    return m_editor->value();
}

void OvFirstBreakBar::reset()
{
    emit resetRequested();
}

void OvFirstBreakBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void OvFirstBreakBar::retranslate()
{
    m_label->setText(tr("Snap"));
    const QString tip =
        tr("A pick set by hand snaps to an arrival within this time of the click, in "
           "milliseconds; at 0 ms it stands exactly where you click");
    m_label->setToolTip(tip);
    m_editor->setToolTip(tip);
}
