// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

namespace lexivore {

struct UppercaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct LowercaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct TitleCaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct SentenceCaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct CamelCaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct PascalCaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct SnakeCaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct KebabCaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct AlternatingCaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct InvertCaseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

} // namespace lexivore
