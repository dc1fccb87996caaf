#pragma once

#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QAbstractTableModel>
#include <QByteArray>

/// The first trace headers of a file as a mapping reads them: a trace a row, a quantity a column,
/// values without scalars. Each is decoded when it is shown.
class OvHeaderValuesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// headers are as many bytes each, one after the other.
    void setHeaders(const QByteArray& headers, int bytesEach, OvByteOrder order);
    void setMapping(const OvTraceHeaderMapping& mapping);
    void retranslate();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QByteArray m_headers;
    int m_bytesEach = 1;
    OvByteOrder m_order = OvByteOrder::BigEndian;
    OvTraceHeaderMapping m_mapping;
};
