// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/sheets/sheet_fixture.h"
#include "tools/readability_tool.h"
#include "tools/tools_manager.h"
#include "ui/controls/label.h"
#include "ui/controls/symbol.h"
#include "ui/controls/symbol_chip.h"
#include "ui/results/average_row.h"
#include "ui/results/card.h"
#include "ui/results/character_frequency_view.h"
#include "ui/results/compact_stat_card.h"
#include "ui/results/frequency_row.h"
#include "ui/results/readability_scale.h"
#include "ui/results/readability_view.h"
#include "ui/results/reading_time_view.h"
#include "ui/results/result_view_factory.h"
#include "ui/results/statistics_result_view.h"

#include <QClipboard>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace lexivore {
namespace {

class ResultViewsTest : public SheetTest {
protected:
    ToolView *open(std::size_t tool, std::string_view text) {
        return show(tools.tools().at(tool)->makeView(Text(text), factory));
    }

    static QList<QStringList> cards(const QWidget &view) {
        QList<QStringList> found;
        for (const auto *card : view.findChildren<CompactStatCard *>()) {
            found << labelsIn(*card);
        }
        return found;
    }

    /// What the widget itself draws, on nothing.
    static QImage drawingOf(QWidget &widget) {
        QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        widget.render(&picture, {}, {}, QWidget::DrawChildren);
        return picture;
    }

    /// The row in the width that it has in its sheet.
    static QImage pictureOf(FrequencyRow &row) {
        row.resize(458, 24);
        return drawingOf(row);
    }

    /// Whether anything is drawn from `left` to just before `right`.
    static bool hasInk(const QImage &picture, int left, int right) {
        for (int x = left; x < right; ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixelColor(x, y).alpha() > 0) {
                    return true;
                }
            }
        }
        return false;
    }

    /// Whether both draw the same in the same size.
    static bool looksLike(QWidget &widget, QWidget &&expected) {
        expected.resize(widget.size());
        return drawingOf(widget) == drawingOf(expected);
    }

    ToolsManager tools;
    ResultViewFactory factory;
};

TEST_F(ResultViewsTest, EveryViewHasItsSizeHeaderAndFooter) {
    const QList<QSize> sizes = {QSize(500, 450), QSize(500, 500), QSize(500, 400), QSize(500, 450)};
    for (std::size_t index = 0; index < 4; ++index) {
        for (const std::string &text : {std::string(), std::string("Some words. "), std::string(5000, 'x')}) {
            ToolView *view = open(index, text);
            EXPECT_EQ(view->size(), sizes.at(qsizetype(index)));
            const QStringList texts = labelsIn(*view);
            EXPECT_TRUE(texts.contains(QString::fromStdString(tools.tools()[index]->name())));
            EXPECT_TRUE(texts.contains(QString::fromStdString(tools.tools()[index]->description())));
            EXPECT_EQ(find("copy")->text(), "Copy");
            EXPECT_EQ(find("done")->text(), "Done");
            click(find("done"));
            EXPECT_FALSE(isOpen());
        }
    }
}

TEST_F(ResultViewsTest, EveryViewShowsTheSymbolOfItsToolAndOfCopying) {
    for (std::size_t index = 0; index < 4; ++index) {
        SCOPED_TRACE(index);
        const ToolView *view = open(index, "one");
        auto *header = view->findChild<SymbolChip *>();
        EXPECT_TRUE(looksLike(*header, SymbolChip(QString::fromStdString(tools.tools()[index]->icon()))));
        PushButton copy("Copy");
        copy.setSymbol("doc.on.doc");
        EXPECT_TRUE(looksLike(*find("copy"), std::move(copy)));
        press(Qt::Key_Escape);
    }
}

