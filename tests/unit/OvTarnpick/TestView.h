#pragma once

#include "OvGui/OvPlaneViewController.h"

/// A plane view that notes what the window asks of it.
class TestView : public OvPlaneViewController
{
    Q_OBJECT

public:
    explicit TestView(const QString& name, bool editable = true);

    QString description() const override { return name; }
    bool saveable() const override { return canSave; }
    void handleKeyEvent(QKeyEvent* event) override;
    void captureScreenshot() override { ++captures; }
    bool editable() const override { return m_editable; }
    QWidget* canvas() const override { return m_canvas; }
    int currentGather() const override { return m_gather; }
    int gatherCount() const override { return 10; }

    QString name;
    bool canSave = true;
    int saves = 0;
    int captures = 0;
    QList<int> keys;

public slots:
    void setCurrentGather(int gather) override;
    void save() { ++saves; }

private:
    QWidget* m_canvas;
    bool m_editable;
    int m_gather = 0;
};

/// A view of picks.
class TestPickView : public TestView
{
    Q_OBJECT

public:
    using TestView::TestView;

    int classified = 0;

public slots:
    void classifyFB() { ++classified; }
};
