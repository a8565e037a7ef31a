// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

namespace lexivore {

/// Starts and ends processes of desktop_probe, which share a folder and a log.
class DesktopProbeTest : public testing::Test {
protected:
    static constexpr int patience = 20'000; // milliseconds; only a broken program takes that long

    DesktopProbeTest() {
        m_environment.remove("DBUS_SESSION_BUS_ADDRESS");
        m_environment.remove("XDG_RUNTIME_DIR");
    }

    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

    std::unique_ptr<QProcess> start(const QStringList &files = {}) {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(m_environment);
        process->start(DESKTOP_PROBE, QStringList{m_folder.path(), path("log")} + files);
        EXPECT_TRUE(process->waitForStarted(patience));
        return process;
    }

    /// Whether it ends in time.
    static bool ends(const QProcess &process) {
        return QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, patience);
    }

    [[nodiscard]] QByteArray log() const {
        QFile file(path("log"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Sends a signal to the process that runs as the first instance, whoever started it.
    void signalPrimary(int signal) const {
        qint64 pid = 0;
        QString host;
        QString program;
        if (QLockFile(path("lexivore.lock")).getLockInfo(&pid, &host, &program) && pid > 0) {
            ::kill(static_cast<pid_t>(pid), signal);
        }
    }

    void waitForLog(const QByteArray &line, qsizetype count = 1) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return log().count(line + '\n') >= count; }, patience))
            << line.toStdString() << " is not in:\n"
            << log().toStdString();
    }

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

} // namespace lexivore
