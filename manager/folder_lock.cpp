// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/folder_lock.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace lexivore {

namespace {

FolderLock::State acquire(int descriptor, std::chrono::milliseconds longestWait) {
    if (descriptor < 0) {
        return FolderLock::State::busy;
    }
    const QDeadlineTimer deadline(longestWait);
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return FolderLock::State::unsupported;
        }
        if (deadline.hasExpired()) {
            return FolderLock::State::busy;
        }
        QThread::msleep(1);
    }
    return FolderLock::State::held;
}

} // namespace

FolderLock::FolderLock(const QString &folder, std::chrono::milliseconds longestWait)
    : m_descriptor(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      m_state(acquire(m_descriptor, longestWait)) {}

FolderLock::~FolderLock() {
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

} // namespace lexivore
