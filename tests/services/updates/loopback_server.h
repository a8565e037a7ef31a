// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QMap>
#include <QObject>
#include <QTcpServer>
#include <QUrl>

#include <memory>

class QTcpSocket;

namespace lexivore::test {

/// An HTTP or HTTPS server on the loopback interface, in the event loop of the test.
class LoopbackServer : public QObject {
public:
    enum class Protocol { http, https };

    struct Answer {
        QByteArray status = "200 OK";
        QByteArray headers; ///< Each with CR LF at its end.
        QByteArray body;
        enum class Behaviour {
            plain,
            withoutLength, ///< The end of the connection is the end of the body.
            truncated,     ///< Promises one byte more than it sends, and closes.
            endless,       ///< Repeats the body for ever.
            silent,        ///< Says nothing.
            stalling,      ///< Says nothing more after the first half of the body.
            dripping,      ///< Sends the body in ten pieces, 150 ms apart.
        } behaviour = Behaviour::plain;
    };

    /// An https server shows a certificate of its own, for 127.0.0.1, which the whole process trusts from then on.
    explicit LoopbackServer(Protocol protocol, const QHostAddress &host = QHostAddress::LocalHost);
    ~LoopbackServer() override;

    [[nodiscard]] QUrl address(const QString &path) const;
    QMap<QString, Answer> answers; ///< By path; others are 404.
    QByteArrayList requests;       ///< Whole heads, as they came.

    /// No longer trusted: what a stranger's server is.
    static void trustNobody();

private:
    void receive(QTcpSocket &socket);
    static void answer(QTcpSocket &socket, const Answer &answer);

    Protocol m_protocol;
    std::unique_ptr<QTcpServer> m_server;
};

} // namespace lexivore::test
