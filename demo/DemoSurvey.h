#pragma once

#include "OvSeismic/OvStatus.h"

/// The demo survey in a folder: `demo_line.sgy`, the true first breaks `demo_line_truth.csv`, and
/// `demo_line_version.txt`, which is written last and vouches for the other two.
namespace DemoSurvey {

/// Whether folder holds the complete survey of this program's version with that many shots.
bool isComplete(const QString& folder, int shots);
/// Writes the survey, each file beside its place first and renamed when it is whole. The folder is
/// made when it does not exist.
OvStatus write(const QString& folder, int shots);

} // namespace DemoSurvey
