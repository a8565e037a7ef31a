// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

namespace lexivore {

struct AddPrefixTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct AddSuffixTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct WrapLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemoveWhitespaceTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemoveAllSpacesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemoveTabsTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemoveEmptyLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemoveLineBreaksTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemoveDuplicateLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemoveDuplicateWordsTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct DeleteNonAlphanumericTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct DeleteNumericCharactersTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct KeepOnlyNumericTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemovePunctuationTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct RemoveSpecialCharactersTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

} // namespace lexivore
