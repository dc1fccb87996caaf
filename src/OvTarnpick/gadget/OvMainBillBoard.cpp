#include "OvTarnpick/gadget/OvMainBillBoard.h"

#include "ui_OvMainBillBoard.h"

#include <QEvent>

class OvMainBillBoardPrivate
{
public:
    explicit OvMainBillBoardPrivate(OvMainBillBoard* board);

    OvMainBillBoard* q;
    Ui::OvMainBillBoard ui;
};

namespace {

// Escaped, so that a name with angle brackets is not taken for rich text.
void showTextAsToolTip(QLineEdit* edit)
{
    QObject::connect(edit, &QLineEdit::textChanged, edit, [edit](const QString& text) {
        const QString page = QStringLiteral("<p style='white-space:pre'>%1</p>");
        edit->setToolTip(text.isEmpty() ? QString() : page.arg(text.toHtmlEscaped()));
    });
}

} // namespace

OvMainBillBoardPrivate::OvMainBillBoardPrivate(OvMainBillBoard* board)
    : q(board)
{
    ui.setupUi(q);
    // The fields are narrow and paths are long.
    showTextAsToolTip(ui.segyFile);
    showTextAsToolTip(ui.fbFile);
}

OvMainBillBoard::OvMainBillBoard(QWidget* parent)
    : QWidget(parent)
    , d(new OvMainBillBoardPrivate(this))
{
    clear();
}

OvMainBillBoard::~OvMainBillBoard() = default;

QString OvMainBillBoard::segyFile() const
{
    return d->ui.segyFile->text();
}

void OvMainBillBoard::setSegyFile(const QString& fileName)
{
    d->ui.segyFile->setText(fileName);
}

QString OvMainBillBoard::fbFile() const
{
    return d->ui.fbFile->text();
}

void OvMainBillBoard::setFbFile(const QString& fileName)
{
    d->ui.fbFile->setText(fileName);
    d->ui.fbFile->setEnabled(!fileName.isEmpty());
}

void OvMainBillBoard::clear()
{
    d->ui.segyFile->clear();
    d->ui.fbFile->clear();
}

void OvMainBillBoard::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->ui.retranslateUi(this);
    QWidget::changeEvent(event);
}
