#pragma once

#include "OvGui/canvas/OvCanvasTool.h"

#include <QPointF>

/// Says what lies under the mouse: time, trace, offset, amplitude.
class OVGUI_EXPORT OvReadoutTool : public OvCanvasTool
{
    Q_OBJECT

public:
    using OvCanvasTool::OvCanvasTool;

    bool mouseMove(QMouseEvent* event) override;
    void leave() override;
    /// Empty beside the traces.
    QString textAt(const QPointF& widgetPoint) const;

signals:
    void textChanged(const QString& text);

private:
    QString pickOf(int row) const;
    QString amplitudeAt(int row, double timeMs) const;
    void setText(const QString& text);
    QString m_text;
};
