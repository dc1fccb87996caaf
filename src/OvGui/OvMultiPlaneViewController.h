#pragma once

#include "OvGui/OvAbstractViewController.h"

#include <QList>

class OvPlaneViewController;

/// The parallel view: the pictures of several plane views side by side, moving together.
///
/// It does not own or reparent the linked views; it shows mirrors of them, and drops a view that is
/// deleted.
class OVGUI_EXPORT OvMultiPlaneViewController : public OvAbstractViewController
{
    Q_OBJECT

public:
    explicit OvMultiPlaneViewController(QWidget* parent = nullptr);
    ~OvMultiPlaneViewController() override;

    void setUsedViewControllers(const QList<OvPlaneViewController*>& views);
    /// In the order shown.
    QList<OvPlaneViewController*> usedViewControllers() const;
    /// Whether every linked view stands on the screen with the gather it shows; false without any.
    bool isShowingData() const;
    QString description() const override;
    void handleKeyEvent(QKeyEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
