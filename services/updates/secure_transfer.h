// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/update_error.h"

#include <QObject>
#include <QTimer>

#include <chrono>

class QNetworkAccessManager;
class QNetworkReply;
class QUrl;

namespace lexivore {

/// Gets one file over https, and over nothing else on any redirect. It sends no cookies and nothing about the user. It
/// ends with exactly one of `finished` and `failed`, or without a word when it is deleted before.
class SecureTransfer : public QObject {
    Q_OBJECT

public:
    struct Limits {
        qint64 bytes;                      ///< A longer answer fails as soon as it is one byte longer.
        std::chrono::milliseconds silence; ///< How long the server may send nothing.
        std::chrono::milliseconds total;   ///< How long it may take altogether; 0 for as long as it likes.
    };

    /// Starts at once; what it says, it says from the event loop.
    SecureTransfer(QNetworkAccessManager &network, const QUrl &address, const Limits &limits,
                   QObject *parent = nullptr);
    ~SecureTransfer() override;

    /// Ends it without a word.
    void cancel() { dropReply(); }

signals:
    /// The next bytes. A receiver may cancel the transfer, but not delete it.
    void received(const QByteArray &bytes);
    void finished();
    void failed(const lexivore::UpdateError &error);

private:
    void connectReply();
    void readAvailable();
    void end();
    void fail(const UpdateError &error);
    void dropReply();
    [[nodiscard]] UpdateError errorOfReply() const;

    Limits m_limits;
    qint64 m_receivedCount = 0;
    QNetworkReply *m_reply = nullptr;
    QTimer m_silence;
    QTimer m_total;
};

} // namespace lexivore
