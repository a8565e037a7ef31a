// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <QString>

#include <cstddef>
#include <variant>

namespace lexivore {

/// Reading and writing a text exactly: no byte is added, dropped or translated.
namespace textFile {

/// The largest file that is read, in bytes.
inline constexpr std::size_t maximumSize = std::size_t{1} << 30;

/// Why a file gave no text, in words for the user.
struct Failure {
    QString message;
};
/// The file holds something else than UTF-8; the same in words for the user.
struct NotUtf8 {
    QString message;
};

/// Reads a regular file to its end. Takes one copy of it in memory, and validates it in one pass.
/// A directory, a device, a pipe and a file beyond `maximum` bytes are failures.
[[nodiscard]] std::variant<Text, NotUtf8, Failure> read(const QString &path, std::size_t maximum = maximumSize);

/// Writes the file anew beside the old one and puts it in its place when all of it is on the disk: a failure leaves the
/// old file as it was. Who may read and write it stays as it was. Gives an empty message for success.
[[nodiscard]] QString write(const QString &path, const Text &text);

} // namespace textFile

} // namespace lexivore
