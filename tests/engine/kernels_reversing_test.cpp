// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/code_points.h"
#include "tests/engine/kernels_texts.h"
#include "tests/engine/mixed_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore::kernels {
namespace {

TEST(ReversingKernels, ReverseTurnsEveryByteBeforeTheFirstThatIsNotAscii) {
    std::mt19937 random(17);
    onRandomBytes([&random](const Kernels &kernels, std::string_view bytes) {
        std::string text(bytes);
        std::transform(text.begin(), text.end(), text.begin(),
                       [](char byte) { return static_cast<char>(byte & 0x7F); });
        std::size_t size = text.size();
        if (size > 0 && random() % 2 == 0) {
            size = random() % size;
            text[size] = static_cast<char>(text[size] | 0x80);
        }
        const std::string_view prefix = std::string_view(text).substr(0, size);
        const ExactCopy result(std::string(text.size(), '#'), (text.size() + 5) % blockSize);
        bool hasReturn = false;
        ASSERT_EQ(kernels.reverseAscii(text.data(), text.size(), result.data() + text.size(), hasReturn), size);
        EXPECT_EQ(hasReturn, prefix.find('\r') != std::string_view::npos);
        EXPECT_EQ(result.view(), std::string(text.size() - size, '#') + std::string(prefix.rbegin(), prefix.rend()));
    });
}

TEST(ReversingKernels, ReversePartsKeepsEachPartWhole) {
    std::mt19937_64 random(seed);
    for (std::size_t round = 0; round < 20'000; ++round) {
        const std::size_t size = 1 + random() % blockSize;
        const std::uint64_t begins = randomBits(random, 1U << random() % 7) | 1U;
        std::string bytes;
        for (std::size_t left = size + random() % (round % 2 == 0 ? 3 : 100); left > 0; --left) {
            bytes += static_cast<char>(random());
        }
        std::string expected;
        for (std::size_t end = size; end > 0;) {
            std::size_t begin = end - 1;
            while ((begins >> begin & 1U) == 0) {
                --begin;
            }
            expected += bytes.substr(begin, end - begin);
            end = begin;
        }
        const ExactCopy text(bytes, round % blockSize);
        onAllKernels([&](const Kernels &kernels) {
            const ExactCopy result(std::string(blockSize, '#'), round * 7 % blockSize);
            kernels.reverseParts(text.data(), text.view().size(), begins, size, result.data() + blockSize);
            EXPECT_EQ(result.view().substr(blockSize - size), expected);
        });
    }
}

/// The words of each line, cut at tabs and spaces, in reverse order with a space between them.
std::string plainlyReversedWords(std::string_view lines) {
    std::string result;
    std::string line;
    std::string word;
    for (const char byte : lines) {
        if (byte != ' ' && byte != '\t' && byte != '\n') {
            word += byte;
            continue;
        }
        if (!word.empty()) {
            line.insert(0, line.empty() ? word : word + ' ');
            word.clear();
        }
        if (byte == '\n') {
            result += line + '\n';
            line.clear();
        }
    }
    return result;
}

/// Lines of all lengths, mostly with single blanks between their words.
std::string randomWordLines(std::mt19937 &random, std::size_t size) {
    static constexpr std::string_view letters[] = {"a", "b", "c", "\u00E9", "\u0430", "\u2019", "\u200D", "\u3042"};
    const unsigned longestWord = 1U << random() % 8;
    const unsigned wordsInLine = 1U << random() % 6;
    const unsigned unusual = random() % 3 == 0 ? 2 : 40;
    std::string text;
    while (text.size() < size) {
        for (std::size_t left = 1 + random() % longestWord; left > 0; --left) {
            text += letters[random() % 4 == 0 ? random() % std::size(letters) : 0];
        }
        if (random() % wordsInLine == 0) {
            text += random() % unusual == 0 ? " \n" : "\n";
            text += random() % unusual == 0 ? "\n" : "";
            text += random() % unusual == 0 ? std::string(1 + random() % 3, ' ') : "";
        } else {
            text += random() % 8 == 0 ? '\t' : ' ';
            text += random() % unusual == 0 ? " " : "";
        }
    }
    return text;
}

TEST(ReversingKernels, ReverseWordsWritesTheWordsOfWholeLinesInReverseOrder) {
    std::mt19937 random(seed);
    for (std::size_t round = 0; round < 3'000; ++round) {
        const ExactCopy text(randomWordLines(random, random() % 1'000), round % blockSize);
        onAllKernels([&](const Kernels &kernels) {
            const ExactCopy result(std::string(text.view().size() + blockSize, '#'), round * 7 % blockSize);
            char *to = result.data();
            const std::size_t read = kernels.reverseWords(text.data(), text.view().size(), to);
            ASSERT_LE(read, text.view().size());
            const std::string_view lines = text.view().substr(0, read);
            ASSERT_TRUE(lines.empty() || lines.back() == '\n');
            const auto written = static_cast<std::size_t>(to - result.data());
            ASSERT_EQ(result.view().substr(0, written), plainlyReversedWords(lines)) << text.view();
        });
    }
}

TEST(ReversingKernels, ReverseWordsStopsBeforeALineWithAnyOtherSpaceOrNewline) {
    const std::string before(100, 'a');
    std::vector<std::string> lines; // of one block, of several, and side by side in a block
    for (const std::size_t length : {5U, 57U, 58U, 59U, 60U, 61U, 62U, 63U, 64U, 100U}) {
        lines.push_back(before.substr(0, length));
        lines.push_back("b c\n" + before.substr(0, length));
    }
    for (char32_t codePoint = 0; codePoint < 0x3100; ++codePoint) {
        if (!isIn(whitespaceAndNewlines, codePoint) || codePoint == '\n' || codePoint == ' ' || codePoint == '\t') {
            continue;
        }
        for (const std::string &line : lines) {
            const std::string text = line + encoded(codePoint) + "d e\n" + std::string(2 * blockSize, 'f');
            onAllKernels([&](const Kernels &kernels) {
                std::string result(text.size() + blockSize, '#');
                char *to = result.data();
                EXPECT_LE(kernels.reverseWords(text.data(), text.size(), to), line.rfind('\n') + 1)
                    << "U+" << std::hex << static_cast<std::uint32_t>(codePoint);
            });
        }
    }
}

} // namespace
} // namespace lexivore::kernels
