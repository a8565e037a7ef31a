// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/recipe.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonDocument>
#include <QString>

#include <optional>
#include <vector>

namespace lexivore {

/// Recipes as JSON: an array of objects whose keys are the field names of Recipe and AppliedOperation. Times are
/// numbers of seconds since 2001-01-01 00:00:00 UTC, UUIDs are written in upper case, the category is its display text.
class RecipeJson {
    Q_DECLARE_TR_FUNCTIONS(RecipeJson)

public:
    /// Nothing when a time is no finite number, for which JSON has no form.
    [[nodiscard]] static std::optional<QByteArray> encode(const std::vector<Recipe> &recipes,
                                                          QJsonDocument::JsonFormat format = QJsonDocument::Compact);

    /// The whole list, or nothing when any part of it is missing or has the wrong type; then `problem` is told what and
    /// where, in a sentence for the user. Keys may come in any order, unknown ones are passed over, and UUIDs may be in
    /// either case.
    [[nodiscard]] static std::optional<std::vector<Recipe>> decode(const QByteArray &json, QString *problem = nullptr);
};

} // namespace lexivore
