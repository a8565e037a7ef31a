// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QScrollArea>
#include <QTextDocumentFragment>
#include <QToolTip>

namespace lexivore {

WindowTest::WindowTest() { restart(); }

WindowTest::~WindowTest() = default;

void WindowTest::restart() {
    m_app.reset();
    m_app = std::make_unique<LexivoreApp>(preferences, std::make_unique<ScriptedPanels>(chosenFile));
    window().show();
    window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

bool WindowTest::isShown(const QString &name) {
    const QWidget *widget = find(name);
    return widget != nullptr && widget->isVisible();
}

void WindowTest::click(const QString &name) {
    QWidget *widget = find(name);
    ASSERT_NE(widget, nullptr) << qPrintable(name);
    ASSERT_TRUE(widget->isVisible()) << qPrintable(name);
    for (QWidget *parent = widget->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto *scroll = qobject_cast<QScrollArea *>(parent)) {
            scroll->ensureWidgetVisible(widget);
        }
    }
    clickAt(widget, widget->rect().center());
}

void WindowTest::clickAt(QWidget *widget, QPoint position) {
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, position);
}

QAction *WindowTest::command(const QString &name) { return window().findChild<QAction *>(name); }

void WindowTest::choose(const QString &name) {
    QAction *action = command(name);
    ASSERT_NE(action, nullptr) << qPrintable(name);
    action->trigger();
}

void WindowTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget *target = QApplication::focusWidget();
    QTest::keyClick(target != nullptr ? target : &window(), key, modifiers);
}

void WindowTest::type(const QString &text) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), text);
}

QImage WindowTest::pictureOf(QWidget *widget) {
    QImage picture(widget->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    widget->render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}

QString WindowTest::toolTipOf(QWidget *widget) {
    QHelpEvent event(QEvent::ToolTip, {2, 2}, widget->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(widget, &event);
    const QString shown = QToolTip::text();
    QToolTip::hideText();
    return Qt::mightBeRichText(shown) ? QTextDocumentFragment::fromHtml(shown).toPlainText() : shown;
}

void WindowTest::focusEditor() {
    find("editor")->setFocus();
    ASSERT_TRUE(find("editor")->hasFocus());
}

void WindowTest::setText(std::string_view text) { manager().setCurrentText(Text(text)); }

void WindowTest::useStackMode() {
    if (!state().stackOperationMode()) {
        click("modeSwitch");
    }
    ASSERT_TRUE(state().stackOperationMode());
}

} // namespace lexivore
