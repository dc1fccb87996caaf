#include "OvSegyDisplayBar.h"

#include "OvBase/OvDisplayDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvGui/OvAbstractViewController.h"
#include "OvPlugins/OvPluginUtil.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

constexpr int rowHeight = 28;

void relabel(QComboBox* box, const QStringList& texts)
{
    for (int i = 0; i < texts.size(); ++i)
        box->setItemText(i, texts.at(i));
}

template <typename Field>
Field* field(QWidget* parent, const char* name)
{
    auto* widget = new Field(parent);
    widget->setObjectName(QLatin1String(name));
    widget->setMaximumHeight(rowHeight);
    return widget;
}

QComboBox* list(QWidget* parent, const char* name, int entries)
{
    auto* box = field<QComboBox>(parent, name);
    for (int i = 0; i < entries; ++i)
        box->addItem(QString());
    return box;
}

} // namespace

OvSegyDisplayBar::OvSegyDisplayBar(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("segyDisplayBar"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    makeFields();
    placeFields();
    connectFields();
    retranslate();
    reset();
}

OvSegyDisplayBar::~OvSegyDisplayBar() = default;

void OvSegyDisplayBar::makeFields()
{
    m_mode = list(this, "displayMode", 4);
    m_scaling = list(this, "displayScaling", 2);
    m_colors = list(this, "displayColors", 3);
    m_gain = field<QDoubleSpinBox>(this, "displayGain");
    m_gain->setRange(-60.0, 60.0);
    m_gain->setDecimals(1);
    m_gain->setSingleStep(3.0);
    m_agc = field<QSpinBox>(this, "displayAgc");
    m_agc->setRange(0, 9999);
    m_agc->setSingleStep(50);
    m_reverse = field<QCheckBox>(this, "displayReverse");
    // Drawing anew for each digit typed would flicker.
    m_gain->setKeyboardTracking(false);
    m_agc->setKeyboardTracking(false);
}

void OvSegyDisplayBar::placeFields()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 2, 4, 2);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(2);
    m_labels = {addLabel(grid, 0, 0, m_mode), addLabel(grid, 1, 0, m_scaling),
                addLabel(grid, 0, 2, m_gain), addLabel(grid, 1, 2, m_agc),
                addLabel(grid, 0, 4, m_colors)};
    grid->addWidget(m_reverse, 1, 4, 1, 2);
}

QLabel* OvSegyDisplayBar::addLabel(QGridLayout* grid, int row, int column, QWidget* target)
{
    auto* label = new QLabel(this);
    label->setBuddy(target);
    grid->addWidget(label, row, column);
    grid->addWidget(target, row, column + 1);
    return label;
}

void OvSegyDisplayBar::connectFields()
{
    for (QComboBox* box : {m_mode, m_scaling, m_colors})
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                &OvSegyDisplayBar::store);
    connect(m_gain, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &OvSegyDisplayBar::store);
    connect(m_agc, QOverload<int>::of(&QSpinBox::valueChanged), this, &OvSegyDisplayBar::store);
    connect(m_reverse, &QCheckBox::toggled, this, &OvSegyDisplayBar::store);
    const OvProjectManager* manager = &OvProjectManager::instance();
    connect(manager, &OvProjectManager::displayDefineChanged, this, &OvSegyDisplayBar::reset);
    connect(manager, &OvProjectManager::projectChanged, this, &OvSegyDisplayBar::reset);
    connect(manager, &OvProjectManager::activeWorkspace, this, &OvSegyDisplayBar::reset);
}

void OvSegyDisplayBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void OvSegyDisplayBar::retranslate()
{
    const QStringList texts{tr("Display"), tr("Scaling"), tr("Gain"), tr("AGC"), tr("Colors")};
    for (int i = 0; i < texts.size(); ++i)
        m_labels.at(i)->setText(texts.at(i));
    retranslateLists();
    m_reverse->setText(tr("Reverse polarity"));
    m_gain->setSuffix(tr(" dB"));
    m_agc->setSuffix(tr(" ms"));
    m_agc->setSpecialValueText(tr("off"));
    retranslateToolTips();
}

void OvSegyDisplayBar::retranslateToolTips()
{
    m_mode->setToolTip(tr("How the traces are drawn"));
    m_scaling->setToolTip(tr("Whether each trace is scaled by itself, or the gather as a whole"));
    m_colors->setToolTip(tr("Colors of the variable density"));
    m_gain->setToolTip(tr("Gain on top of the scaling"));
    m_agc->setToolTip(tr("Length of the automatic gain control window"));
    m_reverse->setToolTip(tr("Draws troughs as peaks; data and picks stay as they are"));
    for (QLabel* label : qAsConst(m_labels))
        label->setToolTip(label->buddy()->toolTip());
}

void OvSegyDisplayBar::retranslateLists()
{
    relabel(m_mode,
            {tr("Wiggle"), tr("Variable area"), tr("Wiggle and area"), tr("Variable density")});
    relabel(m_scaling, {tr("Each trace"), tr("Whole gather")});
    relabel(m_colors, {tr("Grey"), tr("Black-white-red"), tr("Blue-white-red")});
}

void OvSegyDisplayBar::reset()
{
    const QSignalBlocker mode(m_mode), scaling(m_scaling), colors(m_colors), gain(m_gain),
        agc(m_agc), reverse(m_reverse);
    const OvDisplayDefine define = OvDisplayDefineNode().define();
    m_mode->setCurrentIndex(define.mode);
    m_scaling->setCurrentIndex(define.scaling);
    m_colors->setCurrentIndex(define.colorMap);
    m_colors->setEnabled(define.mode == OvDisplayDefine::VariableDensity);
    m_gain->setValue(define.gainDb);
    m_agc->setValue(define.agcWindowMs);
    m_reverse->setChecked(define.reversePolarity);
    setEnabled(OvProjectManager::instance().define().isValid());
}

void OvSegyDisplayBar::store()
{
    OvDisplayDefineNode node;
    OvDisplayDefine define = node.define();
    define.mode = m_mode->currentIndex();
    define.scaling = m_scaling->currentIndex();
    define.colorMap = m_colors->currentIndex();
    define.gainDb = m_gain->value();
    define.agcWindowMs = m_agc->value();
    define.reversePolarity = m_reverse->isChecked();
    if (!node.setDefine(define))
        OvPluginUtil::showStatus(tr("The display settings could not be stored with the project."));
}
