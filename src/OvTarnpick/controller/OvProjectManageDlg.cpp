#include "OvTarnpick/controller/OvProjectManageDlg.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvTarnpick/controller/ProjectNameDelegate.h"

#include "ui_OvProjectManageDlg.h"

#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QSet>
#include <QStringListModel>

#include <algorithm>

class OvProjectManageDlgPrivate
{
public:
    OvProjectManageDlgPrivate(OvProjectManageDlg* dialog, int mode);
    ~OvProjectManageDlgPrivate();

    void makeReadOnly();
    void setTitle();
    void loadProjects();
    void setNames(const QStringList& names);
    void showProject(const QString& name);
    void updateButtonState();
    void applyUpdate();
    void markForDeletion(const QString& name);
    void hideMarked(QStringList names);
    void commitDeletions();

    OvProjectManageDlg* q;
    Ui::OvProjectManageDlg ui;
    int manageMode;
    QStringListModel model;
    OvProjectDefine current;
    QStringList pendingDeletions;
};

OvProjectManageDlgPrivate::OvProjectManageDlgPrivate(OvProjectManageDlg* dialog, int mode)
    : q(dialog)
    , manageMode(mode)
{
    ui.setupUi(q);
    if (manageMode == OvProjectManageDlg::OpenProject)
        makeReadOnly();
    ui.projectList->setModel(&model);
    ui.projectList->setItemDelegate(new ProjectNameDelegate);
    QObject::connect(ui.projectList->selectionModel(),
                     SIGNAL(currentRowChanged(QModelIndex, QModelIndex)), q,
                     SLOT(slotSelectionChanged(QModelIndex, QModelIndex)));
}

// A view does not own its delegate.
OvProjectManageDlgPrivate::~OvProjectManageDlgPrivate()
{
    delete ui.projectList->itemDelegate();
}

void OvProjectManageDlgPrivate::makeReadOnly()
{
    ui.deleteWidget->hide();
    ui.btnFileSelect->hide();
    ui.updateWidget->hide();
    ui.dataPath->setReadOnly(true);
    ui.description->setReadOnly(true);
}

void OvProjectManageDlgPrivate::setTitle()
{
    if (manageMode == OvProjectManageDlg::OpenProject)
        q->setWindowTitle(OvProjectManageDlg::tr("Open Project"));
}

void OvProjectManageDlgPrivate::loadProjects()
{
    QStringList names;
    const auto projects = OvProjectDefineNode().projects();
    for (const OvProjectDefine& project : projects)
        names.append(project.name);
    names.removeAll(OvProjectManager::instance().define().name);
    setNames(names);
}

// Setting no current row keeps the view from choosing the first one when it gets the focus.
void OvProjectManageDlgPrivate::setNames(const QStringList& names)
{
    model.setStringList(names);
    ui.projectList->setCurrentIndex(QModelIndex());
}

void OvProjectManageDlgPrivate::showProject(const QString& name)
{
    ui.dataPath->clear();
    ui.description->clear();
    current = OvProjectDefine();
    if (name.isEmpty())
        return;
    current = OvProjectDefineNode().projectByName(name);
    ui.dataPath->setText(current.dataPath);
    ui.description->setPlainText(current.description);
}

// Untrimmed on purpose, unlike applyUpdate(): a changed blank offers Update, which then writes
// nothing.
void OvProjectManageDlgPrivate::updateButtonState()
{
    const bool same = ui.dataPath->text() == current.dataPath &&
                      ui.description->toPlainText() == current.description;
    ui.btnUpdate->setEnabled(!same);
}

void OvProjectManageDlgPrivate::applyUpdate()
{
    const QString dataPath = ui.dataPath->text().trimmed();
    const QString description = ui.description->toPlainText().trimmed();
    if (dataPath == current.dataPath && description == current.description)
        return;
    current.dataPath = QDir::fromNativeSeparators(dataPath);
    current.description = description;
    OvProjectDefineNode().updateProject(current);
}

