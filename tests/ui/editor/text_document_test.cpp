// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Drives the model and a plain string side by side through random edits and compares everything after each.
// LEXIVORE_EDITOR_EDITS in the environment asks for a longer run than the ordinary one.
#include "ui/editor/text_document.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/utf8.h"
#include "engine/primitives/words.h"
#include "manager/text_conversion.h"
#include "tests/support/property.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace lexivore {
namespace {

using test::Dice;

const std::vector<std::string> pieces = {
    "a",          "word",    " ",      "  ",     "\t",
    "\n",         "\r\n",    "\r",     "\n\r",   "\v",
    "\f",         "\u0085",  "\u2028", "\u2029", std::string(1, '\0'),
    "\u0301",     "e\u0301", "é",      "\u200D", "👩‍👩‍👧",
    "👍🏽",   "🏽",    "🇩🇪",     "🇩",      "🇪",
    "क्षि",        "्",        "क",      "ि",      "한",
    "\u1112",     "\u1161",  "\u11AB", "שלום",   "مرحبا",
    "中文字",     "\uFEFF",  "\u00A0", "\u3000", "\u0600",
    "\U0010FFFF", "\uE000",  ".",      ",;",     "The quick brown fox jumps over the lazy dog. "};

std::string randomText(Dice &dice, std::size_t bytes) {
    std::string text;
    // Stretches that favour a few pieces give long lines, long clusters and long runs of flags.
    while (text.size() < bytes) {
        const std::size_t favourite = dice.below(pieces.size());
        for (std::size_t length = dice.below(300); length > 0; --length) {
            text += dice.below(8) == 0 ? pieces[dice.below(pieces.size())] : pieces[favourite];
        }
    }
    return text;
}

/// The plain second model: everything is worked out from the whole string.
struct Plain {
    std::string text;

