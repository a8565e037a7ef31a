// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/catalog.h"
#include "tests/reference/plain_text.h"
#include "tests/support/engine_outcome.h"
#include "tests/support/escaped.h"
#include "tests/support/transformation_cases.h"

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

// What must hold between transformations, whatever the text.
namespace lexivore::test {

namespace {

constexpr int casesPerLaw = 1500;

std::string applied(std::string_view id, std::string_view text, const ParameterMap &parameters = {}) {
    static const Catalog catalog = makeCatalog();
    const reference::Outcome outcome = engineOutcome(*findTransformation(catalog, id), text, parameters);
    if (!outcome.succeeded) {
        throw std::runtime_error(std::string(id) + ": " + outcome.text);
    }
    return outcome.text;
}

/// The text's lines joined again with line feeds: what all work on lines begins with.
std::string normalised(std::string_view text) { return applied("join-lines", text, {{"separator", "\n"}}); }

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (const std::u32string &line : reference::lines(reference::codePoints(text))) {
        lines.push_back(reference::utf8(line));
    }
    return lines;
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words = linesOf(applied("break-after-word", text));
    std::erase(words, ""); // of a text without any word
    return words;
}

std::vector<std::string> sorted(std::vector<std::string> strings) {
    std::sort(strings.begin(), strings.end());
    return strings;
}

std::u32string composed(const std::string &text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *const nfc = icu::Normalizer2::getNFCInstance(status);
    return reference::fromIcu(nfc->normalize(icu::UnicodeString::fromUTF8(text), status));
}

std::string asciiOf(std::string_view text) {
    std::string ascii;
    std::copy_if(text.begin(), text.end(), std::back_inserter(ascii),
                 [](char byte) { return byte >= 0 && byte != '\r'; });
    return ascii;
}

/// Checks `law`, a function of a generated text that returns two texts which must be equal.
template<typename Law> void expectSame(Law &&law) {
    checkProperty(casesPerLaw, [&] {
        const TransformationCase given = *texts();
        const auto [left, right] = law(given.text());
        if (left != right) {
            RC_FAIL(escaped(left) + " is not " + escaped(right));
        }
    });
}

using Two = std::pair<std::string, std::string>;

TEST(Laws, DecodingAfterEncodingIsTheIdentity) {
    for (const std::string codec : {"base64", "url", "hex"}) {
        expectSame([&](const std::string &text) {
            return Two(applied(codec + "-decode", applied(codec + "-encode", text)), text);
        });
    }
}

TEST(Laws, HtmlDecodingAfterEncodingIsTheIdentityWithoutAmpersands) {
    expectSame([](const std::string &given) {
        const std::string text = applied("replace-text", given, {{"find", "&"}});
        return Two(applied("html-decode", applied("html-encode", text)), text);
    });
}

TEST(Laws, EncodingsHaveTheirLengthAndAlphabet) {
    checkProperty(casesPerLaw, [] {
        const std::string text = (*texts()).text();
        const auto isOf = [](const std::string &encoded, std::string_view alphabet) {
            return encoded.find_first_not_of(alphabet) == std::string::npos;
        };
        const std::string base64 = applied("base64-encode", text);
        RC_ASSERT(base64.size() == (text.size() + 2) / 3 * 4);
        const std::string hexadecimal = applied("hex-encode", text);
        RC_ASSERT(hexadecimal.size() == text.size() * 2);
        RC_ASSERT(isOf(hexadecimal, "0123456789abcdef"));
        RC_ASSERT(isOf(applied("url-encode", text), "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                                    "%-._~!$&'()*+,;=:@/?"));
    });
}

TEST(Laws, SortingIsAPermutationInOrderThatKeepsEqualOnes) {
    for (const bool isAscending : {true, false}) {
        checkProperty(casesPerLaw, [&] {
            const std::string text = (*texts()).text();
            const std::vector<std::string> before = linesOf(text);
            const std::vector<std::string> after =
                linesOf(applied(isAscending ? "sort-lines" : "sort-lines-reverse", text));
            RC_ASSERT(sorted(before) == sorted(after));
            std::map<std::u32string, std::vector<std::string>> equalBefore;
            std::map<std::u32string, std::vector<std::string>> equalAfter;
            for (std::size_t index = 0; index < before.size(); ++index) {
                equalBefore[composed(before[index])].push_back(before[index]);
                equalAfter[composed(after[index])].push_back(after[index]);
            }
            RC_ASSERT(equalBefore == equalAfter);
            for (std::size_t index = 1; index < after.size(); ++index) {
                const std::u32string left = composed(after[index - 1]);
                const std::u32string right = composed(after[index]);
                RC_ASSERT((isAscending ? left <= right : left >= right));
            }
        });
    }
}

TEST(Laws, SortingByLengthIsAStablePermutationInOrder) {
    checkProperty(casesPerLaw / 3, [] {
        const std::string text = (*texts()).text();
        const auto byLength = [](const std::vector<std::string> &lines) {
            std::map<std::size_t, std::vector<std::string>> result;
            for (const std::string &line : lines) {
                result[reference::length(reference::codePoints(line))].push_back(line);
            }
            return result;
        };
        const std::map<std::size_t, std::vector<std::string>> groups = byLength(linesOf(text));
        std::vector<std::string> expected;
        for (const auto &[length, lines] : groups) {
            expected.insert(expected.end(), lines.begin(), lines.end());
        }
        RC_ASSERT(linesOf(applied("sort-lines-length", text)) == expected);
    });
}

TEST(Laws, SortingWordsIsAPermutationOfThem) {
    checkProperty(casesPerLaw, [] {
        const std::string text = (*texts()).text();
        RC_ASSERT(sorted(wordsOf(applied("sort-words", text))) == sorted(wordsOf(text)));
    });
}

TEST(Laws, DoneTwiceIsDoneOnce) {
    for (const char *const id :
         {"sort-lines", "sort-lines-reverse", "sort-lines-length", "sort-words", "remove-duplicates",
          "remove-duplicate-words", "trim-lines", "remove-empty-lines", "remove-whitespace", "remove-all-spaces",
          "remove-tabs", "break-after-word", "uppercase", "lowercase", "snakecase", "kebabcase"}) {
        SCOPED_TRACE(id);
        expectSame([&](const std::string &text) {
            const std::string once = applied(id, text);
            return Two(applied(id, once), once);
        });
    }
}

TEST(Laws, TwoNamesOfOneOperationAreTheSame) {
    expectSame([](const std::string &text) {
        return Two(applied("remove-special-chars", text), applied("delete-non-alphanumeric", text));
    });
    expectSame([](const std::string &text) {
        return Two(applied("replace-text", applied("snakecase", text), {{"find", "_"}, {"replace", "-"}}),
                   applied("replace-text", applied("kebabcase", text), {{"find", "_"}, {"replace", "-"}}));
    });
    expectSame([](const std::string &text) {
        return Two(applied("remove-line-breaks", text),
                   applied("replace-text", applied("trim-lines", text), {{"find", "\n"}, {"replace", " "}}));
    });
}

TEST(Laws, ReversingTwiceGivesTheTextBack) {
    expectSame([](const std::string &text) {
        return Two(applied("reverse-lines", applied("reverse-lines", text)), normalised(text));
    });
    expectSame([](const std::string &text) {
        const std::string once = applied("reverse-words-in-line", text);
        return Two(applied("reverse-words-in-line", applied("reverse-words-in-line", once)), once);
    });
    // Elsewhere a mark that comes to stand behind another character joins it, and parts of CR LF meet.
    expectSame([](const std::string &text) {
        return Two(applied("reverse", applied("reverse", asciiOf(text))), asciiOf(text));
    });
    expectSame([](const std::string &text) {
        return Two(applied("invertcase", applied("invertcase", asciiOf(text))), asciiOf(text));
    });
}

TEST(Laws, WhatIsKeptAndWhatIsDeletedMakeTheWhole) {
    checkProperty(casesPerLaw, [] {
        const std::string text = (*texts()).text() + std::string(20, '\n'); // more lines than are counted
        const ParameterMap count = {{"count", std::to_string(*rc::gen::inRange(1, 20))}};
        const auto whole = [&](const char *first, const char *second) {
            return applied(first, text, count) + "\n" + applied(second, text, count);
        };
        RC_ASSERT(whole("keep-first-n-lines", "delete-first-n-lines") == normalised(text));
        RC_ASSERT(whole("delete-last-n-lines", "keep-last-n-lines") == normalised(text));
    });
}

TEST(Laws, ARangeIsWhatIsLeftOfBothEnds) {
    checkProperty(casesPerLaw, [] {
        const std::string text = (*texts()).text();
        const int start = *rc::gen::inRange(1, 10);
        const int end = start + *rc::gen::inRange(0, 10);
        const std::string range =
            applied("extract-lines-range", text, {{"start", std::to_string(start)}, {"end", std::to_string(end)}});
        const std::string cut = applied("keep-first-n-lines", text, {{"count", std::to_string(end)}});
        const std::string left =
            start == 1 ? cut : applied("delete-first-n-lines", cut, {{"count", std::to_string(start - 1)}});
        RC_ASSERT(range == left);
    });
}

TEST(Laws, KeepingAndDeletingLinesSplitsThem) {
    for (const std::string test : {"containing", "starting"}) {
        checkProperty(casesPerLaw, [&] {
            const TransformationCase given = *casesFor("keep-lines-" + test);
            const auto value = given.parameters.find("text");
            RC_PRE((value != given.parameters.end() && !value->second.empty())); // inner brackets: && must stop early
            const std::string &sought = value->second;
            RC_PRE(linesOf(sought).size() == 1U);
            // A line of each kind, since no line and one empty line look the same.
            const std::string text = sought + "\n\n" + given.text();
            const std::vector<std::string> kept = linesOf(applied("keep-lines-" + test, text, given.parameters));
            const std::vector<std::string> left = linesOf(applied("delete-lines-" + test, text, given.parameters));
            const auto matches = [&](const std::string &line) {
                return test == "starting" ? line.starts_with(sought) : line.find(sought) != std::string::npos;
            };
            RC_ASSERT(std::all_of(kept.begin(), kept.end(), matches));
            RC_ASSERT(std::none_of(left.begin(), left.end(), matches));
            std::vector<std::string> both = kept;
            both.insert(both.end(), left.begin(), left.end());
            RC_ASSERT(sorted(both) == sorted(linesOf(text)));
        });
    }
}

TEST(Laws, APrefixedLineStartsWithThePrefix) {
    expectSame([](const std::string &text) {
        const std::string prefixed = applied("add-prefix", text, {{"prefix", "> "}});
        return Two(applied("keep-lines-starting", prefixed, {{"text", "> "}}), prefixed);
    });
}

TEST(Laws, NumberedLinesAreTheLines) {
    checkProperty(casesPerLaw, [] {
        const std::string text = (*texts()).text();
        std::vector<std::string> expected;
        for (const std::string &line : linesOf(text)) {
            expected.push_back(std::to_string(expected.size() + 1) + ". " + line);
        }
        RC_ASSERT(linesOf(applied("number-lines", text)) == expected);
    });
}

TEST(Laws, ReplacingByItselfChangesNothing) {
    checkProperty(casesPerLaw, [] {
        const TransformationCase given = *casesFor("replace-text");
        const auto find = given.parameters.find("find");
        RC_PRE(find != given.parameters.end());
        const std::string text = given.text();
        RC_ASSERT(applied("replace-text", text, {{"find", find->second}, {"replace", find->second}}) == text);
    });
}

TEST(Laws, WrappedAsciiLinesFitOrAreOneWord) {
    checkProperty(casesPerLaw, [] {
        std::string text = asciiOf((*texts()).text());
        std::erase_if(text, [](char byte) { return byte >= '\n' && byte <= '\r'; });
        const std::size_t width = *rc::gen::inRange<std::size_t>(1, 40);
        for (const std::string &line : linesOf(applied("wrap-lines", text, {{"width", std::to_string(width)}}))) {
            const bool isOneWord = line.find(' ') == std::string::npos;
            RC_ASSERT((line.size() <= width || isOneWord));
        }
    });
}

TEST(Laws, TheSameInputGivesTheSameOutput) {
    for (const TransformationPointer &transformation : makeCatalog()) {
        EXPECT_EQ(transformation->isRandom(), transformation->id() == "shuffle-lines");
        if (transformation->isRandom()) {
            continue;
        }
        checkProperty(100, [&] {
            const TransformationCase given = *casesFor(transformation->id());
            ParameterMap more = given.parameters;
            more["a key that nothing reads"] = "7";
            const std::string text = given.text();
            const reference::Outcome first = engineOutcome(*transformation, text, given.parameters);
            RC_ASSERT(engineOutcome(*transformation, text, given.parameters, 3) == first);
            RC_ASSERT(engineOutcome(*transformation, text, more, 1) == first);
        });
    }
}

TEST(Shuffle, IsAPermutationOfTheLines) {
    checkProperty(casesPerLaw, [] {
        const std::string text = (*texts()).text();
        RC_ASSERT(sorted(linesOf(applied("shuffle-lines", text))) == sorted(linesOf(text)));
    });
}

TEST(Shuffle, GivesAnotherOrderOnEachRun) {
    std::string text;
    for (int line = 0; line < 60; ++line) {
        text += std::to_string(line) + "\n";
    }
    EXPECT_NE(applied("shuffle-lines", text), applied("shuffle-lines", text));
}

TEST(Shuffle, GivesEveryOrderEquallyOften) {
    constexpr int runs = 60'000;
    std::map<std::string, int> counts;
    for (int run = 0; run < runs; ++run) {
        ++counts[applied("shuffle-lines", "a\nb\nc\nd")];
    }
    ASSERT_EQ(counts.size(), 24U);
    double chiSquared = 0;
    for (const auto &[order, count] : counts) {
        const double expected = runs / 24.0;
        chiSquared += (count - expected) * (count - expected) / expected;
    }
    EXPECT_LT(chiSquared, 90.0); // 23 degrees of freedom: a fair shuffle is above this once in 10^9 runs
}

} // namespace

} // namespace lexivore::test
