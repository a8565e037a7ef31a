// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace lexivore {

/// How many bytes Base64 makes of that many.
[[nodiscard]] constexpr std::size_t base64Size(std::size_t bytes) { return (bytes + 2) / 3 * 4; }
/// Appends Base64 of the bytes (RFC 4648, section 4), padded, on one line.
void appendBase64(TextBuffer &to, std::string_view bytes);
/// The bytes. Nothing unless the text is complete quanta of the standard alphabet, padding only at the end. Bits under
/// the padding may be anything.
[[nodiscard]] std::optional<TextBuffer> decodeBase64(std::string_view text);

/// Appends two lowercase hexadecimal digits for each byte.
void appendHexadecimal(TextBuffer &to, std::string_view bytes);
/// The bytes; spaces (U+0020) are passed over. Nothing when what is left is not pairs of hexadecimal digits.
[[nodiscard]] std::optional<TextBuffer> decodeHexadecimal(std::string_view text);

/// Appends the bytes, with "%" and two uppercase digits for each that may not stand in the query of a URL (RFC 3986,
/// section 3.4).
void appendPercent(TextBuffer &to, std::string_view bytes);
/// The bytes; "+" stays. Nothing when a "%" is not followed by two hexadecimal digits.
[[nodiscard]] std::optional<TextBuffer> decodePercent(std::string_view text);

} // namespace lexivore
