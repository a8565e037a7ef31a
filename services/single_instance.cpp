// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/single_instance.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>

#include <optional>

namespace lexivore {

namespace {

using namespace std::chrono_literals;

constexpr char acknowledgement = '\n';
constexpr qint64 longestRequest = 1 << 24; // bytes; a command line holds less than 6 MB

QByteArray encode(const SingleInstance::Request &request) {
    const QJsonObject object{{"files", QJsonArray::fromStringList(request.files)},
                             {"activationToken", request.activationToken},
                             {"busAddress", request.busAddress}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<SingleInstance::Request> decode(const QByteArray &line) {
    const QJsonDocument document = QJsonDocument::fromJson(line);
    if (!document.isObject()) {
        return std::nullopt;
    }
    SingleInstance::Request request;
    request.activationToken = document["activationToken"].toString();
    request.busAddress = document["busAddress"].toString();
    for (const QJsonValue file : document["files"].toArray()) {
        request.files += file.toString();
    }
    return request;
}

int milliseconds(const QDeadlineTimer &deadline) { return static_cast<int>(deadline.remainingTime()); }

} // namespace

SingleInstance::SingleInstance(const QString &folder, QObject *parent)
    : QObject(parent), m_hasFolder(!folder.isEmpty()), m_socketPath(folder + "/lexivore.socket"),
      m_lock(folder + "/lexivore.lock") {
    m_lock.setStaleLockTime(0); // stale when its process is gone, however old it is
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Role SingleInstance::start(const Request &request, std::chrono::milliseconds patience) {
    if (!m_hasFolder) {
        return Role::primary;
    }
    const QDeadlineTimer deadline(patience);
    while (true) {
        if (m_lock.tryLock(0ms)) {
            listen();
            return Role::primary;
        }
        if (m_lock.error() != QLockFile::LockFailedError) {
            return Role::primary; // no place for a lock: better twice than not at all
        }
        // The first instance may be starting just now, or may have ended since.
        if (send(request, std::chrono::milliseconds(milliseconds(deadline)))) {
            return Role::secondary;
        }
        if (deadline.hasExpired()) {
            if (removeUnreadableLock() && m_lock.tryLock(0ms)) {
                listen();
            }
            return Role::primary;
        }
        QThread::msleep(20);
    }
}

/// Whoever was killed between making the lock and filling it left one that never counts as stale. False too when its
/// owner lives.
bool SingleInstance::removeUnreadableLock() {
    qint64 owner = 0;
    QString host;
    QString name;
    return !m_lock.getLockInfo(&owner, &host, &name) && m_lock.removeStaleLockFile();
}

/// Only the holder of the lock listens, so that whatever stands at the socket's path is a leftover.
void SingleInstance::listen() {
    QLocalServer::removeServer(m_socketPath);
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, [this]() {
        while (QLocalSocket *const socket = m_server->nextPendingConnection()) {
            connect(socket, &QLocalSocket::readyRead, this, [this, socket]() { receive(socket); });
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            receive(socket);
        }
    });
    m_server->listen(m_socketPath);
}

void SingleInstance::receive(QLocalSocket *socket) {
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > longestRequest) {
            socket->abort();
        }
        return;
    }
    const std::optional<Request> request = decode(socket->readLine(longestRequest));
    if (!request) {
        socket->abort();
        return;
    }
    // At once: what the request starts may take long, and the later instance must not give up waiting.
    socket->putChar(acknowledgement);
    socket->flush();
    if (socket->state() != QLocalSocket::ConnectedState) {
        return; // it has given up waiting, and does itself what it asked for
    }
    socket->disconnectFromServer();
    emit requested(*request);
}

bool SingleInstance::send(const Request &request, std::chrono::milliseconds patience) const {
    const QDeadlineTimer deadline(patience);
    QLocalSocket socket;
    socket.connectToServer(m_socketPath);
    if (!socket.waitForConnected(milliseconds(deadline))) {
        return false;
    }
    socket.write(encode(request));
    char answer = '\0';
    while (socket.bytesAvailable() == 0) {
        if (!socket.waitForReadyRead(milliseconds(deadline))) {
            return false;
        }
    }
    return socket.getChar(&answer) && answer == acknowledgement;
}

} // namespace lexivore
