#pragma once

#include "OvBase/OvDisplayDefine.h"
#include "OvGui/OvGuiExport.h"
#include "OvGui/canvas/OvViewState.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvGather.h"

#include <QWidget>

#include <memory>

class OvCanvasTool;

/// Paints one gather with its axes, title and first breaks. Knows no document: whoever owns it
/// hands it what to show. GUI thread; the traces are drawn in worker threads.
class OVGUI_EXPORT OvGatherCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit OvGatherCanvas(QWidget* parent = nullptr);
    ~OvGatherCanvas() override;

    /// Null clears the canvas. Scale and scroll stay as far as the new gather allows.
    void setGather(const std::shared_ptr<const OvGather>& gather);
    std::shared_ptr<const OvGather> gather() const;
    void setFirstBreaks(const OvFirstBreaks& breaks);
    const OvFirstBreaks& firstBreaks() const;
    /// Picks that are only proposed, in a colour of their own; empty for none.
    void setPreviewPicks(const OvFirstBreaks& breaks);
    const OvFirstBreaks& previewPicks() const;
    void setDisplayDefine(const OvDisplayDefine& define);
    const OvDisplayDefine& displayDefine() const;
    void setTraceHeaderDefine(const OvTraceHeaderDefine& define);
    /// Where room is short, name is cut before place is.
    void setTitle(const QString& name, const QString& place = {});
    QString title() const;

    /// In place of the data, or, while a gather is shown, in a strip at its lower edge. Empty for
    /// none.
    void setMessage(const QString& message);
    QString message() const;
    /// Off for the panels of a parallel view that share the axis of their neighbour.
    void setTimeAxisVisible(bool visible);

    /// Times that can be scrolled to beyond those of the gather, so that views side by side agree.
    void setLeastTimes(const OvGatherExtent& times);

    const OvViewState& viewState() const;
    /// Takes over scale, scroll and the fitted state of another view.
    void followView(const OvViewState& other);
    void setScale(double traceSpacing, double pixelsPerMs);
    void fit();
    /// The scale for a view that nobody has chosen one for; see OvViewState::open().
    void openFitted();
    void zoomAt(const QPointF& widgetPoint, double traceFactor, double timeFactor);
    /// Zooms about the middle.
    void zoomBy(double factor);
    void zoomTo(const QRectF& widgetRect);
    void panBy(const QPointF& pixels);

    /// The data area, in widget coordinates.
    QRect dataRect() const;
    /// Where a time of a trace stands, in widget coordinates.
    QPointF pointOf(int row, double timeMs) const;
    /// The row under a point; -1 beside the traces and outside the data area.
    int rowAt(const QPointF& widgetPoint) const;
    double timeAt(const QPointF& widgetPoint) const;

    void addTool(OvCanvasTool* tool);
    /// Whether the gather stands complete on the screen.
    bool isComplete() const;
    /// The canvas as a picture, drawn completely whatever is on the screen.
    QImage picture() const;

    QSize sizeHint() const override;

signals:
    /// Scale or scroll has changed.
    void viewChanged();
    /// The user has zoomed or fitted: the scale of the view is another one.
    void scaleChosen();
    /// The gather set last has been painted completely for the first time.
    void gatherPainted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
