#pragma once

#include <QObject>
#include <QProcess>
#include <QUrl>

#include <functional>

/// Sees to it that somebody answers where F1 looks for the manual: an address of this computer.
///
/// The first page that is asked for starts tarnpick-help, which serves the manual as long as this
/// object lives, or finds that it is served already. Nobody waits for it; the page goes to the
/// browser when it can be had, or with refused() when it cannot. GUI thread.
class OvHelpServer : public QObject
{
    Q_OBJECT

public:
    using Browser = std::function<bool(const QUrl&)>;

    /// The program is tarnpick-help, the browser what the desktop offers.
    explicit OvHelpServer(QObject* parent = nullptr);
    OvHelpServer(const QString& program, const Browser& browser, QObject* parent = nullptr);
    ~OvHelpServer() override;

    /// Takes the desktop's http addresses in hand as long as it lives.
    void install();

public slots:
    /// Pages of the manual as above; any other address goes to the browser at once.
    void open(const QUrl& url);

signals:
    /// Why the manual cannot be served or shown, and what to do, for the user.
    void refused(const QString& message);

private:
    void start();
    void readAnswer();
    void end();
    void failToStart(QProcess::ProcessError error);
    void show(const QUrl& url);
    void showWaiting();
    QString reason();

    const QString m_program;
    const Browser m_browser;
    QProcess m_server;
    QUrl m_waiting;
    int m_port = 0;
    bool m_ready = false;
    bool m_installed = false;
};
