#include "OvTarnpick/controller/OvProjectCreateDlg.h"

#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvUserDefineNode.h"

#include "ui_OvProjectCreateDlg.h"

#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>

#include <algorithm>

class OvProjectCreateDlgPrivate
{
public:
    explicit OvProjectCreateDlgPrivate(OvProjectCreateDlg* dialog);

    bool checkName(const QString& name, bool verdict);
    bool checkDataPath(const QString& path);
    bool createProject();

    OvProjectCreateDlg* q;
    Ui::OvProjectCreateDlg ui;
    OvProjectDefine define;
};

namespace {

void setTextColor(QLineEdit* edit, const QColor& color)
{
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Text, color);
    edit->setPalette(palette);
}

bool isNameTaken(const QString& name)
{
    const QList<OvProjectDefine> projects = OvProjectDefineNode().projects();
    return std::any_of(projects.cbegin(), projects.cend(),
                       [&name](const OvProjectDefine& project) { return project.name == name; });
}

} // namespace

OvProjectCreateDlgPrivate::OvProjectCreateDlgPrivate(OvProjectCreateDlg* dialog)
    : q(dialog)
{
    ui.setupUi(q);
}

// The table is only asked while the verdict so far is good.
bool OvProjectCreateDlgPrivate::checkName(const QString& name, bool verdict)
{
    const bool taken = verdict && isNameTaken(name);
    setTextColor(ui.txtProjectName, taken ? Qt::red : Qt::black);
    return verdict && !taken;
}

bool OvProjectCreateDlgPrivate::checkDataPath(const QString& path)
{
    const bool exists = QDir(path).exists();
    setTextColor(ui.txtDataPath, exists ? Qt::black : Qt::red);
    return exists;
}

bool OvProjectCreateDlgPrivate::createProject()
{
    define.name = ui.txtProjectName->text().trimmed();
    define.userId = OvUserDefineNode::instance().userID();
    define.dataPath = QDir::fromNativeSeparators(ui.txtDataPath->text().trimmed());
    define.description = ui.txtDescription->toPlainText().trimmed();
    define.createTime = QDateTime::currentDateTime();
    const int key = OvProjectDefineNode().insertProject(define);
    if (key >= 0) {
        define.id = key;
        return true;
    }
    QMessageBox::warning(q, QObject::tr("Warning"),
                         OvProjectCreateDlg::tr("Cannot create new project!"), QMessageBox::Ok,
                         QMessageBox::Ok);
    return false;
}

OvProjectCreateDlg::OvProjectCreateDlg(QWidget* parent)
    : OvDialog(parent)
    , d(new OvProjectCreateDlgPrivate(this))
{
    d->ui.txtDataPath->setText(QDir::home().path());
}

OvProjectCreateDlg::~OvProjectCreateDlg() = default;

void OvProjectCreateDlg::accept()
{
    if (d->createProject())
        OvDialog::accept();
}

const OvProjectDefine& OvProjectCreateDlg::projectDefine() const
{
    return d->define;
}

QString OvProjectCreateDlg::helpPage() const
{
    return QStringLiteral("w_cover.html");
}

// Runs after slotSettingChanged() on an edit of the name, and so lets the name alone decide.
void OvProjectCreateDlg::on_txtProjectName_textChanged(const QString& text)
{
    const QString name = text.trimmed();
    d->ui.btnOk->setEnabled(d->checkName(name, !name.isEmpty()));
}

void OvProjectCreateDlg::on_btnPathSelect_clicked(bool /*checked*/)
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Select Data Path..."), QDir::homePath(),
        QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (!folder.isEmpty())
        d->ui.txtDataPath->setText(QDir::fromNativeSeparators(folder));
}

void OvProjectCreateDlg::slotSettingChanged()
{
    const QString name = d->ui.txtProjectName->text().trimmed();
    const QString path = d->ui.txtDataPath->text().trimmed();
    const bool nameGood = d->checkName(name, !name.isEmpty() && !path.isEmpty());
    const bool pathGood = d->checkDataPath(path);
    d->ui.btnOk->setEnabled(nameGood && pathGood);
}

void OvProjectCreateDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->ui.retranslateUi(this);
    OvDialog::changeEvent(event);
}
