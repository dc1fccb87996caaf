#pragma once

#include "OvBase/OvDisplayDefine.h"
#include "OvGui/OvPlaneViewController.h"
#include "OvGui/document/OvSegyDocument.h"
#include "OvSeismic/segy/OvGatherOrder.h"

class QUndoStack;

/// The view of a SEG-Y file gather by gather, with its first breaks.
///
/// A slider and keys page through the gathers; the mouse zooms, pans and reads time, trace and
/// amplitude into the status bar. The gathers are those of the file's field records, in the file's
/// order, unless another order is set.
class OVGUI_EXPORT OvGatherViewController : public OvPlaneViewController
{
    Q_OBJECT

public:
    explicit OvGatherViewController(const QSharedPointer<OvSegyDocument>& document,
                                    QWidget* parent = nullptr);
    ~OvGatherViewController() override;

    QSharedPointer<OvSegyDocument> document() const;

    QString description() const override;
    bool editable() const override;
    QWidget* canvas() const override;
    int currentGather() const override;
    int gatherCount() const override;
    void setCurrentGather(int gather) override;
    void handleKeyEvent(QKeyEvent* event) override;
    void captureScreenshot() override;

    /// Writes a picture of the view, axes and picks included, at its present size.
    OvStatus savePicture(const QString& path);
    /// The same as an image.
    QImage picture();
    /// Which traces form a gather here, and in which order; the document's own order unless
    /// changed. Picks belong to traces and so show in every order.
    OvGatherOrder gatherOrder() const;
    /// The gathers of this view; of the order from before while another one is worked out. Never
    /// null.
    std::shared_ptr<const OvSegyIndex> gatherIndex() const;
    /// "TraceHeaderDefine" with the word that labels the traces here: the one they are sorted by
    /// where there is a label for it.
    OvTraceHeaderDefine traceLabels() const;
    /// Whether the gather last asked for is on the screen.
    bool isShowingData() const;

    /// Why first breaks cannot be edited, for the user; empty when they can.
    QString editObstacle() const;
    /// Whether the mouse and the keys edit picks, see OvPickTool.
    bool isEditing() const;
    /// Shows picks of some traces (positions in the file) that are only proposed; empty ones end
    /// it. Nothing is stored.
    void setPreviewPicks(const std::vector<qint64>& traces, const OvFirstBreaks& breaks);
    /// The edits by hand, for actions that follow them; null without a document.
    QUndoStack* undoStack() const;

public slots:
    /// The trace that came first stays in view.
    void setGatherOrder(const OvGatherOrder& order);
    /// Says why when editing is not possible, and stays off.
    void setEditing(bool editing);
    /// Milliseconds within which a pick made by hand snaps to an arrival; 0 exactly where clicked.
    void setSnapWindow(int windowMs);
    /// Both go to the gather that they change.
    void undoPickEdit();
    void redoPickEdit();
    /// Rejects the pick of the marked trace, or restores it as a manual one.
    void toggleRejectedPick();
    /// Rejects the automatic picks of this gather that are probably wrong, and says how many; can
    /// be undone.
    void classifyFB();
    void zoomIn();
    void zoomOut();
    void zoomToFit();

signals:
    void editingChanged(bool editing);
    void gatherOrderChanged();
    /// The user wants to know more of the file than its banner says.
    void detailsRequested();
    /// The first time the current gather stands on the screen after a change of gather.
    void gatherShown(int gather);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
