// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/termination_signals.h"
#include "tests/services/desktop_probe_test.h"

#include <csignal>

namespace lexivore {
namespace {

class TerminationSignalsTest : public DesktopProbeTest {
protected:
    static void send(const QProcess &process, int signal) {
        ASSERT_EQ(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    }
};

TEST_F(TerminationSignalsTest, EndTheProgramByWayOfItsEventLoop) {
    qsizetype round = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        ++round;
        const auto process = start();
        waitForLog("primary", round);
        send(*process, signal);
        ASSERT_TRUE(ends(*process));
        EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process->exitCode(), 0);
        waitForLog("ended", round);
    }
}

TEST_F(TerminationSignalsTest, EndABusyProgramToo) {
    for (const bool isImpatient : {false, true}) {
        const qsizetype round = isImpatient ? 2 : 1;
        const auto process = start();
        waitForLog("primary", round);
        const auto later = start({"hang"});
        waitForLog("requested [hang] start", round);
        do {
            send(*process, SIGTERM);
            QTest::qWait(100);
        } while (isImpatient && process->state() == QProcess::Running);
        ASSERT_TRUE(ends(*process));
        EXPECT_EQ(process->exitStatus(), QProcess::CrashExit);
        EXPECT_EQ(process->exitCode(), isImpatient ? SIGTERM : SIGALRM);
        EXPECT_TRUE(ends(*later));
        EXPECT_FALSE(log().contains("ended"));
    }
}

/// As the system sends it when something is printed and its reader has gone.
TEST_F(TerminationSignalsTest, OutliveTheReaderOfWhatIsPrinted) {
    const auto process = start();
    waitForLog("primary");
    send(*process, SIGPIPE);
    const auto later = start({"still there"});
    waitForLog("requested [still there] start");
    send(*process, SIGTERM);
    ASSERT_TRUE(ends(*process));
    EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
}

TEST_F(TerminationSignalsTest, LeaveASignalIgnoredThatWasIgnored) {
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setChildProcessModifier([] { ::signal(SIGHUP, SIG_IGN); });
    process.start(DESKTOP_PROBE, {m_folder.path(), path("log")});
    waitForLog("primary");
    send(process, SIGHUP);
    const auto later = start({"still there"});
    waitForLog("requested [still there] start");
    send(process, SIGTERM);
    ASSERT_TRUE(ends(process));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
}

void anotherHandler(int) {}

/// What the process does with the signal now.
auto handlerOf(int signal) {
    struct sigaction current {};
    ::sigaction(signal, nullptr, &current);
    return current.sa_handler;
}

TEST(TerminationSignals, AreGivenBackAtTheEndButNotTakenFromAnother) {
    ASSERT_EQ(handlerOf(SIGTERM), SIG_DFL);
    {
        const TerminationSignals received;
        EXPECT_NE(handlerOf(SIGTERM), SIG_DFL);
        EXPECT_NE(handlerOf(SIGINT), SIG_DFL);
        ::signal(SIGHUP, anotherHandler);
    }
    EXPECT_EQ(handlerOf(SIGTERM), SIG_DFL);
    EXPECT_EQ(handlerOf(SIGINT), SIG_DFL);
    EXPECT_EQ(handlerOf(SIGHUP), anotherHandler);
    ::signal(SIGHUP, SIG_DFL);
}

} // namespace
} // namespace lexivore

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