TEST_F(ResultViewsTest, CopyPutsTheReportOnTheClipboardAndKeepsTheSheetOpen) {
    const QList<QString> firstLines = {"Text Statistics", "Character Frequency Analysis", "Reading Time Estimate",
                                       "Readability Analysis"};
    for (std::size_t index = 0; index < 4; ++index) {
        QGuiApplication::clipboard()->setText("old");
        const ToolView *view = open(index, "Hello world");
        click(find("copy"));
        const QString copied = QGuiApplication::clipboard()->text();
        EXPECT_EQ(copied, QString::fromStdString(view->report()));
        EXPECT_EQ(copied.section('\n', 0, 0), firstLines.at(qsizetype(index)));
        EXPECT_TRUE(isOpen());
        press(Qt::Key_Escape);
        EXPECT_FALSE(isOpen());
    }
}

TEST_F(ResultViewsTest, StatisticsShowsSixCardsInThreeColumnsAndThreeAverages) {
    const ToolView *view = open(0, "Hi! How are you? Fine.\n\nGood.");
    EXPECT_EQ(cards(*view), (QList<QStringList>{{"29", "Characters"},
                                                {"6", "Words"},
                                                {"3", "Lines"},
                                                {"23", "No Spaces"},
                                                {"4", "Sentences"},
                                                {"2", "Paragraphs"}}));
    const auto all = view->findChildren<CompactStatCard *>();
    EXPECT_EQ(all[0]->y(), all[2]->y());
    EXPECT_LT(all[2]->y(), all[3]->y());
    EXPECT_NEAR(all[0]->width(), all[1]->width(), 1);
    EXPECT_TRUE(labelsIn(*view).contains("Averages"));
    QList<QStringList> averages;
    for (const auto *row : view->findChildren<AverageRow *>()) {
        averages << QStringList{row->accessibleName(), row->accessibleDescription()};
    }
    EXPECT_EQ(averages, (QList<QStringList>{
                            {"Chars per word", "3.8"}, {"Words per line", "3.0"}, {"Words per sentence", "1.5"}}));
}

TEST_F(ResultViewsTest, NoNumberOfALargeTextIsCutOff) {
    constexpr std::int64_t most = 2'147'483'648;
    const auto *statistics = dynamic_cast<const StatisticsTool *>(tools.tools()[0].get());
    ASSERT_NE(statistics, nullptr);
    show(new StatisticsResultView(*statistics, Text(), {most, most, most, most, most, most, most}));
    const auto expectNothingCutOff = [this] {
        for (const auto *label : window.findChildren<Label *>()) {
            EXPECT_TRUE(label->toolTip().isEmpty()) << label->text().toStdString();
        }
    };
    expectNothingCutOff();
    press(Qt::Key_Escape);
    std::string text;
    for (int word = 0; word < 2'500'000; ++word) {
        text += "a ";
    }
    EXPECT_TRUE(labelsIn(*open(2, text)).contains("16666m 40s"));
    expectNothingCutOff();
}

TEST_F(ResultViewsTest, EachCardHasItsSymbolInItsColour) {
    struct Expected {
        QString title;
        QString symbol;
        ThemeColour colour;
    };
    const auto expectSymbols = [](const QWidget &view, const QList<Expected> &expected) {
        const auto cards = view.findChildren<Card *>();
        ASSERT_GE(cards.size(), expected.size());
        for (qsizetype index = 0; index < expected.size(); ++index) {
            const auto &[title, name, colour] = expected[index];
            EXPECT_EQ(cards[index]->accessibleName(), title);
            auto *symbol = cards[index]->findChild<Symbol *>();
            ASSERT_NE(symbol, nullptr);
            EXPECT_TRUE(looksLike(*symbol, Symbol(name, symbol->width(), colour))) << title.toStdString();
        }
    };
    expectSymbols(*open(0, "one"), {{"Characters", "textformat.abc", &Theme::blue},
                                    {"Words", "character.book.closed", &Theme::green},
                                    {"Lines", "list.bullet", &Theme::orange},
                                    {"No Spaces", "space", &Theme::purple},
                                    {"Sentences", "text.quote", &Theme::indigo},
                                    {"Paragraphs", "doc.text", &Theme::teal}});
    press(Qt::Key_Escape);
    expectSymbols(*open(2, "one"),
                  {{"Reading Time", "book.fill", &Theme::blue}, {"Speaking Time", "mic.fill", &Theme::orange}});
}

