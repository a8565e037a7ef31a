// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/update_download.h"

#include "manager/file_writing.h"
#include "services/updates/signature.h"

#include <QDateTime>
#include <QDir>
#include <QTimer>

#include <string_view>

namespace lexivore {

namespace {

constexpr auto unfinished = QLatin1String(".part");
constexpr qsizetype longestName = 100;
constexpr int daysKept = 1;

/// A name for the file with the ending that tells the desktop what it is, and nothing that means anything in a path.
QString nameFor(const QUrl &address) {
    QString name;
    for (const QChar character : address.fileName(QUrl::FullyDecoded).right(longestName)) {
        const bool isPlain =
            character.unicode() < 128 && (character.isLetterOrNumber() || QString("._+~-").contains(character));
        name += isPlain ? character : QChar(u'_');
    }
    const bool isUsable = !name.isEmpty() && name.front().isLetterOrNumber() && !name.endsWith(unfinished);
    return isUsable ? name : "lexivore-" + name;
}

} // namespace

UpdateDownload::UpdateDownload(QNetworkAccessManager &network, const AppcastItem &item, const QByteArray &publicKey,
                               const QString &folder, std::chrono::milliseconds silence, QObject *parent)
    : QObject(parent), m_item(item), m_publicKey(publicKey), m_folder(folder) {
    if (!openFile()) {
        const UpdateError error{UpdateError::Kind::cannotSave, m_file.errorString()};
        QTimer::singleShot(0, this, [this, error] { fail(error); });
        return;
    }
    m_transfer = new SecureTransfer(network, item.file, {item.length, silence, {}}, this);
    connect(m_transfer, &SecureTransfer::received, this, &UpdateDownload::write);
    connect(m_transfer, &SecureTransfer::finished, this, &UpdateDownload::verify);
    connect(m_transfer, &SecureTransfer::failed, this, &UpdateDownload::fail);
}

bool UpdateDownload::openFile() {
    const auto onlyForTheUser = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QDir().mkpath(m_folder);
    QFile::setPermissions(m_folder, onlyForTheUser);
    m_file.setFileTemplate(m_folder + "/XXXXXX" + unfinished);
    return m_file.open();
}

void UpdateDownload::write(const QByteArray &bytes) {
    if (!writeAll(m_file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())))) {
        fail({UpdateError::Kind::cannotSave, m_file.errorString()});
        return;
    }
    emit progressed(m_file.pos());
}

void UpdateDownload::verify() {
    if (!flushAll(m_file)) {
        fail({UpdateError::Kind::cannotSave, m_file.errorString()});
    } else if (m_file.size() != m_item.length) {
        fail({UpdateError::Kind::wrongLength, {}});
    } else if (!isSignedBy(m_publicKey, m_item.signature, m_file)) {
        fail({UpdateError::Kind::wrongSignature, {}});
    } else {
        emit verified();
    }
}

void UpdateDownload::fail(const UpdateError &error) {
    if (m_transfer != nullptr) {
        m_transfer->cancel();
        m_file.remove();
    }
    emit failed(error);
}

QString UpdateDownload::keepFile(QString &problem) {
    QString path = m_folder + '/' + nameFor(m_item.file);
    QFile::remove(path);
    if (!m_file.rename(path)) {
        problem = m_file.errorString();
        return {};
    }
    m_file.setAutoRemove(false);
    m_file.close();
    return path;
}

void UpdateDownload::removeLeftovers(const QString &folder) {
    const QDateTime oldest = QDateTime::currentDateTimeUtc().addDays(-daysKept);
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo &file : files) {
        if (file.fileName().endsWith(unfinished) || file.lastModified() < oldest) {
            QFile::remove(file.filePath());
        }
    }
}

} // namespace lexivore
