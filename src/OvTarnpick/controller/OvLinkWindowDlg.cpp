#include "OvTarnpick/controller/OvLinkWindowDlg.h"

#include "ui_OvLinkWindowDlg.h"

#include "OvGui/OvPlaneViewController.h"

#include <QEvent>
#include <QMessageBox>
#include <QStandardItemModel>

#include <algorithm>

namespace {
constexpr int viewRole = Qt::UserRole + 1;
}

class OvLinkWindowDlgPrivate
{
public:
    explicit OvLinkWindowDlgPrivate(OvLinkWindowDlg* owner);

    void setHeaders();
    void appendRow(QStandardItemModel* model, OvPlaneViewController* view);
    void resizeColumns();
    /// Descending.
    static QList<int> selectedRows(const QTableView* table);
    /// Appends rows of one model to another, in the order given.
    static void moveRows(const QList<int>& rows, QStandardItemModel* from, QStandardItemModel* to);
    /// From the last to the first.
    static void moveAllRows(QStandardItemModel* from, QStandardItemModel* to);
    /// Exchanges a chosen row with another and selects it there.
    void moveChosenRow(int row, int target);
    bool canShareView() const;

    OvLinkWindowDlg* q;
    Ui::OvLinkWindowDlg ui;
    QStandardItemModel available;
    QStandardItemModel chosen;
};

OvLinkWindowDlgPrivate::OvLinkWindowDlgPrivate(OvLinkWindowDlg* owner)
    : q(owner)
{
    ui.setupUi(q);
    setHeaders();
}

void OvLinkWindowDlgPrivate::setHeaders()
{
    const QStringList labels{OvLinkWindowDlg::tr("Name"), OvLinkWindowDlg::tr("SEGY File")};
    available.setHorizontalHeaderLabels(labels);
    chosen.setHorizontalHeaderLabels(labels);
}

void OvLinkWindowDlgPrivate::appendRow(QStandardItemModel* model, OvPlaneViewController* view)
{
    auto* name = new QStandardItem(view->description());
    name->setData(QVariant::fromValue(view), viewRole);
    model->appendRow({name, new QStandardItem(view->property("SegyFile").toString())});
}

void OvLinkWindowDlgPrivate::resizeColumns()
{
    ui.aViewControllers->resizeColumnsToContents();
    ui.sViewControllers->resizeColumnsToContents();
}

QList<int> OvLinkWindowDlgPrivate::selectedRows(const QTableView* table)
{
    QList<int> rows;
    const auto indexes = table->selectionModel()->selectedRows();
    for (const QModelIndex& index : indexes)
        rows.append(index.row());
    std::sort(rows.begin(), rows.end(), std::greater<int>());
    return rows;
}

void OvLinkWindowDlgPrivate::moveRows(const QList<int>& rows, QStandardItemModel* from,
                                      QStandardItemModel* to)
{
    for (const int row : rows)
        to->appendRow(from->takeRow(row));
}

void OvLinkWindowDlgPrivate::moveAllRows(QStandardItemModel* from, QStandardItemModel* to)
{
    for (int row = from->rowCount() - 1; row >= 0; --row)
        to->appendRow(from->takeRow(row));
}

void OvLinkWindowDlgPrivate::moveChosenRow(int row, int target)
{
    chosen.insertRow(target, chosen.takeRow(row));
    ui.sViewControllers->selectRow(target);
}

bool OvLinkWindowDlgPrivate::canShareView() const
{
    const auto views = q->chosenViewControllers();
    return std::all_of(views.begin(), views.end(), [&](const OvPlaneViewController* view) {
        return view->editable() == views.constFirst()->editable();
    });
}

OvLinkWindowDlg::OvLinkWindowDlg(const QList<OvPlaneViewController*>& available,
                                 const QList<OvPlaneViewController*>& linked, QWidget* parent)
    : OvDialog(parent)
    , d(new OvLinkWindowDlgPrivate(this))
{
    for (OvPlaneViewController* view : available)
        d->appendRow(&d->available, view);
    for (OvPlaneViewController* view : linked)
        d->appendRow(&d->chosen, view);
    d->ui.aViewControllers->setModel(&d->available);
    d->ui.sViewControllers->setModel(&d->chosen);
    d->resizeColumns();
}

OvLinkWindowDlg::~OvLinkWindowDlg() = default;

QList<OvPlaneViewController*> OvLinkWindowDlg::chosenViewControllers() const
{
    QList<OvPlaneViewController*> views;
    for (int row = 0; row < d->chosen.rowCount(); ++row)
        views.append(d->chosen.item(row)->data(viewRole).value<OvPlaneViewController*>());
    return views;
}

QString OvLinkWindowDlg::helpPage() const
{
    return QStringLiteral("parallel.html");
}

void OvLinkWindowDlg::on_selAllBtn_clicked()
{
    OvLinkWindowDlgPrivate::moveAllRows(&d->available, &d->chosen);
    d->resizeColumns();
}

void OvLinkWindowDlg::on_selectBtn_clicked()
{
    const auto rows = OvLinkWindowDlgPrivate::selectedRows(d->ui.aViewControllers);
    if (rows.isEmpty())
        return;
    OvLinkWindowDlgPrivate::moveRows(rows, &d->available, &d->chosen);
    d->resizeColumns();
}

void OvLinkWindowDlg::on_unselectBtn_clicked()
{
    const auto rows = OvLinkWindowDlgPrivate::selectedRows(d->ui.sViewControllers);
    if (rows.isEmpty())
        return;
    OvLinkWindowDlgPrivate::moveRows(rows, &d->chosen, &d->available);
    d->resizeColumns();
}

void OvLinkWindowDlg::on_resetBtn_clicked()
{
    if (d->chosen.rowCount() == 0)
        return;
    OvLinkWindowDlgPrivate::moveAllRows(&d->chosen, &d->available);
    d->resizeColumns();
}

void OvLinkWindowDlg::on_moveUpButton_clicked()
{
    const auto rows = OvLinkWindowDlgPrivate::selectedRows(d->ui.sViewControllers);
    if (!rows.isEmpty() && rows.constFirst() > 0)
        d->moveChosenRow(rows.constFirst(), rows.constFirst() - 1);
}

void OvLinkWindowDlg::on_moveDownButton_clicked()
{
    const auto rows = OvLinkWindowDlgPrivate::selectedRows(d->ui.sViewControllers);
    if (!rows.isEmpty() && rows.constFirst() < d->chosen.rowCount() - 1)
        d->moveChosenRow(rows.constFirst(), rows.constFirst() + 1);
}

void OvLinkWindowDlg::accept()
{
    if (d->canShareView())
        QDialog::accept();
    else
        QMessageBox::warning(this, QObject::tr("Warning"),
                             tr("Different type of data can not be displayed in a parallel view."),
                             QMessageBox::Ok);
}

void OvLinkWindowDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        d->ui.retranslateUi(this);
        d->setHeaders();
    }
    OvDialog::changeEvent(event);
}
