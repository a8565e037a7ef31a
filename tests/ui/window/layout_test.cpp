// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"
#include "ui/controls/label.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/window/category_button.h"
#include "ui/window/empty_state.h"
#include "ui/window/status_item.h"
#include "ui/window/transformation_button.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace lexivore {
namespace {

/// Where things stand, in letters of 10 points unless a test takes others.
class Layout : public WindowTest {
public:
    Layout() { useLetters(10); }
    ~Layout() override { QApplication::setFont(m_before); }

protected:
    void useLetters(double points) {
        QFont font = m_before;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        restart();
    }
    /// Letters no wider than those that the window was designed with: a system's own may be.
    void useDesignedLetters() {
        constexpr double designedWidth = 139; // in Inter of 10 points
        QFont font = m_before;
        int quarters = 40; // of a point
        do {
            font.setPointSizeF(quarters / 4.0);
        } while (QFontMetricsF(font).horizontalAdvance("Ln 7, Col 33 702 94 20") > designedWidth && --quarters > 24);
        useLetters(quarters / 4.0);
    }
    void resize(int width, int height) {
        window().resize(width, height);
        QCoreApplication::processEvents();
        ASSERT_EQ(window().size(), QSize(width, height));
    }
    [[nodiscard]] int widthOf(const QString &name) { return find(name)->width(); }
    /// The operations panel is wider than designed when its header needs that in the system's font.
    [[nodiscard]] int panelWidth(int designed) {
        return std::max(designed, find("operationsPanel")->minimumSizeHint().width());
    }
    [[nodiscard]] QRect placeOf(QWidget *widget) { return {widget->mapTo(&window(), QPoint()), widget->size()}; }
    [[nodiscard]] QRect placeOf(const QString &name) { return placeOf(find(name)); }

    /// Everything that is shown lies within what it stands in, and nothing over its neighbour.
    void expectNothingOverlaps(const QWidget &parent) {
        const bool scrolls = qobject_cast<QAbstractScrollArea *>(parent.parentWidget()) != nullptr;
        QList<QWidget *> shown;
        for (QWidget *child : parent.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            // What floats over the others on purpose.
            const bool floats = child->isWindow() || child->objectName() == "copyToast" ||
                                child->objectName() == "focusRing" || child->inherits("QSplitterHandle");
            if (child->isVisible() && !child->size().isEmpty() && !floats) {
                shown << child;
            }
        }
        for (qsizetype index = 0; index < shown.size(); ++index) {
            const QRect place = shown[index]->geometry();
            EXPECT_TRUE(scrolls || parent.rect().contains(place)) << describe(*shown[index]) << " is cut off";
            for (qsizetype other = 0; other < index; ++other) {
                EXPECT_FALSE(place.intersects(shown[other]->geometry()))
                    << describe(*shown[index]) << " lies over " << describe(*shown[other]);
            }
            if (qobject_cast<const QAbstractScrollArea *>(&parent) == nullptr) {
                expectNothingOverlaps(*shown[index]);
            }
        }
    }

private:
    static std::string describe(const QWidget &widget) {
        return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString();
    }

