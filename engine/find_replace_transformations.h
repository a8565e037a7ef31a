// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

namespace lexivore {

struct ReplaceTextTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct ReplaceWithRegexTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] bool hasTimeLimit() const override { return true; }
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct ReverseTextTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

} // namespace lexivore
