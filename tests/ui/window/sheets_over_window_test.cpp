// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollArea>

#include <algorithm>
#include <string>

namespace lexivore {
namespace {

/// What opens a sheet or an alert over the window.
struct Opening {
    const char *name; ///< Of the sheet.
    const char *notification;
    QVariant object;
};
const Opening openings[] = {
    {"recipeSaveSheet", notification::showRecipeSheet, {}},
    {"manageRecipesSheet", notification::showManageRecipes, {}},
    {"parameterSheet", notification::applyTransformation, QString("replace-regex")},
    {"toolResult.statistics", notification::runTool, QString("statistics")},
    {"toolResult.character-frequency", notification::runTool, QString("character-frequency")},
    {"toolResult.reading-time", notification::runTool, QString("reading-time")},
    {"toolResult.readability", notification::runTool, QString("readability")},
};

class SheetsOverTheWindow : public WindowTest {
public:
    SheetsOverTheWindow() {
        setText("The first line. And the second!\nHow many are there?\n");
        manager().applyTransformation(*manager().findTransformation("uppercase"), {});
        manager().saveRecipe("A recipe with a rather long name, longer than the sheet is wide");
    }
    ~SheetsOverTheWindow() override { QApplication::setFont(m_font); }

protected:
    void open(const Opening &opening) {
        center().post(opening.notification, opening.object);
        ASSERT_TRUE(isShown(opening.name)) << opening.name;
    }
    void close() {
        while (!window().menuBar()->isEnabled()) {
            press(Qt::Key_Escape);
        }
    }
    /// Everything of the sheet can be seen, or scrolled to, and no two widgets of one parent overlap.
    void expectWellLaidOut(const QString &name) {
        const QWidget *sheet = find(name);
        EXPECT_TRUE(window().rect().contains(QRect(sheet->mapTo(&window(), QPoint()), sheet->size())));
        const auto *scroll = sheet->findChild<QScrollArea *>();
        EXPECT_LE(scroll->widget()->width(), scroll->viewport()->width());
        for (const QWidget *widget : sheet->findChildren<QWidget *>()) {
            if (!widget->isVisible() || widget->parentWidget() == scroll->viewport() || widget == scroll->viewport()) {
                continue;
            }
            EXPECT_GE(widget->x(), 0) << widget->metaObject()->className();
            EXPECT_LE(widget->geometry().right(), widget->parentWidget()->width())
                << widget->metaObject()->className() << " " << qPrintable(widget->accessibleName());
            for (const QObject *other : widget->parentWidget()->children()) {
                const auto *sibling = qobject_cast<const QWidget *>(other);
                if (sibling != nullptr && sibling != widget && sibling->isVisible() &&
                    !widget->inherits("lexivore::FocusRingFrame") && !sibling->inherits("lexivore::FocusRingFrame")) {
                    EXPECT_FALSE(widget->geometry().intersects(sibling->geometry()))
                        << widget->metaObject()->className() << " and " << sibling->metaObject()->className();
                }
            }
        }
        for (const char *button : {"done", "apply", "save", "cancel", "confirm", "copy", "import", "export"}) {
            const auto *found = sheet->findChild<QWidget *>(button);
            if (found != nullptr && found->isVisible() && !scroll->isAncestorOf(found)) {
                EXPECT_EQ(found->visibleRegion().boundingRect(), found->rect()) << button;
            }
        }
    }

private:
    QFont m_font = QApplication::font();
};

TEST_F(SheetsOverTheWindow, NothingIsCutOffInASmallWindowOrWithLettersOfAnySize) {
    for (const double points : {10.0, 20.0}) {
        QFont font = QApplication::font();
        font.setPointSizeF(points);
        QApplication::setFont(font);
        for (const QSize &size : {QSize(1280, 800), QSize(900, 600)}) {
            window().setMinimumSize(0, 0);
            window().resize(size);
            QCoreApplication::processEvents();
            for (const Opening &opening : openings) {
                SCOPED_TRACE(testing::Message() << opening.name << ", " << points << " pt, " << size.width());
                open(opening);
                QCoreApplication::processEvents();
                expectWellLaidOut(opening.name);
                close();
            }
            click("editorSettings");
            expectWellLaidOut("editorSettingsSheet");
            close();
        }
    }
    const auto isRemembered = [this] {
        return preferences.value(preference::windowSize).toList() == QVariantList{window().width(), window().height()};
    };
    EXPECT_TRUE(QTest::qWaitFor(isRemembered));
}

TEST_F(SheetsOverTheWindow, EachIsADialogWithANameAndAFocusInsideAndGivesTheFocusBack) {
    focusEditor();
    for (const Opening &opening : openings) {
        SCOPED_TRACE(opening.name);
        open(opening);
        const QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(find(opening.name));
        EXPECT_EQ(seen->role(), QAccessible::Dialog);
        EXPECT_TRUE(seen->state().modal);
        EXPECT_FALSE(seen->text(QAccessible::Name).isEmpty());
        QSet<const QWidget *> stops;
        for (int presses = 0; presses < 12; ++presses) {
            const QWidget *focus = QApplication::focusWidget();
            ASSERT_NE(focus, nullptr);
            EXPECT_TRUE(find(opening.name)->isAncestorOf(focus));
            stops << focus;
            const QAccessibleInterface *stop = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(focus));
            EXPECT_FALSE(stop->text(QAccessible::Name).isEmpty()) << focus->metaObject()->className();
            EXPECT_NE(stop->role(), QAccessible::Client) << focus->metaObject()->className();
            press(Qt::Key_Tab);
        }
        EXPECT_GE(stops.size(), 2);
        close();
        EXPECT_TRUE(find("editor")->hasFocus());
    }
}

TEST_F(SheetsOverTheWindow, TheWindowsShortcutsSleepMeanwhile) {
    for (const Opening &opening : openings) {
        open(opening);
        press(Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
        press(Qt::Key_O, Qt::ControlModifier | Qt::AltModifier);
        press(Qt::Key_F10);
        press(Qt::Key_F, Qt::AltModifier);
        EXPECT_TRUE(state().showSidebar());
        EXPECT_TRUE(state().showOperations());
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        close();
    }
}

TEST_F(SheetsOverTheWindow, AParameterOfAnyLengthIsPassedOnAndItsErrorShown) {
    const QStringList values = {QString(100'000, '9'),
                                QString("x\ny\tz"),
                                QString::fromUtf8("\u202E\u05E9\u05DC"),
                                QString::fromUtf8("\U0001F469\u200D\U0001F467").repeated(2'000),
                                QString("0"),
                                QString()};
    for (const QString &value : values) {
        center().post(notification::applyTransformation, QString("wrap-lines"));
        ASSERT_TRUE(isShown("parameterSheet"));
        find<QLineEdit>("parameter.width")->setText(value);
        press(Qt::Key_Return);
        EXPECT_FALSE(isShown("parameterSheet"));
        ASSERT_TRUE(isShown("alert"));
        EXPECT_EQ(find<QLabel>("message")->text(), "Invalid input: Width must be a positive number");
        press(Qt::Key_Return);
        EXPECT_FALSE(isShown("alert"));
    }
    center().post(notification::applyTransformation, QString("add-prefix"));
    find<QLineEdit>("parameter.prefix")->setText(QString(100'000, 'p'));
    press(Qt::Key_Return);
    EXPECT_FALSE(isShown("alert"));
    EXPECT_TRUE(text().starts_with(std::string(100'000, 'p')));
    EXPECT_LE(window().minimumSizeHint().width(), 1280) << "the panel's parameter line does not widen the window";
}

TEST_F(SheetsOverTheWindow, LeaveTheTextItsColours) {
    setText(std::string(4000, 'W'));
    const auto darkest = [this] {
        const QImage picture = find("editor")->grab().toImage();
        int value = 255;
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 100; ++x) {
                value = std::min(value, qGray(picture.pixel(x, y)));
            }
        }
        return value;
    };
    const int before = darkest();
    click("clearText");
    ASSERT_FALSE(find("editor")->isEnabled());
    EXPECT_EQ(darkest(), before);
}

TEST_F(SheetsOverTheWindow, LeaveTheIconOfTheModeItsColour) {
    for (int mode = 0; mode < 2; ++mode) {
        center().post(notification::toggleStackOperationMode);
        const QImage before = pictureOf(find("modeIcon"));
        click("saveRecipe");
        ASSERT_FALSE(find("modeIcon")->isEnabled());
        EXPECT_EQ(pictureOf(find("modeIcon")), before);
        press(Qt::Key_Escape);
        ASSERT_TRUE(find("modeIcon")->isEnabled());
    }
}

} // namespace
} // namespace lexivore
