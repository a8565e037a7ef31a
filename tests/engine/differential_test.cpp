// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/catalog.h"
#include "tests/support/engine_outcome.h"
#include "tests/support/escaped.h"
#include "tests/support/text_pool.h"
#include "tests/support/transformation_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

// Every transformation against the reference, on generated texts and parameters.
namespace lexivore::test {

namespace {

using reference::Outcome;

constexpr int casesPerTransformation = 3000;

const Catalog &catalog() {
    static const Catalog transformations = makeCatalog();
    return transformations;
}

/// How long and how deep a match may go is the engine's own choice. Such cases are left out.
bool reachesALimit(const Outcome &outcome) {
    return !outcome.succeeded &&
           (outcome.text.ends_with("U_REGEX_TIME_OUT") || outcome.text.ends_with("U_REGEX_STACK_OVERFLOW"));
}

/// The engine adds the place in the pattern to ICU's name of the error; the reference knows only the name.
bool isSameRegexError(const Outcome &expected, const Outcome &given) {
    const bool areErrors = !expected.succeeded && !given.succeeded;
    return areErrors && expected.text.find("Invalid regular expression: ") != std::string::npos &&
           given.text.starts_with(expected.text);
}

std::string shown(const Outcome &outcome) { return (outcome.succeeded ? "" : "error ") + escaped(outcome.text); }

class Differential : public testing::TestWithParam<std::string> {};

TEST_P(Differential, GivesWhatTheReferenceGives) {
    const std::string id = GetParam();
    const TransformationPointer transformation = findTransformation(catalog(), id);
    ASSERT_TRUE(transformation);
    std::size_t offset = 0;
    checkProperty(casesPerTransformation, [&] {
        const TransformationCase given = *casesFor(id);
        const std::string text = given.text();
        const Outcome expected = reference::apply(id, text, given.parameters);
        RC_PRE(!reachesALimit(expected));
        offset = (offset + 1) % 64; // every alignment in turn
        const Outcome actual = engineOutcome(*transformation, text, given.parameters, offset);
        if (actual != expected && !isSameRegexError(expected, actual)) {
            RC_FAIL("expected " + shown(expected) + "\nbut got  " + shown(actual));
        }
    });
}

std::string nameOfCase(const testing::TestParamInfo<std::string> &info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Every, Differential, testing::ValuesIn(reference::transformationIds()), nameOfCase);

TEST(DifferentialCoverage, ComparesTheWholeCatalogButTheShuffle) {
    std::set<std::string> ids(reference::transformationIds().begin(), reference::transformationIds().end());
    ids.insert("shuffle-lines");
    std::set<std::string> inCatalog;
    for (const TransformationPointer &transformation : catalog()) {
        inCatalog.insert(transformation->id());
    }
    EXPECT_EQ(inCatalog, ids);
}

/// About `size` bytes of everything; without line breaks it is one line.
std::string largeText(Dice &dice, std::size_t size, bool hasLines) {
    std::string text;
    while (text.size() < size) {
        for (const std::string &piece : textPieces(dice, 100)) {
            text += piece;
        }
    }
    return hasLines ? text : reference::apply("join-lines", text, {{"separator", ""}}).text;
}

/// Values with which every transformation does some work.
const ParameterMap usualParameters = {
    {"prefix", "> "},    {"suffix", ";"}, {"width", "80"}, {"count", "3"},      {"start", "2"},
    {"end", "40"},       {"text", "the"}, {"find", "e"},   {"separator", ", "}, {"pattern", "(\\w)\\d+"},
    {"replace", "<$1>"},
};

TEST(DifferentialLarge, TextsOfManyBlocksGiveTheSame) {
    Dice dice(seedOfRunningTest());
    for (int made = 0; made < 8; ++made) {
        const std::string text = largeText(dice, 20'000, made % 2 == 0);
        for (const std::string &id : reference::transformationIds()) {
            const Outcome expected = reference::apply(id, text, usualParameters);
            const Outcome actual = engineOutcome(*findTransformation(catalog(), id), text, usualParameters);
            const auto place =
                std::mismatch(expected.text.begin(), expected.text.end(), actual.text.begin(), actual.text.end());
            EXPECT_EQ(actual.succeeded, expected.succeeded) << id;
            EXPECT_TRUE(actual == expected) << id << " first differs at byte " << place.first - expected.text.begin()
                                            << " of " << expected.text.size();
        }
    }
}

} // namespace

} // namespace lexivore::test
