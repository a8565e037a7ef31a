// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/find_replace_transformations.h"

#include "engine/parameters.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/regular_expression.h"
#include "engine/primitives/replacement.h"

namespace lexivore {

namespace {

const StringParameter replaceParameter{"replace", "Replace with", "", "Replacement text..."};

} // namespace

std::vector<TransformationParameter> ReplaceTextTransformation::parameters() const {
    return {{"find", "Find", "", "Text to find..."}, replaceParameter};
}

TextBuffer ReplaceTextTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return replaceAll(text, requiredValue(parameters, "find"), valueOrEmpty(parameters, "replace"));
}

std::vector<TransformationParameter> ReplaceWithRegexTransformation::parameters() const {
    return {{"pattern", "Regex pattern", "", "Regular expression pattern..."}, replaceParameter};
}

TextBuffer ReplaceWithRegexTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const std::string_view pattern = requiredNonEmptyValue(parameters, "pattern");
    try {
        return replaceMatches(text, pattern, valueOrEmpty(parameters, "replace"));
    } catch (const RegularExpressionError &error) {
        throw TransformationError::invalidInput(std::string("Invalid regular expression: ") + error.what());
    }
}

TextBuffer ReverseTextTransformation::apply(std::string_view text, const ParameterMap &) const {
    return reverseCharacters(text);
}

} // namespace lexivore
