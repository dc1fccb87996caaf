#include "OvHeaderValuesModel.h"

namespace {

constexpr int significantDigits = 10;

} // namespace

void OvHeaderValuesModel::setHeaders(const QByteArray& headers, int bytesEach, OvByteOrder order)
{
    beginResetModel();
    m_headers = headers;
    m_bytesEach = bytesEach;
    m_order = order;
    endResetModel();
}

void OvHeaderValuesModel::setMapping(const OvTraceHeaderMapping& mapping)
{
    m_mapping = mapping;
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void OvHeaderValuesModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int OvHeaderValuesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_headers.size() / m_bytesEach;
}

int OvHeaderValuesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : OvTraceHeaderMapping::quantityCount;
}

QVariant OvHeaderValuesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    return OvTraceHeaderMapping::name(static_cast<OvTraceHeaderMapping::Quantity>(section));
}

QVariant OvHeaderValuesModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    const OvHeaderWord& word =
        m_mapping.word(static_cast<OvTraceHeaderMapping::Quantity>(index.column()));
    if (!word.exists() || word.end() > m_bytesEach)
        return {};
    const char* header = m_headers.constData() + qint64(index.row()) * m_bytesEach;
    return QString::number(word.value(header, m_order), 'g', significantDigits);
}
