// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace lexivore {

/// The words of an HTML text with none but the plainest tags: headings, paragraphs, lists, bold, italic, code, and
/// links with their address alone. Tables become paragraphs; scripts, styles and comments are dropped, and so is what
/// comes behind the thousandth tag: the toolkit takes seconds for a table of millions of columns or for lists as deep
/// as that. Costs the length of `html`, whatever it holds.
[[nodiscard]] QString simpleHtml(const QString &html);

} // namespace lexivore
