#include "OvTarnpick/OvAboutDialog.h"

#include "ui_OvAboutDialog.h"

#include <QEvent>

OvAboutDialog::OvAboutDialog(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::OvAboutDialog)
{
    ui->setupUi(this);
    ui->label->installEventFilter(this);
    insertWordSize();
}

OvAboutDialog::~OvAboutDialog()
{
    delete ui;
}

bool OvAboutDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        close();
    return QDialog::eventFilter(watched, event);
}

void OvAboutDialog::mousePressEvent(QMouseEvent* /*event*/)
{
    close();
}

void OvAboutDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        insertWordSize();
    }
    QDialog::changeEvent(event);
}

// A note that says "(x bit)" gets the program's word size.
void OvAboutDialog::insertWordSize()
{
    QString html = ui->textBrowser->toHtml();
    html.replace(QLatin1String("(x"), QLatin1Char('(') + QString::number(QT_POINTER_SIZE * 8));
    ui->textBrowser->setHtml(html);
}
