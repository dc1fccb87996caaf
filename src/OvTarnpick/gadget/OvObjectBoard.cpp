#include "OvTarnpick/gadget/OvObjectBoard.h"

#include "ui_OvObjectBoard.h"

#include <QEvent>

class OvObjectBoardPrivate
{
public:
    explicit OvObjectBoardPrivate(OvObjectBoard* board);

    void refresh();
    void store(QString& field, const QString& text);

    OvObjectBoard* q;
    Ui::OvObjectBoard ui;
    QString caption;
    QString value;
};

OvObjectBoardPrivate::OvObjectBoardPrivate(OvObjectBoard* board)
    : q(board)
{
    ui.setupUi(q);
}

// The form's names are crossed: the left label is objectName, the boxed one objectTitle.
void OvObjectBoardPrivate::refresh()
{
    ui.objectName->setText(caption);
    ui.objectTitle->setText(value);
}

void OvObjectBoardPrivate::store(QString& field, const QString& text)
{
    if (field == text)
        return;
    field = text;
    refresh();
}

OvObjectBoard::OvObjectBoard(const QString& caption, QWidget* parent)
    : QWidget(parent)
    , d(new OvObjectBoardPrivate(this))
{
    setCaption(caption);
}

OvObjectBoard::~OvObjectBoard() = default;

void OvObjectBoard::setCaption(const QString& caption)
{
    d->store(d->caption, caption);
}

void OvObjectBoard::setValue(const QString& value)
{
    d->store(d->value, value);
}

const QString& OvObjectBoard::value() const
{
    return d->value;
}

void OvObjectBoard::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->refresh();
    QWidget::changeEvent(event);
}
