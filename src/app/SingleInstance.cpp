#include "app/SingleInstance.h"

#include <QLocalSocket>
#include <QThread>
#include <unistd.h>

namespace zonara {

namespace {
constexpr int retryMilliseconds = 100;
constexpr int connectMilliseconds = 200;
const QByteArray raiseMessage = "raise\n";
} // namespace

SingleInstance::SingleInstance(const QString& title, QObject* parent)
    : QObject(parent), name(title + QStringLiteral("-") + QString::number(::getuid())) {}

bool SingleInstance::askRunningInstance() {
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(connectMilliseconds)) {
        return false;
    }
    socket.write(raiseMessage);
    const bool sent = socket.waitForBytesWritten(connectMilliseconds);
    socket.disconnectFromServer();
    return sent;
}

bool SingleInstance::listen() {
    server = std::make_unique<QLocalServer>();
    server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!server->listen(name)) {
        server.reset();
        return false;
    }
    connect(server.get(), &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* client = server->nextPendingConnection()) {
            connect(client, &QLocalSocket::readyRead, this, [this, client] {
                if (client->readAll().startsWith(raiseMessage.trimmed()) && raise) {
                    raise();
                }
            });
            connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
        }
    });
    return true;
}

SingleInstance::Outcome SingleInstance::claim(int tries) {
    for (int attempt = 0; attempt < tries; ++attempt) {
        if (askRunningInstance()) {
            return Outcome::OtherInstanceRaised;
        }
        // Nobody answered: a socket left by an instance that died is stale.
        QLocalServer::removeServer(name);
        if (listen()) {
            return Outcome::FirstInstance;
        }
        QThread::msleep(retryMilliseconds);
    }
    return Outcome::StartedAnyway;
}

} // namespace zonara
