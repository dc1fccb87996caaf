#pragma once

#include "OvGui/OvPlaneViewController.h"
#include "OvGui/document/OvSegyDocument.h"

/// The view of a SEG-Y file gather by gather, with its first breaks.
///
/// A slider and keys page through the gathers; the mouse zooms, pans and reads time, trace and
/// amplitude into the status bar. The traces keep the file's order.
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
    /// Whether the gather last asked for is on the screen.
    bool isShowingData() const;

public slots:
    void zoomIn();
    void zoomOut();
    void zoomToFit();

signals:
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
