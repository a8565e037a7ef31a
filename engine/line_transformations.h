// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

namespace lexivore {

struct TrimLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct NumberLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct BreakAfterEveryWordTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct BreakAfterEverySentenceTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct ReverseLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct DeleteLinesContainingTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct DeleteLinesStartingWithTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct KeepLinesContainingTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct KeepLinesStartingWithTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct DeleteFirstNLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct DeleteLastNLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct KeepFirstNLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct KeepLastNLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct ExtractLinesByRangeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct JoinLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] std::vector<TransformationParameter> parameters() const override;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

} // namespace lexivore