    QFont m_before = QApplication::font();
};

TEST_F(Layout, TheColumnsHaveTheirInitialWidths) {
    resize(1280, 800);
    EXPECT_EQ(placeOf("transformationList").left(), 184);
    EXPECT_EQ(placeOf("editorPane").left(), 184 + 304);
    EXPECT_EQ(widthOf("operationsPanel"), panelWidth(287));
    EXPECT_EQ(placeOf("operationsPanel").right(), 1279);
}

TEST_F(Layout, NarrowingTakesFromTheEditorFirst) {
    resize(1280, 800);
    resize(1180, 800);
    EXPECT_EQ(widthOf("editorPane"), 691 - panelWidth(287));
    EXPECT_EQ(widthOf("transformationList"), 303);
    EXPECT_EQ(widthOf("operationsPanel"), panelWidth(287));
    resize(1008, 640);
    EXPECT_EQ(widthOf("sidebar"), 183);
    EXPECT_EQ(widthOf("transformationList"), 239);
    EXPECT_EQ(widthOf("editorPane"), 583 - panelWidth(280));
    EXPECT_EQ(widthOf("operationsPanel"), panelWidth(280));
}

TEST_F(Layout, WideningGivesTheColumnsBackWhatNarrowingTook) {
    resize(1280, 800);
    find<QSplitter>("columns")->setSizes({183, 343, 434, 317});
    const int panel = widthOf("operationsPanel");
    ASSERT_EQ(widthOf("transformationList"), 343);
    for (const QSize narrow : {QSize(1008, 640), QSize(900, 600)}) {
        resize(narrow.width(), narrow.height());
        EXPECT_LT(widthOf("transformationList"), 343);
        resize(1280, 800);
        EXPECT_EQ(widthOf("transformationList"), 343);
        EXPECT_EQ(widthOf("operationsPanel"), panel);
    }
    resize(1008, 640);
    const int list = widthOf("transformationList");
    const int editor = widthOf("editorPane");
    const int narrowPanel = widthOf("operationsPanel");
    choose("ToggleOperations");
    QCoreApplication::processEvents();
    EXPECT_EQ(widthOf("transformationList"), list);
    EXPECT_EQ(widthOf("editorPane"), editor + narrowPanel + 1);
    choose("ToggleOperations");
    QCoreApplication::processEvents();
    EXPECT_EQ(widthOf("operationsPanel"), narrowPanel);
    restart();
    EXPECT_EQ(window().size(), QSize(1008, 640));
    resize(1280, 800);
    EXPECT_EQ(widthOf("transformationList"), 343);
    EXPECT_EQ(widthOf("operationsPanel"), panel);
}

TEST_F(Layout, TheWindowCanBe900By600AndNoSmaller) {
    EXPECT_EQ(window().minimumSize(), QSize(900, 600));
    resize(900, 600);
    EXPECT_EQ(placeOf("operationsPanel").right(), 899);
    for (const char *column : {"sidebar", "transformationList", "editorPane", "operationsPanel"}) {
        EXPECT_TRUE(isShown(column));
        EXPECT_GT(widthOf(column), 160);
    }
    resize(1280, 800);
    EXPECT_EQ(placeOf("operationsPanel").right(), 1279);
}

TEST_F(Layout, NothingIsCutOffOrOverlapsAtAnySizeOfLettersAndWindow) {
    for (const double points : {10.0, 13.0, 20.0}) {
        SCOPED_TRACE(points);
        useLetters(points);
        setText(std::string(12'345, 'x') + "\r\n");
        useStackMode();
        center().post(notification::applyTransformation, QString("trim-lines"));
        manager().applyTransformation(*manager().findTransformation("replace-regex"),
                                      {{"pattern", std::string(500, 'p')}, {"replace", "\n\n"}});
        focusEditor();
        for (const QSize &size : {QSize(1280, 800), QSize(1008, 640), QSize(900, 600)}) {
            SCOPED_TRACE(size.width());
            resize(size.width(), size.height());
            expectNothingOverlaps(window());
        }
        click("clearOperations");
        expectNothingOverlaps(*find("alert"));
    }
}

TEST_F(Layout, TheTitlesAreNotCutOffInTheSmallestWindow) {
    resize(900, 600);
    useStackMode();
    QCoreApplication::processEvents();
    for (const char *name : {"operationsTitle", "modeName", "listHeader"}) {
        auto *label = find<Label>(name);
        EXPECT_GE(label->width(), label->sizeHint().width() - 1) << name;
    }
}

TEST_F(Layout, TheFirstRowsStandOnOneLine) {
    resize(1280, 800);
    setText("x");
    center().post(notification::applyTransformation, QString("uppercase"));
    QCoreApplication::processEvents();
    const int top = placeOf("columns").top();
    for (const char *name : {"categoriesHeader", "search", "operationsTitle", "modeSwitch", "pause"}) {
        const QRect place = placeOf(name);
        EXPECT_NEAR(place.top() + place.height() / 2.0 - top, 24, 0.5) << name;
    }
    EXPECT_EQ(placeOf("category.Favorites").height(), 34);
    EXPECT_EQ(placeOf("category.Lines").top() - placeOf("category.Add & Remove").top(), 36);
    EXPECT_EQ(placeOf("transformation.uppercase").height(), 56);
    EXPECT_EQ(placeOf("transformation.lowercase").top() - placeOf("transformation.uppercase").top(), 56);
    EXPECT_EQ(placeOf("search").height(), 32);
    EXPECT_EQ(placeOf("statusBar").height(), 32);
    EXPECT_EQ(placeOf("operation.0").height(), 40) << "36 and the 4 to the next one";
    EXPECT_EQ(placeOf("toolBar").height(), 44);
    EXPECT_EQ(window().menuBar()->height(), 28);
}

TEST_F(Layout, ANewSystemFontWhileTheProgramRunsLeavesTheSameHeights) {
    const auto heights = [this] {
        resize(1400, 900);
        setText("one two");
        center().post(notification::applyTransformation, QString("uppercase"));
        QCoreApplication::processEvents();
        std::map<QString, std::pair<int, int>> found;
        for (QWidget *part : window().findChildren<QWidget *>()) {
            const QString name = part->objectName();
            if (part->isVisible() && !name.isEmpty() && !name.startsWith("qt_")) {
                found[name] = {placeOf(part).top(), part->height()};
            }
        }
        return found;
    };
    heights();
    QFont larger = QApplication::font();
    larger.setPointSizeF(20);
    QApplication::setFont(larger);
    QCoreApplication::processEvents();
    const auto changed = heights();
    useLetters(20);
    for (const auto &[name, place] : heights()) {
        ASSERT_TRUE(changed.count(name) > 0) << name.toStdString();
        EXPECT_EQ(changed.at(name), place) << name.toStdString();
    }
}

TEST_F(Layout, AHiddenPanelGivesItsWidthToTheEditorAndGetsItBack) {
    resize(1280, 800);
    find<QSplitter>("columns")->setSizes({183, 263, 504, 327});
    const int list = widthOf("transformationList");
    const int panel = widthOf("operationsPanel");
    const int editor = widthOf("editorPane");
    choose("ToggleOperations");
    QCoreApplication::processEvents();
    EXPECT_EQ(widthOf("transformationList"), list);
    EXPECT_EQ(widthOf("editorPane"), editor + panel + 1);
    choose("ToggleOperations");
    QCoreApplication::processEvents();
    EXPECT_EQ(widthOf("operationsPanel"), panel);
    EXPECT_EQ(widthOf("editorPane"), editor);
}

TEST_F(Layout, TheStatusBarLeavesOutFromTheRightWhatDoesNotFit) {
    resize(1280, 800);
    setText("one\r\n");
    for (const char *item : {"cursorPosition", "characterCount", "wordCount", "lineCount", "lineEnding"}) {
        EXPECT_TRUE(isShown(item)) << item;
    }
    EXPECT_EQ(placeOf("characterCount").left() - placeOf("cursorPosition").right() - 1, 16);
    std::string longText;
    longText.append(12'345'678, 'x').append("\r\n");
    setText(longText);
    resize(900, 600);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isShown("cursorPosition"));
    EXPECT_TRUE(isShown("characterCount"));
    EXPECT_FALSE(isShown("lineEnding"));
    EXPECT_TRUE(isShown("editorSettings"));
    resize(1280, 800);
    EXPECT_TRUE(isShown("lineEnding"));
}

TEST_F(Layout, TheSmallestWindowHasRoomForAllFourFiguresOfAnOrdinaryText) {
    useDesignedLetters();
    resize(900, 600);
    setText("one two\nthree");
    QCoreApplication::processEvents();
    for (const char *item : {"cursorPosition", "characterCount", "wordCount", "lineCount"}) {
        ASSERT_TRUE(isShown(item)) << item;
        EXPECT_GE(widthOf(item), find(item)->sizeHint().width()) << item;
    }
}

TEST_F(Layout, InTheSmallestWindowTheFindBarLeavesRoomToType) {
    resize(900, 600);
    setText("one two");
    choose("Find");
    type("no such text");
    QCoreApplication::processEvents();
    EXPECT_GE(widthOf("find"), 48);
    EXPECT_TRUE(placeOf("findBar").contains(placeOf("closeFind")));
}

TEST_F(Layout, InTheSmallestWindowTheFindBarTellsTheWholeCount) {
    useDesignedLetters();
    resize(900, 600);
    setText("one two");
    choose("Find");
    type("no such text");
    QCoreApplication::processEvents();
    EXPECT_GE(widthOf("matchCount"), find("matchCount")->sizeHint().width());
}

TEST_F(Layout, AnItemOfTheStatusBarHasItsIconBeforeItsText) {
    setText("x");
    const QImage picture = pictureOf(find("characterCount"));
    const auto inkIn = [&](int from, int to) {
        int ink = 0;
        for (int x = from; x < to; ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                ink += picture.pixelColor(x, y).alpha() > 60 ? 1 : 0;
            }
        }
        return ink;
    };
    EXPECT_GT(inkIn(0, 14), 10);
    EXPECT_EQ(inkIn(14, 20), 0);
    EXPECT_GT(inkIn(20, picture.width()), 2);
}

TEST_F(Layout, AnItemOfTheStatusBarShowsItsWholeTextInTheSpaceThatItAsksFor) {
    for (const double points : {8.5, 9.0, 10.0, 11.3}) {
        useLetters(points);
        for (const char *text : {"Ln 7, Col 33", "702", "94", "1234567"}) {
            StatusItem item("location", "help");
            item.setText(text);
            item.resize(item.sizeHint());
            const QImage asked = pictureOf(&item);
            item.resize(item.width() + 50, item.height());
            EXPECT_EQ(pictureOf(&item).copy(asked.rect()), asked) << text << " at " << points;
        }
    }
}

TEST_F(Layout, WhatIsCutOffShowsWholeInTheTooltip) {
    resize(900, 600);
    click("category.Lines");
    QCoreApplication::processEvents();
    EXPECT_EQ(find("transformation.trim-lines")->toolTip(),
              "Trim Lines\nRemove leading/trailing whitespace from each line");
    EXPECT_EQ(find("category.Lines")->toolTip(), "");
    useLetters(20);
    resize(900, 600);
    EXPECT_EQ(find("category.Case Conversion")->toolTip(), "Case Conversion");
}

TEST_F(Layout, ARowHasATooltipExactlyWhenItIsCutOff) {
    click("category.Lines");
    for (int windowWidth = 1010; windowWidth < 1075; ++windowWidth) {
        resize(windowWidth, 640);
        for (const TransformationButton *row : window().findChildren<TransformationButton *>()) {
            const auto isCutOff = [room = row->width() - 52](const QString &text, FontRole role) {
                return QFontMetrics(fontFor(role)).elidedText(text, Qt::ElideRight, room) != text;
            };
            if (row->isVisible()) {
                EXPECT_EQ(!row->toolTip().isEmpty(), isCutOff(row->text(), FontRole::callout) ||
                                                         isCutOff(row->accessibleDescription(), FontRole::smallCaption))
                    << row->text().toStdString() << " at " << row->width();
            }
        }
    }
}

TEST_F(Layout, NoCategoryIsCutOffInAWindowOfTheInitialSize) {
    for (const double points : {10.0, 10.25, 10.5, 10.75, 11.0, 11.25, 11.5, 11.75, 12.0, 14.0, 16.0, 20.0}) {
        SCOPED_TRACE(points);
        useLetters(points);
        resize(1280, 800);
        for (const CategoryButton *category : window().findChildren<CategoryButton *>()) {
            EXPECT_EQ(category->toolTip(), "");
            const int room = category->width() - 54; // what the icon and the paddings leave
            EXPECT_EQ(QFontMetrics(fontFor(FontRole::callout)).elidedText(category->text(), Qt::ElideRight, room),
                      category->text());
        }
    }
}

TEST_F(Layout, TheCategoriesScrollWhenTheyDoNotFit) {
    useLetters(30);
    resize(900, 600);
    find("category.Favorites")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_End);
    const QWidget *last = find("category.Encoding");
    EXPECT_TRUE(last->hasFocus());
    EXPECT_TRUE(last->parentWidget()->parentWidget()->rect().contains(
        QRect(last->mapTo(last->parentWidget()->parentWidget(), QPoint()), last->size())));
}

