#include "OvGui/document/OvFirstBreakStore.h"

#include "OvBase/OvBaseUtil.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

// 75 MB when every trace has a pick.
constexpr std::size_t mostBlocks = 32768;

} // namespace

OvFirstBreakStore::OvFirstBreakStore(const OvSegyFileInfo& segy)
    : m_segy(segy)
    , m_path(OvFirstBreakFile::pathFor(segy.path, OvBaseUtil::localPath() + "/firstbreaks"))
    , m_known(segy.traceCount)
{
    // Where traces differ in length their number is not known yet, and the file would not fit it.
    if (m_segy.fixedLength)
        openWhatIsThere();
}

void OvFirstBreakStore::openWhatIsThere()
{
    if (m_status && !m_file.isOpen() && QFileInfo::exists(m_path))
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

void OvFirstBreakStore::upgrade(const OvSegyFile& segy, const OvSegyIndex& index)
{
    if (!m_segy.fixedLength && !m_file.isOpen()) {
        m_segy = segy.info();
        m_known = OvFirstBreakBlocks(m_segy.traceCount);
        openWhatIsThere();
    }
    if (m_file.isOpen() && m_file.needsUpgrade())
        m_status = m_file.upgrade(segy, index);
}

void OvFirstBreakStore::forgetWhatIsOld()
{
    if (m_followed > 0)
        return;
    const qint64 version = m_file.dataVersion();
    if (version != m_dataVersion)
        m_known.clear();
    m_dataVersion = version;
}

OvStatus OvFirstBreakStore::load(const std::vector<qint64>& traces)
{
    std::vector<qint64> wanted = OvFirstBreakBlocks::numbersOf(traces);
    if (m_known.count() + wanted.size() > mostBlocks)
        m_known.clear();
    const auto known = [this](qint64 number) { return m_known.contains(number); };
    wanted.erase(std::remove_if(wanted.begin(), wanted.end(), known), wanted.end());
    return wanted.empty() ? OvStatus() : m_file.readBlocks(wanted, &m_known);
}

OvFirstBreaks OvFirstBreakStore::read(const std::vector<qint64>& traces)
{
    if (!m_status || !m_file.isOpen() || !m_known.fits(traces))
        return {};
    forgetWhatIsOld();
    const OvStatus status = load(traces);
    if (status)
        return m_known.read(traces);
    m_known.clear();
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

OvStatus OvFirstBreakStore::write(std::vector<OvFirstBreakUpdate>* updates)
{
    OvStatus status = openForWriting();
    if (status)
        status = m_file.write(updates);
    if (status)
        remember(*updates);
    return status;
}

void OvFirstBreakStore::remember(const std::vector<OvFirstBreakUpdate>& stored)
{
    for (const OvFirstBreakUpdate& update : stored) {
        m_known.writeKnown(update.traces, update.breaks);
    }
}

OvFirstBreakRun OvFirstBreakStore::unfinishedRun() const
{
    OvFirstBreakRun run;
    const OvStatus status =
        m_status && m_file.isOpen() ? m_file.readRun(&run) : OvStatus::success();
    if (!status)
        qWarning("%s", qPrintable(status.message()));
    return run;
}

void OvFirstBreakStore::beginFollowing()
{
    ++m_followed;
}

void OvFirstBreakStore::take(const std::vector<OvFirstBreakUpdate>& stored)
{
    openWhatIsThere();
    remember(stored);
}

void OvFirstBreakStore::endFollowing()
{
    --m_followed;
    // Other programs may have written as well.
    m_known.clear();
}
