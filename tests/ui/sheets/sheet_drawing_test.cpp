// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/transformation_manager.h"
#include "tests/support/memory_preferences.h"
#include "tests/ui/drawn.h"
#include "tests/ui/sheets/sheet_fixture.h"
#include "tools/tools_manager.h"
#include "ui/controls/label.h"
#include "ui/controls/symbol.h"
#include "ui/controls/tool_button.h"
#include "ui/results/average_row.h"
#include "ui/results/card.h"
#include "ui/results/frequency_row.h"
#include "ui/results/result_view_factory.h"
#include "ui/results/tool_view.h"
#include "ui/sheets/alert_sheet.h"
#include "ui/sheets/editor_settings_sheet.h"
#include "ui/sheets/manage_recipes_sheet.h"
#include "ui/sheets/parameter_input_sheet.h"
#include "ui/sheets/recipe_row.h"
#include "ui/sheets/recipe_save_sheet.h"
#include "ui/theme/drawing.h"

#include <QCheckBox>
#include <QFontInfo>
#include <QScrollArea>
#include <QSlider>

#include <algorithm>
#include <iterator>

namespace lexivore {
namespace {

/// What the sheets draw: each text in its size, weight and colour, each part in its height.
class SheetDrawing : public SheetTest {
protected:
    struct Expected {
        QString text;
        FontRole role;
        ThemeColour colour;
    };

