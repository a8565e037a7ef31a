// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/applied_operation.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

/// The group under which a recipe is listed, in declaration order.
enum class RecipeCategory { user, coding, writing, dataProcessing, formatting };

inline constexpr std::array allRecipeCategories = {
    RecipeCategory::user,           RecipeCategory::coding,     RecipeCategory::writing,
    RecipeCategory::dataProcessing, RecipeCategory::formatting,
};

/// The category's text as it is shown and stored, for example "My Recipes".
[[nodiscard]] std::string_view rawValue(RecipeCategory category);
/// The category with exactly this text, or nothing.
[[nodiscard]] std::optional<RecipeCategory> recipeCategory(std::string_view rawValue);

/// A named copy of an operations stack.
struct Recipe {
    QUuid id = QUuid::createUuid();
    std::string name = {};
    std::vector<AppliedOperation> operations = {};
    Timestamp createdAt = Timestamp::now();
    RecipeCategory category = RecipeCategory::user;

    /// Built-in recipes are those of every category but the user's own.
    [[nodiscard]] bool isTemplate() const { return category != RecipeCategory::user; }
};

/// True when all fields are equal, those of the operations included.
[[nodiscard]] bool haveSameFields(const Recipe &left, const Recipe &right);
[[nodiscard]] bool haveSameFields(const std::vector<Recipe> &left, const std::vector<Recipe> &right);

/// The thirteen built-in recipes, with fresh ids and times at each call.
[[nodiscard]] std::vector<Recipe> makeRecipeTemplates();

} // namespace lexivore
