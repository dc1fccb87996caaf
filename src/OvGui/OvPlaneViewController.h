#pragma once

#include "OvGui/OvAbstractViewController.h"

/// A view of one plane of data: a gather, a section.
class OVGUI_EXPORT OvPlaneViewController : public OvAbstractViewController
{
    Q_OBJECT

public:
    explicit OvPlaneViewController(QWidget* parent = nullptr);
    ~OvPlaneViewController() override;

    /// Whether the view's picks can be edited; only views that agree on it share a parallel view.
    virtual bool editable() const = 0;
    /// The widget that paints the plane. Owned by the view.
    virtual QWidget* canvas() const = 0;

    /// The gather shown, as a position among the gathers of its file, and how many there are.
    virtual int currentGather() const = 0;
    virtual int gatherCount() const = 0;

public slots:
    virtual void setCurrentGather(int gather) = 0;

signals:
    void currentGatherChanged(int gather);
};