    static QImage pictureOf(QWidget *widget) {
        QImage picture(widget->size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        widget->render(&picture, {}, {}, QWidget::DrawChildren);
        return picture;
    }

    static void expectColour(const QColor &drawn, const QColor &expected) {
        EXPECT_NEAR(drawn.red(), expected.red(), 6);
        EXPECT_NEAR(drawn.green(), expected.green(), 6);
        EXPECT_NEAR(drawn.blue(), expected.blue(), 6);
    }

    static void expectTexts(const QWidget &sheet, const QList<Expected> &texts) {
        const auto labels = sheet.findChildren<Label *>();
        for (const Expected &expected : texts) {
            SCOPED_TRACE(expected.text.toStdString());
            const auto found =
                std::ranges::find_if(labels, [&](const Label *label) { return label->text() == expected.text; });
            ASSERT_NE(found, labels.end());
            EXPECT_EQ((*found)->font().pointSizeF(), fontFor(expected.role).pointSizeF());
            EXPECT_EQ((*found)->font().weight(), fontFor(expected.role).weight());
            expectColour(test::inkOf(pictureOf(*found)), theme().*expected.colour);
        }
    }

    ToolView *open(std::size_t tool, std::string_view text) {
        return show(tools.tools().at(tool)->makeView(Text(text), factory));
    }
    /// The heights of all parts of this kind, from the first to the last.
    template<typename Part> static QList<int> heightsOf(const QWidget &sheet) {
        QList<int> heights;
        const auto parts = sheet.findChildren<Part *>();
        std::ranges::transform(parts, std::back_inserter(heights), [](const Part *part) { return part->height(); });
        return heights;
    }

    ToolsManager tools;
    ResultViewFactory factory;
    test::MemoryPreferences preferences;
    TransformationManager manager{preferences};
};

TEST_F(SheetDrawing, ParametersStandUnderTheNameAndTheDescription) {
    const auto *sheet =
        show(new ParameterInputSheet(manager.findTransformation("replace-regex"), {}, [](const ParameterMap &) {}, {}));
    expectTexts(*sheet, {{"Replace with Regex", FontRole::headline, &Theme::text},
                         {"Find and replace using regular expressions", FontRole::subheadline, &Theme::text2},
                         {"Regex pattern", FontRole::fieldLabel, &Theme::text},
                         {"Replace with", FontRole::fieldLabel, &Theme::text}});
}

TEST_F(SheetDrawing, ANewRecipeIsAskedForUnderAHeadline) {
    expectTexts(*show(new RecipeSaveSheet({}, {})), {{"Save Recipe", FontRole::headline, &Theme::text}});
}

TEST_F(SheetDrawing, ManagingWithoutRecipesShowsABookOverTwoQuietLines) {
    const auto *sheet = show(new ManageRecipesSheet(manager));
    expectTexts(*sheet, {{"Manage Recipes", FontRole::headline, &Theme::text},
                         {"No user recipes", FontRole::body, &Theme::text2},
                         {"Create recipes by saving your current operations", FontRole::caption, &Theme::text2}});
    auto *symbol = sheet->findChild<Symbol *>();
    EXPECT_EQ(test::placeOf(test::drawnSymbol("book", 48, theme().text3), pictureOf(symbol)), QPoint(0, 0));
    EXPECT_EQ(sheet->findChild<QScrollArea *>()->height(), 232);
}

TEST_F(SheetDrawing, ARecipeShowsItsNameOverItsSizeAndAPencil) {
    manager.setCurrentText(Text(std::string_view("a")));
    manager.applyTransformation(*manager.findTransformation("uppercase"), {});
    manager.saveRecipe("mine");
    const auto *sheet = show(new ManageRecipesSheet(manager));
    const auto *row = sheet->findChild<RecipeRow *>();
    expectTexts(*row, {{"mine", FontRole::body, &Theme::text}, {"1 operation", FontRole::caption, &Theme::text2}});
    const auto isDrawn = [](const char *symbol, QWidget *widget, const QColor &colour) {
        return test::placeOf(test::drawnSymbol(symbol, 16, colour), pictureOf(widget)).has_value();
    };
    EXPECT_TRUE(isDrawn("pencil", row->findChild<ToolButton *>("rename"), theme().text2));
    EXPECT_TRUE(isDrawn("trash", row->findChild<ToolButton *>("delete"), theme().text2));
    click(row->findChild<ToolButton *>("rename"));
    QImage tick = test::drawnSymbol("checkmark", 16, theme().onAccent);
    QPainter painter(&tick);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.fillRect(tick.rect(), theme().accent);
    painter.end();
    EXPECT_TRUE(test::placeOf(tick, pictureOf(find("confirmRename"))));
}

TEST_F(SheetDrawing, TheEditorsFontIsPreviewedOnTheSurfaceOfTheEditor) {
    const auto *sheet = show(new EditorSettingsSheet(13, {}));
    expectTexts(*sheet, {{"Editor Settings", FontRole::headline, &Theme::text},
                         {"Font Size:", FontRole::body, &Theme::text},
                         {"Preview", FontRole::fieldLabel, &Theme::text}});
    auto *preview = sheet->findChild<QLabel *>("preview");
    EXPECT_EQ(QFontInfo(preview->font()).family(), QFontInfo(monospacedFont(13)).family());
    const QImage picture = pictureOf(preview);
    EXPECT_EQ(picture.pixelColor(4, 4), theme().view);
    const QImage word = test::drawnText("The", monospacedFont(13), theme().text, theme().view);
    EXPECT_EQ(test::placeOf(word, picture).value_or(QPoint()).x(), 1 + 8) << "behind border and padding";
}

TEST_F(SheetDrawing, TheSliderAndTheCheckBoxHaveTheirSizes) {
    show(new EditorSettingsSheet(9, {}));
    auto *slider = find<QSlider>("fontSize");
    const auto inkAt = [&](int x) {
        const QImage picture = pictureOf(slider);
        int height = 0;
        for (int y = 0; y < picture.height(); ++y) {
            height += picture.pixelColor(x, y).alpha() > 127 ? 1 : 0;
        }
        return height;
    };
    EXPECT_EQ(inkAt(9), 18) << "the knob";
    EXPECT_EQ(inkAt(slider->width() - 20), 4) << "the track";
    show(new AlertSheet({.title = "Title",
                         .message = "Message",
                         .confirmation = "Yes",
                         .isDestructive = true,
                         .offersDontAskAgain = true},
                        {}));
    auto *box = find<QCheckBox>("dontAskAgain");
    const QImage picture = pictureOf(box);
    int height = 0;
    for (int y = 0; y < picture.height(); ++y) {
        height += picture.pixelColor(9, y).alpha() > 127 ? 1 : 0;
    }
    EXPECT_EQ(height, 18);
}

TEST_F(SheetDrawing, AnAlertsTitleStandsOutFromItsMessage) {
    const auto *alert = show(new AlertSheet({.title = "Title", .message = "Message", .confirmation = "OK"}, {}));
    expectTexts(*alert,
                {{"Title", FontRole::alertTitle, &Theme::text}, {"Message", FontRole::subheadline, &Theme::text2}});
    const auto labels = alert->findChildren<Label *>();
    const auto title = std::ranges::find_if(labels, [](const Label *label) { return label->text() == "Title"; });
    EXPECT_EQ((*title)->mapTo(alert, QPoint()).y(), 1 + 24);
}

TEST_F(SheetDrawing, ResultsHaveTheirSizesAndColours) {
    const Expected header = {"Text Statistics", FontRole::headline, &Theme::text};
    const auto *statistics = open(0, "one two");
    expectTexts(*statistics, {header,
                              {"Get detailed statistics about your text", FontRole::caption, &Theme::text2},
                              {"7", FontRole::cardValue, &Theme::text},
                              {"Characters", FontRole::caption, &Theme::text2},
                              {"Averages", FontRole::sectionTitle, &Theme::text2},
                              {"Chars per word", FontRole::body, &Theme::text}});
    press(Qt::Key_Escape);
    expectTexts(*open(1, "one"), {{"Showing top 20 characters", FontRole::caption, &Theme::text2}});
    press(Qt::Key_Escape);
    expectTexts(*open(2, "one"), {{"Reading Time", FontRole::callout, &Theme::text},
                                  {"0s", FontRole::duration, &Theme::text},
                                  {"(~200 words/min)", FontRole::caption, &Theme::text2},
                                  {"words", FontRole::body, &Theme::text2},
                                  {"Based on average reading speed", FontRole::caption, &Theme::text2}});
    press(Qt::Key_Escape);
    expectTexts(*open(3, "Hello world"),
                {{"77.9", FontRole::score, &Theme::text},
                 {"Flesch Reading Ease", FontRole::caption, &Theme::text2},
                 {"Fairly Easy", FontRole::smallCardValue, &Theme::accentText},
                 {"Grade Level:", FontRole::caption, &Theme::text2},
                 {"7th grade", FontRole::captionMedium, &Theme::text},
                 {"Words:", FontRole::caption, &Theme::text2},
                 {"3", FontRole::smallCardValue, &Theme::text},
                 {"Higher scores indicate easier readability", FontRole::caption, &Theme::text2}});
}

TEST_F(SheetDrawing, ThePartsOfResultsHaveTheirHeights) {
    const auto *statistics = open(0, "one two");
    EXPECT_EQ(heightsOf<Card>(*statistics).first(6), QList<int>(6, 72));
    EXPECT_EQ(heightsOf<AverageRow>(*statistics), QList<int>(3, 32));
    const auto *body = statistics->findChild<QScrollArea *>();
    EXPECT_EQ(body->mapTo(statistics, QPoint()).y(), 1 + 68) << "under the header";
    EXPECT_EQ(statistics->height() - 1 - 56, body->mapTo(statistics, QPoint(0, body->height())).y());
    EXPECT_EQ(find("copy")->mapTo(statistics, QPoint()).x(), 1 + 16);
    EXPECT_EQ(find("done")->mapTo(statistics, QPoint(find("done")->width(), 0)).x(), 500 - 1 - 16);
    press(Qt::Key_Escape);
    EXPECT_EQ(heightsOf<FrequencyRow>(*open(1, "ab")), QList<int>(2, 24));
    press(Qt::Key_Escape);
    EXPECT_EQ(heightsOf<Card>(*open(2, "one")), (QList<int>{136, 136, 44}));
    press(Qt::Key_Escape);
    EXPECT_EQ(heightsOf<Card>(*open(3, "one")).mid(1), QList<int>(3, 68));
}

TEST_F(SheetDrawing, SheetsCardsAndButtonsAreRoundEachInItsOwnWay) {
    const auto hasCorner = [](QWidget *widget, int radius, const QColor &fill, const QColor &border) {
        QImage corner(radius, radius, QImage::Format_ARGB32_Premultiplied);
        corner.fill(Qt::transparent);
        QPainter painter(&corner);
        drawFrame(painter, QRectF(0, 0, 60, 60), radius, fill, border);
        painter.end();
        return test::placeOf(corner, pictureOf(widget)) == QPoint(0, 0);
    };
    ToolView *sheet = open(0, "one");
    EXPECT_TRUE(hasCorner(sheet, 12, theme().pane, theme().sheetBorder));
    EXPECT_TRUE(hasCorner(sheet->findChild<Card *>(), 10, theme().raised, theme().border));
    EXPECT_TRUE(hasCorner(find("copy"), 8, theme().button, theme().buttonBorder));
}

TEST_F(SheetDrawing, AToolShowsWhetherItIsPressedOrChecked) {
    ToolButton tool("pause", "Help", ToolButton::row);
    tool.setCheckable(true);
    tool.resize(tool.sizeHint());
    const auto expectGround = [&](const QColor &expected) {
        const QColor ground = pictureOf(&tool).pixelColor(3, 14);
        EXPECT_NEAR(ground.alphaF(), expected.alphaF(), 0.01);
        EXPECT_NEAR(ground.hueF(), expected.hueF(), 0.1);
    };
    EXPECT_EQ(pictureOf(&tool).pixelColor(3, 14).alpha(), 0);
    EXPECT_TRUE(test::placeOf(test::drawnSymbol("pause", 16, theme().text2), pictureOf(&tool)));
    QTest::mousePress(&tool, Qt::LeftButton);
    expectGround(theme().toolPress);
    QTest::mouseRelease(&tool, Qt::LeftButton);
    ASSERT_TRUE(tool.isChecked());
    expectGround(theme().accentWash);
    expectColour(test::inkOf(pictureOf(&tool)), theme().accentText);
}

TEST_F(SheetDrawing, AFrequencyIsAMonospacedCharacterABarAndAQuietCount) {
    FrequencyRow row("Space", 25, 50);
    row.resize(458, 24);
    const QImage picture = pictureOf(&row);
    const QImage character = test::drawnText("Space", monospacedFont(systemPoints()), theme().text);
    const auto place = test::placeOf(character, picture);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->x(), 0);
    const int barEnd = 60 + (458 - 100) / 2;
    const QImage count = test::drawnText("25", fontFor(FontRole::caption), theme().text2);
    EXPECT_EQ(test::placeOf(count, picture).value_or(QPoint()).x(), barEnd + 8);
    int barHeight = 0;
    for (int y = 0; y < picture.height(); ++y) {
        barHeight += picture.pixelColor(60 + 90, y).alpha() > 127 ? 1 : 0;
    }
    EXPECT_EQ(barHeight, 20);
    EXPECT_EQ(picture.pixelColor(60 + 90, 1).alpha(), 0) << "in the middle";
}

} // namespace
} // namespace lexivore
