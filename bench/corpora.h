// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

// The texts that the benchmarks run on: the same bytes on every machine and in every run.
namespace lexivore::bench {

/// English-like prose in ASCII: lines of about 80 characters, words as unevenly frequent as those of a language.
[[nodiscard]] std::string englishCorpus(std::size_t bytes);

/// Lines of about 60 characters, each in one of: accented Latin, Cyrillic, Greek, Devanagari, Chinese, Arabic; with
/// some numbers, ASCII words and emoji, families among them.
[[nodiscard]] std::string multilingualCorpus(std::size_t bytes);

/// Short ASCII lines of about 20 bytes, 30 % of them copies of earlier ones.
[[nodiscard]] std::string shortLinesCorpus(std::size_t bytes);

} // namespace lexivore::bench
