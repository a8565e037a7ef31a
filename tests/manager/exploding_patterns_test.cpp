// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Regular expressions that explode: each ends soon, in a result or an error, and an error leaves everything as it was.
#include "manager/transformation_manager.h"
#include "tests/support/memory_preferences.h"

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

namespace lexivore {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr double longestSeconds = 30; // its bookkeeping costs a multiple
#else
constexpr double longestSeconds = 2;
#endif

std::string times(std::string_view text, std::size_t count) {
    std::string result;
    for (result.reserve(text.size() * count); count > 0; --count) {
        result += text;
    }
    return result;
}

struct Explosion {
    const char *name;
    std::function<std::string()> pattern;
    std::function<std::string()> text;
    const char *error; ///< How its description ends, if it does not simply match nothing; empty when it matches.
};

std::ostream &operator<<(std::ostream &out, const Explosion &explosion) { return out << explosion.name; }

std::function<std::string()> text(std::string_view unit, std::size_t count, std::string_view end = "") {
    return [=] { return times(unit, count) + std::string(end); };
}
std::function<std::string()> nested(std::string_view opening, std::size_t depth, std::string_view closing) {
    return [=] { return times(opening, depth) + "a" + times(closing, depth); };
}
std::function<std::string()> pattern(std::string_view whole) { return text(whole, 1); }

constexpr char timeOut[] = "U_REGEX_TIME_OUT";
constexpr char stack[] = "U_REGEX_STACK_OVERFLOW";
constexpr char tooDeep[] = "U_REGEX_INTERNAL_ERROR (line 1, offset 101)";
constexpr char tooDeepWithFlags[] = "U_REGEX_INTERNAL_ERROR (line 1, offset 300)";

const Explosion explosions[] = {
    {"RepeatedRepetition", pattern("(a+)+$"), text("a", 40, "b"), timeOut},
    {"OverlappingAlternatives", pattern("(a|aa)+$"), text("a", 60, "b"), timeOut},
    {"RepeatedClass", pattern("([a-zA-Z]+)*$"), text("a", 40, "1"), timeOut},
    {"NestedTwice", pattern("((a+)+)+$"), text("a", 40, "b"), timeOut},
    {"TwentyStars", pattern("(.*a){20}"), text("a", 200, "b"), timeOut},
    {"ThirtyOptional", [] { return times("a?", 30) + times("a", 30); }, text("a", 30), timeOut},
    {"BackReference", pattern("(?<n>a+)+\\k<n>$"), text("a", 40, "b"), timeOut},
    {"IntervalsOfIntervals", pattern("((a{1,100}){1,100}){1,100}$"), text("a", 100'000, "b"), timeOut},
    {"EverywhereToTheEnd", pattern(".*.*.*x"), text("a", 10'000'000), timeOut},
    {"LookAheadToTheEnd", pattern("a(?!.*b)(?=.*c)"), text("a", 10'000'000), timeOut},
    {"LookBehindFromEverywhere", pattern("(?<=b[^b]{0,3000})c"), text("c", 1'000'000), timeOut},
    {"NestedOverTenMegabytes", pattern("(a*)*b"), text("a", 10'000'000), stack},
    {"WordsOverTenMegabytes", pattern("^(\\w+\\s?)*$"), text("word and ", 1'200'000, "!"), stack},
    {"UnboundedLookBehind", pattern("(?<=a*)b"), text("a", 10), "U_REGEX_LOOK_BEHIND_LIMIT (line 1, offset 7)"},
    {"DeepGroups", nested("(", 100'000, ")"), text("a", 10), tooDeep},
    {"DeepRepeatedGroups", nested("(?:", 100'000, ")*"), text("a", 10), tooDeepWithFlags},
    {"DeepAtomicGroups", nested("(?>", 100'000, ")"), text("a", 10), tooDeepWithFlags},
    {"DeepSets", nested("[", 100'000, "]"), text("a", 10), "U_REGEX_INTERNAL_ERROR (line 1, offset 100)"},
    {"HugeRepetition", pattern("a{2147483647}"), text("a", 10), "U_REGEX_NUMBER_TOO_BIG (line 1, offset 13)"},
    {"TenThousandGroups", text("(a)", 10'000), text("a", 20'000), ""},
    {"ManyAlternatives", text("a|", 100'000, "b"), text("c", 100'000), ""},
    {"LongLiteral", text("(ab)", 250'000), text("ab", 250'000), ""},
};

class ExplodingPatterns : public testing::TestWithParam<Explosion> {
protected:
    test::MemoryPreferences preferences;
    TransformationManager manager{preferences};
};

TEST_P(ExplodingPatterns, EndSoonAndLoseNothing) {
    const std::string before = GetParam().text();
    manager.setCurrentText(Text(std::string_view(before)));
    const TransformationPointer replace = manager.findTransformation("replace-regex");
    std::string error;
    const std::clock_t begin = std::clock();
    try {
        manager.applyTransformation(*replace, {{"pattern", GetParam().pattern()}, {"replace", "x"}});
    } catch (const TransformationError &thrown) {
        error = thrown.description();
    }
    EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, longestSeconds);
    if (std::string_view(GetParam().error).empty()) {
        EXPECT_EQ(error, "");
        EXPECT_EQ(manager.appliedOperations().size(), 1U);
        return;
    }
    // To find out in time that nothing matches is as good as to give up.
    EXPECT_TRUE(manager.currentText().view() == before);
    EXPECT_EQ(manager.appliedOperations().size(), error.empty() ? 1U : 0U);
    if (!error.empty()) {
        EXPECT_EQ(error, std::string("Invalid input: Invalid regular expression: ") + GetParam().error);
    }
}

std::string nameOfExplosion(const testing::TestParamInfo<Explosion> &info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(All, ExplodingPatterns, testing::ValuesIn(explosions), nameOfExplosion);

/// A template or a replacement that makes the text a thousand times as long, and too long for a text.
class ThousandfoldGrowth : public testing::Test {
protected:
    void expectError(const char *id, const ParameterMap &parameters, const char *description) {
        const std::string before = times("a", 4'000'000);
        manager.setCurrentText(Text(std::string_view(before)));
        const std::clock_t begin = std::clock();
        try {
            manager.applyTransformation(*manager.findTransformation(id), parameters);
            ADD_FAILURE() << "no error";
        } catch (const TransformationError &error) {
            EXPECT_EQ(error.description(), description);
        }
        EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, longestSeconds);
        EXPECT_TRUE(manager.currentText().view() == before);
        EXPECT_TRUE(manager.appliedOperations().empty());
    }

    test::MemoryPreferences preferences;
    TransformationManager manager{preferences};
};

constexpr char tooLarge[] = "Operation failed: The result would be larger than 2 GB";

TEST_F(ThousandfoldGrowth, OfAPlainReplacementIsRefusedBeforeItIsWritten) {
    expectError("replace-text", {{"find", "a"}, {"replace", times("b", 1000)}}, tooLarge);
}

TEST_F(ThousandfoldGrowth, OfASimplePatternIsRefusedBeforeItIsWritten) {
    expectError("replace-regex", {{"pattern", "a"}, {"replace", times("$0", 1000)}}, tooLarge);
}

TEST_F(ThousandfoldGrowth, OfGroupsIsRefusedBeforeItIsWritten) {
    expectError("replace-regex", {{"pattern", "(.)"}, {"replace", times("$1", 1000)}}, tooLarge);
}

TEST_F(ThousandfoldGrowth, OfAnyPatternEndsWithTheTime) {
    expectError("replace-regex", {{"pattern", "(.)(?=.?)"}, {"replace", times("$1", 1000)}},
                "Invalid input: Invalid regular expression: U_REGEX_TIME_OUT");
}

TEST_F(ThousandfoldGrowth, IsNoErrorWhereTheResultFits) {
    manager.setCurrentText(Text(std::string_view("a-a")));
    manager.applyTransformation(*manager.findTransformation("replace-text"),
                                {{"find", "a"}, {"replace", times("b", 1'000'000)}});
    EXPECT_EQ(manager.currentText().size(), 2'000'001U);
}

} // namespace
} // namespace lexivore
