// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/editor_layout.h"

#include <QFontDatabase>
#include <QTextLayout>
#include <QTextOption>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lexivore {
namespace {

LayoutStyle plainStyle() {
    LayoutStyle style;
    style.font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    style.width = 500;
    return style;
}

/// Where rows begin when one line of ASCII is laid out as a whole.
std::vector<std::size_t> rowsOfWholeLine(const std::string &line, const LayoutStyle &style) {
    QTextLayout layout(QString::fromStdString(line), style.font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    std::vector<std::size_t> begins;
    layout.beginLayout();
    for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine()) {
        row.setLineWidth(style.width);
        begins.push_back(static_cast<std::size_t>(row.textStart()));
    }
    layout.endLayout();
    return begins;
}

std::vector<std::size_t> rowsDownwards(EditorLayout &layout) {
    std::vector<std::size_t> begins;
    std::optional<EditorLayout::Row> row = layout.rowOf(0, false);
    while (row) {
        begins.push_back(layout.rowBegin(*row));
        row = layout.rowBelow(*row);
    }
    return begins;
}

TEST(EditorLayout, CutsAnOverLongLineWhereNobodyCanSeeIt) {
    std::string words;
    for (int i = 0; words.size() < 50000; ++i) {
        words += "word" + std::to_string(i * 7919 % 100000) + (i % 5 == 0 ? "  " : " ");
    }
    for (const std::string &line : {words, std::string(30000, 'x')}) {
        TextDocument document;
        document.setText(Text(std::string_view(line)));
        EditorLayout layout(document);
        layout.setStyle(plainStyle());
        EXPECT_EQ(rowsDownwards(layout), rowsOfWholeLine(line, plainStyle()));
    }
}

TEST(EditorLayout, TrimmingKeepsWhatWasUsedSinceTheLastTimeHoweverMuch) {
    TextDocument document;
    document.setText(Text(std::string_view(std::string(400000, '\n'))));
    EditorLayout layout(document);
    layout.setStyle(plainStyle());
    const auto usedChunks = [&](std::size_t count) {
        std::vector<const ChunkLayout *> used;
        TextIndex::Place place = document.index().atOffset(0);
        for (; used.size() < count; place = document.index().next(place)) {
            used.push_back(&layout.chunk(place));
        }
        return used;
    };
    const std::vector<const ChunkLayout *> first = usedChunks(60);
    layout.trim();
    EXPECT_EQ(usedChunks(60), first);
    layout.trim();
    EXPECT_EQ(usedChunks(60), first);
}

TEST(EditorLayout, ShowsTheEmptyLineBehindAFinalLineBreak) {
    TextDocument document;
    EditorLayout layout(document);
    layout.setStyle(plainStyle());
    EXPECT_EQ(rowsDownwards(layout), (std::vector<std::size_t>{0}));
    document.setText(Text(std::string_view("a\r\nb\n")));
    EXPECT_EQ(rowsDownwards(layout), (std::vector<std::size_t>{0, 3, 5}));
    document.setText(Text(std::string_view(std::string(5000, '\n'))));
    EXPECT_EQ(rowsDownwards(layout).size(), 5001U);
}

TEST(EditorLayout, WalksTheSameRowsUpwardsAndDownwards) {
    std::string text;
    for (int i = 0; text.size() < 60000; ++i) {
        text += std::string(static_cast<std::size_t>(i * 37 % 300), static_cast<char>('a' + i % 26)) +
                (i % 3 == 0    ? "\r\n"
                 : i % 50 == 1 ? ""
                               : "\n");
    }
    TextDocument document;
    document.setText(Text(std::string_view(text)));
    EditorLayout layout(document);
    layout.setStyle(plainStyle());
    const std::vector<std::size_t> downwards = rowsDownwards(layout);
    std::vector<std::size_t> upwards;
    for (std::optional<EditorLayout::Row> row = layout.rowOf(text.size(), false); row; row = layout.rowAbove(*row)) {
        upwards.insert(upwards.begin(), layout.rowBegin(*row));
    }
    EXPECT_EQ(upwards, downwards);
}

TEST(EditorLayout, FindsEveryPlaceInTheRowThatShowsIt) {
    std::string text = "short\n" + std::string(9000, 'y') + "\r\n\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D abc\nend";
    TextDocument document;
    document.setText(Text(std::string_view(text)));
    EditorLayout layout(document);
    layout.setStyle(plainStyle());
    (void)rowsDownwards(layout);
    for (std::size_t offset = 0; offset < text.size(); offset = document.nextCharacter(offset)) {
        const EditorLayout::Row row = layout.rowOf(offset, false);
        ASSERT_LE(layout.rowBegin(row), offset);
        ASSERT_GE(layout.rowEnd(row), offset);
        // Where the direction changes, two places share one x.
        const qreal x = layout.xOf(offset, row);
        ASSERT_NEAR(layout.xOf(layout.offsetAt(x, row), row), x, 0.5);
    }
}

TEST(EditorLayout, FindsTheEndOfEveryRowOfAnOverLongLine) {
    std::string words;
    while (words.size() < 60000) {
        words += words.size() % 7 == 0 ? "to " : "words ";
    }
    for (const int width : {200, 300, 450, 500}) {
        for (const std::string &line : {words, std::string(60000, 'x')}) {
            TextDocument document;
            document.setText(Text(std::string_view(line)));
            EditorLayout layout(document);
            LayoutStyle style = plainStyle();
            style.width = width;
            layout.setStyle(style);
            std::optional<EditorLayout::Row> row = layout.rowOf(0, false);
            for (; row; row = layout.rowBelow(*row)) {
                const EditorLayout::Row found = layout.rowOf(layout.rowEnd(*row), true);
                ASSERT_EQ(layout.rowBegin(found), layout.rowBegin(*row)) << width;
            }
        }
    }
}

TEST(EditorLayout, FindsTheRowOfAPlaceRightAfterAnEditInFrontOfIt) {
    std::string words;
    for (int i = 0; words.size() < 12000; ++i) {
        words += "word" + std::to_string(i * 7919 % 100000) + " ";
    }
    TextDocument document;
    document.setText(Text(std::string_view(words)));
    const TextIndex &index = document.index();
    for (std::size_t edit = 0; edit < 60; ++edit) {
        EditorLayout layout(document);
        layout.setStyle(plainStyle());
        (void)rowsDownwards(layout);
        const std::size_t cut = index.next(index.first()).before.bytes;
        document.replace(cut - 200, 0, "xyz ");
        for (const std::size_t behind : {std::size_t{1}, edit % 60, edit % 30 + 30}) {
            const std::size_t offset = index.next(index.first()).before.bytes + behind;
            const EditorLayout::Row row = layout.rowOf(offset, false);
            ASSERT_LE(layout.rowBegin(row), offset);
            ASSERT_GE(layout.rowEnd(row), offset);
        }
    }
}

TEST(EditorLayout, FindsNoPlaceOutsideOfTheRow) {
    std::string rightToLeft;
    std::string mixed;
    std::string flags;
    for (int i = 0; i < 100; ++i) {
        rightToLeft += "שלום עולם ";
        mixed += i % 7 == 0 ? "שלום עולם " : "abc 12 ";
        flags += i % 3 == 0 ? "🇩🇪x" : "🇩🇪";
    }
    for (const std::string &text : {rightToLeft, mixed, flags, std::string(700, 'x')}) {
        TextDocument document;
        document.setText(Text(std::string_view(text)));
        EditorLayout layout(document);
        layout.setStyle(plainStyle());
        std::optional<EditorLayout::Row> row = layout.rowOf(0, false);
        for (; row; row = layout.rowBelow(*row)) {
            for (int x = -20; x <= plainStyle().width + 20; x += 5) {
                const std::size_t offset = layout.offsetAt(x, *row);
                ASSERT_GE(offset, layout.rowBegin(*row)) << x;
                ASSERT_LE(offset, layout.rowEnd(*row)) << x;
            }
        }
    }
}

TEST(EditorLayout, TheEndOfARowIsBesideIt) {
    TextDocument document;
    document.setText(Text(std::string_view(std::string(200, 'x') + " " + std::string(30, 'y') + " z")));
    EditorLayout layout(document);
    layout.setStyle(plainStyle());
    const EditorLayout::Row row = layout.rowOf(0, false);
    EXPECT_EQ(layout.offsetAt(plainStyle().width + 10, row), layout.rowEnd(row));
}

TEST(EditorLayout, LaysOutOnlyWhatIsAskedFor) {
    TextDocument document;
    document.setText(Text(std::string_view(std::string(3000000, 'z'))));
    EditorLayout layout(document);
    layout.setStyle(plainStyle());
    const std::uint64_t estimated = document.index().totalHeight();
    const EditorLayout::Row last = layout.rowOf(document.text().size(), false);
    EXPECT_GT(last.place.heightBefore, 0U);
    const auto difference = static_cast<double>(document.index().totalHeight()) - static_cast<double>(estimated);
    EXPECT_LT(std::abs(difference), 0.01 * static_cast<double>(estimated));
}

TEST(EditorLayout, PutsWhatFollowsATabAtTheNextStop) {
    TextDocument document;
    document.setText(Text(std::string_view("\ta\nxyz\ta\n12345678\ta")));
    EditorLayout layout(document);
    LayoutStyle style = plainStyle();
    style.tabDistance = 100;
    layout.setStyle(style);
    EXPECT_NEAR(layout.xOf(1, layout.rowOf(1, false)), 100, 0.5);
    EXPECT_NEAR(layout.xOf(7, layout.rowOf(7, false)), 100, 0.5);
    const qreal eighth = layout.xOf(17, layout.rowOf(17, false));
    EXPECT_NEAR(layout.xOf(18, layout.rowOf(18, false)), eighth < 100 ? 100 : 200, 0.5);
}

} // namespace
} // namespace lexivore
