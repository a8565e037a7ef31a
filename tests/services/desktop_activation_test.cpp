// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/desktop_activation.h"
#include "tests/services/desktop_probe_test.h"
#include "tests/support/files.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>

namespace lexivore {
namespace {

/// A session bus that can start the probe.
class DesktopActivationTest : public DesktopProbeTest {
public:
    ~DesktopActivationTest() override {
        QDBusConnection::disconnectFromBus("test");
        m_daemon.kill();
        m_daemon.waitForFinished();
        signalPrimary(SIGKILL);
    }

protected:
    DesktopActivationTest() {
        QDir(m_folder.path()).mkdir("services");
        test::writeBytes(path("services/org.lexivore.Lexivore.service"),
                         "[D-BUS Service]\nName=org.lexivore.Lexivore\nExec=" DESKTOP_PROBE " " +
                             m_folder.path().toUtf8() + ' ' + path("log").toUtf8() + '\n');
        test::writeBytes(path("bus.conf"), "<busconfig><type>session</type><listen>unix:path=" + path("bus").toUtf8() +
                                               "</listen><servicedir>" + path("services").toUtf8() +
                                               "</servicedir><policy context=\"default\"><allow send_destination=\"*\" "
                                               "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/>"
                                               "</policy></busconfig>");
        m_environment.insert("DBUS_SESSION_BUS_ADDRESS", address());
        m_daemon.setProcessEnvironment(m_environment);
        m_daemon.start("dbus-daemon",
                       {"--config-file=" + path("bus.conf"), "--nofork", "--nopidfile", "--print-address"});
        EXPECT_TRUE(m_daemon.waitForReadyRead(patience)) << "no session bus";
    }

    [[nodiscard]] QString address() const { return "unix:path=" + path("bus"); }

    /// Calls a method of the program's object and does not wait for the answer.
    QDBusPendingCall call(const QString &method, const QVariantList &arguments) {
        QDBusConnection bus = QDBusConnection::connectToBus(address(), "test");
        EXPECT_TRUE(bus.isConnected());
        QDBusMessage message = QDBusMessage::createMethodCall(
            DesktopActivation::serviceName, DesktopActivation::objectPath, "org.freedesktop.Application", method);
        message.setArguments(arguments);
        return bus.asyncCall(message);
    }

    static QDBusMessage answer(QDBusPendingCall pending) {
        pending.waitForFinished();
        return pending.reply();
    }

    void waitForName() {
        QDBusConnection bus = QDBusConnection::connectToBus(address(), "test");
        QDBusMessage message = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                              "org.freedesktop.DBus", "NameHasOwner");
        message << QString(DesktopActivation::serviceName);
        EXPECT_TRUE(QTest::qWaitFor([&] { return bus.call(message).arguments().value(0).toBool(); }, patience));
    }

    QProcess m_daemon;
};

TEST_F(DesktopActivationTest, ComesForwardWhenTheDesktopAsks) {
    const auto process = start();
    waitForName();
    EXPECT_EQ(answer(call("Activate", {QVariantMap{{"activation-token", "a"}, {"desktop-startup-id", "b"}}})).type(),
              QDBusMessage::ReplyMessage);
    waitForLog("requested [] a");
    answer(call("Activate", {QVariantMap{{"desktop-startup-id", "b"}}}));
    waitForLog("requested [] b");
}

TEST_F(DesktopActivationTest, OpensLocalFilesByPathAndPassesOnOtherAddressesAsTheyAre) {
    const auto process = start();
    waitForName();
    const QStringList addresses{"file:///a%20folder/%C3%A4.txt", "sftp://example.org/a%20b", "file:///b"};
    answer(call("Open", {addresses, QVariantMap()}));
    waitForLog("requested [/a folder/ä.txt|sftp://example.org/a%20b|/b] ");
}

TEST_F(DesktopActivationTest, KnowsNoActions) {
    const auto process = start();
    waitForName();
    const QDBusMessage reply = answer(call("ActivateAction", {"quit", QVariantList(), QVariantMap()}));
    EXPECT_EQ(reply.type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(reply.errorMessage().toStdString(), "There is no action quit");
    EXPECT_EQ(log(), "started\nprimary\n");
}

TEST_F(DesktopActivationTest, IsStartedByTheBusAndGetsWhatItWasStartedFor) {
    EXPECT_EQ(answer(call("Open", {QStringList{"file:///a"}, QVariantMap()})).type(), QDBusMessage::ReplyMessage);
    waitForLog("primary");
    waitForLog("requested [/a] ");
}

TEST_F(DesktopActivationTest, AKilledProgramIsStartedAgain) {
    const auto process = start();
    waitForName();
    waitForLog("primary"); // it may have the name before it says so
    process->kill();
    process->waitForFinished(patience);
    EXPECT_EQ(answer(call("Activate", {QVariantMap()})).type(), QDBusMessage::ReplyMessage);
    waitForLog("primary", 2);
    waitForLog("requested [] ");
}

TEST_F(DesktopActivationTest, AProgramOutsideOfTheBusJoinsItForTheStartThatTheBusMade) {
    m_environment.remove("DBUS_SESSION_BUS_ADDRESS");
    const auto process = start();
    waitForLog("primary");
    EXPECT_EQ(answer(call("Open", {QStringList{"file:///a"}, QVariantMap()})).type(), QDBusMessage::ReplyMessage);
    waitForLog("secondary");
    waitForLog("requested [/a] ");
    EXPECT_EQ(log().count("primary"), 1);
}

class DesktopActivationRound : public DesktopActivationTest, public testing::WithParamInterface<int> {};

TEST_P(DesktopActivationRound, StartsOfEachKindAtTheSameInstantGiveOneInstance) {
    const auto process = start();
    const QDBusPendingCall pending = call("Activate", {QVariantMap()});
    const auto other = start();
    EXPECT_EQ(answer(pending).type(), QDBusMessage::ReplyMessage);
    waitForLog("requested [] ");
    const auto hasSettled = [&] {
        return log().count("started") >= 2 &&
               log().count("started") == log().count("primary") + log().count("secondary");
    };
    EXPECT_TRUE(QTest::qWaitFor(hasSettled, patience));
    EXPECT_EQ(log().count("primary"), 1) << log().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Repeated, DesktopActivationRound, testing::Range(0, 5));

TEST_F(DesktopActivationTest, DoesWithoutABusThatIsGone) {
    m_environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path("nowhere"));
    const auto process = start();
    waitForLog("primary");
    const auto later = start();
    waitForLog("requested [] start");
}

TEST_F(DesktopActivationTest, OutlivesItsBus) {
    const auto process = start();
    waitForName();
    m_daemon.kill();
    m_daemon.waitForFinished(patience);
    const auto later = start({"/a"});
    waitForLog("requested [/a] start");
}

TEST_F(DesktopActivationTest, LeavesTheNameToWhoeverHasIt) {
    QDBusConnection bus = QDBusConnection::connectToBus(address(), "test");
    ASSERT_TRUE(bus.registerService(DesktopActivation::serviceName));
    const auto process = start();
    waitForLog("primary");
    const auto later = start();
    waitForLog("requested [] start");
}

} // namespace
} // namespace lexivore

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
