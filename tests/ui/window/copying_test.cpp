// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QSplitter>
#include <QTimer>

#include <chrono>
#include <cstdlib>

namespace lexivore {
namespace {

using namespace std::chrono_literals;

class Copying : public WindowTest {
protected:
    /// The events that these tests are about, in the order in which they happened. Timers go off in the order in which
    /// they are due, however late they are on a busy machine, so this order holds everywhere.
    QStringList happened;

    void noteAfter(std::chrono::milliseconds time, const QString &event) {
        QTimer::singleShot(time, Qt::PreciseTimer, &window(), [this, event] { happened << event; });
    }
    void noteTheToast() {
        QObject::connect(&state(), &WindowState::showCopyConfirmationChanged, &window(),
                         [this] { happened << (state().showCopyConfirmation() ? "shown" : "hidden"); });
    }
};

TEST_F(Copying, PutsTheTextAloneOnTheClipboard) {
    setText("a\r\nb");
    auto *before = new QMimeData;
    before->setData("image/png", "x");
    QGuiApplication::clipboard()->setMimeData(before);
    click("copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "a\r\nb");
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasFormat("image/png"));
}

TEST_F(Copying, ShowsAConfirmationThatHidesAfter15Seconds) {
    noteTheToast();
    setText("x");
    noteAfter(1500ms, "nearly 1.5 s");
    click("copy");
    EXPECT_TRUE(isShown("copyToast"));
    EXPECT_EQ(find("copyToast")->accessibleName(), "Copied to clipboard");
    noteAfter(1505ms, "over 1.5 s");
    ASSERT_TRUE(QTest::qWaitFor([this] { return happened.contains("over 1.5 s"); }, 30'000));
    EXPECT_EQ(happened, (QStringList{"shown", "nearly 1.5 s", "hidden", "over 1.5 s"}));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown("copyToast"); }, 30'000)) << "it fades";
}

TEST_F(Copying, ASecondCopyDoesNotKeepTheFirstConfirmationLonger) {
    noteTheToast();
    setText("x");
    click("copy");
    noteAfter(1505ms, "over 1.5 s");
    bool isLater = false;
    QTimer::singleShot(200ms, &window(), [&] { isLater = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLater; }, 30'000));
    click("copy");
    ASSERT_TRUE(QTest::qWaitFor([this] { return happened.contains("over 1.5 s"); }, 30'000));
    EXPECT_EQ(happened, (QStringList{"shown", "hidden", "over 1.5 s"}));
}

TEST_F(Copying, TheConfirmationTakesNeitherFocusNorClicksAndStandsAboveTheStatusBar) {
    setText("x");
    focusEditor();
    click("copy");
    const QWidget *toast = find("copyToast");
    EXPECT_TRUE(find("editor")->hasFocus());
    EXPECT_TRUE(toast->testAttribute(Qt::WA_TransparentForMouseEvents));
    const QRect place(toast->mapTo(&window(), QPoint()), toast->size());
    const QPoint bar = find("statusBar")->mapTo(&window(), QPoint());
    EXPECT_EQ(bar.y() - 1 - (place.bottom() + 1), 16);
    const QRect editor(find("editor")->mapTo(&window(), QPoint()), find("editor")->size());
    EXPECT_NEAR(place.center().x(), editor.center().x(), 1);
}

TEST_F(Copying, TheConfirmationIsReadableWhateverTheLettersAndTheRoom) {
    setText("x");
    window().resize(window().minimumSize());
    const QFont before = QApplication::font();
    QFont font = before;
    for (const double points : {10.0, 20.0}) {
        font.setPointSizeF(points);
        QApplication::setFont(font);
        QCoreApplication::processEvents();
        click("copy");
        const QWidget *toast = find("copyToast");
        const QRect place(toast->mapTo(&window(), QPoint()), toast->size());
        EXPECT_GT(place.width(), QFontMetrics(fontFor(FontRole::callout)).horizontalAdvance("Copied to clipboard"));
        EXPECT_EQ(place.height(), heightFor(40, FontRole::callout));
        EXPECT_TRUE(window().rect().contains(place));
        EXPECT_EQ(toast->visibleRegion(), QRegion(toast->rect())) << "nothing is cut off";
    }
    QApplication::setFont(before);
}

TEST_F(Copying, TheConfirmationIsAPillWithATickAndItsText) {
    setText("x");
    click("copy");
    QWidget *toast = find("copyToast");
    const auto picture = [&] { return pictureOf(toast); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return picture().pixelColor(toast->width() / 2, 3) == theme().toast; }, 1'000));
    EXPECT_EQ(picture().pixelColor(2, 2).alpha(), 0) << "its ends are round";
    EXPECT_EQ(picture().pixelColor(toast->width() - 3, 2).alpha(), 0);
    const auto holds = [&](const QColor &colour, const QRect &area) {
        for (int x = area.left(); x <= area.right(); ++x) {
            for (int y = area.top(); y <= area.bottom(); ++y) {
                if (picture().pixelColor(x, y) == colour) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(holds(theme().toastIcon, {15, 11, 18, 18}));
    EXPECT_TRUE(holds(theme().onToast, {41, 11, 40, 18}));
}

TEST_F(Copying, TheConfirmationFollowsTheEditorAndStaysInTheWindow) {
    setText("x");
    click("copy");
    const QWidget *toast = find("copyToast");
    const auto isInTheMiddle = [&] {
        const QRect editor(find("editor")->mapTo(&window(), QPoint()), find("editor")->size());
        return std::abs(toast->mapTo(&window(), toast->rect().center()).x() - editor.center().x()) <= 1;
    };
    EXPECT_TRUE(isInTheMiddle());
    choose("ToggleSidebar");
    EXPECT_TRUE(QTest::qWaitFor(isInTheMiddle));
    choose("ToggleOperations");
    EXPECT_TRUE(QTest::qWaitFor(isInTheMiddle));
}

} // namespace
TEST_F(Copying, TheConfirmationFollowsAnEditorThatOnlyMoves) {
    setText("x");
    auto *columns = window().findChild<QSplitter *>();
    window().resize(1100, 700);
    click("copy");
    const QWidget *toast = find("copyToast");
    const auto offTheMiddle = [&] {
        const QRect editor(find("editor")->mapTo(&window(), QPoint()), find("editor")->size());
        return std::abs(toast->mapTo(&window(), toast->rect().center()).x() - editor.center().x());
    };
    for (const int width : {1008, 1040, 1080, 1020, 1064, 1012}) {
        window().resize(width, 700);
        QCoreApplication::processEvents();
        EXPECT_LE(offTheMiddle(), 1) << width;
    }
    window().resize(1080, 700);
    QCoreApplication::processEvents();
    columns->setSizes({184, 240, 304, columns->width() - 184 - 240 - 304 - 3});
    QCoreApplication::processEvents();
    EXPECT_LE(offTheMiddle(), 1);
    columns->setSizes({184 + 30, 240, 304, columns->width() - 184 - 30 - 240 - 304 - 3});
    QCoreApplication::processEvents();
    EXPECT_LE(offTheMiddle(), 1) << "a wider sidebar pushes the editor away";
}

} // namespace lexivore
