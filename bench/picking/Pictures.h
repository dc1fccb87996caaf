#pragma once

#include "Scores.h"

#include "OvSeismic/picking/OvPicker.h"

#include <QColor>
#include <QImage>

#include <vector>

namespace Pictures {

struct Marks
{
    QColor colour;
    std::vector<double> timesMs; ///< one a trace; NaN leaves it out
};

/// A gather in shades of grey, each trace scaled to its own, up to endMs, with marks over it.
QImage gather(const OvGather& gather, double endMs, const std::vector<Marks>& marks,
              const QString& title);

/// Share of right picks over the confidence that they were given.
QImage reliability(const std::vector<std::vector<Scores::Bin>>& curves, const QStringList& names);

} // namespace Pictures
