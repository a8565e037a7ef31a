// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/app_delegate.h"
#include "tests/support/memory_preferences.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <memory>

namespace lexivore {
namespace {

/// Events are delivered by an application object. That of a graphical program would ask its windows before it quits.
class AppDelegateTest : public testing::Test {
protected:
    test::MemoryPreferences m_preferences;

private:
    int m_argc = 1;
    char m_name[5] = "test";
    char *m_argv[2] = {m_name, nullptr};
    QGuiApplication m_application{m_argc, m_argv};
};

/// Remembers whether it was closed.
class Window : public QWindow {
public:
    bool isClosed = false;

    bool event(QEvent *event) override {
        isClosed = isClosed || event->type() == QEvent::Close;
        return QWindow::event(event);
    }
};

TEST_F(AppDelegateTest, HidesTheApplicationInsteadOfClosingTheWindow) {
    Window window;
    AppDelegate delegate({}, m_preferences, {});
    int hidden = 0;
    delegate.adoptWindow(&window, [&]() { ++hidden; });
    EXPECT_EQ(delegate.window(), &window);

    QEvent close(QEvent::Close);
    QCoreApplication::sendEvent(&window, &close);
    EXPECT_FALSE(close.isAccepted());
    EXPECT_FALSE(window.isClosed);
    EXPECT_EQ(hidden, 1);
}

TEST_F(AppDelegateTest, LeavesOtherEventsAndOtherWindowsAlone) {
    Window window;
    Window other;
    AppDelegate delegate({}, m_preferences, {});
    int hidden = 0;
    delegate.adoptWindow(&window, [&]() { ++hidden; });
    QEvent show(QEvent::Show);
    QCoreApplication::sendEvent(&window, &show);
    QEvent close(QEvent::Close);
    QCoreApplication::sendEvent(&other, &close);
    EXPECT_TRUE(other.isClosed);
    EXPECT_EQ(hidden, 0);
}

TEST_F(AppDelegateTest, QuitsWithoutAskingTheWindow) {
    Window window;
    window.show();
    AppDelegate delegate({}, m_preferences, {});
    int hidden = 0;
    delegate.adoptWindow(&window, [&]() { ++hidden; });
    QTimer::singleShot(0, &window, [] { QCoreApplication::quit(); });
    QTimer::singleShot(20'000, &window, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isClosed);
    EXPECT_EQ(hidden, 0);
}

TEST_F(AppDelegateTest, HasNoWindowUntilItAdoptsOneAndForgetsADestroyedOne) {
    AppDelegate delegate({}, m_preferences, {});
    EXPECT_EQ(delegate.window(), nullptr);
    auto window = std::make_unique<Window>();
    delegate.adoptWindow(window.get(), []() {});
    window.reset();
    EXPECT_EQ(delegate.window(), nullptr);
    delegate.adoptWindow(nullptr, []() {});
}

} // namespace
} // namespace lexivore
