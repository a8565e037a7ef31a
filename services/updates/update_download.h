// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/appcast.h"
#include "services/updates/secure_transfer.h"

#include <QObject>
#include <QTemporaryFile>

class QNetworkAccessManager;

namespace lexivore {

inline constexpr qint64 largestUpdate = qint64{512} << 20; ///< Bytes.

/// Brings one update's file to the disk and verifies its length and its signature. Until both are right the file has a
/// name that nothing opens, and it is gone as soon as this is, however it ends. It ends with exactly one of `verified`
/// and `failed`, or without a word when it is deleted before.
class UpdateDownload : public QObject {
    Q_OBJECT

public:
    /// Starts at once; what it says, it says from the event loop. `folder` is the program's own and is made if need be,
    /// for the user alone, as the file is.
    UpdateDownload(QNetworkAccessManager &network, const AppcastItem &item, const QByteArray &publicKey,
                   const QString &folder, std::chrono::milliseconds silence, QObject *parent = nullptr);

    /// After `verified`: leaves the file to the caller, under a name as the address has it, and returns its path. Empty
    /// when that fails, with what the system says in `problem`.
    [[nodiscard]] QString keepFile(QString &problem);

    /// Deletes what a crash left in `folder`, and what was handed over more than a day ago.
    static void removeLeftovers(const QString &folder);

signals:
    void progressed(qint64 receivedBytes);
    void verified();
    void failed(const lexivore::UpdateError &error);

private:
    [[nodiscard]] bool openFile();
    void write(const QByteArray &bytes);
    void verify();
    void fail(const UpdateError &error);

    AppcastItem m_item;
    QByteArray m_publicKey;
    QString m_folder;
    QTemporaryFile m_file;
    SecureTransfer *m_transfer = nullptr;
};

} // namespace lexivore
