// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/sentence_breaks.h"

#include "engine/primitives/lines.h"
#include "tests/engine/mixed_texts.h"
#include "tests/engine/split_texts.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace lexivore {
namespace {

/// One sentence after the other.
std::string brokenSlowly(std::string_view text) {
    std::string result;
    bool isFirst = true;
    for (const std::string_view sentence : splitSentences(text)) {
        if (const std::string_view inside = trimmedSlowly(sentence); !inside.empty()) {
            result.append(isFirst ? "" : "\n").append(inside);
            isFirst = false;
        }
    }
    return result;
}

void expectBroken(std::string_view text) {
    ASSERT_EQ(breakAfterSentences(text), brokenSlowly(text)) << testing::PrintToString(text);
}

TEST(SentenceBreaks, StandWhereverASentenceEnds) {
    for (std::size_t before = 0; before < 200; ++before) {
        const std::string piece(before, 'a');
        for (const std::string_view middle : {".", "!?", ". ", " .", " \t.\t ", " ", "\u00A0.", ".\u3000", ".\n"}) {
            for (const std::string_view end : {"", ".", ". ", " . .", "b", " \t", "\u00E9"}) {
                expectBroken(piece + std::string(middle) + piece + std::string(end));
            }
        }
    }
}

TEST(SentenceBreaks, AreTheSameInLongTextsOfEveryKind) {
    // Long stretches of ASCII with seldom anything else, sentences longer than what is looked at together, long runs of
    // blanks; then scripts of all kinds.
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        const unsigned othersPerMille = round % 4;
        const unsigned lettersOfHundred = round % 3 == 0 ? 99 : 60;
        std::string text;
        while (text.size() < 20'000) {
            if (random() % 1000 < othersPerMille) {
                text += random() % 2 == 0 ? "\u00E9" : "\u00A0";
            } else if (random() % 100 < lettersOfHundred) {
                text.append(1 + random() % (random() % 100 == 0 ? 9'000 : 9), 'a');
            } else if (random() % 500 == 0) {
                text.append(random() % 200, ' ');
            } else {
                text += " \t.!?\n"[random() % 6];
            }
        }
        expectBroken(text);
    }
    onMixedTexts(expectBroken);
}

} // namespace
} // namespace lexivore
