#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvSegyTypes.h"

#include <QVector>

#include <memory>

/// The first-break file (.fb) of one SEG-Y file: an SQLite database with one row a gather.
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

    /// Field records that have a row, ascending.
    QVector<qint32> fieldRecords() const;
    /// Empty breaks when the record has no row. A row of another trace count is an error.
    OvStatus read(qint32 fieldRecord, int traceCount, OvFirstBreaks* breaks) const;
    /// Replaces the row of a record.
    OvStatus write(qint32 fieldRecord, const OvFirstBreaks& breaks);
    /// Replaces several rows in one transaction; all or none.
    OvStatus write(const QVector<QPair<qint32, OvFirstBreaks>>& rows);
    OvStatus remove(qint32 fieldRecord);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
