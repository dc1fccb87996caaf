#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/firstbreak/OvFirstBreakBlocks.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvSegyTypes.h"

#include <memory>
#include <vector>

class OvSegyFile;
class OvSegyIndex;

/// New first breaks of some traces.
struct OvFirstBreakUpdate
{
    std::vector<qint64> traces; ///< positions in the SEG-Y file, from 0
    OvFirstBreaks breaks;       ///< one entry a trace
    bool keepManual = false;    ///< traces whose pick was made by hand keep it
    int doneGather = -1;        ///< gather of the automatic run that this completes; -1 none
    bool wantsBefore = false;   ///< before is asked for
    OvFirstBreaks before;       ///< set by the write: what it has replaced
};

/// How far an automatic run has come that has not ended yet.
struct OvFirstBreakRun
{
    QString settings; ///< what was picked and how, as a canonical text; empty when there is no run
    int gathers = 0;  ///< in all
    std::vector<int> done; ///< ordinals, ascending

    bool exists() const { return !settings.isEmpty(); }
    int left() const { return gathers - static_cast<int>(done.size()); }
};

/// The first-break file (.fb) of one SEG-Y file: an SQLite database with the picks by trace, so
/// that they stay with their traces however these are grouped.
///
/// It lies beside the SEG-Y file, or in fallbackFolder where that folder cannot be written. Every
/// write is a transaction of its own and durable when the call returns. One object belongs to the
/// thread that opened it; other threads and programs open the file on their own.
class OVSEISMIC_EXPORT OvFirstBreakFile
{
public:
    OvFirstBreakFile();
    ~OvFirstBreakFile();
    OvFirstBreakFile(const OvFirstBreakFile&) = delete;
    OvFirstBreakFile& operator=(const OvFirstBreakFile&) = delete;

    /// Where the first breaks of segyPath are kept: the existing file if there is one, else beside
    /// the SEG-Y file if its folder is writable, else in fallbackFolder.
    static QString pathFor(const QString& segyPath, const QString& fallbackFolder);

    /// Opens path, creating it for segy when it does not exist. Refuses a damaged file, one of a
    /// newer schema and one that belongs to another SEG-Y file (by trace count), and leaves it as
    /// it was.
    OvStatus open(const QString& path, const OvSegyFileInfo& segy);
    void close();
    bool isOpen() const;
    QString path() const;

    /// Whether the file keeps its picks by field record, as the first version of the program did.
    /// Until upgrade() it can be neither read nor written.
    bool needsUpgrade() const;
    /// Brings such a file up to date in one transaction. index is that of all traces; where it is
    /// not by the field record in bytes 9 to 12, the headers are read anew. A file that cannot be
    /// written is left as it is and can be read. Nothing happens when the file is up to date.
    OvStatus upgrade(const OvSegyFile& segy, const OvSegyIndex& index);

    /// Notes by which header words the gathers of the last automatic run were formed.
    OvStatus noteMapping(const QString& text);

    /// For work that can be repeated: from here on a write survives a crash of the program but, of
    /// the last moments, not one of the machine. The file stays whole in either case.
    OvStatus relaxDurability();

    /// Numbers of the blocks that have a row, ascending.
    std::vector<qint64> blocks() const;
    /// Adds the blocks of these numbers, ascending, to *blocks.
    OvStatus readBlocks(const std::vector<qint64>& numbers, OvFirstBreakBlocks* blocks) const;
    /// One entry a trace in the order of traces; empty when none of them has anything.
    OvStatus read(const std::vector<qint64>& traces, OvFirstBreaks* breaks) const;
    /// Replaces the entries of traces.
    OvStatus write(const std::vector<qint64>& traces, const OvFirstBreaks& breaks);
    /// Several updates in one transaction; all or none. What others have written meanwhile is seen.
    /// On success the breaks of each update are those that are stored now, and before, where it is
    /// asked for, is read under the same lock.
    OvStatus write(std::vector<OvFirstBreakUpdate>* updates);

    /// The automatic run that has not ended.
    OvStatus readRun(OvFirstBreakRun* run) const;
    /// Starts a run of that many gathers; forgets the one before.
    OvStatus beginRun(const QString& settings, int gathers);
    /// All of the run is done.
    OvStatus endRun();

    /// Counts the writes by others since the file was opened, so that a reader knows when what it
    /// has kept is out of date.
    qint64 dataVersion() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
