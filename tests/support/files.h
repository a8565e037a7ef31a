// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lexivore::test {

inline QByteArray bytesOf(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

inline void writeBytes(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
}

/// Starts a process that does `body` and ends with its result. It has no part in the test's own result.
inline pid_t startChild(const std::function<int()> &body) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(body());
    }
    EXPECT_GT(child, 0);
    return child;
}

/// The exit status, or minus the number of the signal that ended it.
inline int resultOf(pid_t child) {
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// Does `body` in a process of its own, so that limits and rights can be taken from it.
inline int inChild(const std::function<int()> &body) { return resultOf(startChild(body)); }

/// From now on no file of this process can become larger: writing fails as it does on a full disk.
inline void limitFileSize(rlim_t bytes) {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, RLIM_INFINITY};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace lexivore::test
