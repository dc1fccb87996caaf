#pragma once

#include <QByteArray>

class DemoLine;

/// The demo line as SEG-Y revision 1 with IEEE samples.
///
/// SEG Technical Standards Committee, 2002, SEG Y rev 1 Data Exchange Format.
namespace DemoSegy {

constexpr int firstFieldRecord = 1001;

/// The 3600 bytes ahead of the traces.
QByteArray fileHeaders(int shots);
/// Trace headers and samples of one shot.
QByteArray traces(const DemoLine& line, int shot);

} // namespace DemoSegy
