#pragma once

#include <QMdiArea>
#include <QScopedPointer>

class OvAbstractViewController;
class OvMdiAreaPrivate;

/// The area that holds the workspaces, one in each sub-window, over a background with the logo.
class OvMdiArea : public QMdiArea
{
    Q_OBJECT

public:
    explicit OvMdiArea(QWidget* parent = nullptr);
    ~OvMdiArea() override;

    /// The workspace last announced; null when none was, or when it was deleted since.
    OvAbstractViewController* activeWorkspace() const;
    QSize sizeHint() const override;

signals:
    /// Another workspace is on top; null for none.
    void workspaceActivated(OvAbstractViewController* workspace);

public slots:
    /// Side by side, in stacking order; sub-windows that are shaded or hidden stay where they are.
    void tileHorizontally();
    /// As tileHorizontally(), one above another.
    void tileVertically();

private slots:
    void slotActiveSubWindowChanged(QMdiSubWindow* subWindow);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QScopedPointer<OvMdiAreaPrivate> d;
};
