#include "OvGui/canvas/OvTileCache.h"

#include <algorithm>

namespace {

qint64 bytesOf(const QImage& image)
{
    return static_cast<qint64>(image.bytesPerLine()) * image.height();
}

} // namespace

OvTileCache::OvTileCache(qint64 maximumBytes)
    : m_maximumBytes(maximumBytes)
{
}

const QImage* OvTileCache::find(const QPoint& tile) const
{
    const auto place = m_tiles.constFind(tile);
    return place == m_tiles.constEnd() ? nullptr : &*place;
}

void OvTileCache::insert(const QPoint& tile, const QImage& image)
{
    const QImage* known = find(tile);
    if (known != nullptr)
        m_bytes -= bytesOf(*known);
    m_tiles.insert(tile, image);
    m_bytes += bytesOf(image);
    evict();
}

void OvTileCache::clear()
{
    m_tiles.clear();
    m_bytes = 0;
}

double OvTileCache::distance(const QPoint& tile) const
{
    const double dx = tile.x() + 0.5 - (m_viewport.x() + m_viewport.width() / 2.0);
    const double dy = tile.y() + 0.5 - (m_viewport.y() + m_viewport.height() / 2.0);
    constexpr double behind = 1e12;
    return dx * dx + dy * dy + (m_viewport.contains(tile) ? 0.0 : behind);
}

void OvTileCache::evict()
{
    while (m_bytes > m_maximumBytes && m_tiles.size() > 1) {
        QPoint farthest = m_tiles.constBegin().key();
        for (auto place = m_tiles.constBegin(); place != m_tiles.constEnd(); ++place)
            if (distance(place.key()) > distance(farthest))
                farthest = place.key();
        if (m_viewport.contains(farthest))
            return;
        m_bytes -= bytesOf(m_tiles.take(farthest));
    }
}

bool OvTileCache::hasAll(const QRect& tiles) const
{
    return missing(tiles).isEmpty();
}

QVector<QPoint> OvTileCache::missing(const QRect& tiles) const
{
    QVector<QPoint> result;
    for (int y = tiles.top(); y <= tiles.bottom(); ++y)
        for (int x = tiles.left(); x <= tiles.right(); ++x)
            if (!m_tiles.contains(QPoint(x, y)))
                result.append(QPoint(x, y));
    std::sort(result.begin(), result.end(),
              [this](const QPoint& a, const QPoint& b) { return distance(a) < distance(b); });
    return result;
}
