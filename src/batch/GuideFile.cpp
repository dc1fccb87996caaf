#include "GuideFile.h"

#include "OvSeismic/picking/OvPickTeacher.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cmath>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(GuideFile)

public:
    static OvStatus failure(const QString& path, const QString& reason)
    {
        return OvStatus::failure(
            tr("The guide %1 cannot be used: %2").arg(QDir::toNativeSeparators(path), reason));
    }
    static QString badLine(qint64 line)
    {
        return tr("line %1 is no line of a table of first breaks.").arg(line);
    }
    static QString otherTrace(qint64 line)
    {
        return tr("line %1 is of a trace that the SEG-Y file does not have.").arg(line);
    }
    static QString tooFew() { return tr("there are too few picks in it."); }
};

struct TableLine
{
    qint64 trace = -1;
    int fieldRecord = 0;
    int channel = 0;
    double timeMs = 0.0;
    bool picked = false;

    bool parse(const QByteArray& text)
    {
        const QList<QByteArray> cells = text.trimmed().split(',');
        if (cells.size() != 6)
            return false;
        bool good[4] = {false, false, false, true};
        trace = cells[0].toLongLong(&good[0]);
        fieldRecord = cells[1].toInt(&good[1]);
        channel = cells[2].toInt(&good[2]);
        picked = !cells[4].isEmpty();
        if (picked)
            timeMs = cells[4].toDouble(&good[3]);
        return good[0] && good[1] && good[2] && good[3] && std::isfinite(timeMs);
    }
};

// Looks up the traces of a table, which mostly follow one another.
class Headers
{
public:
    Headers(const OvSegyFile& segy, const OvSegyIndex& index)
        : m_segy(segy)
        , m_index(index)
    {
    }

    const OvTraceHeader* find(qint64 trace)
    {
        const int gather = m_index.gatherOfTrace(trace);
        if (gather < 0)
            return nullptr;
        if (m_gather.ordinal != gather) {
            m_gather = m_index.gatherHeaders(m_segy, gather);
            m_row = 0;
        }
        const std::size_t rows = m_gather.headers.size();
        for (std::size_t step = 0; step < rows; ++step, m_row = (m_row + 1) % rows) {
            if (m_gather.headers[m_row].traceIndex == trace)
                return &m_gather.headers[m_row];
        }
        return nullptr;
    }

private:
    const OvSegyFile& m_segy;
    const OvSegyIndex& m_index;
    OvGather m_gather;
    std::size_t m_row = 0; // that was found last
};

OvStatus learnTable(const QString& path, const OvSegyFile& segy, const OvSegyIndex& index,
                    std::shared_ptr<const OvPickPrior>* prior)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Text::failure(path, file.errorString());
    constexpr qint64 longestLine = 1024;
    const QByteArray title = file.readLine(longestLine);
    if (!title.startsWith("trace,field_record,channel,"))
        return Text::failure(path, Text::badLine(1));
    OvPickPriorBuilder builder;
    Headers headers(segy, index);
    for (qint64 number = 2; !file.atEnd(); ++number) {
        TableLine line;
        if (!line.parse(file.readLine(longestLine)))
            return Text::failure(path, Text::badLine(number));
        if (!line.picked)
            continue;
        const OvTraceHeader* header = headers.find(line.trace);
        if (!header || header->fieldRecord != line.fieldRecord || header->channel != line.channel)
            return Text::failure(path, Text::otherTrace(number));
        builder.add(*header, line.timeMs);
    }
    *prior = builder.build();
    return *prior ? OvStatus::success() : Text::failure(path, Text::tooFew());
}

bool isDatabase(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(6) == "SQLite";
}

} // namespace

OvStatus GuideFile::learn(const QString& path, const OvSegyFile& segy, const OvSegyIndex& index,
                          std::shared_ptr<const OvPickPrior>* prior)
{
    if (!isDatabase(path))
        return learnTable(path, segy, index, prior);
    OvFirstBreakFile file;
    OvPickTeacher teacher(segy, index);
    OvStatus status = file.open(path, segy.info());
    if (status)
        status = file.upgrade(segy, index);
    if (status)
        status = teacher.learn(file, -1, nullptr);
    if (!status)
        return status;
    *prior = teacher.prior();
    return *prior ? status : Text::failure(path, Text::tooFew());
}
