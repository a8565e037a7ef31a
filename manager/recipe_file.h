// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/recipe.h"

#include <QCoreApplication>
#include <QString>

#include <optional>
#include <vector>

namespace lexivore {

/// Recipes in a file of their own, to be kept or handed on: the JSON of RecipeJson.
class RecipeFile {
    Q_DECLARE_TR_FUNCTIONS(RecipeFile)

public:
    /// Replaces the file as a whole. False when it cannot, with the file as it was and the reason, for the user, in
    /// `problem`.
    [[nodiscard]] static bool write(const QString &path, const std::vector<Recipe> &recipes, QString &problem);

    /// The recipes as they stand in the file, or nothing and the reason, for the user, in `problem`.
    [[nodiscard]] static std::optional<std::vector<Recipe>> read(const QString &path, QString &problem);
};

} // namespace lexivore
