#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QObject>
#include <QSharedPointer>
#include <QVector>

#include <memory>

class OvPickHistory;
struct OvFirstBreakRun;
struct OvFirstBreakUpdate;
struct OvTracePick;

/// One SEG-Y file with its index and its first breaks, shared by the views and jobs that work on
/// it.
///
/// GUI thread, except where stated. The header index is built by a worker; until it is complete the
/// document offers the first gather only.
class OVGUI_EXPORT OvSegyDocument : public QObject
{
    Q_OBJECT

public:
    /// The document of a file, the same object for every caller while one of them holds it. Null,
    /// with a message in *status, when the file cannot be opened.
    static QSharedPointer<OvSegyDocument> open(const QString& path, OvStatus* status);
    ~OvSegyDocument() override;

    QString segyPath() const;
    /// Path of the first-break file; it need not exist yet.
    QString firstBreakPath() const;
    /// Another one after reload(); the one from before stays as long as the document.
    const OvSegyFile& file() const;
    /// For workers, which may outlive the document.
    std::shared_ptr<const OvSegyFile> sharedFile() const;

    /// Where the words of the trace headers lie, by the open project; what the file cannot have (a
    /// place behind its headers, say) makes it the standard mapping, with the reason in *status.
    OvTraceHeaderMapping mapping(OvStatus* status = nullptr) const;

    /// True from the first time on: while the headers are read again by another mapping the index
    /// is the one from before.
    bool isIndexComplete() const;
    /// What has become of the file since it was opened, for the user; empty while it is the same.
    QString fileMessage() const;
    /// Looks whether the file is still the same; fileStateChanged() answers. Network shares do not
    /// tell by themselves.
    void checkFile();
    /// Opens the file as it is now and reads its headers again; nothing changes when that fails.
    /// Edits of picks from before cannot be undone any more.
    OvStatus reload();
    /// Whether the index is complete, but by another mapping than mapping().
    bool isIndexStale() const;
    /// Whether the headers are being read now.
    bool isIndexing() const;
    /// Per cent of the headers read; 100 when that has ended well.
    int indexPercent() const;
    /// Why the index is not complete although nobody reads it: a failure or a cancel; else empty.
    QString indexMessage() const;
    /// The job that reads the headers speaks the present language from now on.
    void retranslate();
    /// Reads the headers again after a failure or a cancel. Nothing happens otherwise.
    void readIndex();
    /// The index as known now: of the first gather only until indexComplete(). May be held and read
    /// by any thread.
    std::shared_ptr<const OvSegyIndex> index() const;
    int gatherCount() const;

    /// Reads a gather in a worker thread; gatherLoaded() answers, also on failure. The last read
    /// gathers are kept.
    void requestGather(int gather);
    /// The gather when it is in memory, else null.
    std::shared_ptr<const OvGather> cachedGather(int gather);

    /// Whether first breaks can be stored now, or why not: the first-break file is damaged or
    /// belongs to another SEG-Y file, nothing can be written there.
    OvStatus firstBreakStatus() const;
    /// First breaks of a gather; empty when it has none.
    OvFirstBreaks firstBreaks(int gather) const;
    /// Stores first breaks durably (making the file when it does not exist), then announces
    /// firstBreaksChanged().
    OvStatus setFirstBreaks(int gather, const OvFirstBreaks& breaks);
    /// Several gathers in one transaction.
    OvStatus setFirstBreaks(const QVector<QPair<int, OvFirstBreaks>>& breaks);
    /// Some traces of a gather; the others stay as they are stored.
    OvStatus setPicks(int gather, const QVector<OvTracePick>& picks);
    /// One pick for each of traces; the rows of the picks mean nothing.
    OvStatus setPicksOf(const std::vector<qint64>& traces, const QVector<OvTracePick>& picks);

    /// The same by the traces' positions in the file, for gathers of another order than index()'s:
    /// one entry a trace, in the order of traces, empty when none of them has anything.
    OvFirstBreaks firstBreaksOf(const std::vector<qint64>& traces) const;
    OvStatus setFirstBreaksOf(const std::vector<qint64>& traces, const OvFirstBreaks& breaks);

    /// How far an automatic run has come that was cancelled or broken off.
    OvFirstBreakRun unfinishedRun() const;
    /// While a job stores first breaks in a thread of its own, it says here what it has stored.
    /// Each begin needs its end.
    void beginJobStorage();
    void takeStored(const std::vector<OvFirstBreakUpdate>& stored);
    void endJobStorage();
    /// The edits by hand; belongs to the document.
    OvPickHistory* pickHistory() const;

signals:
    /// The headers of the first gather are known: gatherCount() is 1.
    void firstGatherReady();
    /// At most 20 times a second while the index is built; per cent.
    void indexProgress(int percent);
    /// Each time that the index has become another one.
    void indexComplete();
    /// Also after a cancel; what was known stays.
    void indexFailed(const QString& message);
    /// Null data with a message on failure.
    void gatherLoaded(int gather, std::shared_ptr<const OvGather> data, const QString& message);
    /// fileMessage() is another one.
    void fileStateChanged();
    /// A gather of index().
    void firstBreaksChanged(int gather);
    /// The same by trace, once for all that have changed together.
    void tracePicksChanged(const std::vector<qint64>& traces);

private:
    OvSegyDocument();
    struct Private;
    std::unique_ptr<Private> d;
};

Q_DECLARE_METATYPE(std::shared_ptr<const OvGather>)
