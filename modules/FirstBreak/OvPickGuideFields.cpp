#include "OvPickGuideFields.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>

OvPickGuideFields::OvPickGuideFields(QGridLayout* grid, QObject* parent)
    : QObject(parent)
    , m_grid(grid)
{
    const int row = grid->rowCount();
    m_phase = addField<QComboBox>("phase", row, Side::Left);
    m_confidence = addField<QDoubleSpinBox>("min_confidence", row, Side::Right);
    m_guide = addField<QComboBox>("guide", row + 1, Side::Left);
    m_velocity = addField<QDoubleSpinBox>("velocity", row + 1, Side::Right);
    m_intercept = addField<QDoubleSpinBox>("intercept", row + 2, Side::Right);
    makeRanges();
    retranslate();
    connect(m_guide, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { enableFields(); });
    showValues(OvPickDefine());
    enableFields();
}

OvPickGuideFields::~OvPickGuideFields() = default;

template <typename Field>
Field* OvPickGuideFields::addField(const char* name, int row, Side side)
{
    // As the panel has them: a label, a field and its unit on either side of a spacer, on which
    // choices, wider than numbers, may lean.
    const bool isLeft = side == Side::Left;
    auto* field = new Field(m_grid->parentWidget());
    field->setObjectName(QLatin1String(name));
    auto* text = new QLabel(m_grid->parentWidget());
    text->setObjectName(QStringLiteral("label_") + QLatin1String(name));
    text->setBuddy(field);
    m_grid->addWidget(text, row, isLeft ? 0 : 4, 1, isLeft ? 1 : 2);
    if (isLeft)
        m_grid->addWidget(field, row, 1, 1, 3, Qt::AlignLeft);
    else
        m_grid->addWidget(field, row, 6, 1, 2);
    return field;
}

void OvPickGuideFields::makeRanges()
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

void OvPickGuideFields::label(QWidget* field, const QString& text, const QString& toolTip)
{
    m_grid->parentWidget()
        ->findChild<QLabel*>(QStringLiteral("label_") + field->objectName())
        ->setText(text);
    field->setToolTip(toolTip);
}

void OvPickGuideFields::retranslate()
{
    label(m_phase, tr("P&hase"),
          tr("The point of the first arrival that is picked, the same on every trace.\n"
             "Default: onset"));
    m_phase->setItemText(0, tr("Onset"));
    m_phase->setItemText(1, tr("Peak"));
    m_phase->setItemText(2, tr("Trough"));
    m_phase->setItemText(3, tr("Zero crossing"));
    label(m_confidence, tr("Mi&nimum confidence"),
          tr("Picks that are less likely right than this are left out.\n"
             "0 to 1, no unit. Default: 0.3"));
    label(m_guide, tr("&Guide"),
          tr("What is known of the first breaks beforehand. A guide helps where the data are poor; "
             "clear arrivals are picked without it.\n"
             "Default: none"));
    m_guide->setItemText(0, tr("None"));
    m_guide->setItemText(1, tr("Velocity and intercept"));
    m_guide->setItemText(2, tr("My picks"));
    m_guide->setItemText(3, tr("Previous gather"));
    m_guide->setItemData(2, tr("Picks made by hand, and the automatic ones beside them"),
                         Qt::ToolTipRole);
    fitWidths();
    label(m_velocity, tr("&Velocity"),
          tr("Velocity of the first arrival, for the guide by velocity and intercept.\n"
             "1 to 20000 m/s. Default: 2000"));
    m_velocity->setSuffix(tr(" m/s"));
    label(m_intercept, tr("&Intercept"),
          tr("Time of the first arrival at offset 0, for the guide by velocity and intercept.\n"
             "-10000 to 10000 ms. Default: 0"));
    m_intercept->setSuffix(tr(" ms"));
}

void OvPickGuideFields::fitWidths()
{
    const int width = qMax(m_phase->sizeHint().width(), m_guide->sizeHint().width());
    m_phase->setMinimumWidth(width);
    m_guide->setMinimumWidth(width);
}

void OvPickGuideFields::enableFields()
{
    const bool byVelocity =
        m_guide->currentData().toInt() == static_cast<int>(OvPickDefine::Guide::Velocity);
    m_velocity->setEnabled(byVelocity);
    m_intercept->setEnabled(byVelocity);
}

void OvPickGuideFields::showValues(const OvPickDefine& define)
{
    m_phase->setCurrentIndex(m_phase->findData(static_cast<int>(define.phase)));
    m_guide->setCurrentIndex(m_guide->findData(static_cast<int>(define.guide)));
    m_confidence->setValue(define.minimumConfidence);
    m_velocity->setValue(define.velocity);
    m_intercept->setValue(define.interceptMs);
}

void OvPickGuideFields::readValues(OvPickDefine* define) const
{
    define->phase = static_cast<OvPickPhase>(m_phase->currentData().toInt());
    define->guide = static_cast<OvPickDefine::Guide>(m_guide->currentData().toInt());
    define->minimumConfidence = m_confidence->value();
    define->velocity = m_velocity->value();
    define->interceptMs = m_intercept->value();
}
