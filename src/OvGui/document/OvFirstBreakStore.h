#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/firstbreak/OvFirstBreakFile.h"

#include <QCoreApplication>

#include <vector>

/// The first-break file of an open SEG-Y file, by trace. It is made by the first write, so that
/// looking at data leaves no file behind. What was read is kept in memory, and read again when
/// another program or a job has written. GUI thread.
class OvFirstBreakStore
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakStore)

public:
    explicit OvFirstBreakStore(const OvSegyFileInfo& segy);

    QString path() const { return m_path; }
    /// Whether write() can be expected to work, or why not.
    OvStatus status() const;
    /// Brings a file of an older version up to date, and opens that of traces of differing length.
    /// To be called once all traces are known.
    void upgrade(const OvSegyFile& segy, const OvSegyIndex& index);

    /// Empty where there are none or where they cannot be used; the reason goes to the log.
    OvFirstBreaks read(const std::vector<qint64>& traces);
    OvStatus write(std::vector<OvFirstBreakUpdate>* updates);

    /// Empty when there is none or it cannot be read; the reason goes to the log.
    OvFirstBreakRun unfinishedRun() const;

    /// While a job writes with a connection of its own it tells what it has stored: take(). What is
    /// kept in memory then follows without being read again.
    void beginFollowing();
    void take(const std::vector<OvFirstBreakUpdate>& stored);
    void endFollowing();

private:
    OvStatus openForWriting();
    void openWhatIsThere();
    void forgetWhatIsOld();
    OvStatus load(const std::vector<qint64>& traces);
    void remember(const std::vector<OvFirstBreakUpdate>& stored);

    OvSegyFileInfo m_segy;
    QString m_path;
    OvFirstBreakFile m_file;
    OvStatus m_status;
    OvFirstBreakBlocks m_known;
    qint64 m_dataVersion = -1; // of what is known
    int m_followed = 0;        // jobs
};
