#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCoreApplication>
#include <QPair>
#include <QVector>

/// The first-break file of an open SEG-Y file, by gather. It is made by the first write, so that
/// looking at data leaves no file behind. GUI thread.
class OvFirstBreakStore
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakStore)

public:
    using Row = QPair<int, OvFirstBreaks>;

    explicit OvFirstBreakStore(const OvSegyFileInfo& segy);

    QString path() const { return m_path; }
    /// Whether write() can be expected to work, or why not.
    OvStatus status() const;
    /// Empty where there are none or where the row cannot be used; the reason goes to the log.
    OvFirstBreaks read(const OvSegyIndex& index, int gather) const;
    OvStatus write(const OvSegyIndex& index, const QVector<Row>& rows);

private:
    OvStatus openForWriting();
    OvStatus check(const OvSegyIndex& index, const Row& row) const;

    OvSegyFileInfo m_segy;
    QString m_path;
    OvFirstBreakFile m_file;
    OvStatus m_status;
};
