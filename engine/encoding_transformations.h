// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

namespace lexivore {

struct Base64EncodeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct Base64DecodeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct URLEncodeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct URLDecodeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct HTMLEncodeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct HTMLDecodeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct JSONEscapeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct HexEncodeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

struct HexDecodeTransformation final : TextTransformation {
    using TextTransformation::TextTransformation;
    [[nodiscard]] TextBuffer apply(std::string_view text, const ParameterMap &parameters) const override;
};

} // namespace lexivore
