#include "OvGui/canvas/OvGatherPicture.h"

#include "OvGui/canvas/OvGatherRenderer.h"

#include <QPainter>
#include <QThreadPool>

#include <cmath>

namespace {

constexpr int tileSize = 384; // device-independent pixels
constexpr qint64 cacheBytes = 96LL << 20U;

} // namespace

OvGatherPicture::OvGatherPicture(QObject* parent)
    : QObject(parent)
    , m_tiles(cacheBytes)
    , m_background(OvBackground::paintPool())
{
}

OvGatherPicture::~OvGatherPicture() = default;

bool OvGatherPicture::Scale::operator!=(const Scale& other) const
{
    return spacing != other.spacing || pixelsPerMs != other.pixelsPerMs || ratio != other.ratio ||
           extent != other.extent;
}

OvGatherPicture::Scale OvGatherPicture::scale() const
{
    return {m_state.traceSpacing(), m_state.pixelsPerMs(), m_ratio, m_state.extent()};
}

void OvGatherPicture::setContent(const std::shared_ptr<const OvGather>& gather,
                                 const OvDisplayDefine& define)
{
    keepBackdrop();
    m_backdropIsOld = !m_backdrop.isNull();
    m_gather = gather;
    m_define = define;
    m_drawn.reset();
    dropTiles();
    ++m_contentStamp;
    if (!gather) {
        m_backdrop = QPixmap();
        m_backdropIsOld = false;
        emit updated();
        return;
    }
    m_background.run(
        [this, gather, define, stamp = m_contentStamp](const OvBackground::Post& post) {
            const auto drawn = std::make_shared<const OvDrawnGather>(gather, define);
            post([this, stamp, drawn] { takeDrawn(stamp, drawn); });
        });
}

void OvGatherPicture::takeDrawn(int stamp, const std::shared_ptr<const OvDrawnGather>& drawn)
{
    if (stamp != m_contentStamp)
        return;
    m_drawn = drawn;
    requestTiles();
    if (!isComplete())
        return;
    m_backdropIsOld = false;
    emit updated();
}

void OvGatherPicture::setView(const OvViewState& state, double ratio)
{
    if (state == m_state && ratio == m_ratio)
        return;
    OvGatherPicture::Scale before = scale();
    const bool sameScale = state.traceSpacing() == before.spacing &&
                           state.pixelsPerMs() == before.pixelsPerMs && ratio == before.ratio &&
                           state.extent() == before.extent;
    if (!sameScale) {
        keepBackdrop();
        dropTiles();
    }
    m_state = state;
    m_ratio = ratio;
    m_tiles.setViewport(tilesInView());
    requestTiles();
}

QRectF OvGatherPicture::contentInView() const
{
    const QPointF corner((m_state.left() - m_state.minimumLeft()) * m_state.traceSpacing(),
                         (m_state.topMs() - m_state.extent().startMs) * m_state.pixelsPerMs());
    return {corner, m_state.viewSize()};
}

QRectF OvGatherPicture::contentOf(const QPoint& tile) const
{
    return {double(tile.x()) * tileSize, double(tile.y()) * tileSize, tileSize, tileSize};
}

QRect OvGatherPicture::tilesOf(const QRectF& content) const
{
    const QRectF all(0.0, 0.0,
                     (m_state.extent().traceCount - 2.0 * m_state.minimumLeft()) *
                         m_state.traceSpacing(),
                     m_state.extent().durationMs() * m_state.pixelsPerMs());
    const QRectF part = content.intersected(all);
    if (part.isEmpty())
        return {};
    const auto low = [](double value) { return static_cast<int>(std::floor(value / tileSize)); };
    const auto high = [](double value) {
        return static_cast<int>(std::ceil(value / tileSize)) - 1;
    };
    return {QPoint(low(part.left()), low(part.top())),
            QPoint(high(part.right()), high(part.bottom()))};
}

QRect OvGatherPicture::tilesInView() const
{
    return m_state.extent().isEmpty() ? QRect() : tilesOf(contentInView());
}

bool OvGatherPicture::isComplete() const
{
    return m_drawn && m_tiles.hasAll(tilesInView());
}

