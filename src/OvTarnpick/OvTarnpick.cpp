#include "OvTarnpick/OvTarnpick.h"

#include "OvTarnpick/OvAboutDialog.h"
#include "OvTarnpick/OvTarnpickHelper.h"
#include "OvTarnpick/OvTarnpick_p.h"
#include "OvTarnpick/controller/OvProjectCreateDlg.h"
#include "OvTarnpick/controller/OvProjectManageDlg.h"
#include "OvTarnpick/utility/OvConsole.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskMonitor.h"
#include "OvBase/OvTranslator.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QKeyEvent>
#include <QMessageBox>
#include <QUrl>

namespace {

QUrl folderUrl(const QString& folder)
{
    // A folder name may hold what a URL would read as a query, a fragment or an escape.
    QString path = folder;
    path.replace(QLatin1Char('%'), QLatin1String("%25"));
    path.replace(QLatin1Char('#'), QLatin1String("%23"));
    path.replace(QLatin1Char('?'), QLatin1String("%3F"));
    return QUrl(QLatin1String("file:///") + path);
}

} // namespace

OvTarnpick::OvTarnpick(QWidget* parent)
    : QMainWindow(parent)
    , d(new OvTarnpickPrivate(this))
{
    d->init();
}

OvTarnpick::~OvTarnpick()
{
    // A window destroyed without having been closed still has a controller, which needs the window.
    d->deleteController();
}

void OvTarnpick::populate(OvAbstractViewController* controller)
{
    d->populate(controller);
}

void OvTarnpick::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->retranslate();
    QWidget::changeEvent(event);
}

void OvTarnpick::closeEvent(QCloseEvent* event)
{
    if (OvTaskMonitor::instance().hasRunningJob()) {
        const auto answer = QMessageBox::warning(
            this, tr("Warning"), tr("There are some jobs active, still want to close?"),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        if (answer != QMessageBox::Yes) {
            event->ignore();
            return;
        }
    }
    on_action_Close_Project_triggered(false);
    OvBaseUtil::finish();
    d->deleteController();
}

void OvTarnpick::keyPressEvent(QKeyEvent* event)
{
    if (d->controller)
        d->controller->forwardKeyEvent(event);
    else
        QWidget::keyPressEvent(event);
}

void OvTarnpick::showEvent(QShowEvent* event)
{
    Q_UNUSED(event)
    if (OvTarnpickPrivate::firstShow)
        return;
    OvTarnpickPrivate::firstShow = true;
    d->setDockHeightLimit(QWIDGETSIZE_MAX);
}

void OvTarnpick::slotProjectChanged(const OvProjectDefine& define)
{
    d->updateProjectState(define.isValid());
}

void OvTarnpick::on_action_New_Project_triggered(bool)
{
    OvProjectCreateDlg dialog(nullptr);
    if (dialog.exec() == QDialog::Accepted)
        OvProjectManager::instance().openProject(dialog.projectDefine());
}

void OvTarnpick::on_action_Open_Project_triggered(bool)
{
    OvProjectManageDlg dialog(OvProjectManageDlg::OpenProject, nullptr);
    if (dialog.exec() == QDialog::Accepted)
        OvProjectManager::instance().openProject(dialog.projectDefine());
}

void OvTarnpick::on_action_Manage_Project_triggered(bool)
{
    if (d->controller)
        d->controller->manageProjects();
}

void OvTarnpick::on_action_Close_Project_triggered(bool)
{
    OvProjectManager::instance().closeProject();
}

void OvTarnpick::on_action_Clear_Menu_triggered(bool)
{
    if (d->controller)
        d->controller->clearRecentProjects();
}

void OvTarnpick::on_actionExport_to_Image_triggered(bool)
{
    if (d->controller && OvProjectManager::instance().define().isValid())
        d->controller->captureActiveWorkspace();
}

void OvTarnpick::on_actionExplorer_triggered(bool)
{
    const OvProjectDefine& define = OvProjectManager::instance().define();
    QDesktopServices::openUrl(folderUrl(define.isValid() ? define.dataPath : QDir::currentPath()));
}

void OvTarnpick::on_actionLinkWindow_triggered(bool)
{
    if (!d->controller || !d->controller->slotLinkWindow())
        return;
    OvConsole::instance().close();
    OvTaskMonitor::instance().close();
}

void OvTarnpick::on_actionEnglish_triggered(bool)
{
    OvTranslator::instance().setLanguageType(OvTranslator::English);
}

void OvTarnpick::on_actionChinese_triggered(bool)
{
    OvTranslator::instance().setLanguageType(OvTranslator::Chinese);
}

void OvTarnpick::on_actionContent_triggered(bool)
{
    const QString base = tr("http://127.0.0.1:8642/ManualWeb/onlinehelp/en/");
    QDesktopServices::openUrl(QUrl(base + QLatin1String("w_cover.html")));
}

void OvTarnpick::on_actionAbout_Tarnpick_triggered(bool)
{
    OvAboutDialog(this).exec();
}