TEST_F(ResultViewsTest, ComputeWhenTheyFirstAppear) {
    const Text text(std::string_view("Hello world"));
    const QStringList before = {"Character Frequency Analysis\n\n",
                                "Reading Time Estimate\n\nWord Count: 0\nReading Time: 0s (~200 wpm)\n"
                                "Speaking Time: 0s (~150 wpm)",
                                "Readability Analysis\n\nFlesch Reading Ease Score: 0.0\nLevel: \nGrade Level: \n\n"
                                "Statistics:\nWords: 0\nSentences: 0\nSyllables: 0"};
    for (std::size_t tool = 1; tool < 4; ++tool) {
        ToolView *view = tools.tools()[tool]->makeView(text, factory);
        EXPECT_EQ(QString::fromStdString(view->report()), before[qsizetype(tool) - 1]);
        show(view);
        EXPECT_NE(QString::fromStdString(view->report()), before[qsizetype(tool) - 1]);
        press(Qt::Key_Escape);
    }
}

TEST_F(ResultViewsTest, StatisticsOfNothingAreSixCardsAllTheSame) {
    const ToolView *view = open(0, "");
    EXPECT_EQ(cards(*view), (QList<QStringList>{{"0", "Characters"},
                                                {"0", "Words"},
                                                {"1", "Lines"},
                                                {"0", "No Spaces"},
                                                {"0", "Sentences"},
                                                {"0", "Paragraphs"}}));
    for (const auto *row : view->findChildren<AverageRow *>()) {
        EXPECT_EQ(row->accessibleDescription(), "0");
    }
}

TEST_F(ResultViewsTest, FrequencyShowsTheTop20WithBarsInProportion) {
    std::string text(50, 'a');
    text += std::string(25, ' ');
    for (char letter = 'b'; letter <= 'z'; ++letter) {
        text += letter;
    }
    const ToolView *view = open(1, text);
    EXPECT_TRUE(labelsIn(*view).contains("Showing top 20 characters"));
    const auto rows = view->findChildren<FrequencyRow *>();
    ASSERT_EQ(rows.size(), 20);
    EXPECT_EQ(rows[0]->accessibleName(), "a");
    EXPECT_EQ(rows[0]->accessibleDescription(), "50");
    EXPECT_EQ(rows[1]->accessibleName(), "Space");
    EXPECT_EQ(rows[0]->barWidth(), rows[0]->width() - 100);
    EXPECT_EQ(rows[1]->barWidth(), (rows[1]->width() - 100) / 2.0);
    EXPECT_EQ(rows[0]->width(), 500 - 2 - 2 * 20);
}

TEST_F(ResultViewsTest, FrequencyOfOneRepeatedCharacterIsOneFullBarAndOfNothingNoRow) {
    const ToolView *view = open(1, "zzzz");
    ASSERT_EQ(view->findChildren<FrequencyRow *>().size(), 1);
    const auto *row = view->findChild<FrequencyRow *>();
    EXPECT_EQ(row->barWidth(), row->width() - 100);
    press(Qt::Key_Escape);
    EXPECT_TRUE(open(1, "")->findChildren<FrequencyRow *>().isEmpty());
}

TEST_F(ResultViewsTest, ABarWithoutCountsHasNoWidth) {
    FrequencyRow row("a", 0, 0);
    row.resize(458, 24);
    EXPECT_EQ(row.barWidth(), 0);
}

TEST_F(ResultViewsTest, FrequencyDrawsCharacterBarAndCountBesideOneAnother) {
    FrequencyRow row("W", 25, 50);
    const QImage picture = pictureOf(row);
    const int barEnd = 60 + 179;
    EXPECT_TRUE(hasInk(picture, 0, 20));
    EXPECT_FALSE(hasInk(picture, 20, 60));
    for (int x = 60; x < barEnd; ++x) {
        EXPECT_TRUE(hasInk(picture, x, x + 1)) << x;
    }
    EXPECT_FALSE(hasInk(picture, barEnd, barEnd + 8));
    EXPECT_TRUE(hasInk(picture, barEnd + 8, barEnd + 40));
    EXPECT_FALSE(hasInk(picture, barEnd + 40, row.width()));

    FrequencyRow other("i", 26, 50);
    const QRect character(0, 0, 56, 24);
    EXPECT_NE(pictureOf(other).copy(character), picture.copy(character));
    FrequencyRow hebrew(QString::fromUtf8("\u05E9"), 25, 50);
    EXPECT_TRUE(hasInk(pictureOf(hebrew), 0, 20));
    EXPECT_FALSE(hasInk(pictureOf(hebrew), 20, 60));
}

