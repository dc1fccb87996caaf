#include "OvTarnpick/OvLoginDlg.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvTarnpick/OvTarnpick.h"
#include "OvTarnpick/OvWindowPlacement.h"

#include "ui_OvLoginDlg.h"

#include <QDesktopWidget>
#include <QDir>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>

class OvLoginDlgPrivate
{
public:
    explicit OvLoginDlgPrivate(OvLoginDlg* dialog);
    ~OvLoginDlgPrivate();

    bool placeDatabase(const QDir& local);
    bool fail(const QString& reason);
    void createMainWindow();
    void showMainWindow();

    OvLoginDlg* q;
    Ui::OvLoginDlg ui;
    QPointer<OvTarnpick> mainWindow;
};

namespace {

const unsigned int kVerified = 20000000;
const unsigned int kRefused = 20000001;

QString databaseName()
{
    return QStringLiteral("Tarnpick.db");
}

QSize desktopSize()
{
    const QWidget* desktop = QApplication::desktop();
    return desktop ? desktop->size() : QSize(1920, 1080);
}

// A path has no blanks to break a line at.
QString breakable(QString text)
{
    return text.replace(QLatin1Char('/'), QStringLiteral("/\u200b"));
}

} // namespace

OvLoginDlgPrivate::OvLoginDlgPrivate(OvLoginDlg* dialog)
    : q(dialog)
{
    ui.setupUi(q);
}

OvLoginDlgPrivate::~OvLoginDlgPrivate()
{
    delete mainWindow.data();
}

// An installed template may be read-only; the copy must not be.
bool OvLoginDlgPrivate::placeDatabase(const QDir& local)
{
    if (local.exists(databaseName()))
        return true;
    const QString source = QCoreApplication::applicationDirPath() + '/' + databaseName();
    const QString target = local.absoluteFilePath(databaseName());
    if (QFile::copy(source, target)) {
        QFile::setPermissions(target, QFile::permissions(target) | QFile::WriteOwner);
        return true;
    }
    QMessageBox::warning(nullptr, QStringLiteral("Warning"),
                         source + QStringLiteral(" -> ") + target, QMessageBox::Ok);
    return false;
}

bool OvLoginDlgPrivate::fail(const QString& reason)
{
    qWarning("%s", qUtf8Printable(reason));
    ui.errorLabel->setText(breakable(reason));
    ui.errorLabel->show();
    return false;
}

void OvLoginDlgPrivate::createMainWindow()
{
    mainWindow = new OvTarnpick;
}

void OvLoginDlgPrivate::showMainWindow()
{
    const QRect place = placedMainWindow(desktopSize());
    mainWindow->resize(place.size());
    mainWindow->move(place.topLeft());
    mainWindow->show();
    q->close();
}

OvLoginDlg::OvLoginDlg(QWidget* parent)
    : QWidget(parent)
    , d(new OvLoginDlgPrivate(this))
{
}

OvLoginDlg::~OvLoginDlg() = default;

bool OvLoginDlg::login()
{
    d->ui.errorLabel->hide();
    const QString local = OvBaseUtil::localPath();
    if (local.isEmpty())
        return d->fail(
            tr("The folder for your data cannot be determined or created. Set the environment "
               "variable TARNPICK_HOME to a folder that you can write to."));
    if (!d->placeDatabase(QDir(local)))
        return false;
    OvUserDefineNode& users = OvUserDefineNode::instance();
    const QString database = QDir(local).absoluteFilePath(databaseName());
    if (!users.login(database))
        return d->fail(users.lastError());
    d->createMainWindow();
    d->mainWindow->setAttribute(Qt::WA_DeleteOnClose);
    d->showMainWindow();
    return true;
}

void OvLoginDlg::on_loginBtn_clicked()
{
    login();
}

void OvLoginDlg::slotVerify(unsigned int code)
{
    if (code == kVerified && !d->mainWindow) {
        d->createMainWindow();
        d->showMainWindow();
    } else if (code == kRefused) {
        QMessageBox::warning(this, tr("Tarnpick"), tr("Login failed!"), QMessageBox::Ok);
    }
}

void OvLoginDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->ui.retranslateUi(this);
    QWidget::changeEvent(event);
}

// The button's shortcut is the main Return key; the keypad's is to do the same.
void OvLoginDlg::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Enter)
        d->ui.loginBtn->animateClick();
    else
        QWidget::keyPressEvent(event);
}