void OvGatherPicture::keepBackdrop()
{
    if (!isComplete())
        return;
    QPixmap picture((m_state.viewSize() * m_ratio).toSize());
    picture.setDevicePixelRatio(m_ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    paintTiles(&painter);
    m_backdrop = picture;
    m_backdropState = m_state;
    m_backdropIsOld = false;
}

void OvGatherPicture::dropTiles()
{
    m_tiles.clear();
    m_running.clear();
    ++m_tileStamp;
}

QRect OvGatherPicture::tilesWorthHaving() const
{
    const QRect around =
        tilesOf(contentInView().adjusted(-tileSize, -tileSize, tileSize, tileSize));
    const double bytes = std::pow(tileSize * m_ratio, 2.0) * 4.0 * around.width() * around.height();
    // More than fits would be drawn and dropped for ever.
    return bytes < cacheBytes ? around : tilesInView();
}

void OvGatherPicture::requestTiles()
{
    if (!m_drawn || m_state.extent().isEmpty())
        return;
    const int parallel = OvBackground::paintPool()->maxThreadCount();
    const auto missing = m_tiles.missing(tilesWorthHaving());
    for (const QPoint& tile : missing) {
        if (m_running.size() >= parallel)
            return;
        if (!m_running.contains(tile))
            startTile(tile);
    }
}

void OvGatherPicture::startTile(const QPoint& tile)
{
    const QRectF rect = contentOf(tile).translated(-contentInView().topLeft());
    const OvTileGeometry geometry = OvTileGeometry::of(m_state, rect, m_ratio);
    m_running.insert(tile);
    m_background.run([this, tile, geometry, drawn = m_drawn, define = m_define,
                      stamp = m_tileStamp](const OvBackground::Post& post) {
        const QImage image = OvGatherRenderer::render(*drawn, define, geometry);
        post([this, stamp, tile, image] { takeTile(stamp, tile, image); });
    });
}

void OvGatherPicture::takeTile(int stamp, const QPoint& tile, const QImage& image)
{
    if (stamp != m_tileStamp)
        return;
    const bool wasVisible = m_tiles.viewport().contains(tile);
    m_running.remove(tile);
    m_tiles.insert(tile, image);
    requestTiles();
    if (!wasVisible)
        return;
    if (isComplete())
        m_backdropIsOld = false;
    emit updated();
}

void OvGatherPicture::paint(QPainter* painter) const
{
    if (!m_gather)
        return;
    // Pieces of two gathers side by side would mislead: the old picture stays until the new one is
    // whole.
    if (!isComplete())
        paintBackdrop(painter);
    if (!m_backdropIsOld)
        paintTiles(painter);
}

void OvGatherPicture::paintTiles(QPainter* painter) const
{
    const QPointF corner = contentInView().topLeft();
    const QRect tiles = tilesInView();
    for (int y = tiles.top(); y <= tiles.bottom(); ++y) {
        for (int x = tiles.left(); x <= tiles.right(); ++x) {
            const QImage* image = m_tiles.find(QPoint(x, y));
            if (image == nullptr)
                continue;
            // Whole physical pixels, or the picture would blur as it scrolls.
            const QPointF place = (contentOf(QPoint(x, y)).topLeft() - corner) * m_ratio;
            const QPointF snapped(std::round(place.x()), std::round(place.y()));
            painter->drawImage(QRectF(snapped / m_ratio, QSizeF(image->size()) / m_ratio), *image);
        }
    }
}

void OvGatherPicture::paintBackdrop(QPainter* painter) const
{
    if (m_backdrop.isNull())
        return;
    const QSizeF size = m_backdropState.viewSize();
    if (m_backdropIsOld) {
        painter->drawPixmap(QPointF(0.0, 0.0), m_backdrop);
        return;
    }
    const auto xOf = [this](double x) { return m_state.xOf(m_backdropState.traceAt(x)); };
    const auto yOf = [this](double y) { return m_state.yOf(m_backdropState.timeAt(y)); };
    const QRectF target(QPointF(xOf(0.0), yOf(0.0)),
                        QPointF(xOf(size.width()), yOf(size.height())));
    painter->drawPixmap(target, m_backdrop, QRectF(QPointF(0.0, 0.0), QSizeF(m_backdrop.size())));
}

QImage OvGatherPicture::renderNow() const
{
    const QSizeF size = m_state.viewSize();
    if (!m_gather || m_state.extent().isEmpty())
        return {};
    const auto drawn =
        m_drawn ? m_drawn : std::make_shared<const OvDrawnGather>(m_gather, m_define);
    return OvGatherRenderer::render(*drawn, m_define,
                                    OvTileGeometry::of(m_state, QRectF(QPointF(), size), m_ratio));
}
