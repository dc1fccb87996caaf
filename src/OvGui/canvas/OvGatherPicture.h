#pragma once

#include "OvBase/OvDisplayDefine.h"
#include "OvGui/OvGuiExport.h"
#include "OvGui/canvas/OvDrawnGather.h"
#include "OvGui/canvas/OvTileCache.h"
#include "OvGui/canvas/OvViewState.h"
#include "OvGui/document/OvBackground.h"

#include <QObject>
#include <QPixmap>
#include <QSet>

#include <memory>

class QPainter;

/// The traces of one gather as a picture that is always there at once: tiles drawn in worker
/// threads, and until they come the last complete picture in their place, moved and stretched to
/// fit. GUI thread.
class OVGUI_EXPORT OvGatherPicture : public QObject
{
    Q_OBJECT

public:
    explicit OvGatherPicture(QObject* parent = nullptr);
    ~OvGatherPicture() override;

    /// Null data clears the picture.
    void setContent(const std::shared_ptr<const OvGather>& gather, const OvDisplayDefine& define);
    void setView(const OvViewState& state, double ratio);

    /// Whether the view is covered by tiles of the present content and scale.
    bool isComplete() const;
    /// Paints the data area with its upper left corner at the painter's origin.
    void paint(QPainter* painter) const;
    /// Draws the whole view now, in the calling thread.
    QImage renderNow() const;

signals:
    /// There is more to see than before.
    void updated();

private:
    struct Scale
    {
        double spacing = 0.0;
        double pixelsPerMs = 0.0;
        double ratio = 0.0;
        OvGatherExtent extent;
        bool operator!=(const Scale& other) const;
    };
    Scale scale() const;
    QRect tilesOf(const QRectF& content) const;
    QRectF contentOf(const QPoint& tile) const;
    QRectF contentInView() const;
    QRect tilesInView() const;
    QRect tilesWorthHaving() const;
    void keepBackdrop();
    void dropTiles();
    void requestTiles();
    void startTile(const QPoint& tile);
    void takeTile(int stamp, const QPoint& tile, const QImage& image);
    void takeDrawn(int stamp, const std::shared_ptr<const OvDrawnGather>& drawn);
    void paintTiles(QPainter* painter) const;
    void paintBackdrop(QPainter* painter) const;

    std::shared_ptr<const OvGather> m_gather;
    OvDisplayDefine m_define;
    std::shared_ptr<const OvDrawnGather> m_drawn; // null while it is prepared
    OvViewState m_state;
    double m_ratio = 1.0;
    OvTileCache m_tiles;
    QSet<QPoint> m_running;
    int m_contentStamp = 0;
    int m_tileStamp = 0;
    QPixmap m_backdrop;
    OvViewState m_backdropState;
    bool m_backdropIsOld = false; // shows other content than the present one
    OvBackground m_background;
};
