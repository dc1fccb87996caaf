#include "OvSeismic/firstbreak/OvFirstBreakRows.h"

#include "OvSeismic/firstbreak/OvFirstBreakBlobs.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCoreApplication>
#include <QSqlQuery>
#include <QStringList>

#include <algorithm>

namespace {

constexpr std::size_t rowsAStatement = 1024;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakFile)
};

/// The values of the columns trace_count, times, states and confidences, from column first on.
bool decode(const QSqlQuery& query, int first, int traceCount, OvFirstBreaks* breaks)
{
    const QByteArray times = query.value(first + 1).toByteArray();
    const QByteArray states = query.value(first + 2).toByteArray();
    const QByteArray confidences = query.value(first + 3).toByteArray();
    return query.value(first).toLongLong() == traceCount &&
           OvFirstBreakBlobs::toFloats(times, traceCount, &breaks->timesMs) &&
           OvFirstBreakBlobs::toStates(states, traceCount, &breaks->states) &&
           OvFirstBreakBlobs::toFloats(confidences, traceCount, &breaks->confidences);
}

QString selectStatement(const std::vector<qint64>& numbers, std::size_t from, std::size_t to)
{
    QStringList firstTraces;
    for (std::size_t i = from; i < to; ++i)
        firstTraces += QString::number(numbers[i] * OvFirstBreakBlocks::size);
    return QStringLiteral("SELECT first_trace, trace_count, times, states, confidences "
                          "FROM trace_block WHERE first_trace IN (%1)")
        .arg(firstTraces.join(QLatin1Char(',')));
}

OvStatus readSome(const OvFirstBreakConnection& file, const QString& statement,
                  OvFirstBreakBlocks* blocks)
{
    QSqlQuery query(file.database());
    query.setForwardOnly(true);
    if (!query.exec(statement))
        return file.failure(query);
    while (query.next()) {
        const qint64 firstTrace = query.value(0).toLongLong();
        const qint64 number = firstTrace / OvFirstBreakBlocks::size;
        // Fewer where the block was the last one before the SEG-Y file grew.
        const int stored = query.value(1).toInt();
        OvFirstBreaks breaks;
        if (stored > blocks->tracesIn(number) || !decode(query, 1, stored, &breaks))
            return file.damagedBlock(firstTrace);
        breaks.resize(blocks->tracesIn(number));
        blocks->insert(number, std::move(breaks));
    }
    return {};
}

bool bindAndWrite(QSqlQuery* query, qint64 firstTrace, const OvFirstBreaks& breaks)
{
    query->addBindValue(firstTrace);
    query->addBindValue(breaks.size());
    query->addBindValue(OvFirstBreakBlobs::fromFloats(breaks.timesMs));
    query->addBindValue(OvFirstBreakBlobs::fromStates(breaks.states));
    query->addBindValue(OvFirstBreakBlobs::fromFloats(breaks.confidences));
    return query->exec();
}

OvStatus takeRecord(const OvFirstBreakConnection& file, const QSqlQuery& query,
                    const std::vector<qint64>& traces, OvFirstBreakBlocks* blocks)
{
    const auto count = static_cast<int>(traces.size());
    const qint64 stored = query.value(1).toLongLong();
    if (stored != count) {
        return file.failure(Text::tr("it has first breaks of %1 traces for a gather of %2 traces.")
                                .arg(stored)
                                .arg(count));
    }
    OvFirstBreaks breaks;
    if (!decode(query, 1, count, &breaks))
        return file.failure(
            Text::tr("the row of a gather is damaged. Restore the file from a copy."));
    blocks->write(traces, breaks);
    return {};
}

} // namespace

OvStatus OvFirstBreakRows::read(const OvFirstBreakConnection& file,
                                const std::vector<qint64>& numbers, OvFirstBreakBlocks* blocks)
{
    for (const qint64 number : numbers)
        blocks->insert(number, {});
    OvStatus status;
    for (std::size_t from = 0; from < numbers.size() && status; from += rowsAStatement) {
        const std::size_t to = std::min(from + rowsAStatement, numbers.size());
        status = readSome(file, selectStatement(numbers, from, to), blocks);
    }
    return status;
}

OvStatus OvFirstBreakRows::write(const OvFirstBreakConnection& file,
                                 const OvFirstBreakBlocks& blocks)
{
    QSqlQuery query(file.database());
    bool done = query.prepare(QStringLiteral(
        "INSERT OR REPLACE INTO trace_block(first_trace, trace_count, times, states, confidences) "
        "VALUES (?, ?, ?, ?, ?)"));
    for (const auto& block : blocks.all()) {
        if (done && !block.second.isEmpty())
            done = bindAndWrite(&query, block.first * OvFirstBreakBlocks::size, block.second);
    }
    return done ? OvStatus() : file.failure(query);
}

OvStatus OvFirstBreakRows::readRecords(const OvFirstBreakConnection& file, const OvSegyIndex& index,
                                       OvFirstBreakBlocks* blocks)
{
    QSqlQuery query(file.database());
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral(
            "SELECT field_record, trace_count, times, states, confidences FROM gather")))
        return file.failure(query);
    OvStatus status;
    while (status && query.next()) {
        // No traces where the file has no such record: the counts then differ.
        const int gather = index.gatherOfFieldRecord(query.value(0).toInt());
        status = takeRecord(file, query, index.gatherTraces(gather), blocks);
    }
    return status;
}