TEST_F(ResultViewsTest, FrequencyIsMirroredInAWindowThatRunsFromRightToLeft) {
    FrequencyRow row("W", 25, 50);
    row.setLayoutDirection(Qt::RightToLeft);
    const QImage picture = pictureOf(row);
    const int barBegin = 458 - 60;
    const int barEnd = barBegin - 179;
    EXPECT_TRUE(hasInk(picture, row.width() - 20, row.width()));
    EXPECT_FALSE(hasInk(picture, barBegin, row.width() - 20));
    for (int x = barEnd; x < barBegin; ++x) {
        EXPECT_TRUE(hasInk(picture, x, x + 1)) << x;
    }
    EXPECT_FALSE(hasInk(picture, barEnd - 8, barEnd));
    EXPECT_TRUE(hasInk(picture, barEnd - 40, barEnd - 8));
    EXPECT_FALSE(hasInk(picture, 0, barEnd - 40));
}

TEST_F(ResultViewsTest, FrequencyFillsItsBarsWithTheGradient) {
    FrequencyRow row("a", 1, 1);
    const QImage picture = pictureOf(row);
    const auto expectColour = [&](int x, const QColor &expected) {
        const QColor drawn = picture.pixelColor(x, 12);
        EXPECT_NEAR(drawn.red(), expected.red(), 3) << x;
        EXPECT_NEAR(drawn.green(), expected.green(), 3) << x;
        EXPECT_NEAR(drawn.blue(), expected.blue(), 3) << x;
    };
    expectColour(61, theme().barStart);
    expectColour(60 + 358 - 2, theme().barEnd);
}

TEST_F(ResultViewsTest, FrequencyKeepsRoomForTheDigitsOfVeryLargeCounts) {
    FrequencyRow row("a", 100'000'000, 100'000'000);
    row.resize(458, 24);
    const int digits = QFontMetrics(fontFor(FontRole::caption)).horizontalAdvance("100000000");
    EXPECT_GT(digits, 100 - 60 - 8);
    EXPECT_EQ(60 + row.barWidth() + 8 + digits, row.width());
}

