// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/catalog.h"
#include "tests/reference/plain_text.h"
#include "tests/support/engine_outcome.h"
#include "tests/support/escaped.h"
#include "tests/support/text_pool.h"
#include "tests/support/transformation_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

// Bytes that are no text. What they become is unspecified, but it is a text or a TransformationError: no crash, no
// hang, no other exception and, under AddressSanitizer, no read outside the text, which fills a heap block of its own.
namespace lexivore::test {

namespace {

using reference::Outcome;

constexpr std::string_view brokenSequences[] = {
    "\x80",             // continuations without a lead
    "\xBF\xBF",         //
    "\xC2",             // a lead alone, of what could be U+0085
    "\xCE",             // of a sigma
    "\xE2\x80",         // of U+2028
    "\xE1\x9A",         // of a space
    "\xE0\xA4",         // of a conjunct
    "\xED\x95",         // of a Hangul syllable
    "\xF0\x9F\x98",     // of an emoji
    "\xF0\x9F",         //
    "\xF4",             //
    "\xC0\x80",         // overlong forms
    "\xC1\xBF",         //
    "\xE0\x80\x80",     //
    "\xE0\x9F\xBF",     //
    "\xF0\x80\x80\x8A", //
    "\xF0\x8F\xBF\xBF", //
    "\xED\xA0\x80",     // surrogates
    "\xED\xBF\xBF",     //
    "\xF4\x90\x80\x80", // above the last code point
    "\xF5\x80\x80\x80", //
    "\xF8\x88\x80\x80\x80",
    "\xFE",
    "\xFF",
    "\xE2\x28\xA1", // a lead before something else
    "\xF0\x9F\x0A",
};

std::string brokenText(Dice &dice) {
    std::string text;
    for (const std::string &piece : textPieces(dice, 20)) {
        text += piece;
        if (dice.chance(25)) {
            text += dice.pick(brokenSequences);
        }
        if (dice.chance(5)) {
            text += static_cast<char>(static_cast<unsigned char>(dice.below(256)));
        }
    }
    text.resize(text.size() - std::min(text.size(), dice.below(3))); // sometimes within a sequence
    return text;
}

std::string randomBytes(Dice &dice) {
    std::string bytes(dice.below(300), ' ');
    for (char &byte : bytes) {
        byte = static_cast<char>(static_cast<unsigned char>(dice.below(256)));
    }
    return bytes;
}

/// Values with which every transformation gets past its parameters.
const ParameterMap usualParameters = {
    {"prefix", "> "}, {"suffix", ";"}, {"width", "7"},      {"count", "1"},        {"start", "1"},      {"end", "2"},
    {"text", "a"},    {"find", "a"},   {"separator", ", "}, {"pattern", "(.)\\1"}, {"replace", "<$1>"},
};

class HostileBytes : public testing::TestWithParam<TransformationPointer> {
protected:
    /// Fails the test, naming the text, unless the outcome is a text or a described error.
    static void expectHarmless(std::string_view text, const ParameterMap &parameters, std::size_t offset = 0) {
        try {
            const Outcome outcome = engineOutcome(*GetParam(), text, parameters, offset);
            EXPECT_TRUE(outcome.succeeded || outcome.text.find(": ") != std::string::npos) << escaped(outcome.text);
        } catch (const std::exception &exception) {
            ADD_FAILURE() << exception.what() << " on " << escaped(text);
        }
    }
};

TEST_P(HostileBytes, AreHarmlessAtTheEndOfTextsOfEveryLength) {
    for (const std::string_view broken : brokenSequences) {
        for (std::size_t length = 0; length <= 70; ++length) {
            expectHarmless(std::string(length, 'x') + std::string(broken), usualParameters, length % 16);
        }
        expectHarmless(std::string(broken) + "a\n" + std::string(broken) + " a" + std::string(broken), usualParameters);
    }
}

TEST_P(HostileBytes, AreNotReadBehindAWellFormedEndEither) {
    for (const std::string_view letter : {"é", "Σ", "ǆ", "漢", "क", "\u0301", "\u2028", "😀"}) {
        for (std::size_t length = 0; length <= 70; ++length) {
            const std::string run = std::string(letter) + std::string(length, 'x');
            expectHarmless(run + std::string(letter), usualParameters, length % 16);
            expectHarmless(run + std::string(letter) + "y", usualParameters);
        }
    }
}

TEST_P(HostileBytes, AreHarmlessInPairs) {
    for (const char first :
         {'a', '\n', '%', '&', '\x80', '\xC2', '\xCE', '\xE0', '\xE2', '\xED', '\xF0', '\xF4', '\xFF'}) {
        for (unsigned second = 0; second < 256; ++second) {
            expectHarmless(std::string{first, static_cast<char>(static_cast<unsigned char>(second))}, usualParameters);
        }
    }
}

TEST_P(HostileBytes, AreHarmlessAnywhereAndInParameters) {
    const std::string &id = GetParam()->id();
    Dice dice(seedOfRunningTest());
    const rc::Gen<TransformationCase> cases = id == "shuffle-lines" ? texts() : casesFor(id);
    for (int made = 0; made < 300 && !HasFailure(); ++made) {
        ParameterMap parameters = cases(rc::Random(dice.below(SIZE_MAX)), 20).value().parameters;
        for (auto &[key, value] : parameters) {
            if (dice.chance(30)) {
                value = brokenText(dice).substr(0, 40);
            }
        }
        expectHarmless(dice.chance(80) ? brokenText(dice) : randomBytes(dice), parameters, dice.below(64));
    }
}

std::string nameOfTransformation(const testing::TestParamInfo<TransformationPointer> &row) {
    std::string name = row.param->id();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Every, HostileBytes, testing::ValuesIn(makeCatalog()), nameOfTransformation);

void expectDescription(const char *id, std::string_view text, const char *description) {
    const Outcome outcome = engineOutcome(*findTransformation(makeCatalog(), id), text, {});
    EXPECT_EQ(outcome, (Outcome{false, description})) << id << " of " << escaped(text);
}

TEST(HostileBytesInCodecs, AreReported) {
    Dice dice(seedOfRunningTest());
    std::vector<std::string> broken(std::begin(brokenSequences), std::end(brokenSequences));
    for (std::size_t length = 0; length <= 70; ++length) {
        broken.push_back(std::string(length, 'x') + broken[length % std::size(brokenSequences)] +
                         std::string(70 - length, 'y'));
    }
    for (int made = 0; made < 500; ++made) {
        const std::string text = brokenText(dice);
        if (!reference::isUtf8(text)) {
            broken.push_back(text);
        }
    }
    for (const std::string &text : broken) {
        ASSERT_FALSE(reference::isUtf8(text));
        expectDescription("base64-encode", text, "Invalid input: Cannot convert text to data");
        expectDescription("hex-encode", text, "Invalid input: Cannot convert text to data");
        expectDescription("url-encode", text, "Operation failed: Cannot encode URL");
        expectDescription("url-decode", text, "Invalid input: Invalid URL-encoded string");
        expectDescription("hex-decode", text, "Invalid input: Invalid hexadecimal string");
        expectDescription("base64-decode", text, "Invalid input: Invalid Base64 string");
    }
}

} // namespace

} // namespace lexivore::test
