// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/memory_preferences.h"
#include "ui/controls/field.h"
#include "ui/controls/push_button.h"
#include "ui/sheets/sheet.h"
#include "ui/sheets/sheet_layer.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace lexivore {

/// A window with a field in it, over which sheets are shown and driven by mouse and keyboard.
class SheetTest : public testing::Test {
protected:
    SheetTest() {
        // The measures of the design are those of letters of 10 points.
        QFont font = QApplication::font();
        font.setPointSizeF(10);
        QApplication::setFont(font);
        below = new Field("Below");
        auto *centre = new QWidget;
        below->setParent(centre);
        window.setCentralWidget(centre);
        window.resize(1000, 700);
        window.show();
        QApplication::setActiveWindow(&window);
        below->setFocus();
        settle();
    }

    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    template<typename SheetType> SheetType *show(SheetType *sheet) {
        SheetLayer::show(window, sheet);
        settle();
        return sheet;
    }

    /// Whether any sheet or alert is open.
    [[nodiscard]] bool isOpen() const { return SheetLayer::isOver(window); }

    template<typename Widget = PushButton> Widget *find(const char *name) const {
        return window.findChild<Widget *>(QLatin1String(name));
    }

    static void click(QWidget *widget) {
        ASSERT_NE(widget, nullptr);
        QTest::mouseClick(widget, Qt::LeftButton);
        settle();
    }

    /// A key to whatever has the focus.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }

    static void type(const QString &text) {
        QTest::keyClicks(QApplication::focusWidget(), text);
        settle();
    }

    [[nodiscard]] static QString focusName() {
        return QApplication::focusWidget() != nullptr ? QApplication::focusWidget()->objectName() : QString();
    }

    /// The texts of the visible labels within `parent`, in the order of creation.
    [[nodiscard]] static QStringList labelsIn(const QWidget &parent) {
        QStringList texts;
        for (const auto *label : parent.findChildren<QLabel *>()) {
            if (label->isVisible()) {
                texts << label->text();
            }
        }
        return texts;
    }

    QMainWindow window;
    Field *below = nullptr;
};

} // namespace lexivore
