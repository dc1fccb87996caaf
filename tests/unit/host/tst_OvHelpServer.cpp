#include "host/OvHelpServer.h"

#include "fixtures/WarningTrap.h"

#include <QDesktopServices>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

constexpr int patienceMs = 20000;

int freePort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    return probe.serverPort();
}

QString installedServer()
{
    return qEnvironmentVariable("TARNPICK_BUILD_DIR") + "/bin/tarnpick-help";
}

/// What the address answers; empty when nobody does.
QByteArray answerOf(const QUrl& url)
{
    QTcpSocket socket;
    socket.connectToHost(url.host(), static_cast<quint16>(url.port()));
    if (!socket.waitForConnected(patienceMs))
        return {};
    socket.write("GET " + url.path().toLatin1() + " HTTP/1.0\r\n\r\n");
    QByteArray answer;
    while (socket.waitForReadyRead(patienceMs))
        answer += socket.readAll();
    return answer;
}

} // namespace

class tst_OvHelpServer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void servesTheFirstPageAskedFor();
    void theSecondPageGoesOutAtOnce();
    void endsWithItsOwner();
    void findsThatTheManualIsServed();
    void takesOverFromOneThatHasEnded();
    void othersOnThePortAreNamed();
    void aMissingServerIsNamed();
    void aMissingBrowserIsNamed();
    void otherAddressesPass();
    void theDesktopHandsAddressesOver();

private:
    QUrl page(const QString& name) const;
    std::unique_ptr<OvHelpServer> make(const QString& program = installedServer());

    int m_port = 0;
    QList<QUrl> m_shown;
    QByteArray m_answer;
    bool m_hasBrowser = true;
};

void tst_OvHelpServer::init()
{
    WarningTrap::start();
    m_port = freePort();
    m_shown.clear();
    m_answer.clear();
    m_hasBrowser = true;
}

void tst_OvHelpServer::cleanup()
{
    QCOMPARE(WarningTrap::take(), QStringList());
}

QUrl tst_OvHelpServer::page(const QString& name) const
{
    return QUrl(QString("http://127.0.0.1:%1/ManualWeb/onlinehelp/%2").arg(m_port).arg(name));
}

std::unique_ptr<OvHelpServer> tst_OvHelpServer::make(const QString& program)
{
    return std::make_unique<OvHelpServer>(program, [this](const QUrl& url) {
        m_shown.append(url);
        return m_hasBrowser;
    });
}

void tst_OvHelpServer::servesTheFirstPageAskedFor()
{
    const auto server = make();
    const QSignalSpy refused(server.get(), &OvHelpServer::refused);
    QVERIFY(answerOf(page("en/w_cover.html")).isEmpty());
    server->open(page("en/w_cover.html"));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown, QList<QUrl>{page("en/w_cover.html")}, patienceMs);
    const QByteArray answer = answerOf(m_shown.first());
    QVERIFY2(answer.contains("200 OK") && answer.contains("<title>Maravel Manual"), answer);
    QCOMPARE(refused.count(), 0);
}

void tst_OvHelpServer::theSecondPageGoesOutAtOnce()
{
    const auto server = make();
    server->open(page("en/w_cover.html"));
    server->open(page("zh/w_cover.html"));
    // Of several pages asked for while the server starts, the last one counts.
    QTRY_COMPARE_WITH_TIMEOUT(m_shown, QList<QUrl>{page("zh/w_cover.html")}, patienceMs);
    server->open(page("en/segy.html"));
    QCoreApplication::processEvents();
    QCOMPARE(m_shown.size(), 2);
    QVERIFY(answerOf(m_shown.last()).contains("200 OK"));
}

void tst_OvHelpServer::endsWithItsOwner()
{
    auto server = make();
    server->open(page("en/w_cover.html"));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown.size(), 1, patienceMs);
    server.reset();
    QTRY_VERIFY_WITH_TIMEOUT(answerOf(page("en/w_cover.html")).isEmpty(), patienceMs);
}