TEST_F(ResultViewsTest, FrequencyScrollsByTheKeys) {
    std::string text;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        text += letter;
    }
    const ToolView *view = open(1, text);
    const QScrollBar *bar = view->findChild<QScrollArea *>()->verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->maximum() > 0; }));
    press(Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
    press(Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
    press(Qt::Key_PageDown);
    EXPECT_GT(bar->value(), 0);
    press(Qt::Key_PageUp);
    EXPECT_EQ(bar->value(), 0);
}

TEST_F(ResultViewsTest, FrequencyShowsCharactersThatBreakLinesOrHaveNoShapeInRowsAsHighAsOthers) {
    const ToolView *view = open(1, "\n\n\t\t\r\n\u2028\U0001F469\u200D\U0001F467\u05E9");
    QStringList shown;
    for (const auto *row : view->findChildren<FrequencyRow *>()) {
        EXPECT_EQ(row->height(), 24);
        shown << row->shownCharacter();
    }
    EXPECT_EQ(shown, (QStringList{"\u21B5", "\u21E5", "CR LF", "U+2028", "\U0001F469\u200D\U0001F467", "\u05E9"}));
}

TEST_F(ResultViewsTest, FrequencyShowsASignForWhatLeavesNoInk) {
    const auto shown = [](const char *character) {
        const FrequencyRow row(QString::fromUtf8(character), 1, 1);
        return row.shownCharacter() + "|" + row.accessibleName();
    };
    EXPECT_EQ(shown("\n"), QString::fromUtf8("\u21B5|Line break"));
    EXPECT_EQ(shown("\r\n"), "CR LF|Line break (CR LF)");
    EXPECT_EQ(shown("\r"), "CR|Line break (CR)");
    EXPECT_EQ(shown("\t"), QString::fromUtf8("\u21E5|Tab"));
    EXPECT_EQ(shown("\u00A0"), "U+00A0|U+00A0");
    EXPECT_EQ(shown("\u200B"), "U+200B|U+200B");
    EXPECT_EQ(shown("\u2028"), "U+2028|U+2028");
    EXPECT_EQ(shown("\U000E0001"), "U+E0001|U+E0001");
    for (const char *character : {"a", "Space", "\u0301", "\u05E9", "\U0001F600", "\U0001F469\u200D\U0001F467"}) {
        EXPECT_EQ(shown(character), QString::fromUtf8(character) + "|" + QString::fromUtf8(character));
    }
}

TEST_F(ResultViewsTest, FrequencyShowsTheStartOfACharacterOfVeryManyMarks) {
    const auto marked = [](const char *mark, qsizetype count) { return "a" + QString::fromUtf8(mark).repeated(count); };
    const auto expectShown = [](const QString &character, const QString &shown) {
        FrequencyRow row(character, 1, 1);
        EXPECT_TRUE(row.shownCharacter() == shown) << row.shownCharacter().left(100).toStdString();
        EXPECT_TRUE(row.accessibleName() == shown) << row.accessibleName().left(100).toStdString();
        EXPECT_FALSE(row.grab().isNull());
    };
    const char *acute = "\u0301";
    expectShown(marked(acute, 63), marked(acute, 63));
    expectShown(marked(acute, 64), marked(acute, 63) + QChar(0x2026));
    expectShown(marked(acute, 1'000'000), marked(acute, 63) + QChar(0x2026));
    EXPECT_NE(FrequencyRow(marked(acute, 64), 1, 1).grab().toImage(),
              FrequencyRow(marked(acute, 63), 1, 1).grab().toImage())
        << "no ellipsis";
    const char *stem = "\U0001D165"; // two UTF-16 units
    expectShown(marked(stem, 1'000'000), marked(stem, 31) + QChar(0x2026));
}

TEST_F(ResultViewsTest, ReadingTimeShowsBothDurations) {
    std::string text;
    for (int word = 0; word < 199; ++word) {
        text += "word ";
    }
    const ToolView *view = open(2, text);
    const QStringList texts = labelsIn(*view);
    for (const char *expected : {"Reading Time", "59s", "(~200 words/min)", "Speaking Time", "1m 19s",
                                 "(~150 words/min)", "199", "words", "Based on average reading speed"}) {
        EXPECT_TRUE(texts.contains(expected)) << expected;
    }
    QList<QStringList> inCards;
    for (const auto *card : view->findChildren<Card *>()) {
        inCards << labelsIn(*card);
    }
    EXPECT_EQ(inCards, (QList<QStringList>{{"Reading Time", "59s", "(~200 words/min)"},
                                           {"Speaking Time", "1m 19s", "(~150 words/min)"},
                                           {"199", "words"}}));
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(labelsIn(*open(2, "")).count("0s"), 2);
}

TEST_F(ResultViewsTest, ReadabilityShowsScoreLevelGradeAndCounts) {
    const ToolView *view = open(3, "Hello world");
    const QStringList texts = labelsIn(*view);
    for (const char *expected :
         {"77.9", "Flesch Reading Ease", "Fairly Easy", "Grade Level:", "7th grade", "Words:", "2", "Sentences:", "1",
          "Syllables:", "3", "Higher scores indicate easier readability"}) {
        EXPECT_TRUE(texts.contains(expected)) << expected;
    }
    QList<QStringList> inCards;
    for (const auto *card : view->findChildren<Card *>()) {
        inCards << labelsIn(*card);
    }
    EXPECT_EQ(inCards.mid(1), (QList<QStringList>{{"Words:", "2"}, {"Sentences:", "1"}, {"Syllables:", "3"}}));
    press(Qt::Key_Escape);
    const ToolView *empty = open(3, "");
    EXPECT_TRUE(labelsIn(*empty).contains("0.0"));
    EXPECT_FALSE(labelsIn(*empty).contains("Very Difficult"));
    const auto rightEdge = [&](const QWidget *part) { return part->mapTo(empty, QPoint(part->width(), 0)).x(); };
    const auto labels = empty->findChildren<QLabel *>();
    const auto grade = std::ranges::find_if(labels, [](const auto *label) { return label->text() == "Grade Level:"; });
    ASSERT_NE(grade, labels.end());
    EXPECT_NEAR(rightEdge(*grade), rightEdge(empty->findChild<ReadabilityScale *>()), 1) << "with nothing behind it";
}

TEST_F(ResultViewsTest, TheScaleHasABandForEachLevel) {
    const QList<std::pair<double, int>> expected = {{0, 0},  {29.9, 0}, {30, 1}, {50, 2}, {60, 3},
                                                    {70, 4}, {80, 5},   {90, 6}, {100, 6}};
    for (const auto &[score, band] : expected) {
        EXPECT_EQ(ReadabilityScale::bandOf(score), band) << score;
    }
}

TEST_F(ResultViewsTest, TheScaleMarksABandOnlyWhereThereIsAScore) {
    const auto colourOfTheLowestBand = [this](std::string_view text) {
        auto *scale = open(3, text)->findChild<ReadabilityScale *>();
        const QColor colour = scale->grab().toImage().pixelColor(30, scale->height() / 2);
        press(Qt::Key_Escape);
        return colour;
    };
    EXPECT_EQ(colourOfTheLowestBand(""), theme().track);
    EXPECT_EQ(colourOfTheLowestBand("incomprehensibilities"), theme().accent);
}

TEST_F(ResultViewsTest, TheScaleMarksTheBandOfTheToolsLevelAtEveryScore) {
    const char *const levels[] = {"Very Difficult", "Difficult", "Fairly Difficult", "Standard",
                                  "Fairly Easy",    "Easy",      "Very Easy"};
    for (int hundredths = 0; hundredths <= 10000; ++hundredths) {
        const double score = hundredths / 100.0;
        EXPECT_STREQ(levels[ReadabilityScale::bandOf(score)], readabilityBand(score).level) << score;
    }
}

TEST_F(ResultViewsTest, KeepTheTextTheyWereOpenedWith) {
    Text text(std::string_view("one two"));
    const ToolView *view = show(tools.tools()[2]->makeView(text, factory));
    text = text.replaced(0, 0, "more words ");
    settle();
    EXPECT_TRUE(labelsIn(*view).contains("2"));
}

TEST_F(ResultViewsTest, NoWordIsCutOffWhenTheLettersAreTwiceAsLarge) {
    QFont font = QApplication::font();
    font.setPointSizeF(20);
    QApplication::setFont(font);
    settle();
    for (std::size_t index = 0; index < 4; ++index) {
        const ToolView *view = open(index, "Some very ordinary words. With a few sentences! Are there any?");
        EXPECT_TRUE(window.rect().contains(view->geometry()));
        for (const auto *label : view->findChildren<Label *>()) {
            if (label->isVisible()) {
                EXPECT_LE(label->sizeHint().width(), label->width() + 1) << label->text().toStdString();
                const QRect ink = QFontMetrics(label->font()).tightBoundingRect(label->text());
                EXPECT_GE(label->height(), ink.height()) << label->text().toStdString();
            }
        }
        press(Qt::Key_Escape);
    }
}

TEST_F(ResultViewsTest, AreReadOutCardByCard) {
    const ToolView *view = open(0, "one two");
    QAccessibleInterface *words = QAccessible::queryAccessibleInterface(view->findChildren<CompactStatCard *>()[1]);
    EXPECT_EQ(words->text(QAccessible::Name), "Words");
    EXPECT_EQ(words->text(QAccessible::Description), "2");
    auto *row = open(1, "one two")->findChild<FrequencyRow *>();
    const QAccessibleInterface *list = QAccessible::queryAccessibleInterface(row)->parent();
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), "Showing top 20 characters");
}

} // namespace
} // namespace lexivore
