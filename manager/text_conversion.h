// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace lexivore {

/// The one border between the engine's UTF-8 and the toolkit's UTF-16. Each call walks and copies the whole text once
/// (a gigabyte or two a second when it is ASCII), so it is for names, parameters and pieces, not for every keystroke on
/// a large text. Line breaks, NUL and a byte-order mark go through unchanged.

/// Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] QString toQString(std::string_view utf8);
/// Lone surrogates become U+FFFD.
[[nodiscard]] std::string toUtf8(QStringView text);

} // namespace lexivore