TEST_F(Layout, TheThemeFollowsTheSystemWhileTheProgramRuns) {
    const auto colourOf = [this](const QString &name, QPoint position) {
        return find(name)->grab().toImage().pixelColor(position);
    };
    const QPalette before = QApplication::palette();
    for (const Theme *colours : {&darkTheme(), &lightTheme(), &darkTheme()}) {
        QApplication::setPalette(paletteOf(*colours));
        QCoreApplication::processEvents();
        EXPECT_EQ(colourOf("sidebar", {2, 300}), colours->sidebar);
        EXPECT_EQ(colourOf("transformationList", {2, 100}), colours->pane);
        EXPECT_EQ(colourOf("editor", {2, 100}), colours->view);
        EXPECT_EQ(colourOf("operationsPanel", {2, 100}), colours->pane);
        EXPECT_EQ(colourOf("statusBar", {2, 10}), colours->chrome);
        EXPECT_EQ(colourOf("toolBar", {2, 10}), colours->chrome);
        EXPECT_EQ(colourOf("category.Case Conversion", {6, 17}), colours->accent);
    }
    QApplication::setPalette(before);
}

TEST_F(Layout, TheIconsOfTheSearchFieldStandWithinItsEnds) {
    auto *search = find<QLineEdit>("search");
    const auto middles = [search] {
        std::vector<int> found;
        for (const QAbstractButton *icon : search->findChildren<QAbstractButton *>()) {
            if (icon->isVisible()) {
                found.push_back(icon->geometry().center().x());
            }
        }
        std::sort(found.begin(), found.end());
        return found;
    };
    EXPECT_EQ(middles(), std::vector{18});
    search->setText("x");
    EXPECT_TRUE(QTest::qWaitFor([&] { return middles() == std::vector{18, search->width() - 20}; }));
    search->clear();
    search->setFocus();
    EXPECT_NEAR(search->inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x(), 35, 1) << "the text";
}

