#include "ProbePlugin.h"

#include "Questions.h"

#include <QAction>
#include <QJsonDocument>
#include <QLocalSocket>

ProbePlugin::ProbePlugin()
{
    connect(&server, &QLocalServer::newConnection, this, &ProbePlugin::accept);
    const QString path = qEnvironmentVariable("TARNPICK_PROBE");
    if (path.isEmpty() || !server.listen(path))
        qWarning("The probe cannot listen at \"%s\".", qPrintable(path));
}

ProbePlugin::~ProbePlugin() = default;

QString ProbePlugin::name() const
{
    return QStringLiteral("Probe");
}

bool ProbePlugin::needsProject() const
{
    return false;
}

QAction* ProbePlugin::action()
{
    auto* action = new QAction;
    action->setVisible(false);
    return action;
}

void ProbePlugin::accept()
{
    while (QLocalSocket* socket = server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { answer(socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void ProbePlugin::answer(QLocalSocket* socket)
{
    while (socket->canReadLine()) {
        const QJsonObject question = QJsonDocument::fromJson(socket->readLine()).object();
        socket->write(QJsonDocument(Questions::answer(question)).toJson(QJsonDocument::Compact) +
                      '\n');
    }
}
