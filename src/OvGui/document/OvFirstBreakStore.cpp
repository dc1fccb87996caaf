#include "OvGui/document/OvFirstBreakStore.h"

#include "OvBase/OvBaseUtil.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

OvFirstBreakStore::OvFirstBreakStore(const OvSegyFileInfo& segy)
    : m_segy(segy)
    , m_path(OvFirstBreakFile::pathFor(segy.path, OvBaseUtil::localPath() + "/firstbreaks"))
{
    if (QFileInfo::exists(m_path))
        m_status = m_file.open(m_path, m_segy);
}

OvStatus OvFirstBreakStore::status() const
{
    if (!m_status)
        return m_status;
    const QFileInfo file(m_path);
    if (file.exists() && !file.isWritable())
        return OvStatus::failure(
            tr("%1 is write-protected. First breaks can be looked at but not changed.")
                .arg(m_path));
    return OvStatus::success();
}

OvFirstBreaks OvFirstBreakStore::read(const OvSegyIndex& index, int gather) const
{
    OvFirstBreaks breaks;
    if (!m_file.isOpen() || gather < 0 || gather >= index.gatherCount())
        return breaks;
    const OvStatus status =
        m_file.read(index.fieldRecord(gather), index.gatherTraceCount(gather), &breaks);
    if (status)
        return breaks;
    qWarning("%s", qPrintable(status.message()));
    return {};
}

OvStatus OvFirstBreakStore::openForWriting()
{
    if (!m_status || m_file.isOpen())
        return m_status;
    const QString folder = QFileInfo(m_path).path();
    if (!QDir().mkpath(folder))
        return OvStatus::failure(
            tr("The folder %1 cannot be made. Check its place and its rights.").arg(folder));
    // A failure is not remembered: the next edit may find the disk with room again.
    return m_file.open(m_path, m_segy);
}

OvStatus OvFirstBreakStore::check(const OvSegyIndex& index, const Row& row) const
{
    if (row.first < 0 || row.first >= index.gatherCount())
        return OvStatus::failure(tr("%1 has no gather %2.").arg(m_segy.path).arg(row.first + 1));
    const int traces = index.gatherTraceCount(row.first);
    if (row.second.size() == traces)
        return OvStatus::success();
    return OvStatus::failure(tr("Gather %1 of %2 has %3 traces, but %4 first breaks were given.")
                                 .arg(row.first + 1)
                                 .arg(m_segy.path)
                                 .arg(traces)
                                 .arg(row.second.size()));
}

OvStatus OvFirstBreakStore::write(const OvSegyIndex& index, const QVector<Row>& rows)
{
    QVector<QPair<qint32, OvFirstBreaks>> records;
    records.reserve(rows.size());
    for (const Row& row : rows) {
        const OvStatus fits = check(index, row);
        if (!fits)
            return fits;
        records.append({index.fieldRecord(row.first), row.second});
    }
    const OvStatus opened = openForWriting();
    return opened ? m_file.write(records) : opened;
}