TEST_F(Layout, WhatIsEmptySaysSo24PixelsAboveTheMiddleOfItsColumn) {
    QWidget *panel = find("operationsPanel");
    auto *words = panel->findChild<EmptyState *>();
    ASSERT_NE(words, nullptr);
    ASSERT_TRUE(words->isVisible());
    const QImage picture = panel->grab(QRect(words->mapTo(panel, QPoint()), words->size())).toImage();
    const auto hasInk = [&picture](int y) {
        for (int x = 1; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, y)) {
                return true;
            }
        }
        return false;
    };
    int top = 0;
    while (top < picture.height() && !hasInk(top)) {
        ++top;
    }
    int bottom = picture.height() - 1;
    while (bottom > top && !hasInk(bottom)) {
        --bottom;
    }
    constexpr int unevenMargins = 6; // of the icon above its strokes, and of the words below their letters
    const int middle = words->mapTo(panel, QPoint()).y() + (top + bottom) / 2;
    const int designedMiddle = panel->height() / 2 - 24;
    EXPECT_NEAR(middle, designedMiddle, unevenMargins);
}

TEST_F(Layout, TheScrollBarOfTheEditorStandsOnTheSurfaceOfTheText) {
    setText(std::string(500, '\n'));
    const QScrollBar *bar = find<QAbstractScrollArea>("editor")->verticalScrollBar();
    ASSERT_TRUE(bar->isVisible());
    const QPoint belowTheThumb = bar->mapTo(&window(), bar->rect().center() + QPoint(0, bar->height() / 4));
    const QPalette before = QApplication::palette();
    for (const Theme *colours : {&darkTheme(), &lightTheme()}) {
        QApplication::setPalette(paletteOf(*colours));
        QCoreApplication::processEvents();
        EXPECT_EQ(window().grab().toImage().pixelColor(belowTheThumb), colours->view);
    }
    QApplication::setPalette(before);
}

} // namespace
} // namespace lexivore
