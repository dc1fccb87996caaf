#include "RecordedLine.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QFile>
#include <QTextStream>

#include <cmath>
#include <limits>

namespace {

bool complain(const OvStatus& status)
{
    if (!status)
        QTextStream(stderr) << status.message() << '\n';
    return status.ok();
}

} // namespace

bool RecordedLine::forEachGather(const QString& path,
                                 const std::function<void(const OvGather& gather)>& each)
{
    OvSegyFile file;
    OvSegyIndex index;
    if (!complain(file.open(path)) || !complain(index.build(file)))
        return false;
    for (int ordinal = 0; ordinal < index.gatherCount(); ++ordinal) {
        OvGather gather;
        if (!complain(index.readGather(file, ordinal, &gather)))
            return false;
        each(gather);
    }
    return true;
}

std::vector<RecordedLine::ManualPick> RecordedLine::readPicks(const QString& path)
{
    constexpr double msPerSecond = 1000.0;
    std::vector<ManualPick> picks;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << path << ": " << file.errorString() << '\n';
        return picks;
    }
    while (!file.atEnd()) {
        const QList<QByteArray> words = file.readLine().simplified().split(' ');
        if (words.size() == 3)
            picks.push_back(
                {words[0].toDouble(), words[1].toDouble(), msPerSecond * words[2].toDouble()});
    }
    return picks;
}

std::vector<double> RecordedLine::manualTimes(const OvGather& gather,
                                              const std::vector<ManualPick>& picks)
{
    constexpr double samePlace = 0.6;
    std::vector<double> times(gather.headers.size(), std::numeric_limits<double>::quiet_NaN());
    for (const ManualPick& pick : picks) {
        for (std::size_t row = 0; row < times.size(); ++row) {
            const OvTraceHeader& header = gather.headers[row];
            if (std::abs(header.sourceX - pick.source) < samePlace &&
                std::abs(header.receiverX - pick.receiver) < samePlace)
                times[row] = pick.timeMs;
        }
    }
    return times;
}
