#include "OvHeaderMappingModel.h"

#include <QApplication>
#include <QLocale>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int significantDigits = 10;

QString count(qint64 number)
{
    return QLocale().toString(number);
}

bool isError(const OvHeaderMappingModel::Problem& problem)
{
    return problem.severity == OvHeaderMappingModel::Problem::Error;
}

} // namespace

OvHeaderMappingModel::OvHeaderMappingModel(int headerBytes, QObject* parent)
    : QAbstractTableModel(parent)
    , m_headerBytes(headerBytes)
{
}

void OvHeaderMappingModel::setMapping(const OvTraceHeaderMapping& mapping)
{
    m_mapping = mapping;
    m_survey = {};
    retranslate();
    emit mappingChanged();
}

void OvHeaderMappingModel::setSurvey(const OvHeaderSurvey& survey)
{
    m_survey = survey;
    retranslate();
}

void OvHeaderMappingModel::retranslate()
{
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

QVector<OvHeaderMappingModel::Problem> OvHeaderMappingModel::problems() const
{
    QVector<Problem> found = m_mapping.problems(m_headerBytes) + m_survey.remarks();
    std::stable_partition(found.begin(), found.end(), isError);
    return found;
}

int OvHeaderMappingModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : OvTraceHeaderMapping::quantityCount;
}

int OvHeaderMappingModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columnCountOfModel;
}

QVariant OvHeaderMappingModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const bool tip = role == Qt::ToolTipRole;
    switch (section) {
    case Name:
        return tip ? QVariant() : tr("Quantity");
    case Byte:
        return tip ? tr("Number of the first byte, counted from 1; 0 for none") : tr("Byte");
    case Type:
        return tip ? tr("How the bytes are read") : tr("Type");
    case Order:
        return tip ? tr("The byte order, where it is not the file's") : tr("Byte order");
    case Minimum:
        return tip ? tr("The smallest value found, without scalar") : tr("Minimum");
    case Maximum:
        return tip ? tr("The largest value found, without scalar") : tr("Maximum");
    case Values:
        return tip ? tr("How many different values were found") : tr("Different");
    default:
        return tip ? tr("How many traces have 0") : tr("Zeros");
    }
}

QString OvHeaderMappingModel::orderName(OvHeaderOrder order)
{
    switch (order) {
    case OvHeaderOrder::Big:
        return tr("big-endian");
    case OvHeaderOrder::Little:
        return tr("little-endian");
    case OvHeaderOrder::File:
        break;
    }
    return tr("the file's");
}

QVariant OvHeaderMappingModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const auto quantity = static_cast<Quantity>(index.row());
    const bool isText = index.column() < Minimum && index.column() != Byte;
    switch (role) {
    case Qt::DisplayRole:
        return wordText(quantity, index.column());
    case Qt::EditRole:
        return editValue(quantity, index.column());
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (isText ? Qt::AlignLeft : Qt::AlignRight));
    case Qt::ToolTipRole:
        return problemText(quantity).toHtmlEscaped();
    case Qt::DecorationRole:
        return index.column() == Name ? problemIcon(quantity) : QVariant();
    default:
        return {};
    }
}

QVariant OvHeaderMappingModel::wordText(Quantity quantity, int column) const
{
    const OvHeaderWord& word = m_mapping.word(quantity);
    switch (column) {
    case Name:
        return OvTraceHeaderMapping::name(quantity);
    case Byte:
        return word.exists() ? QString::number(word.position) : tr("none");
    case Type:
        return word.exists() ? OvTraceHeaderMapping::name(word.type) : QString();
    case Order:
        return word.exists() ? orderName(word.order) : QString();
    default:
        return foundText(quantity, column);
    }
}

QString OvHeaderMappingModel::foundText(Quantity quantity, int column) const
{
    const OvHeaderSurvey::Word& found = m_survey.word(quantity);
    if (found.count == found.invalid)
        return {};
    switch (column) {
    case Minimum:
        return QString::number(found.minimum, 'g', significantDigits);
    case Maximum:
        return QString::number(found.maximum, 'g', significantDigits);
    case Values:
        return found.hasMoreValues() ? tr("over %1").arg(count(OvHeaderSurvey::mostValues))
                                     : count(static_cast<qint64>(found.values.size()));
    default:
        return count(found.zeros);
    }
}

QString OvHeaderMappingModel::longestFound(int column, qint64 traces)
{
    constexpr auto most = static_cast<qint64>(OvHeaderSurvey::mostValues);
    switch (column) {
    case Minimum:
    case Maximum:
        return QLatin1Char('-') + QString(significantDigits, QLatin1Char('0'));
    case Values:
        return traces < most ? count(traces) : tr("over %1").arg(count(most));
    case Zeros:
        return count(traces);
    default:
        return {};
    }
}

QVariant OvHeaderMappingModel::editValue(Quantity quantity, int column) const
{
    const OvHeaderWord& word = m_mapping.word(quantity);
    switch (column) {
    case Byte:
        return word.position;
    case Type:
        return static_cast<int>(word.type);
    case Order:
        return static_cast<int>(word.order);
    default:
        return {};
    }
}

QString OvHeaderMappingModel::problemText(Quantity quantity) const
{
    QStringList texts;
    const QVector<Problem> all = problems();
    for (const Problem& problem : all) {
        if (problem.quantity == quantity)
            texts += problem.message;
    }
    return texts.join(QLatin1Char('\n'));
}

QVariant OvHeaderMappingModel::problemIcon(Quantity quantity) const
{
    const QVector<Problem> all = problems();
    const auto problem = std::find_if(all.begin(), all.end(), [quantity](const Problem& candidate) {
        return candidate.quantity == quantity;
    });
    if (problem == all.end())
        return {};
    return QApplication::style()->standardIcon(isError(*problem) ? QStyle::SP_MessageBoxCritical
                                                                 : QStyle::SP_MessageBoxWarning);
}

bool OvHeaderMappingModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    const auto quantity = static_cast<Quantity>(index.row());
    OvHeaderWord word = m_mapping.word(quantity);
    switch (index.column()) {
    case Byte:
        word.position = std::max(0, std::min(value.toInt(), m_headerBytes));
        break;
    case Type:
        word.type = static_cast<OvHeaderType>(value.toInt());
        break;
    default:
        word.order = static_cast<OvHeaderOrder>(value.toInt());
        break;
    }
    if (word != m_mapping.word(quantity)) {
        OvTraceHeaderMapping changed = m_mapping;
        changed.setWord(quantity, word);
        setMapping(changed);
    }
    return true;
}

Qt::ItemFlags OvHeaderMappingModel::flags(const QModelIndex& index) const
{
    const bool editable =
        index.column() == Byte || index.column() == Type || index.column() == Order;
    return QAbstractTableModel::flags(index) | (editable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}
