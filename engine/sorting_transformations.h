// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

namespace lexivore {

struct SortLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct SortLinesReverseTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct SortLinesByLengthTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct ShuffleLinesTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] bool isRandom() const override { return true; }
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct SortWordsAlphabeticallyTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct ReverseWordsInLineTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

} // namespace lexivore
