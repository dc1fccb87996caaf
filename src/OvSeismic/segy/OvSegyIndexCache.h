#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// Header indexes kept in files of one folder, so that a SEG-Y file is scanned once.
///
/// One file for each SEG-Y file and header mapping; it fits as long as the size, the time of change
/// and the first and last headers of the SEG-Y file are the same. Several programs may use the
/// folder at once. Any thread.
class OVSEISMIC_EXPORT OvSegyIndexCache
{
public:
    struct Limits
    {
        qint64 bytes = 2LL << 30; ///< of all files together
        int files = 500;
        qint64 smallestTraces = 10000; ///< files with fewer are as quickly scanned as looked up
    };

    /// An empty folder keeps nothing. It is made when something is kept.
    explicit OvSegyIndexCache(const QString& folder);
    OvSegyIndexCache(const QString& folder, const Limits& limits);

    /// The index as kept or, where none fits, as built, which is then kept. What is wrong with a
    /// kept index, and what prevents keeping one, goes to the log.
    OvStatus obtain(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                    const OvSegyIndex::Progress& progress, OvSegyIndex* index) const;

    /// An empty index where none is kept. A failure says why the kept one cannot be used.
    OvStatus load(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                  OvSegyIndex* index) const;
    /// Keeps a complete index in its default order, unless the SEG-Y file has changed since it was
    /// opened. Drops what was used longest ago beyond the limits.
    OvStatus save(const OvSegyFile& file, const OvSegyIndex& index) const;
    /// Where the index of a SEG-Y file is kept.
    QString pathFor(const QString& segyPath, const OvTraceHeaderMapping& mapping) const;

    /// What a kept index is checked against.
    struct Key
    {
        QByteArray text; ///< of the file's state
        OvTraceHeaderMapping mapping;
        double metresPerUnit = 1.0;
    };
    static OvStatus keyOf(const OvSegyFile& file, const OvTraceHeaderMapping& mapping, Key* key);
    /// The content of a cache file. locator: OvSegyFile::savedLocator().
    static std::vector<char> encode(const OvSegyIndex& index, const Key& key,
                                    const QByteArray& locator);
    /// Takes any bytes; a failure for all that encode() has not made for this key.
    static OvStatus decode(const char* bytes, qint64 size, const Key& key, OvSegyIndex* index,
                           QByteArray* locator);

private:
    OvStatus loadFrom(const QString& path, const OvSegyFile& file,
                      const OvTraceHeaderMapping& mapping, OvSegyIndex* index) const;
    void cleanUp() const;

    QString m_folder;
    Limits m_limits;
};
