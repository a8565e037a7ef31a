// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

class QFileDevice;

namespace lexivore {

// A disk that becomes full takes the part that fits without a word, and only then refuses the rest with a reason. Where
// the toolkit would stop at the part, and know no error, these go on until the reason is there.

/// Writes the bytes to the open file. False when they are not all written, with the system's reason as `errorString`.
[[nodiscard]] bool writeAll(QFileDevice &file, std::string_view bytes);
/// Writes what the file has buffered. False likewise; more must not be written then, for parts may be there twice.
[[nodiscard]] bool flushAll(QFileDevice &file);

} // namespace lexivore
