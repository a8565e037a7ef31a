// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/text_transformation.h"

#include <utility>

namespace lexivore {

namespace {

struct CategoryRow {
    TransformationCategory category;
    std::string_view rawValue;
    std::string_view icon;
};

constexpr CategoryRow categoryRows[] = {
    {TransformationCategory::favorites, "Favorites", "star.fill"},
    {TransformationCategory::caseConversion, "Case Conversion", "textformat.size"},
    {TransformationCategory::addRemove, "Add & Remove", "plus.slash.minus"},
    {TransformationCategory::lines, "Lines", "text.justify"},
    {TransformationCategory::sorting, "Sorting", "arrow.up.arrow.down.square"},
    {TransformationCategory::findReplace, "Find & Replace", "arrow.triangle.2.circlepath"},
    {TransformationCategory::encoding, "Encoding", "chevron.left.forwardslash.chevron.right"},
};

const CategoryRow &rowOf(TransformationCategory category) { return categoryRows[static_cast<std::size_t>(category)]; }

} // namespace

std::string_view rawValue(TransformationCategory category) { return rowOf(category).rawValue; }

std::optional<TransformationCategory> transformationCategory(std::string_view rawValue) {
    for (const CategoryRow &row : categoryRows) {
        if (row.rawValue == rawValue) {
            return row.category;
        }
    }
    return std::nullopt;
}

std::string_view icon(TransformationCategory category) { return rowOf(category).icon; }

TransformationError::TransformationError(Case kind, std::string_view prefix, std::string message)
    : m_kind(kind), m_message(std::move(message)), m_description(std::string(prefix) + m_message) {}

TransformationError TransformationError::invalidInput(std::string message) {
    return {Case::invalidInput, "Invalid input: ", std::move(message)};
}

TransformationError TransformationError::operationFailed(std::string message) {
    return {Case::operationFailed, "Operation failed: ", std::move(message)};
}

TransformationError TransformationError::missingParameter(std::string parameter) {
    return {Case::missingParameter, "Missing parameter: ", std::move(parameter)};
}

TextTransformation::TextTransformation(std::string id, std::string name, std::string description,
                                       TransformationCategory category, std::string icon)
    : m_id(std::move(id)), m_name(std::move(name)), m_description(std::move(description)), m_category(category),
      m_icon(std::move(icon)) {}

} // namespace lexivore
