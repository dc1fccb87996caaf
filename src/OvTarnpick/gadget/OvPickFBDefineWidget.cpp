#include "OvTarnpick/gadget/OvPickFBDefineWidget.h"

#include "ui_OvPickFBDefineWidget.h"

OvPickFBDefineWidget::OvPickFBDefineWidget(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::OvPickFBDefineWidget)
{
    ui->setupUi(this);
}

OvPickFBDefineWidget::~OvPickFBDefineWidget() = default;

OvPickFBDefine OvPickFBDefineWidget::define() const
{
    OvPickFBDefine define;
    define.positivePolarity = ui->polarity_2->currentIndex() == 1;
    define.processingLengthMs = ui->sbProl->value();
    define.quickSearchWindowMs = ui->sbQwin->value();
    define.tuningSearchWindowMs = ui->sbBwin->value();
    define.minimumOffsetM = ui->sbMinOff->value();
    define.maximumOffsetM = ui->sbMaxOff->value();
    define.amplitudeThreshold = ui->dbFBAmp->value();
    define.snrThreshold = ui->dbSNR->value();
    define.totalShots = ui->sbShots->value();
    define.shotIncrement = ui->sbShotStep->value();
    return define;
}

void OvPickFBDefineWidget::setDefine(const OvPickFBDefine& define)
{
    ui->polarity_2->setCurrentIndex(define.positivePolarity ? 1 : 0);
    ui->sbProl->setValue(define.processingLengthMs);
    ui->sbQwin->setValue(define.quickSearchWindowMs);
    ui->sbBwin->setValue(define.tuningSearchWindowMs);
    ui->sbMinOff->setValue(define.minimumOffsetM);
    ui->sbMaxOff->setValue(define.maximumOffsetM);
    ui->dbFBAmp->setValue(define.amplitudeThreshold);
    ui->dbSNR->setValue(define.snrThreshold);
    ui->sbShots->setValue(define.totalShots);
    ui->sbShotStep->setValue(define.shotIncrement);
}

QAbstractButton* OvPickFBDefineWidget::defaultButton() const
{
    return ui->btnDefault;
}

QAbstractButton* OvPickFBDefineWidget::saveButton() const
{
    return ui->btnSave;
}

QGridLayout* OvPickFBDefineWidget::grid() const
{
    return ui->gridLayout;
}
