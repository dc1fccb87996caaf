#include "OvGui/parallel/OvMirrorPanel.h"

#include "OvGui/OvGatherViewController.h"
#include "OvGui/canvas/OvGatherCanvas.h"
#include "OvGui/tools/OvPanTool.h"
#include "OvGui/tools/OvReadoutTool.h"
#include "OvGui/tools/OvZoomTool.h"
#include "OvGui/view/OvGatherPane.h"

#include <QEvent>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int refreshMs = 100;

} // namespace

OvMirrorPanel::OvMirrorPanel(OvPlaneViewController* source, QWidget* parent)
    : QWidget(parent)
    , m_source(source)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* gatherView = qobject_cast<OvGatherViewController*>(source);
    if (gatherView != nullptr)
        mirrorGather(gatherView);
    else
        mirrorPicture();
}

OvMirrorPanel::~OvMirrorPanel() = default;

OvGatherViewController* OvMirrorPanel::gatherSource() const
{
    return qobject_cast<OvGatherViewController*>(m_source.data());
}

void OvMirrorPanel::mirrorGather(OvGatherViewController* source)
{
    m_canvas = new OvGatherCanvas(this);
    layout()->addWidget(m_canvas);
    m_pane = new OvGatherPane(source->document(), m_canvas);
    m_pane->setOrder(source->gatherOrder());
    m_pane->setCurrentGather(source->currentGather());
    setFocusProxy(m_canvas);
    new OvPanTool(m_canvas);
    new OvZoomTool(m_canvas);
    auto* readout = new OvReadoutTool(m_canvas);
    connect(readout, &OvReadoutTool::textChanged, this, &OvMirrorPanel::readoutChanged);
    connect(source, &OvPlaneViewController::currentGatherChanged, m_pane,
            &OvGatherPane::setCurrentGather);
    connect(source, &OvGatherViewController::gatherOrderChanged, m_pane, [this, source] {
        m_pane->setOrder(source->gatherOrder());
        takeProperties();
    });
    connect(m_pane, &OvGatherPane::gatherShown, this, &OvMirrorPanel::gatherShown);
    source->installEventFilter(this);
    takeProperties();
}

void OvMirrorPanel::mirrorPicture()
{
    m_picture = new QLabel(this);
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setMinimumSize(1, 1);
    layout()->addWidget(m_picture);
    m_refresh = new QTimer(this);
    m_refresh->setSingleShot(true);
    m_refresh->setInterval(refreshMs);
    connect(m_refresh, &QTimer::timeout, this, &OvMirrorPanel::takePicture);
    if (m_source->canvas() != nullptr)
        m_source->canvas()->installEventFilter(this);
    m_refresh->start();
}

void OvMirrorPanel::takeProperties()
{
    m_canvas->setDisplayDefine(qvariant_cast<OvDisplayDefine>(m_source->property("DisplayDefine")));
    m_canvas->setTraceHeaderDefine(gatherSource()->traceLabels());
}

void OvMirrorPanel::takePicture()
{
    if (!m_source)
        return;
    QWidget* canvas = m_source->canvas();
    const QPixmap picture = (canvas != nullptr ? canvas : m_source.data())->grab();
    m_picture->setPixmap(picture.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

bool OvMirrorPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (m_canvas != nullptr && event->type() == QEvent::DynamicPropertyChange)
        takeProperties();
    // Taking a picture paints the source, which must not start the next one.
    if (m_refresh != nullptr && event->type() == QEvent::UpdateRequest)
        m_refresh->start();
    return QWidget::eventFilter(watched, event);
}

void OvMirrorPanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_refresh != nullptr)
        m_refresh->start();
}

bool OvMirrorPanel::isShowing() const
{
    if (m_pane != nullptr)
        return m_pane->isShowing() && m_canvas->isComplete();
    return m_picture->pixmap() != nullptr && !m_refresh->isActive();
}

void OvMirrorPanel::retranslate()
{
    if (m_pane != nullptr)
        m_pane->retranslate();
}
