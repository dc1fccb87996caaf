#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvGui/canvas/OvViewState.h"
#include "OvSeismic/segy/OvGather.h"

#include <QCoreApplication>
#include <QRect>
#include <QString>
#include <QVector>

#include <memory>

class QFontMetrics;
class QPainter;

/// The trace axis, above the data: the values of one trace-header word.
class OVGUI_EXPORT OvTraceAxis
{
    Q_DECLARE_TR_FUNCTIONS(OvTraceAxis)

public:
    struct Tick
    {
        int row;
        QString label;
    };

    OvTraceAxis() = default;
    /// word is an OvTraceHeaderDefine::Word.
    OvTraceAxis(std::shared_ptr<const OvGather> gather, int word);

    QString title() const;
    /// Empty where the file has no value.
    QString label(int row) const;
    /// Labelled rows in view, labels not overlapping; round values where the word counts up by one.
    QVector<Tick> ticks(const OvViewState& state, const QFontMetrics& metrics) const;

    static int height(const QFontMetrics& metrics);
    /// Paints into area, whose left edge is the left edge of the data.
    void paint(QPainter* painter, const QRect& area, const OvViewState& state) const;

private:
    double value(int row) const;
    bool hasValues() const;
    bool isCounting() const;
    int longestLabel() const;

    std::shared_ptr<const OvGather> m_gather;
    int m_word = 0;
    int m_decimals = 0;
    bool m_known = true;
    bool m_counting = false;
    int m_longestLabel = 1; // characters
};
