#pragma once

#include "OvSeismic/segy/OvHeaderSurvey.h"

#include <QAbstractTableModel>

/// The quantities of a header mapping, one a row: where each lies, how it is read, and what was
/// found there. The place and the form can be edited.
class OvHeaderMappingModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Name, Byte, Type, Order, Minimum, Maximum, Values, Zeros, columnCountOfModel };
    using Quantity = OvTraceHeaderMapping::Quantity;
    using Problem = OvTraceHeaderMapping::Problem;

    /// headerBytes is the size of the file's trace headers, extensions included.
    explicit OvHeaderMappingModel(int headerBytes, QObject* parent = nullptr);

    const OvTraceHeaderMapping& mapping() const { return m_mapping; }
    int headerBytes() const { return m_headerBytes; }
    /// What was found belongs to another mapping from then on, and is forgotten.
    void setMapping(const OvTraceHeaderMapping& mapping);
    void setSurvey(const OvHeaderSurvey& survey);
    /// What speaks against the mapping, errors first.
    QVector<Problem> problems() const;
    void retranslate();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Edit role: the byte number, the OvHeaderType, the OvHeaderOrder.
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    static QString orderName(OvHeaderOrder order);
    /// About the longest text that can be found in a column, in a file of so many traces; empty for
    /// the columns that say what is looked for.
    static QString longestFound(int column, qint64 traces);

signals:
    void mappingChanged();

private:
    QVariant wordText(Quantity quantity, int column) const;
    QVariant editValue(Quantity quantity, int column) const;
    QString foundText(Quantity quantity, int column) const;
    QString problemText(Quantity quantity) const;
    QVariant problemIcon(Quantity quantity) const;

    int m_headerBytes;
    OvTraceHeaderMapping m_mapping;
    OvHeaderSurvey m_survey;
};
