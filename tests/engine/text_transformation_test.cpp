// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/text_transformation.h"

#include <gtest/gtest.h>

#include <iterator>

namespace lexivore {

namespace {

using enum TransformationCategory;

TEST(TransformationError, DescribesItselfWithAFixedPrefix) {
    EXPECT_EQ(TransformationError::invalidInput("Count must be a positive number").description(),
              "Invalid input: Count must be a positive number");
    EXPECT_EQ(TransformationError::operationFailed("Cannot encode URL").description(),
              "Operation failed: Cannot encode URL");
    EXPECT_EQ(TransformationError::missingParameter("prefix").description(), "Missing parameter: prefix");
}

TEST(TransformationError, CarriesItsCaseAndMessage) {
    const TransformationError invalid = TransformationError::invalidInput("a");
    EXPECT_EQ(invalid.kind(), TransformationError::Case::invalidInput);
    EXPECT_EQ(invalid.message(), "a");
    const TransformationError failed = TransformationError::operationFailed("b");
    EXPECT_EQ(failed.kind(), TransformationError::Case::operationFailed);
    EXPECT_EQ(failed.message(), "b");
    const TransformationError missing = TransformationError::missingParameter("c");
    EXPECT_EQ(missing.kind(), TransformationError::Case::missingParameter);
    EXPECT_EQ(missing.message(), "c");
}

TEST(TransformationError, KeepsThePrefixOfAnEmptyMessage) {
    EXPECT_EQ(TransformationError::invalidInput("").description(), "Invalid input: ");
}

TEST(TransformationError, IsAStandardExceptionWithTheSameText) {
    try {
        throw TransformationError::invalidInput("é");
    } catch (const std::exception &error) {
        EXPECT_STREQ(error.what(), "Invalid input: é");
    }
}

struct CategoryRow {
    TransformationCategory category;
    const char *rawValue;
    const char *icon;
};

const CategoryRow categoryRows[] = {
    {favorites, "Favorites", "star.fill"},
    {caseConversion, "Case Conversion", "textformat.size"},
    {addRemove, "Add & Remove", "plus.slash.minus"},
    {lines, "Lines", "text.justify"},
    {sorting, "Sorting", "arrow.up.arrow.down.square"},
    {findReplace, "Find & Replace", "arrow.triangle.2.circlepath"},
    {encoding, "Encoding", "chevron.left.forwardslash.chevron.right"},
};

TEST(TransformationCategory, IsIteratedInDeclarationOrderWithFavoritesFirst) {
    ASSERT_EQ(allTransformationCategories.size(), std::size(categoryRows));
    for (std::size_t i = 0; i < allTransformationCategories.size(); ++i) {
        EXPECT_EQ(allTransformationCategories[i], categoryRows[i].category);
        EXPECT_EQ(static_cast<std::size_t>(allTransformationCategories[i]), i);
    }
}

TEST(TransformationCategory, HasADisplayTextAndAnIcon) {
    for (const CategoryRow &row : categoryRows) {
        EXPECT_EQ(rawValue(row.category), row.rawValue);
        EXPECT_EQ(icon(row.category), row.icon);
    }
}

TEST(TransformationCategory, IsFoundByItsExactDisplayText) {
    for (const CategoryRow &row : categoryRows) {
        EXPECT_EQ(transformationCategory(row.rawValue), row.category);
    }
    for (const char *const text : {"", "add & remove", "ADD & REMOVE", "Add &amp; Remove", "Add & Remove ",
                                   " Add & Remove", "addRemove", "Line", "Linesx", "Favourites"}) {
        EXPECT_EQ(transformationCategory(text), std::nullopt) << text;
    }
    EXPECT_EQ(transformationCategory(std::string_view("Lines\0", 6)), std::nullopt);
}

struct Echo final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &) const override {
        return TextBuffer(text);
    }
};

TEST(TextTransformation, KeepsItsFiveFields) {
    const Echo echo("echo", "Echo", "Give the text back", sorting, "waveform");
    EXPECT_EQ(echo.id(), "echo");
    EXPECT_EQ(echo.name(), "Echo");
    EXPECT_EQ(echo.description(), "Give the text back");
    EXPECT_EQ(echo.category(), sorting);
    EXPECT_EQ(echo.icon(), "waveform");
}

TEST(TextTransformation, AsksForNothingUnlessItSaysSo) {
    EXPECT_TRUE(Echo("echo", "", "", sorting, "").parameters().empty());
}

TEST(StringParameter, IsEqualWhenAllFieldsAre) {
    const StringParameter parameter{"prefix", "Prefix", "> ", "Enter prefix text..."};
    EXPECT_EQ(parameter, (StringParameter{"prefix", "Prefix", "> ", "Enter prefix text..."}));
    EXPECT_NE(parameter, (StringParameter{"suffix", "Prefix", "> ", "Enter prefix text..."}));
    EXPECT_NE(parameter, (StringParameter{"prefix", "Suffix", "> ", "Enter prefix text..."}));
    EXPECT_NE(parameter, (StringParameter{"prefix", "Prefix", "", "Enter prefix text..."}));
    EXPECT_NE(parameter, (StringParameter{"prefix", "Prefix", "> ", ""}));
}

TEST(TransformationWrapper, HoldsATransformationUnderItsId) {
    const auto echo = std::make_shared<const Echo>("echo", "Echo", "", sorting, "");
    const TransformationWrapper wrapper(echo);
    EXPECT_EQ(wrapper.id, "echo");
    EXPECT_EQ(wrapper.transformation, echo);
}

TEST(TransformationWrapper, IsComparedByItsId) {
    const TransformationWrapper one(std::make_shared<const Echo>("echo", "Echo", "", sorting, ""));
    const TransformationWrapper same(std::make_shared<const Echo>("echo", "Other", "", lines, ""));
    const TransformationWrapper other(std::make_shared<const Echo>("other", "Echo", "", sorting, ""));
    EXPECT_EQ(one, same);
    EXPECT_NE(one, other);
}

} // namespace

} // namespace lexivore