// The test looks at the project shown, not at the row: the list never holds the open project.
void OvProjectManageDlgPrivate::markForDeletion(const QString& name)
{
    const QString openName = OvProjectManager::instance().define().name;
    if (openName != current.name) {
        pendingDeletions.append(name);
        return;
    }
    const QString text = OvProjectManageDlg::tr("Cannot delete %1, it is being opened!");
    QMessageBox box(QMessageBox::Warning, OvProjectManageDlg::tr("Delete Project"),
                    text.arg(openName), QMessageBox::Ok, q);
    // A name can look like markup.
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void OvProjectManageDlgPrivate::hideMarked(QStringList names)
{
    QSet<QString> marked;
    for (const QString& name : qAsConst(pendingDeletions))
        marked.insert(name);
    const auto isMarked = [&marked](const QString& name) { return marked.contains(name); };
    names.erase(std::remove_if(names.begin(), names.end(), isMarked), names.end());
    setNames(names);
}

void OvProjectManageDlgPrivate::commitDeletions()
{
    if (manageMode != OvProjectManageDlg::ManageProjects)
        return;
    OvProjectDefineNode node;
    for (const QString& name : qAsConst(pendingDeletions)) {
        const OvProjectDefine project = node.projectByName(name);
        node.removeProject(project);
        OvBaseUtil::clearAllProjectValues(project.id);
    }
}

OvProjectManageDlg::OvProjectManageDlg(int manageMode, QWidget* parent)
    : OvDialog(parent)
    , d(new OvProjectManageDlgPrivate(this, manageMode))
{
    d->setTitle();
    d->loadProjects();
}

OvProjectManageDlg::~OvProjectManageDlg() = default;

const OvProjectDefine& OvProjectManageDlg::projectDefine() const
{
    return d->current;
}

QString OvProjectManageDlg::helpPage() const
{
    return QStringLiteral("w_cover.html");
}

void OvProjectManageDlg::accept()
{
    d->commitDeletions();
    OvDialog::accept();
}

// A cancelled chooser gives an empty text, which names the working directory: it empties the field.
void OvProjectManageDlg::on_btnFileSelect_clicked(bool /*checked*/)
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Select Folder."), OvProjectManager::instance().define().dataPath,
        QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (QDir(folder).exists())
        d->ui.dataPath->setText(QDir::fromNativeSeparators(folder));
}

void OvProjectManageDlg::on_btnDelete_clicked(bool /*checked*/)
{
    const QModelIndexList rows = d->ui.projectList->selectionModel()->selectedRows(0);
    const QStringList names = d->model.stringList();
    for (int i = rows.size() - 1; i >= 0; --i)
        d->markForDeletion(names.value(rows.at(i).row()));
    d->hideMarked(names);
}

void OvProjectManageDlg::on_btnUpdate_clicked(bool /*checked*/)
{
    d->applyUpdate();
    d->updateButtonState();
}

void OvProjectManageDlg::on_description_textChanged()
{
    d->updateButtonState();
}

void OvProjectManageDlg::on_dataPath_textChanged(const QString& text)
{
    const bool missing = text.trimmed().isEmpty() || !QDir(text).exists();
    QPalette palette = d->ui.dataPath->palette();
    palette.setColor(QPalette::Text, missing ? Qt::red : Qt::black);
    d->ui.dataPath->setPalette(palette);
    d->ui.btnOk->setEnabled(!missing);
    d->updateButtonState();
}

void OvProjectManageDlg::on_projectList_doubleClicked(const QModelIndex& index)
{
    if (index.isValid() && d->manageMode == OpenProject)
        QDialog::accept();
}

void OvProjectManageDlg::slotSelectionChanged(const QModelIndex& current,
                                              const QModelIndex& /*previous*/)
{
    d->showProject(d->model.stringList().value(current.row()));
}

void OvProjectManageDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        d->ui.retranslateUi(this);
        d->setTitle();
    }
    OvDialog::changeEvent(event);
}