void tst_OvHelpServer::findsThatTheManualIsServed()
{
    const auto first = make();
    first->open(page("en/w_cover.html"));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown.size(), 1, patienceMs);
    const auto second = make();
    const QSignalSpy refused(second.get(), &OvHelpServer::refused);
    second->open(page("zh/keys.html"));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown.size(), 2, patienceMs);
    QCOMPARE(m_shown.last(), page("zh/keys.html"));
    QCOMPARE(refused.count(), 0);
}

void tst_OvHelpServer::takesOverFromOneThatHasEnded()
{
    auto first = make();
    first->open(page("en/w_cover.html"));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown.size(), 1, patienceMs);
    const auto second = make();
    second->open(page("en/keys.html"));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown.size(), 2, patienceMs);
    first.reset();
    second->open(page("en/segy.html"));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown.size(), 3, patienceMs);
    QVERIFY(answerOf(m_shown.last()).contains("200 OK"));
}

void tst_OvHelpServer::othersOnThePortAreNamed()
{
    QTcpServer other;
    QVERIFY(other.listen(QHostAddress::LocalHost, static_cast<quint16>(m_port)));
    connect(&other, &QTcpServer::newConnection, &other,
            [&other] { other.nextPendingConnection()->disconnectFromHost(); });
    const auto server = make();
    QSignalSpy refused(server.get(), &OvHelpServer::refused);
    server->open(page("en/w_cover.html"));
    QTRY_COMPARE_WITH_TIMEOUT(refused.count(), 1, patienceMs);
    const QString message = refused.first().first().toString();
    QVERIFY2(message.contains(QString::number(m_port)), qPrintable(message));
    // The address is opened all the same.
    QCOMPARE(m_shown, QList<QUrl>{page("en/w_cover.html")});
}

void tst_OvHelpServer::aMissingServerIsNamed()
{
    const auto server = make("/nowhere/tarnpick-help");
    QSignalSpy refused(server.get(), &OvHelpServer::refused);
    server->open(page("en/w_cover.html"));
    QTRY_COMPARE_WITH_TIMEOUT(refused.count(), 1, patienceMs);
    QVERIFY(refused.first().first().toString().contains("/nowhere/tarnpick-help"));
    QCOMPARE(m_shown, QList<QUrl>{page("en/w_cover.html")});
}

void tst_OvHelpServer::aMissingBrowserIsNamed()
{
    m_hasBrowser = false;
    const auto server = make();
    QSignalSpy refused(server.get(), &OvHelpServer::refused);
    server->open(QUrl("http://127.0.0.1/elsewhere"));
    QTRY_COMPARE_WITH_TIMEOUT(refused.count(), 1, patienceMs);
    QVERIFY(refused.first().first().toString().contains("http://127.0.0.1/elsewhere"));
}

void tst_OvHelpServer::otherAddressesPass()
{
    const auto server = make("/nowhere/tarnpick-help");
    const QSignalSpy refused(server.get(), &OvHelpServer::refused);
    const QUrl elsewhere("http://manual.example/ManualWeb/onlinehelp/en/w_cover.html");
    server->open(elsewhere);
    QTRY_COMPARE(m_shown, QList<QUrl>{elsewhere});
    QCOMPARE(refused.count(), 0);
}

void tst_OvHelpServer::theDesktopHandsAddressesOver()
{
    auto server = make();
    server->install();
    QVERIFY(QDesktopServices::openUrl(page("en/w_cover.html")));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown.size(), 1, patienceMs);
    // Again: showing a page must not lose the handler.
    QVERIFY(QDesktopServices::openUrl(page("en/keys.html")));
    QTRY_COMPARE_WITH_TIMEOUT(m_shown.size(), 2, patienceMs);
    QCOMPARE(m_shown.last(), page("en/keys.html"));
}

QTEST_MAIN(tst_OvHelpServer)
#include "tst_OvHelpServer.moc"
