// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/parameters.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace lexivore {

namespace {

template<typename Call> std::string descriptionOf(Call &&call) {
    try {
        static_cast<void>(call());
    } catch (const TransformationError &error) {
        return error.description();
    }
    return "no error";
}

const ParameterMap given = {{"prefix", "> "}, {"empty", ""}, {"nul", std::string("a\0b", 3)}};

TEST(RequiredValue, IsTheTextOfTheKey) {
    EXPECT_EQ(requiredValue(given, "prefix"), "> ");
    EXPECT_EQ(requiredValue(given, "nul"), std::string_view("a\0b", 3));
}

TEST(RequiredValue, MayBeEmpty) { EXPECT_EQ(requiredValue(given, "empty"), ""); }

TEST(RequiredValue, NamesTheKeyThatIsMissing) {
    EXPECT_EQ(descriptionOf([] { return requiredValue(given, "suffix"); }), "Missing parameter: suffix");
    EXPECT_EQ(descriptionOf([] { return requiredValue({}, "prefix"); }), "Missing parameter: prefix");
}

TEST(RequiredValue, MatchesKeysExactly) {
    for (const char *const key : {"Prefix", "prefix ", "pre", ""}) {
        EXPECT_EQ(descriptionOf([key] { return requiredValue(given, key); }), std::string("Missing parameter: ") + key);
    }
}

TEST(RequiredNonEmptyValue, IsTheTextOfTheKey) { EXPECT_EQ(requiredNonEmptyValue(given, "prefix"), "> "); }

TEST(RequiredNonEmptyValue, CountsAnEmptyTextAsMissing) {
    EXPECT_EQ(descriptionOf([] { return requiredNonEmptyValue(given, "empty"); }), "Missing parameter: empty");
    EXPECT_EQ(descriptionOf([] { return requiredNonEmptyValue(given, "text"); }), "Missing parameter: text");
}

TEST(ValueOrEmpty, NeverFails) {
    EXPECT_EQ(valueOrEmpty(given, "prefix"), "> ");
    EXPECT_EQ(valueOrEmpty(given, "empty"), "");
    EXPECT_EQ(valueOrEmpty(given, "absent"), "");
}

std::optional<std::int64_t> numberFrom(std::string text) { return wholeNumber({{"count", std::move(text)}}, "count"); }

TEST(WholeNumber, ReadsDigitsWithOneOptionalSign) {
    EXPECT_EQ(numberFrom("0"), 0);
    EXPECT_EQ(numberFrom("7"), 7);
    EXPECT_EQ(numberFrom("+7"), 7);
    EXPECT_EQ(numberFrom("-7"), -7);
    EXPECT_EQ(numberFrom("-0"), 0);
    EXPECT_EQ(numberFrom("1234567890"), 1234567890);
}

TEST(WholeNumber, IsBaseTenWithAnyNumberOfLeadingZeros) {
    EXPECT_EQ(numberFrom("010"), 10);
    EXPECT_EQ(numberFrom("-0010"), -10);
    EXPECT_EQ(numberFrom(std::string(1000, '0') + "9"), 9);
}

TEST(WholeNumber, FitsInSixtyFourBitsWithASign) {
    EXPECT_EQ(numberFrom("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(numberFrom("+9223372036854775807"), INT64_MAX);
    EXPECT_EQ(numberFrom("-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(numberFrom("9223372036854775808"), std::nullopt);
    EXPECT_EQ(numberFrom("-9223372036854775809"), std::nullopt);
    EXPECT_EQ(numberFrom("18446744073709551617"), std::nullopt); // 2^64 + 1 does not become 1
    EXPECT_EQ(numberFrom(std::string(1000, '9')), std::nullopt);
}

TEST(WholeNumber, IsNothingWhenAbsent) { EXPECT_EQ(wholeNumber({}, "count"), std::nullopt); }

TEST(WholeNumber, IsNothingForAnyOtherText) {
    for (const char *const text :
         {"",        "+",   "-",   "++1", "--1", "+-1", "-+1", "1-",    " 1",    "1 ",      "\t1",
          "1\n",     "1\r", "- 1", "1.0", "1,0", "1e3", "0x1", "1_000", "1'000", "\u00A01", "\uFEFF1",
          "\u22121", "１",  "٣",   "½",   "²",   "Ⅷ",   "one", "inf",   "nan",   "1\u0301", "1a"}) {
        EXPECT_EQ(numberFrom(text), std::nullopt) << testing::PrintToString(text);
    }
    EXPECT_EQ(numberFrom(std::string("1\0", 2)), std::nullopt);
    EXPECT_EQ(numberFrom(std::string("\0001", 2)), std::nullopt);
}

TEST(WholeNumberAtLeast, TakesTheLeastNumber) {
    EXPECT_EQ(wholeNumberAtLeast({{"count", "1"}}, "count", 1, "no"), 1);
    EXPECT_EQ(wholeNumberAtLeast({{"count", "5"}}, "count", 5, "no"), 5);
    EXPECT_EQ(wholeNumberAtLeast({{"count", "-3"}}, "count", -3, "no"), -3);
}

TEST(WholeNumberAtLeast, FailsWithTheMessageGiven) {
    const auto describe = [](const ParameterMap &parameters, std::int64_t least) {
        return descriptionOf([&] { return wholeNumberAtLeast(parameters, "count", least, "Say so"); });
    };
    EXPECT_EQ(describe({{"count", "0"}}, 1), "Invalid input: Say so");
    EXPECT_EQ(describe({{"count", "4"}}, 5), "Invalid input: Say so");
    EXPECT_EQ(describe({{"count", "x"}}, 1), "Invalid input: Say so");
    EXPECT_EQ(describe({{"count", ""}}, 1), "Invalid input: Say so");
    EXPECT_EQ(describe({}, 1), "Invalid input: Say so");
    EXPECT_EQ(describe({{"count", "9223372036854775808"}}, 1), "Invalid input: Say so");
}

} // namespace

} // namespace lexivore
