// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe.h"

#include <algorithm>

namespace lexivore {

std::string_view rawValue(RecipeCategory category) {
    switch (category) {
    case RecipeCategory::user:
        return "My Recipes";
    case RecipeCategory::coding:
        return "Coding";
    case RecipeCategory::writing:
        return "Writing";
    case RecipeCategory::dataProcessing:
        return "Data Processing";
    case RecipeCategory::formatting:
        return "Formatting";
    }
    return {};
}

std::optional<RecipeCategory> recipeCategory(std::string_view rawValue) {
    for (const RecipeCategory category : allRecipeCategories) {
        if (lexivore::rawValue(category) == rawValue) {
            return category;
        }
    }
    return std::nullopt;
}

bool haveSameFields(const Recipe &left, const Recipe &right) {
    return left.id == right.id && left.name == right.name && haveSameFields(left.operations, right.operations) &&
           left.createdAt == right.createdAt && left.category == right.category;
}

bool haveSameFields(const std::vector<Recipe> &left, const std::vector<Recipe> &right) {
    return std::ranges::equal(left, right,
                              [](const Recipe &one, const Recipe &other) { return haveSameFields(one, other); });
}

} // namespace lexivore
