// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/services/updates/loopback_server.h"

#include "tests/services/updates/keys.h"

#include <QSslConfiguration>
#include <QSslServer>
#include <QSslSocket>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>

namespace lexivore::test {

namespace {

constexpr qint64 mostWaiting = 1 << 18; // bytes of an endless answer that wait to be sent
constexpr int dripInterval = 150;       // milliseconds
constexpr int drops = 10;

void drip(QTcpSocket &socket, const QByteArray &body) {
    auto *timer = new QTimer(&socket);
    QObject::connect(timer, &QTimer::timeout, &socket, [&socket, timer, rest = body, body]() mutable {
        const qsizetype size = body.size() / drops + 1;
        socket.write(rest.first(std::min(size, rest.size())));
        rest.remove(0, size);
        if (rest.isEmpty()) {
            timer->stop();
            socket.disconnectFromHost();
        }
    });
    timer->start(dripInterval);
}

} // namespace

LoopbackServer::LoopbackServer(Protocol protocol, const QHostAddress &host) : m_protocol(protocol) {
    if (protocol == Protocol::https) {
        const ServerIdentity identity = makeServerIdentity();
        QSslConfiguration ours = QSslConfiguration::defaultConfiguration();
        ours.setLocalCertificate(identity.certificate);
        ours.setPrivateKey(identity.key);
        auto server = std::make_unique<QSslServer>();
        server->setSslConfiguration(ours);
        m_server = std::move(server);
        QSslConfiguration theirs = QSslConfiguration::defaultConfiguration();
        theirs.setCaCertificates({identity.certificate});
        QSslConfiguration::setDefaultConfiguration(theirs);
    } else {
        m_server = std::make_unique<QTcpServer>();
    }
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (QTcpSocket *socket = m_server->nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { receive(*socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            receive(*socket);
        }
    });
    EXPECT_TRUE(m_server->listen(host));
}

LoopbackServer::~LoopbackServer() = default;

void LoopbackServer::trustNobody() {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates({});
    QSslConfiguration::setDefaultConfiguration(configuration);
}

QUrl LoopbackServer::address(const QString &path) const {
    const QString scheme = m_protocol == Protocol::https ? "https" : "http";
    return scheme + "://" + m_server->serverAddress().toString() + ':' + QString::number(m_server->serverPort()) + path;
}

void LoopbackServer::receive(QTcpSocket &socket) {
    const QByteArray head = socket.peek(socket.bytesAvailable());
    if (!head.contains("\r\n\r\n")) {
        return;
    }
    socket.readAll();
    requests << head;
    const QString path = QString::fromLatin1(head.split(' ').value(1));
    answer(socket, answers.value(path, {"404 Not Found", {}, "nothing here", {}}));
}

void LoopbackServer::answer(QTcpSocket &socket, const Answer &answer) {
    using Behaviour = Answer::Behaviour;
    if (answer.behaviour == Behaviour::silent) {
        return;
    }
    socket.write("HTTP/1.1 " + answer.status + "\r\nConnection: close\r\n" + answer.headers);
    const bool hasLength = answer.behaviour != Behaviour::withoutLength && answer.behaviour != Behaviour::endless;
    if (hasLength) {
        const qsizetype more = answer.behaviour == Behaviour::truncated ? 1 : 0;
        socket.write("Content-Length: " + QByteArray::number(answer.body.size() + more) + "\r\n");
    }
    socket.write("\r\n");
    if (answer.behaviour == Behaviour::stalling) {
        socket.write(answer.body.first(answer.body.size() / 2));
        return;
    }
    if (answer.behaviour == Behaviour::dripping) {
        drip(socket, answer.body);
        return;
    }
    socket.write(answer.body);
    if (answer.behaviour == Behaviour::endless) {
        auto *timer = new QTimer(&socket);
        connect(timer, &QTimer::timeout, &socket, [&socket, body = answer.body] {
            const auto *secure = qobject_cast<QSslSocket *>(&socket);
            const qint64 waiting = secure != nullptr ? secure->encryptedBytesToWrite() : socket.bytesToWrite();
            if (waiting < mostWaiting) {
                socket.write(body);
            }
        });
        timer->start(0);
    } else {
        socket.disconnectFromHost();
    }
}

} // namespace lexivore::test
