#pragma once

#include "OvBase/OvDisplayDefine.h"
#include "OvGui/canvas/OvCanvasLayout.h"
#include "OvGui/canvas/OvTraceAxis.h"
#include "OvGui/canvas/OvViewState.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvGather.h"

#include <QPalette>
#include <QString>

#include <functional>
#include <memory>

class QPainter;

/// All that a canvas shows, and how it is painted. No widget.
class OvCanvasScene
{
public:
    using Paint = std::function<void(QPainter*)>;

    OvViewState state;
    OvCanvasLayout layout;
    std::shared_ptr<const OvGather> gather;
    OvFirstBreaks breaks;
    OvFirstBreaks preview; ///< proposed, not stored
    OvDisplayDefine define;
    OvTraceHeaderDefine headerDefine;
    OvTraceAxis traceAxis;
    QString titleName;
    QString titlePlace;
    QString message;
    bool timeAxisVisible = true;

    /// Name and place in one line.
    QString title() const { return titleOf(titleName); }

    /// paintTraces paints with the upper left corner of the data at the origin, paintTools in the
    /// coordinates of the canvas.
    void paint(QPainter* painter, const QPalette& palette, const Paint& paintTraces,
               const Paint& paintTools) const;

private:
    QString titleOf(const QString& name) const;
    void paintTitle(QPainter* painter) const;
    void paintAxes(QPainter* painter) const;
    void paintData(QPainter* painter, const Paint& paintTraces, const Paint& paintTools) const;
    void paintGrid(QPainter* painter) const;
};
