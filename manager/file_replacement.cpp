// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// QSaveFile gives the new file the old one's name and seven characters more while both are there. Where this makes the
// name too long for the file system it fails, and knows no reason. So a file of such a name is first made under another
// one, and then renamed.
#include "manager/file_replacement.h"

#include "manager/file_writing.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace lexivore {

namespace {

constexpr char accessList[] = "system.posix_acl_access";
constexpr mode_t rightsOfGroup = 0070;
constexpr mode_t rightsOfOthers = 0007;
constexpr mode_t allRights = 0777;

constexpr qsizetype addedToName = 7;

/// True when the open file has the group; only root can give the owner too.
bool giveOwnerAndGroup(int descriptor, const struct stat &given) {
    return ::fchown(descriptor, given.st_uid, given.st_gid) == 0 ||
           ::fchown(descriptor, static_cast<uid_t>(-1), given.st_gid) == 0;
}

/// The access list of the file at the path; empty when there is none beside the ordinary rights.
QByteArray accessListOf(const QByteArray &path) {
    const ssize_t size = ::getxattr(path.constData(), accessList, nullptr, 0);
    if (size <= 0) {
        return {};
    }
    QByteArray list(size, '\0');
    return ::getxattr(path.constData(), accessList, list.data(), static_cast<std::size_t>(size)) == size ? list
                                                                                                         : QByteArray();
}

void takeRightsOver(const QByteArray &path, int descriptor) {
    struct stat before {};
    if (::stat(path.constData(), &before) != 0) {
        return; // a new file
    }
    mode_t rights = before.st_mode & allRights;
    const bool hasGroup = giveOwnerAndGroup(descriptor, before);
    const QByteArray list = hasGroup ? accessListOf(path) : QByteArray();
    if (list.isEmpty() ||
        ::fsetxattr(descriptor, accessList, list.constData(), static_cast<std::size_t>(list.size()), 0) != 0) {
        ::fremovexattr(descriptor, accessList); // that of the folder for its new files
        if (!hasGroup || !list.isEmpty()) {
            // Another group must not get what was meant for this one, nor this one what the list kept from it.
            rights = (rights & ~rightsOfGroup) | (rights & rightsOfOthers) << 3;
        }
    }
    ::fchmod(descriptor, rights);
}

/// Whether what QSaveFile adds makes the name of the file at the path too long for its file system.
bool hasNoRoomInName(const QString &path) {
    const QFileInfo info(path);
    const long longest = ::pathconf(QFile::encodeName(info.path()).constData(), _PC_NAME_MAX);
    return longest > 0 && QFile::encodeName(info.fileName()).size() + addedToName > longest;
}

} // namespace

FileReplacement::FileReplacement(const QString &path) : m_path(path), m_file(path) {
    const QFileInfo info(path);
    const QString target = info.isSymLink() && info.exists() ? info.canonicalFilePath() : path;
    if (hasNoRoomInName(target)) {
        m_target = target;
        const QString name = ".lexivore-" + QUuid::createUuid().toString(QUuid::Id128);
        m_file.setFileName(QFileInfo(target).dir().filePath(name));
    }
}

bool FileReplacement::open() {
    const QByteArray path = QFile::encodeName(m_path);
    if (!m_target.isEmpty() && ::access(path.constData(), W_OK) != 0 && errno != ENOENT) {
        m_errorString = qt_error_string(errno); // found by QSaveFile where it has the name
        return false;
    }
    if (!m_file.open(QIODevice::WriteOnly)) {
        return false;
    }
    takeRightsOver(path, m_file.handle());
    return true;
}

bool FileReplacement::write(std::string_view bytes) { return writeAll(m_file, bytes); }

bool FileReplacement::commit() {
    // Committing does not notice that its own flush failed, and would put a cut-off file in the place of the old one.
    if (!flushAll(m_file) || !m_file.commit()) {
        return false;
    }
    const QByteArray made = QFile::encodeName(m_file.fileName());
    if (!m_target.isEmpty() && std::rename(made.constData(), QFile::encodeName(m_target).constData()) != 0) {
        m_errorString = qt_error_string(errno);
        ::unlink(made.constData());
        return false;
    }
    return true;
}

} // namespace lexivore
