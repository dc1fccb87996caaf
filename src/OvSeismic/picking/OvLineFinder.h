#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

/// Tells lines of positions apart.
namespace OvLineFinder {

struct Place
{
    double x = 0.0;
    double y = 0.0;
};

/// Number of each place among the different ones, in the order in which these first come.
OVSEISMIC_EXPORT std::vector<int> numbersOf(const std::vector<Place>& places);

/// The line of each place, from 0. Places no farther apart than 1.6 times the usual distance to the
/// nearest one make a piece; pieces that go on from each other, with a gap or a bend between them,
/// make a line, the straightest continuations first; pieces side by side do not. All 0 where
/// the places make hundreds of pieces, or lie in no order along their lines: that is no pattern of
/// lines.
OVSEISMIC_EXPORT std::vector<int> find(const std::vector<Place>& places);

} // namespace OvLineFinder
