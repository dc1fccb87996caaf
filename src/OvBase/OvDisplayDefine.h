#pragma once

#include "OvBase/OvBaseExport.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QMetaType>
#include <QVariantMap>

/// How gathers are drawn. One value a project, a copy on each workspace.
struct OVBASE_EXPORT OvDisplayDefine
{
    enum Mode { Wiggle = 0, VariableArea = 1, WiggleVariableArea = 2, VariableDensity = 3 };
    enum Scaling { PerTrace = 0, PerGather = 1 };
    enum ColorMap { Grey = 0, BlackWhiteRed = 1, BlueWhiteRed = 2 };

    int mode = WiggleVariableArea;
    double gainDb = 0.0; ///< on top of the scaling, dB
    int scaling = PerTrace;
    int agcWindowMs = 0; ///< length of the automatic-gain window, ms; 0 off
    double clip = 1.5;   ///< excursion limit of a wiggle, in trace spacings
    int colorMap = Grey;
    bool reversePolarity = false;
    bool showPicks = true; ///< the workspace flag: each window keeps its own

    bool operator==(const OvDisplayDefine& other) const;
    bool operator!=(const OvDisplayDefine& other) const { return !(*this == other); }
    QVariantMap toMap() const;
    /// Missing or unfit entries take the default.
    static OvDisplayDefine fromMap(const QVariantMap& map);
};
Q_DECLARE_METATYPE(OvDisplayDefine)

/// The scale at which gathers are shown.
struct OVBASE_EXPORT OvFitDisplayDefine
{
    bool fitted = false;       ///< the fit flag: the view follows the size of its window
    double traceSpacing = 8.0; ///< device-independent pixels from trace to trace
    double pixelsPerSecond = 600.0;

    bool operator==(const OvFitDisplayDefine& other) const;
    bool operator!=(const OvFitDisplayDefine& other) const { return !(*this == other); }
    QVariantMap toMap() const;
    static OvFitDisplayDefine fromMap(const QVariantMap& map);
};
Q_DECLARE_METATYPE(OvFitDisplayDefine)

/// Where the trace headers keep their words, and which of them labels the traces.
///
/// The label is a matter of each window. The mapping is one a project: every gather view takes over
/// a new one, whether it is active or not.
struct OVBASE_EXPORT OvTraceHeaderDefine
{
    enum Word { Channel = 0, Offset = 1, ReceiverX = 2, TraceNumber = 3, Cdp = 4 };

    int axisWord = Channel;
    OvTraceHeaderMapping mapping; ///< of all files of the project

    bool operator==(const OvTraceHeaderDefine& other) const;
    bool operator!=(const OvTraceHeaderDefine& other) const { return !(*this == other); }
    QVariantMap toMap() const;
    static OvTraceHeaderDefine fromMap(const QVariantMap& map);
};
Q_DECLARE_METATYPE(OvTraceHeaderDefine)
