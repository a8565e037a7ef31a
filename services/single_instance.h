// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLockFile>
#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>

class QLocalServer;
class QLocalSocket;

namespace lexivore {

/// Sees to it that one user runs the program once: the first instance holds a lock and listens on a socket, every later
/// one hands its request to the first and ends. Needs no session bus. A lock or socket that a crash left behind is
/// taken over.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    enum class Role {
        primary,   ///< This instance goes on and receives the requests of later ones.
        secondary, ///< The first instance has taken the request; this one should end.
    };

    /// What a start asks of the running instance.
    struct Request {
        QStringList files;       ///< To open, as absolute paths.
        QString activationToken; ///< With which the window system lets the window come forward; may be empty.
        QString busAddress;      ///< Of the session bus that the start belongs to; may be empty.
    };

    /// `folder` holds the lock and the socket: the user's own runtime folder. When it is empty there is none, and every
    /// start becomes a primary one.
    explicit SingleInstance(const QString &folder, QObject *parent = nullptr);
    ~SingleInstance() override;

    /// Becomes the first instance, or gives `request` to it. When the first one holds the lock but does not answer for
    /// `patience`, this one becomes a primary of its own, so that a start is never refused.
    [[nodiscard]] Role start(const Request &request, std::chrono::milliseconds patience = std::chrono::seconds(5));

signals:
    /// A later start wants the window to come forward.
    void requested(const lexivore::SingleInstance::Request &request);

private:
    void listen();
    [[nodiscard]] bool removeUnreadableLock();
    bool send(const Request &request, std::chrono::milliseconds patience) const;
    void receive(QLocalSocket *socket);

    bool m_hasFolder;
    QString m_socketPath;
    QLockFile m_lock;
    QLocalServer *m_server = nullptr;
};

} // namespace lexivore
