#include "host/OvHelpServer.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QTimer>

namespace {

constexpr int endMs = 2000;
// How tarnpick-help ends.
constexpr int portTaken = 1;
constexpr int noManual = 3;
constexpr int noWebServer = 4;

bool isManual(const QUrl& url)
{
    return url.host() == QLatin1String("127.0.0.1") &&
           url.path().startsWith(QLatin1String("/ManualWeb/onlinehelp/"));
}

} // namespace

OvHelpServer::OvHelpServer(QObject* parent)
    : OvHelpServer(QCoreApplication::applicationDirPath() + QLatin1String("/tarnpick-help"), {},
                   parent)
{
}

OvHelpServer::OvHelpServer(const QString& program, const Browser& browser, QObject* parent)
    : QObject(parent)
    , m_program(program)
    , m_browser(browser)
{
    connect(&m_server, &QProcess::readyReadStandardOutput, this, &OvHelpServer::readAnswer);
    connect(&m_server, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &OvHelpServer::end);
    connect(&m_server, &QProcess::errorOccurred, this, &OvHelpServer::failToStart);
}

OvHelpServer::~OvHelpServer()
{
    if (m_installed)
        QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
    m_server.disconnect(this);
    m_server.closeWriteChannel();
    if (m_server.state() != QProcess::NotRunning && !m_server.waitForFinished(endMs))
        m_server.kill();
}

void OvHelpServer::install()
{
    QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "open");
    m_installed = true;
}

void OvHelpServer::open(const QUrl& url)
{
    const bool isServed = m_ready && m_port == url.port();
    if (!isManual(url) || isServed) {
        // Not from within the desktop's own call of this handler.
        QTimer::singleShot(0, this, [this, url] { show(url); });
        return;
    }
    m_waiting = url;
    if (m_server.state() == QProcess::NotRunning)
        start();
}

void OvHelpServer::start()
{
    m_ready = false;
    m_port = m_waiting.port();
    m_server.start(m_program, {QStringLiteral("--while-open"), QString::number(m_port)});
}

void OvHelpServer::readAnswer()
{
    if (m_ready || !m_server.readAllStandardOutput().contains("ready\n"))
        return;
    m_ready = true;
    showWaiting();
}

void OvHelpServer::end()
{
    const bool wasReady = m_ready;
    m_ready = false;
    if (wasReady)
        return;
    const bool served = m_server.exitStatus() == QProcess::NormalExit && m_server.exitCode() == 0;
    if (!served)
        emit refused(reason());
    showWaiting();
}

void OvHelpServer::failToStart(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return;
    emit refused(tr("%1 is missing, so the manual cannot be served; install the program again.")
                     .arg(m_program));
    showWaiting();
}

QString OvHelpServer::reason()
{
    switch (m_server.exitCode()) {
    case portTaken:
        return tr("Another program listens on port %1, where the manual should be served; end it "
                  "and try again.")
            .arg(m_port);
    case noManual:
        return tr("The pages of the manual are missing; install the program again.");
    case noWebServer:
        return tr("The manual cannot be served: install the package busybox and try again.");
    default:
        return tr("The manual cannot be served: %1")
            .arg(QString::fromLocal8Bit(m_server.readAllStandardError()).simplified());
    }
}

// Also when nobody serves it: what the browser then says names the address.
void OvHelpServer::showWaiting()
{
    const QUrl url = m_waiting;
    m_waiting.clear();
    if (!url.isEmpty())
        show(url);
}

void OvHelpServer::show(const QUrl& url)
{
    // The desktop would hand the address back to its handler.
    if (m_installed)
        QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
    const bool shown = m_browser ? m_browser(url) : QDesktopServices::openUrl(url);
    if (m_installed)
        install();
    if (!shown)
        emit refused(tr("No web browser could be started for %1").arg(url.toString()));
}
