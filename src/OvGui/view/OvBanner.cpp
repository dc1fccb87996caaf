#include "OvGui/view/OvBanner.h"

#include "OvGui/view/OvElidedLabel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QStyle>
#include <QToolButton>

namespace {

constexpr double tint = 0.3; // of amber in the ground

QColor mixed(const QColor& ground, const QColor& color)
{
    const auto part = [](double a, double b) { return a * (1.0 - tint) + b * tint; };
    return QColor::fromRgbF(part(ground.redF(), color.redF()),
                            part(ground.greenF(), color.greenF()),
                            part(ground.blueF(), color.blueF()));
}

} // namespace

OvBanner::OvBanner(QWidget* parent)
    : QFrame(parent)
    , m_icon(new QLabel(this))
    , m_label(new OvElidedLabel(this))
    , m_reload(makeButton(QStringLiteral("bannerReload")))
    , m_details(makeButton(QStringLiteral("bannerDetails")))
    , m_close(makeButton(QStringLiteral("bannerClose")))
{
    setObjectName(QStringLiteral("banner"));
    setAutoFillBackground(true);
    m_label->setObjectName(QStringLiteral("bannerText"));
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->addWidget(m_icon);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_reload);
    layout->addWidget(m_details);
    layout->addWidget(m_close);
    connect(m_reload, &QToolButton::clicked, this, &OvBanner::reloadChosen);
    connect(m_details, &QToolButton::clicked, this, &OvBanner::detailsChosen);
    connect(m_close, &QToolButton::clicked, this, &OvBanner::putAway);
    retranslate();
    takeColors();
    hide();
}

QToolButton* OvBanner::makeButton(const QString& name)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void OvBanner::setNotice(const QString& text, bool reloadable)
{
    m_text = text;
    if (text != m_putAway)
        m_putAway.clear();
    m_label->setText(text);
    m_label->setToolTip(text.toHtmlEscaped());
    m_reload->setVisible(reloadable);
    m_details->setVisible(!reloadable);
    setVisible(!text.isEmpty() && text != m_putAway);
}

void OvBanner::putAway()
{
    m_putAway = m_text;
    hide();
}

void OvBanner::retranslate()
{
    m_reload->setText(tr("Reload"));
    m_reload->setToolTip(tr("Read the file as it is now"));
    m_details->setText(tr("Details"));
    m_details->setToolTip(tr("What is known of the file, and what is odd"));
    m_close->setText(tr("×"));
    m_close->setToolTip(tr("Put this message away"));
}

void OvBanner::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange)
        takeColors();
    QFrame::changeEvent(event);
}

void OvBanner::takeColors()
{
    QPalette colors;
    colors.setColor(QPalette::Window, mixed(colors.color(QPalette::Window), QColor(255, 180, 0)));
    setPalette(colors);
}