    [[nodiscard]] std::vector<std::size_t> boundaries() const {
        std::vector<std::size_t> all{0};
        forEachCharacter(text, [&](std::string_view character) { all.push_back(all.back() + character.size()); });
        return all;
    }
    [[nodiscard]] std::size_t breaksBefore(std::size_t offset) const {
        std::size_t breaks = 0;
        forEachCharacter(std::string_view(text).substr(0, offset), [&](std::string_view character) {
            const DecodedCodePoint first = decode(character.data(), character.data() + character.size());
            breaks += isIn(newlines, first.value) ? 1U : 0U;
        });
        return breaks;
    }
    [[nodiscard]] std::size_t lineBegin(std::size_t offset) const {
        std::size_t begin = 0;
        std::size_t position = 0;
        forEachCharacter(std::string_view(text).substr(0, offset), [&](std::string_view character) {
            position += character.size();
            const DecodedCodePoint first = decode(character.data(), character.data() + character.size());
            begin = isIn(newlines, first.value) ? position : begin;
        });
        return begin;
    }
};

std::string bytesOf(const Text &text) { return std::string(Text(text).view()); }

void expectSame(const TextDocument &document, const Plain &plain, Dice &dice) {
    ASSERT_EQ(bytesOf(document.text()), plain.text);
    ASSERT_EQ(document.characterCount(), characterCount(plain.text));
    ASSERT_EQ(document.wordCount(), pieceCount(plain.text, whitespaceAndNewlines));
    ASSERT_EQ(document.lineCount(), lineCount(plain.text));
    const std::vector<std::size_t> boundaries = plain.boundaries();
    const auto isBoundary = [&](std::size_t offset) {
        return std::binary_search(boundaries.begin(), boundaries.end(), offset);
    };
    ASSERT_TRUE(isBoundary(document.caret()));
    ASSERT_TRUE(isBoundary(document.anchor()));

    // The chunks cover the text, begin between characters, and know their sums.
    const TextIndex &index = document.index();
    std::size_t position = 0;
    std::uint64_t height = 0;
    std::set<std::uint32_t> ids;
    for (TextIndex::Place place = index.first();; place = index.next(place)) {
        ASSERT_EQ(place.before.bytes, position);
        ASSERT_EQ(place.heightBefore, height);
        ASSERT_TRUE(isBoundary(position));
        ASSERT_TRUE(ids.insert(index.at(place).id).second);
        position += index.at(place).bytes;
        height += index.at(place).height;
        if (index.isLast(place)) {
            break;
        }
    }
    ASSERT_EQ(position, plain.text.size());
    ASSERT_EQ(height, index.totalHeight());

    // A few places each time instead of all.
    for (int i = 0; i < 4; ++i) {
        const std::size_t offset = dice.below(plain.text.size() + 1);
        const auto behind = std::upper_bound(boundaries.begin(), boundaries.end(), offset);
        const std::size_t before = *std::prev(behind);
        ASSERT_EQ(document.boundaryAt(offset), before);
        ASSERT_EQ(document.nextCharacter(offset), behind == boundaries.end() ? before : *behind);
        ASSERT_EQ(document.placeOf(offset).line, plain.breaksBefore(before) + 1);
        const std::size_t begin = plain.lineBegin(before);
        ASSERT_EQ(document.lineBegin(offset), begin);
        ASSERT_EQ(document.placeOf(offset).column,
                  characterCount(std::string_view(plain.text).substr(begin, before - begin)) + 1);
        const auto units = static_cast<std::size_t>(toQString(std::string_view(plain.text).substr(0, before)).size());
        ASSERT_EQ(document.unitsBefore(before), units);
        ASSERT_EQ(document.offsetOfUnit(units), before);
    }
}

/// A change of the plain string that follows what the document announces.
void follow(TextDocument &document, Plain &plain) {
    QObject::connect(&document, &TextDocument::edited, &document,
                     [&plain](std::size_t offset, std::size_t removed, std::string_view inserted) {
                         plain.text.replace(offset, removed, inserted);
                     });
}

std::size_t editsWanted(std::size_t ordinarily) {
    const char *const asked = std::getenv("LEXIVORE_EDITOR_EDITS");
    return asked != nullptr ? static_cast<std::size_t>(std::strtoull(asked, nullptr, 10)) : ordinarily;
}

void runRandomEdits(std::size_t textSize, std::size_t edits, unsigned seed) {
    SCOPED_TRACE("seed " + std::to_string(seed) + ", " + std::to_string(textSize) + " bytes");
    Dice dice(seed);
    TextDocument document;
    Plain plain;
    follow(document, plain);
    plain.text = randomText(dice, textSize);
    document.setText(Text(std::string_view(plain.text)));
    // What undo and redo of the owner go back to: texts that share most of their bytes with the one shown.
    std::array<std::pair<Text, std::string>, 8> earlier;
    earlier.fill({document.text(), plain.text});
    for (std::size_t edit = 0; edit < edits; ++edit) {
        const std::size_t size = plain.text.size();
        switch (dice.below(12)) {
        case 0:
        case 1:
        case 2:
        case 3:
            document.insert(pieces[dice.below(pieces.size())]);
            break;
        case 4:
            document.remove(document.previousCharacter(document.caret()),
                            document.caret() - document.previousCharacter(document.caret()));
            break;
        case 5:
            document.remove(document.caret(), document.nextCharacter(document.caret()) - document.caret());
            break;
        case 6: {
            const std::size_t anchor = dice.below(size + 1);
            document.select(anchor, std::min(size, anchor + dice.below(dice.below(20) == 0 ? size + 1 : 200)));
            break;
        }
        case 7:
            document.setCaret(dice.below(size + 1));
            break;
        case 8:
            document.insert(size > 2 * textSize ? std::string() : randomText(dice, dice.below(textSize / 2 + 1)));
            break;
        case 9:
            earlier[dice.below(earlier.size())] = {document.text(), plain.text};
            break;
        case 10: {
            const auto &[text, bytes] = earlier[dice.below(earlier.size())];
            plain.text = bytes;
            document.setText(text);
            break;
        }
        default:
            // A text from elsewhere: another one, or this one with a part of it replaced.
            if (dice.below(50) == 0) {
                plain.text = randomText(dice, textSize);
            } else {
                const std::vector<std::size_t> all = plain.boundaries();
                const std::size_t begin = all[dice.below(all.size())];
                const std::size_t end = all[dice.below(all.size())];
                plain.text.replace(std::min(begin, end), (begin < end ? end - begin : begin - end) / (edit % 3 + 1),
                                   pieces[dice.below(pieces.size())]);
                plain.text = toUtf8(toQString(plain.text));
            }
            document.setText(Text(std::string_view(plain.text)));
            break;
        }
        expectSame(document, plain, dice);
        if (testing::Test::HasFatalFailure()) {
            FAIL() << "after edit " << edit;
        }
    }
}

TEST(TextDocument, FollowsAPlainStringThroughRandomEditsOfSmallTexts) {
    const std::size_t edits = editsWanted(12000);
    for (unsigned seed = 1; seed <= 6; ++seed) {
        runRandomEdits(200, edits / 6, seed);
    }
}

TEST(TextDocument, FollowsAPlainStringThroughRandomEditsOfTextsOfManyChunks) {
    const std::size_t edits = editsWanted(20000) / 10;
    runRandomEdits(6000, edits / 2, 11);
    runRandomEdits(40000, edits / 4, 12);
}

TEST(TextDocument, KeepsEveryByteOfWhatItIsGiven) {
    TextDocument document;
    const std::string text("\xEF\xBB\xBF"
                           "a\r\nb\rc\nd\x0B\x0C\xC2\x85\xE2\x80\xA8\xE2\x80\xA9\0\xEE\x80\x80",
                           25);
    document.setText(Text(std::string_view(text)));
    EXPECT_EQ(bytesOf(document.text()), text);
}

TEST(TextDocument, CutsManyShortLinesIntoPiecesThatAreSoonLaidOut) {
    for (const std::string line : {"\n", "\r\n", "5\r", "\u2028"}) {
        std::string text;
        for (int i = 0; i < 50000; ++i) {
            text += line;
        }
        TextDocument document;
        document.setText(Text(std::string_view(text)));
        const TextIndex &index = document.index();
        std::size_t chunks = 1;
        for (TextIndex::Place place = index.first(); !index.isLast(place); place = index.next(place)) {
            ASSERT_LE(index.at(place).breaks, 160U);
            ASSERT_GE(index.at(place).breaks, 64U);
            ++chunks;
        }
        EXPECT_GT(chunks, 300U);
    }
}

TEST(TextDocument, KeepsTheCaretWhereTheTextAroundItStays) {
    TextDocument document;
    document.setText(Text(std::string_view("one two three")));
    document.select(4, 13);
    document.setText(Text(std::string_view("one twenty three")));
    EXPECT_EQ(document.anchor(), 4U);
    EXPECT_EQ(document.caret(), 16U);
    int replaced = 0;
    QObject::connect(&document, &TextDocument::textReplaced, &document, [&] { ++replaced; });
    document.setText(Text(std::string_view("one twenty three")));
    EXPECT_EQ(replaced, 0);
}

TEST(TextDocument, NeverStopsInsideACrLf) {
    TextDocument document;
    document.setText(Text(std::string_view("a\r\nb")));
    EXPECT_EQ(document.nextCharacter(1), 3U);
    EXPECT_EQ(document.previousCharacter(3), 1U);
    document.setCaret(2);
    EXPECT_EQ(document.caret(), 1U);
    EXPECT_EQ(document.caretPlace(), (TextDocument::LineAndColumn{1, 2}));
    document.setCaret(3);
    EXPECT_EQ(document.caretPlace(), (TextDocument::LineAndColumn{2, 1}));
    EXPECT_EQ(document.lineCount(), 3U);
}

TEST(TextDocument, NamesTheLineEndingAndInsertsIt) {
    struct Case {
        const char *text;
        const char *name;
        const char *newline;
    };
    for (const Case &row :
         {Case{"", "", "\n"}, Case{"a\nb", "", "\n"}, Case{"a\r\nb", "CRLF", "\r\n"}, Case{"a\rb", "CR", "\r"},
          Case{"a\r\nb\r\nc\n", "Mixed", "\r\n"}, Case{"a\u2028b", "", "\n"}}) {
        TextDocument document;
        document.setText(Text(std::string_view(row.text)));
        EXPECT_EQ(document.lineEnding().toStdString(), row.name) << row.text;
        EXPECT_EQ(document.newline(), row.newline) << row.text;
    }
}

TEST(TextDocument, MovesByWords) {
    TextDocument document;
    document.setText(Text(std::string_view("one, two  three\nfour")));
    EXPECT_EQ(document.nextWord(0), 3U);
    EXPECT_EQ(document.nextWord(3), 5U);
    EXPECT_EQ(document.nextWord(5), 10U);
    EXPECT_EQ(document.nextWord(10), 15U);
    EXPECT_EQ(document.nextWord(15), 16U);
    EXPECT_EQ(document.previousWord(16), 15U);
    EXPECT_EQ(document.previousWord(15), 10U);
    EXPECT_EQ(document.previousWord(10), 5U);
    EXPECT_EQ(document.wordAround(6).begin, 5U);
    EXPECT_EQ(document.wordAround(6).end, 8U);
}

TEST(TextDocument, KnowsSentences) {
    TextDocument document;
    document.setText(Text(std::string_view("One. Two words? Three\nnext line")));
    EXPECT_EQ(document.sentenceAround(2).end, 5U);
    EXPECT_EQ(document.sentenceAround(8).begin, 5U);
    EXPECT_EQ(document.sentenceAround(8).end, 16U);
    EXPECT_EQ(document.sentenceAround(21).begin, 16U);
    EXPECT_EQ(document.sentenceAround(21).end, 21U);
    EXPECT_EQ(document.sentenceAround(25).begin, 22U);
}

TEST(TextDocument, TakesBackWhatItAnnouncedWithoutAnnouncingIt) {
    TextDocument document;
    Text elsewhere;
    QObject::connect(&document, &TextDocument::edited, &document,
                     [&](std::size_t offset, std::size_t removed, std::string_view inserted) {
                         elsewhere = elsewhere.replaced(offset, removed, inserted);
                         document.setText(elsewhere);
                     });
    int replaced = 0;
    QObject::connect(&document, &TextDocument::textReplaced, &document, [&] { ++replaced; });
    document.insert("typed");
    EXPECT_TRUE(document.text().sharesAllWith(elsewhere));
    EXPECT_EQ(document.caret(), 5U);
    EXPECT_EQ(replaced, 0);
}

TEST(TextDocument, SharesTheBytesThatItInserts) {
    const Text inserted(std::string_view(std::string(5000, 'x')));
    TextDocument document;
    document.insert(inserted);
    EXPECT_TRUE(document.text().sharesAllWith(inserted));
    document.replace(0, 5000, Text());
    EXPECT_TRUE(document.text().empty());
}

TEST(TextDocument, TakesBackTheTextBeforeTheEditThatItAnnounces) {
    const Text earlier(std::string_view("one two\nthree"));
    for (const char *const typed : {"1\n3", "1 and 3", ""}) {
        SCOPED_TRACE(typed);
        TextDocument document;
        document.setText(earlier);
        int restored = 0;
        QObject::connect(&document, &TextDocument::edited, &document, [&] { document.setText(earlier); });
        QObject::connect(&document, &TextDocument::textReplaced, &document, [&] { ++restored; });
        document.replace(0, 3, typed);
        EXPECT_EQ(document.text(), earlier);
        EXPECT_EQ(restored, 1);
        EXPECT_EQ(document.wordCount(), 3U);
        EXPECT_EQ(document.lineCount(), 2U);
        EXPECT_LE(document.caret(), earlier.size());
    }
}

TEST(TextDocument, AnnouncesTheSelectionOnlyWhenItChanges) {
    TextDocument document;
    document.setText(Text(std::string_view("abc")));
    int selections = 0;
    QObject::connect(&document, &TextDocument::selectionChanged, &document, [&] { ++selections; });
    document.setCaret(0);
    EXPECT_EQ(selections, 0);
    document.setCaret(1);
    EXPECT_EQ(selections, 1);
}

} // namespace
} // namespace lexivore
