#pragma once

#include <QPointer>
#include <QWidget>

class OvGatherCanvas;
class OvGatherPane;
class OvGatherViewController;
class OvPlaneViewController;
class QLabel;
class QTimer;

/// One column of the parallel view: what a linked view shows, painted again. A gather view is
/// mirrored by a canvas of its own that follows the gather and settings of its source; of any other
/// view it shows a picture, taken anew whenever the source repaints.
class OvMirrorPanel : public QWidget
{
    Q_OBJECT

public:
    explicit OvMirrorPanel(OvPlaneViewController* source, QWidget* parent = nullptr);
    ~OvMirrorPanel() override;

    /// Null once the source is deleted.
    OvPlaneViewController* source() const { return m_source; }
    /// The source as a gather view; null when it is another kind.
    OvGatherViewController* gatherSource() const;
    /// Null for views that are mirrored as pictures.
    OvGatherCanvas* canvas() const { return m_canvas; }
    /// Whether what the source shows stands complete on the screen.
    bool isShowing() const;
    void retranslate();

signals:
    void readoutChanged(const QString& text);
    void gatherShown();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void mirrorGather(OvGatherViewController* source);
    void mirrorPicture();
    void takeProperties();
    void takePicture();

    QPointer<OvPlaneViewController> m_source;
    OvGatherCanvas* m_canvas = nullptr;
    OvGatherPane* m_pane = nullptr;
    QLabel* m_picture = nullptr;
    QTimer* m_refresh = nullptr;
};
