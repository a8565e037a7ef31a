// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace lexivore::test {

/// Expects that assistive technology which opens the menu of the button is answered before the menu is there, and not
/// only when it is closed, and that the menu then comes. Closes it.
inline void expectMenuOpensWithoutKeepingTheAskerWaiting(QWidget &button, QMenu &menu) {
    bool wasShown = false;
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, &menu, [&] {
        wasShown = wasShown || menu.isVisible();
        menu.close();
    });
    closing.start(10);
    QAccessibleActionInterface *actions = QAccessible::queryAccessibleInterface(&button)->actionInterface();
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(wasShown) << "it returns only when the menu is closed";
    EXPECT_TRUE(QTest::qWaitFor([&] { return wasShown; }, 30'000));
}

} // namespace lexivore::test
