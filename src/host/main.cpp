#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvTranslator.h"
#include "OvTarnpick/OvLoginDlg.h"
#include "host/OvHelpServer.h"
#include "host/OvHostLook.h"
#include "host/OvHostOptions.h"
#include "host/OvHostSession.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>

#include <cstdio>

namespace {

constexpr int wrongArguments = 2;
constexpr int messageMs = 20000;

void name()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Maravel"));
    QCoreApplication::setApplicationName(QStringLiteral("Tarnpick"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARNPICK_VERSION));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

int print(const OvHostOptions& options)
{
    const bool refused = options.action == OvHostOptions::Action::Refuse;
    std::fputs(qPrintable(options.text), refused ? stderr : stdout);
    return refused ? wrongArguments : 0;
}

void sayWhyThereIsNoHelp(const QString& message)
{
    qWarning("%s", qPrintable(message));
    if (QMainWindow* window = OvHostSession::mainWindow())
        window->statusBar()->showMessage(message, messageMs);
}

int run(QApplication* application, const OvHostOptions& options)
{
    OvHostLook::apply(application);
    if (!options.home.isEmpty())
        OvBaseUtil::setLocalPath(options.home);
    const OvStatus ready = OvBaseUtil::initialize();
    if (!options.language.isEmpty())
        OvTranslator::instance().setSessionLanguage(
            options.language == "zh" ? OvTranslator::Chinese : OvTranslator::English);
    if (!ready) {
        qWarning("%s", qPrintable(ready.message()));
        QMessageBox::warning(nullptr, QStringLiteral("Maravel"), ready.message());
        return 1;
    }
    OvHelpServer help;
    QObject::connect(&help, &OvHelpServer::refused, &sayWhyThereIsNoHelp);
    help.install();
    OvLoginDlg login;
    OvHostSession session(options, &login);
    session.start();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    name();
    if (OvHostOptions::asksForText(argc, argv)) {
        const QCoreApplication console(argc, argv);
        return print(OvHostOptions::parse(QCoreApplication::arguments()));
    }
    QApplication application(argc, argv);
    const OvHostOptions options = OvHostOptions::parse(QCoreApplication::arguments());
    if (options.action != OvHostOptions::Action::Run)
        return print(options);
    return run(&application, options);
}
