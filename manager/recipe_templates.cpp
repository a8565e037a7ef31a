// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe.h"

#include <initializer_list>
#include <utility>

namespace lexivore {

namespace {

struct Step {
    const char *transformation;
    const char *name;
    std::initializer_list<std::pair<const char *, const char *>> parameters = {};
};

constexpr Step trimLines = {"trim-lines", "Trim Lines"};
constexpr Step removeEmptyLines = {"remove-empty-lines", "Remove Empty Lines"};

Recipe recipe(const char *name, RecipeCategory category, std::initializer_list<Step> steps) {
    Recipe made;
    made.name = name;
    made.category = category;
    for (const Step &step : steps) {
        AppliedOperation &operation = made.operations.emplace_back();
        operation.transformation = step.transformation;
        operation.transformationName = step.name;
        for (const auto &[key, value] : step.parameters) {
            operation.parameters.emplace(key, value);
        }
    }
    return made;
}

} // namespace

std::vector<Recipe> makeRecipeTemplates() {
    using enum RecipeCategory;
    // clang-format off
    return {
        recipe("Clean Code Comments", coding, {
            {"delete-lines-starting", "Delete Lines Starting With...", {{"text", "//"}}},
            {"delete-lines-starting", "Delete Lines Starting With...", {{"text", "#"}}},
            removeEmptyLines}),
        recipe("JSON Keys to Array", coding, {
            {"delete-lines-containing", "Delete Lines Containing...", {{"text", "{"}}},
            {"delete-lines-containing", "Delete Lines Containing...", {{"text", "}"}}},
            {"replace-text", "Replace Text", {{"find", "\":"}, {"replace", ""}}},
            {"replace-text", "Replace Text", {{"find", ","}, {"replace", ""}}},
            trimLines,
            removeEmptyLines}),
        recipe("Create Enum Cases", coding, {
            trimLines,
            removeEmptyLines,
            {"camelcase", "camelCase"},
            {"add-prefix", "Add Prefix", {{"prefix", "case "}}}}),
        recipe("Format SQL List", dataProcessing, {
            trimLines,
            {"add-prefix", "Add Prefix", {{"prefix", "'"}}},
            {"add-suffix", "Add Suffix", {{"suffix", "',"}}}}),
        recipe("Extract Unique Lines", dataProcessing, {
            trimLines,
            removeEmptyLines,
            {"remove-duplicates", "Remove Duplicate Lines"},
            {"sort-lines", "Sort Lines Alphabetically"}}),
        recipe("Quote & Comma Lines", dataProcessing, {
            trimLines,
            removeEmptyLines,
            {"add-prefix", "Add Prefix", {{"prefix", "\""}}},
            {"add-suffix", "Add Suffix", {{"suffix", "\","}}}}),
        recipe("CSV to JSON Array", dataProcessing, {
            trimLines,
            removeEmptyLines,
            {"add-prefix", "Add Prefix", {{"prefix", "  \""}}},
            {"replace-text", "Replace Text", {{"find", ","}, {"replace", "\", \""}}},
            {"add-suffix", "Add Suffix", {{"suffix", "\""}}}}),
        recipe("Create Bullet List", writing, {
            trimLines,
            removeEmptyLines,
            {"add-prefix", "Add Prefix", {{"prefix", "\u2022 "}}}}),
        recipe("Create Numbered List", writing, {
            trimLines,
            removeEmptyLines,
            {"number-lines", "Number Lines"}}),
        recipe("Title Case Headings", writing, {
            {"titlecase", "Title Case"},
            trimLines}),
        recipe("Normalize Text", formatting, {
            {"remove-whitespace", "Remove Extra Whitespace"},
            trimLines,
            removeEmptyLines}),
        recipe("Clean Whitespace", formatting, {
            {"remove-tabs", "Remove Tabs"},
            {"remove-whitespace", "Remove Extra Whitespace"},
            trimLines}),
        recipe("Unix Line Endings", formatting, {
            {"replace-text", "Replace Text", {{"find", "\r\n"}, {"replace", "\n"}}},
            {"replace-text", "Replace Text", {{"find", "\r"}, {"replace", "\n"}}}}),
    };
    // clang-format on
}

} // namespace lexivore
