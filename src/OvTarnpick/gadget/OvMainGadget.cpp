#include "OvTarnpick/gadget/OvMainGadget.h"

#include "ui_OvMainGadget.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QPointer>
#include <QToolButton>

namespace {

const int kRows = 2;
const QSize kButtonSize(32, 32);
const QSize kIconSize(24, 24);

} // namespace

class OvMainGadgetPrivate
{
public:
    explicit OvMainGadgetPrivate(OvMainGadget* gadget);

    void prune(const QList<QAction*>& actions);
    void addButton(QAction* action, int index);
    void remember(const QList<QAction*>& actions);

    OvMainGadget* q;
    Ui::OvMainGadget ui;
    QList<QPointer<QAction>> knownActions;
};

OvMainGadgetPrivate::OvMainGadgetPrivate(OvMainGadget* gadget)
    : q(gadget)
{
    ui.setupUi(q);
}

// The index moves on after a removal too: the entry that takes the removed one's place waits for
// the next call.
void OvMainGadgetPrivate::prune(const QList<QAction*>& actions)
{
    for (int i = 0; i < knownActions.size(); ++i) {
        if (!actions.contains(knownActions.at(i).data()))
            delete knownActions.takeAt(i).data();
    }
}

void OvMainGadgetPrivate::addButton(QAction* action, int index)
{
    auto* button = new QToolButton(q);
    button->setAutoRaise(true);
    button->setFixedSize(kButtonSize);
    button->setIconSize(kIconSize);
    button->setDefaultAction(action);
    ui.gridLayout->addWidget(button, index % kRows, index / kRows + 1);
}

void OvMainGadgetPrivate::remember(const QList<QAction*>& actions)
{
    for (QAction* action : actions) {
        if (!knownActions.contains(action))
            knownActions.append(action);
    }
}

OvMainGadget::OvMainGadget(QWidget* parent)
    : QWidget(parent)
    , d(new OvMainGadgetPrivate(this))
{
    clearButtons();
}

OvMainGadget::~OvMainGadget() = default;

bool OvMainGadget::setActions(const QList<QAction*>& actions)
{
    clearButtons();
    if (actions.isEmpty())
        return true;
    d->prune(actions);
    for (int i = 0; i < actions.size(); ++i)
        d->addButton(actions.at(i), i);
    // A single button would leave the block one row high.
    if (actions.size() == 1)
        d->ui.gridLayout->addWidget(new QLabel(this), 1, 0);
    d->remember(actions);
    return true;
}

void OvMainGadget::clearButtons()
{
    while (QLayoutItem* item = d->ui.gridLayout->takeAt(0)) {
        delete item->widget();
        delete item;
    }
}

void OvMainGadget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->ui.retranslateUi(this);
    QWidget::changeEvent(event);
}
