#pragma once

#include "OvGui/OvGuiExport.h"

#include <QHash>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QVector>

inline uint qHash(const QPoint& tile, uint seed = 0)
{
    return ::qHash(qMakePair(tile.x(), tile.y()), seed);
}

/// Finished tiles of one picture, by column and row of a grid, up to a number of bytes. When it is
/// full the tiles farthest from the viewport go first; those in the viewport stay, whatever they
/// take. No thread of its own.
class OVGUI_EXPORT OvTileCache
{
public:
    explicit OvTileCache(qint64 maximumBytes);

    /// The tiles in view.
    void setViewport(const QRect& tiles) { m_viewport = tiles; }
    QRect viewport() const { return m_viewport; }
    /// Null when the tile is not there.
    const QImage* find(const QPoint& tile) const;
    void insert(const QPoint& tile, const QImage& image);
    void clear();
    int count() const { return m_tiles.size(); }
    qint64 bytes() const { return m_bytes; }

    bool hasAll(const QRect& tiles) const;
    /// Tiles of the rectangle that are not there, nearest to the viewport's middle first; those in
    /// the viewport before the others.
    QVector<QPoint> missing(const QRect& tiles) const;

private:
    /// Square of the distance in tiles, tiles out of view behind those in it.
    double distance(const QPoint& tile) const;
    void evict();

    qint64 m_maximumBytes;
    qint64 m_bytes = 0;
    QRect m_viewport;
    QHash<QPoint, QImage> m_tiles;
};
