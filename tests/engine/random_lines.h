// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

// Texts of lines, and the plainest way to take them apart, for comparing what works on whole texts with it.
namespace lexivore {

/// Every newline character of the set, a line feed first.
inline constexpr std::string_view newlineCharacters[] = {
    "\n", "\v", "\f", "\r", "\u0085", "\u2028", "\u2029",
};

/// `count` lines of few different letters, most of them short, and one more. Half of the texts have line feeds only.
inline std::string randomLines(std::mt19937 &random, std::size_t count) {
    const bool hasLineFeedsOnly = random() % 2 == 0;
    const std::size_t longest = random() % 2 == 0 ? 9 : 200;
    std::string text;
    for (std::size_t i = 0; i <= count; ++i) {
        if (i > 0) {
            text +=
                newlineCharacters[hasLineFeedsOnly || random() % 4 != 0 ? 0 : random() % std::size(newlineCharacters)];
        }
        for (std::size_t size = random() % (longest + 1); size > 0; --size) {
            static constexpr std::string_view letters[] = {"a", "b", "c", " ", "é", "\u0084", "\u2027"};
            text += letters[random() % 3 == 0 ? random() % std::size(letters) : 0];
        }
    }
    return text;
}

/// The lines of a text, found byte by byte.
inline std::vector<std::string_view> plainLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t begin = 0;
    for (std::size_t position = 0; position < text.size();) {
        std::size_t length = 0;
        for (const std::string_view newline : newlineCharacters) {
            length = text.substr(position).starts_with(newline) ? newline.size() : length;
        }
        if (length > 0) {
            lines.push_back(text.substr(begin, position - begin));
            begin = position + length;
        }
        position += length > 0 ? length : 1;
    }
    lines.push_back(text.substr(begin));
    return lines;
}

/// The lines with `separator` between them.
inline std::string plainlyJoined(const std::vector<std::string_view> &lines, std::string_view separator) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text.append(i > 0 ? separator : "").append(lines[i]);
    }
    return text;
}

} // namespace lexivore
