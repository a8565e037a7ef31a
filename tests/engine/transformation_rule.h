// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/catalog.h"
#include "tests/engine/outcome.h"
#include "tests/support/placed_bytes.h"

#include <gtest/gtest.h>

#include <cctype>
#include <iterator>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

// The tables of rules that the tests of the transformations are made of:
//
//     const Case wrapLines[] = {
//         {"breaks before the word that does not fit", "the quick fox", {{"width", "10"}}, "the quick\nfox"},
//         {"needs a width", "a", {}, fails("Invalid input: Width must be a positive number")},
//     };
//     INSTANTIATE_TEST_SUITE_P(WrapLines, TransformationRule, rulesOf("wrap-lines", wrapLines), ruleAsName);
namespace lexivore::test {

/// One row of a table. The label is the rule that it proves.
struct Case {
    std::string rule;
    std::string text;
    ParameterMap parameters;
    Outcome result;
};

struct Rule {
    std::string transformation;
    Case row;
};

inline void PrintTo(const Rule &rule, std::ostream *out) { *out << rule.transformation << ": " << rule.row.rule; }

/// The transformations that have a table in this program.
inline std::set<std::string> &transformationsWithRules() {
    static std::set<std::string> ids;
    return ids;
}

/// The cases of a table, or of anything else that can be walked, for the transformation with this id.
template<typename Cases> [[nodiscard]] auto rulesOf(const std::string &id, const Cases &cases) {
    transformationsWithRules().insert(id);
    std::vector<Rule> rules;
    rules.reserve(std::size(cases));
    for (const Case &row : cases) {
        rules.push_back({id, row});
    }
    return testing::ValuesIn(rules);
}

/// "never breaks a long word" as never_breaks_a_long_word.
inline std::string ruleAsName(const testing::TestParamInfo<Rule> &info) {
    std::string name;
    for (const char c : info.param.row.rule) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
            name += c;
        } else if (!name.empty() && name.back() != '_') {
            name += '_';
        }
    }
    return name;
}

/// The rules of a parameter that is a whole number of at least 1: what is no such number fails with `description`.
inline std::vector<Case> badNumbers(const std::string &key, const std::string &description) {
    const std::pair<const char *, const char *> values[] = {
        {"an empty number is none", ""},
        {"zero is too small", "0"},
        {"minus zero is too small", "-0"},
        {"a negative number is too small", "-5"},
        {"the smallest number is too small", "-9223372036854775808"},
        {"a word is no number", "abc"},
        {"a space before a number is an error", " 5"},
        {"a space behind a number is an error", "5 "},
        {"a line break behind a number is an error", "5\n"},
        {"a letter behind a number is an error", "5x"},
        {"a fraction is no whole number", "1.5"},
        {"an exponent is no whole number", "1e3"},
        {"a base other than ten is an error", "0x10"},
        {"groups of digits are an error", "1,000"},
        {"a lone plus is no number", "+"},
        {"a lone minus is no number", "-"},
        {"two signs are an error", "+-5"},
        {"two pluses are an error", "++5"},
        {"digits of other scripts are no digits", "５"},
        {"a number beyond 64 bits is an error", "9223372036854775808"},
        {"a number far beyond 64 bits is an error", "100000000000000000000000000000000000000"},
    };
    std::vector<Case> cases = {{"an absent number is an error", "a\nb", {}, fails(description)},
                               {"a key is matched exactly", "a\nb", {{key + " ", "1"}}, fails(description)},
                               {"NUL behind a number is an error", "a\nb", {{key, {"5\0", 2}}}, fails(description)}};
    for (const auto &[rule, value] : values) {
        cases.push_back({rule, "a\nb", {{key, value}}, fails(description)});
    }
    return cases;
}

class TransformationRule : public testing::TestWithParam<Rule> {};

TEST_P(TransformationRule, Holds) {
    const auto &[id, row] = GetParam();
    const TransformationPointer transformation = findTransformation(makeCatalog(), id);
    ASSERT_NE(transformation, nullptr);
    EXPECT_EQ(outcomeOf(*transformation, PlacedBytes(row.text).view(), row.parameters), row.result)
        << "the text was " << testing::PrintToString(row.text);
}

TEST(TransformationRules, EveryTransformationOfTheFamilyHasSome) {
    const Catalog catalog = makeCatalog();
    std::set<TransformationCategory> families;
    for (const std::string &id : transformationsWithRules()) {
        const TransformationPointer transformation = findTransformation(catalog, id);
        ASSERT_NE(transformation, nullptr) << id;
        families.insert(transformation->category());
    }
    ASSERT_EQ(families.size(), 1U);
    for (const TransformationPointer &transformation : catalog) {
        if (families.contains(transformation->category())) {
            EXPECT_TRUE(transformationsWithRules().contains(transformation->id())) << transformation->id();
        }
    }
}

} // namespace lexivore::test
