#include "OvHeaderMappingDelegate.h"

#include "OvHeaderMappingModel.h"

#include <QComboBox>
#include <QSpinBox>

namespace {

constexpr int typeCount = static_cast<int>(OvHeaderType::Float64) + 1;
constexpr int orderCount = static_cast<int>(OvHeaderOrder::Little) + 1;

QStringList choices(int column)
{
    QStringList texts;
    if (column == OvHeaderMappingModel::Type) {
        for (int i = 0; i < typeCount; ++i)
            texts += OvTraceHeaderMapping::name(static_cast<OvHeaderType>(i));
    } else {
        for (int i = 0; i < orderCount; ++i)
            texts += OvHeaderMappingModel::orderName(static_cast<OvHeaderOrder>(i));
    }
    return texts;
}

} // namespace

QWidget* OvHeaderMappingDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                               const QModelIndex& index) const
{
    if (index.column() == OvHeaderMappingModel::Byte) {
        const auto* model = qobject_cast<const OvHeaderMappingModel*>(index.model());
        auto* box = new QSpinBox(parent);
        box->setFrame(false);
        box->setRange(0, model->headerBytes());
        box->setSpecialValueText(OvHeaderMappingModel::tr("none"));
        return box;
    }
    auto* box = new QComboBox(parent);
    box->addItems(choices(index.column()));
    auto* self = const_cast<OvHeaderMappingDelegate*>(this);
    connect(box, QOverload<int>::of(&QComboBox::activated), self, [self, box] { self->take(box); });
    return box;
}

void OvHeaderMappingDelegate::take(QWidget* editor)
{
    emit commitData(editor);
    emit closeEditor(editor);
}

void OvHeaderMappingDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const int value = index.data(Qt::EditRole).toInt();
    if (auto* number = qobject_cast<QSpinBox*>(editor))
        number->setValue(value);
    else if (auto* list = qobject_cast<QComboBox*>(editor))
        list->setCurrentIndex(value);
}

void OvHeaderMappingDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                           const QModelIndex& index) const
{
    if (auto* number = qobject_cast<QSpinBox*>(editor)) {
        number->interpretText();
        model->setData(index, number->value(), Qt::EditRole);
    } else if (auto* list = qobject_cast<QComboBox*>(editor)) {
        model->setData(index, list->currentIndex(), Qt::EditRole);
    }
}
