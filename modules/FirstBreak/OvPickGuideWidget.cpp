#include "OvPickGuideWidget.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>

OvPickGuideWidget::OvPickGuideWidget(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("OvPickGuideWidget"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    m_phase = addField<QComboBox>(grid, "phase", 0, 0);
    m_confidence = addField<QDoubleSpinBox>(grid, "min_confidence", 0, 2);
    m_guide = addField<QComboBox>(grid, "guide", 1, 0);
    m_velocity = addField<QDoubleSpinBox>(grid, "velocity", 1, 2);
    m_intercept = addField<QDoubleSpinBox>(grid, "intercept", 2, 2);
    makeRanges();
    retranslate();
    connect(m_guide, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { enableFields(); });
    showValues(OvPickDefine());
    enableFields();
}

OvPickGuideWidget::~OvPickGuideWidget() = default;

template <typename Field>
Field* OvPickGuideWidget::addField(QGridLayout* grid, const char* name, int row, int column)
{
    auto* field = new Field(this);
    field->setObjectName(QLatin1String(name));
    auto* text = new QLabel(this);
    text->setObjectName(QStringLiteral("label_") + QLatin1String(name));
    text->setBuddy(field);
    grid->addWidget(text, row, column);
    grid->addWidget(field, row, column + 1);
    return field;
}

void OvPickGuideWidget::makeRanges()
{
    m_confidence->setRange(0.0, 1.0);
    m_confidence->setSingleStep(0.05);
    m_velocity->setRange(1.0, 20000.0);
    m_velocity->setDecimals(0);
    m_velocity->setSingleStep(100.0);
    m_intercept->setRange(-10000.0, 10000.0);
    m_intercept->setDecimals(1);
    m_intercept->setSingleStep(5.0);
    for (const OvPickPhase phase :
         {OvPickPhase::Onset, OvPickPhase::Peak, OvPickPhase::Trough, OvPickPhase::ZeroCrossing})
        m_phase->addItem(QString(), static_cast<int>(phase));
    using Guide = OvPickDefine::Guide;
    for (const Guide guide : {Guide::None, Guide::Velocity, Guide::Picks, Guide::PreviousGather})
        m_guide->addItem(QString(), static_cast<int>(guide));
}

void OvPickGuideWidget::label(QWidget* field, const QString& text, const QString& toolTip)
{
    findChild<QLabel*>(QStringLiteral("label_") + field->objectName())->setText(text);
    field->setToolTip(toolTip);
}

void OvPickGuideWidget::retranslate()
{
    label(m_phase, tr("P&hase"), tr("The point of the first arrival that is picked"));
    m_phase->setItemText(0, tr("Onset"));
    m_phase->setItemText(1, tr("Peak"));
    m_phase->setItemText(2, tr("Trough"));
    m_phase->setItemText(3, tr("Zero crossing"));
    label(m_confidence, tr("Mi&nimum confidence"),
          tr("Picks that are less likely right than this are left out (0 to 1)"));
    label(m_guide, tr("&Guide"),
          tr("What is known of the first breaks beforehand. A guide helps where the data are poor; "
             "clear arrivals are picked without it"));
    m_guide->setItemText(0, tr("None"));
    m_guide->setItemText(1, tr("Velocity and intercept"));
    m_guide->setItemText(2, tr("My picks"));
    m_guide->setItemText(3, tr("Previous gather"));
    m_guide->setItemData(2, tr("Picks made by hand, and the automatic ones beside them"),
                         Qt::ToolTipRole);
    label(m_velocity, tr("&Velocity"), tr("Velocity of the first arrival, m/s"));
    m_velocity->setSuffix(tr(" m/s"));
    label(m_intercept, tr("&Intercept"), tr("Time of the first arrival at offset 0, ms"));
    m_intercept->setSuffix(tr(" ms"));
}

void OvPickGuideWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void OvPickGuideWidget::enableFields()
{
    const bool byVelocity =
        m_guide->currentData().toInt() == static_cast<int>(OvPickDefine::Guide::Velocity);
    m_velocity->setEnabled(byVelocity);
    m_intercept->setEnabled(byVelocity);
}

void OvPickGuideWidget::showValues(const OvPickDefine& define)
{
    m_phase->setCurrentIndex(m_phase->findData(static_cast<int>(define.phase)));
    m_guide->setCurrentIndex(m_guide->findData(static_cast<int>(define.guide)));
    m_confidence->setValue(define.minimumConfidence);
    m_velocity->setValue(define.velocity);
    m_intercept->setValue(define.interceptMs);
}

void OvPickGuideWidget::readValues(OvPickDefine* define) const
{
    define->phase = static_cast<OvPickPhase>(m_phase->currentData().toInt());
    define->guide = static_cast<OvPickDefine::Guide>(m_guide->currentData().toInt());
    define->minimumConfidence = m_confidence->value();
    define->velocity = m_velocity->value();
    define->interceptMs = m_intercept->value();
}
