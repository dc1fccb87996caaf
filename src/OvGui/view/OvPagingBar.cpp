#include "OvGui/view/OvPagingBar.h"

#include "OvGui/view/OvElidedLabel.h"
#include "OvGui/view/OvFieldRecordBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>

#include <cmath>

OvPagingBar::OvPagingBar(QWidget* parent)
    : QWidget(parent)
{
    makeWidgets();
    arrange();
    connectWidgets();
    retranslate();
    setGather(0, 0, OvGatherKey::FieldRecord, 0.0);
}

QToolButton* OvPagingBar::makeButton(const QString& name)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void OvPagingBar::makeWidgets()
{
    m_previous = makeButton(QStringLiteral("previousButton"));
    m_previous->setArrowType(Qt::LeftArrow);
    m_previous->setAutoRepeat(true);
    m_next = makeButton(QStringLiteral("nextButton"));
    m_next->setArrowType(Qt::RightArrow);
    m_next->setAutoRepeat(true);
    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setObjectName(QStringLiteral("gatherSlider"));
    m_slider->setMinimumWidth(80);
    m_gatherLabel = new QLabel(this);
    m_gatherBox = new QSpinBox(this);
    m_gatherBox->setObjectName(QStringLiteral("gatherBox"));
    m_gatherBox->setKeyboardTracking(false);
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("gatherCountLabel"));
    m_recordLabel = new QLabel(this);
    m_recordBox = new OvFieldRecordBox(this);
    m_recordBox->setObjectName(QStringLiteral("fieldRecordBox"));
    m_zoomOut = makeButton(QStringLiteral("zoomOutButton"));
    m_zoomIn = makeButton(QStringLiteral("zoomInButton"));
    m_fit = makeButton(QStringLiteral("fitButton"));
    m_index = makeButton(QStringLiteral("readHeadersButton"));
    m_index->setAutoRaise(false);
    m_index->hide();
    m_readout = new OvElidedLabel(this);
    m_readout->setObjectName(QStringLiteral("readoutLabel"));
    m_gatherLabel->setBuddy(m_gatherBox);
    m_recordLabel->setBuddy(m_recordBox);
}

void OvPagingBar::arrange()
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    for (QWidget* widget : {static_cast<QWidget*>(m_previous), static_cast<QWidget*>(m_slider),
                            static_cast<QWidget*>(m_next)})
        layout->addWidget(widget);
    layout->setStretchFactor(m_slider, 2);
    for (QWidget* widget :
         {static_cast<QWidget*>(m_gatherLabel), static_cast<QWidget*>(m_gatherBox),
          static_cast<QWidget*>(m_countLabel), static_cast<QWidget*>(m_recordLabel),
          static_cast<QWidget*>(m_recordBox), static_cast<QWidget*>(m_zoomOut),
          static_cast<QWidget*>(m_zoomIn), static_cast<QWidget*>(m_fit),
          static_cast<QWidget*>(m_index)})
        layout->addWidget(widget);
    layout->addWidget(m_readout, 4);
}

void OvPagingBar::connectWidgets()
{
    connect(m_previous, &QToolButton::clicked, this, [this] { emit gatherChosen(m_gather - 1); });
    connect(m_next, &QToolButton::clicked, this, [this] { emit gatherChosen(m_gather + 1); });
    connect(m_slider, &QSlider::valueChanged, this, &OvPagingBar::gatherChosen);
    connect(m_gatherBox, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int number) { emit gatherChosen(number - 1); });
    connect(m_recordBox, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &OvPagingBar::keyChosen);
    connect(m_recordBox, &OvFieldRecordBox::stepped, this,
            [this](int steps) { emit gatherChosen(m_gather + steps); });
    connect(m_zoomIn, &QToolButton::clicked, this, &OvPagingBar::zoomInChosen);
    connect(m_zoomOut, &QToolButton::clicked, this, &OvPagingBar::zoomOutChosen);
    connect(m_fit, &QToolButton::clicked, this, &OvPagingBar::fitChosen);
    connect(m_index, &QToolButton::clicked, this, &OvPagingBar::indexChosen);
}

void OvPagingBar::setGather(int gather, int count, OvGatherKey key, double value)
{
    m_gather = gather;
    m_count = count;
    m_key = key;
    const QSignalBlocker slider(m_slider);
    const QSignalBlocker gatherBox(m_gatherBox);
    const QSignalBlocker recordBox(m_recordBox);
    m_slider->setRange(0, qMax(0, count - 1));
    m_slider->setPageStep(qMax(1, count / 20));
    m_slider->setValue(gather);
    m_gatherBox->setRange(qMin(1, count), count);
    m_gatherBox->setValue(gather + 1);
    m_recordBox->setSuffix(key == OvGatherKey::OffsetBin ? tr(" m") : QString());
    m_recordBox->setValue(std::isnan(value) ? m_recordBox->minimum()
                                            : static_cast<int>(std::floor(value)));
    m_previous->setEnabled(gather > 0);
    m_next->setEnabled(gather + 1 < count);
    for (QWidget* widget : {static_cast<QWidget*>(m_slider), static_cast<QWidget*>(m_gatherBox),
                            static_cast<QWidget*>(m_recordBox)})
        widget->setEnabled(count > 1);
    m_countLabel->setText(tr("of %1").arg(count));
    retranslateKey();
}

void OvPagingBar::retranslateKey()
{
    const QStringList labels{tr("Field &record"), tr("Sou&rce"), tr("&Receiver"), tr("CDP (&R)"),
                             tr("Offset (&R)")};
    const QStringList tips{tr("Go to a field record; the arrows step to the neighbouring gathers"),
                           tr("Go to a source position by its number, counted from the first trace "
                              "on; the arrows step to the neighbouring gathers"),
                           tr("Go to a receiver position by its number, counted from the first "
                              "trace on; the arrows step to the neighbouring gathers"),
                           tr("Go to a CDP; the arrows step to the neighbouring gathers"),
                           tr("Go to the gather that an offset falls into; the arrows step to the "
                              "neighbouring gathers")};
    m_recordLabel->setText(labels.at(static_cast<int>(m_key)));
    m_recordBox->setToolTip(tips.at(static_cast<int>(m_key)));
    m_recordBox->setSpecialValueText(tr("unknown"));
}

void OvPagingBar::setIndexOffered(bool offered)
{
    m_index->setVisible(offered);
}

void OvPagingBar::setReadout(const QString& text)
{
    m_readout->setText(text);
    m_readout->setToolTip(text);
}

void OvPagingBar::retranslate()
{
    m_gatherLabel->setText(tr("&Gather"));
    m_countLabel->setText(tr("of %1").arg(m_count));
    m_zoomOut->setText(tr("−"));
    m_zoomIn->setText(tr("+"));
    m_fit->setText(tr("Fit"));
    m_index->setText(tr("Read Headers"));
    m_index->setToolTip(tr("Read all trace headers of the file, to see all its gathers"));
    m_previous->setToolTip(tr("Previous gather (Left or Page Up)"));
    m_next->setToolTip(tr("Next gather (Right or Page Down)"));
    m_slider->setToolTip(tr("Leaf through the gathers (Home and End for the first and the last)"));
    m_gatherBox->setToolTip(tr("Position of the gather in the file"));
    retranslateKey();
    m_zoomIn->setToolTip(tr("Zoom in (+)"));
    m_zoomOut->setToolTip(tr("Zoom out (-)"));
    m_fit->setToolTip(tr("Show the whole gather (0)"));
}
