// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/engine/kernels_texts.h"

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

TEST(Kernels, CopyPlainEndsAtWhatIsNotPlainAndMarksTheSpacesAndCrLfs) {
    const auto check = [](const Kernels &kernels, std::string_view text) {
        std::string expected;
        for (const char byte : text) {
            if (byte != '\t' && byte != '\n' && byte != '\r' && (byte < ' ' || byte > '~')) {
                break;
            }
            expected += byte == '\t' ? ' ' : byte;
        }
        const ExactCopy to(std::string(expected.size() + blockSize, '#'), text.size() % blockSize);
        std::vector<std::uint64_t> spaces(text.size() / blockSize + 1, ~std::uint64_t{0});
        std::vector<std::uint64_t> crLfs = spaces;
        const PlainPrefix prefix = kernels.copyPlain(text.data(), text.size(), spaces.data(), crLfs.data(), to.data());
        ASSERT_EQ(prefix.size, expected.size());
        EXPECT_EQ(prefix.hasCrLfs, expected.find("\r\n") != std::string::npos);
        EXPECT_EQ(to.view().substr(0, expected.size()), expected);
        const std::size_t blocks = (expected.size() + blockSize - 1) / blockSize;
        for (std::size_t i = 0; i < blocks * blockSize; ++i) {
            const bool isInText = i < expected.size();
            const bool isCrLf = isInText && i > 0 && expected[i - 1] == '\r' && expected[i] == '\n';
            EXPECT_EQ(spaces[i / blockSize] >> i % blockSize & 1U, isInText && expected[i] == ' ' ? 1U : 0U) << i;
            EXPECT_EQ(crLfs[i / blockSize] >> i % blockSize & 1U, isCrLf ? 1U : 0U) << i;
        }
    };
    onRandomBytes(check);
    // Every byte, and one at every place of a block, behind a block that is plain.
    std::mt19937 random(seed);
    for (int byte = 0; byte < 256; ++byte) {
        std::string text(3 * blockSize, ' ');
        for (char &character : text) {
            character = " \tabc\n\r~!"[random() % 9];
        }
        text[blockSize + static_cast<std::size_t>(byte) % blockSize] = static_cast<char>(byte);
        onAllKernels([&](const Kernels &kernels) { check(kernels, text); });
    }
}

TEST(Kernels, CopyPastCacheCopiesToEveryPlaceOfALine) {
    std::mt19937 random(seed);
    onAllKernels([&](const Kernels &kernels) {
        for (std::size_t place = 0; place < blockSize; ++place) {
            for (const std::size_t size : {0U, 1U, 63U, 64U, 65U, 127U, 128U, 191U, 320U, 1000U}) {
                std::string text(size, ' ');
                std::generate(text.begin(), text.end(), [&]() { return static_cast<char>(random()); });
                const ExactCopy from(text, random() % blockSize);
                const ExactCopy to(std::string(size, '#'), place);
                kernels.copyPastCache(from.data(), size, to.data());
                ASSERT_EQ(to.view(), text) << kernels.name << " at " << place;
            }
        }
    });
}

TEST(Kernels, RemoveMembersKeepsEverythingElse) {
    // One that hardly ever occurs, one that often does, some of every row, and all of ASCII.
    std::string everyCharacter;
    for (int byte = 0; byte < 0x80; ++byte) {
        everyCharacter += static_cast<char>(byte);
    }
    for (const std::string &members :
         {std::string("~"), std::string(" "), std::string("\tA/~b0\0", 7), everyCharacter}) {
        const AsciiSet set(members);
        onRandomBytes([&](const Kernels &kernels, std::string_view text) {
            std::string expected;
            std::copy_if(text.begin(), text.end(), std::back_inserter(expected),
                         [&](char byte) { return !set.contains(byte); });
            std::string result(text.size() + blockSize, '#');
            result.resize(kernels.removeMembers(text.data(), text.size(), set, result.data()));
            EXPECT_EQ(result, expected);
        });
    }
}

TEST(Kernels, RemoveMembersFindsAMemberAtEveryPlace) {
    const std::string text(400, 'x');
    onAllKernels([&](const Kernels &kernels) {
        for (std::size_t place = 0; place < text.size(); ++place) {
            std::string withOne = text;
            withOne[place] = ',';
            std::string result(text.size() + blockSize, '#');
            result.resize(kernels.removeMembers(withOne.data(), withOne.size(), AsciiSet(","), result.data()));
            EXPECT_EQ(result, text.substr(1));
        }
    });
}

TEST(Kernels, CompressKeepsTheBytesOfSetBitsElsewhereAndInPlace) {
    std::mt19937_64 random(seed);
    onRandomBytes([&](const Kernels &kernels, std::string_view text) {
        const std::size_t blocks = text.size() / blockSize;
        std::vector<std::uint64_t> keep(blocks);
        std::string expected;
        for (std::size_t block = 0; block < blocks; ++block) {
            const auto kind = random() % 4;
            keep[block] = kind == 0 ? 0 : kind == 1 ? ~std::uint64_t{0} : randomBits(random, kind == 2 ? 2 : 8);
            for (std::size_t i = 0; i < blockSize; ++i) {
                if ((keep[block] >> i & 1U) != 0) {
                    expected += text[block * blockSize + i];
                }
            }
        }
        std::string result(text.size() + blockSize, '#');
        result.resize(kernels.compress(text.data(), blocks, keep.data(), result.data()));
        EXPECT_EQ(result, expected);
        const ExactCopy place(std::string(text.substr(0, blocks * blockSize)), text.size() % blockSize);
        ASSERT_EQ(kernels.compress(place.data(), blocks, keep.data(), place.data()), expected.size());
        EXPECT_EQ(place.view().substr(0, expected.size()), expected);
    });
}

bool isLetter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }
bool isAlphanumeric(char byte) { return isLetter(byte) || (byte >= '0' && byte <= '9'); }
char upper(char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte; }
char lower(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte; }

/// What caseWords writes for the first `size` bytes, one byte after the other.
std::string plainCaseWords(std::string_view text, std::size_t size, const WordCaseRules &rules, WordCaseState &state) {
    std::string result;
    for (std::size_t i = 0; i < size; ++i) {
        const char byte = text[i];
        const bool joins =
            rules.joinsOverApostrophe && byte == '\'' && state.isBehindAlphanumeric && isAlphanumeric(text[i + 1]);
        if (isAlphanumeric(byte) || joins) {
            const bool hasLetter = state.isInWord && state.isBehindLetter;
            result += rules.capitalizes && !hasLetter ? upper(byte) : lower(byte);
            state.isBehindLetter = hasLetter || isLetter(byte);
        } else if (!rules.dropsSeparators) {
            result += byte;
        } else if (state.isInWord && rules.joiner != '\0') {
            result += rules.joiner;
        }
        state.isInWord = isAlphanumeric(byte) || joins;
        state.isBehindAlphanumeric = isAlphanumeric(byte);
    }
    return result;
}

TEST(Kernels, CaseWordsEqualsThePlainLoop) {
    const WordCaseRules allRules[] = {
        {.joinsOverApostrophe = true, .capitalizes = true},
        {.capitalizes = true, .dropsSeparators = true},
        {.dropsSeparators = true, .joiner = '_'},
        {.dropsSeparators = true, .joiner = '-'},
    };
    std::mt19937 random(seed);
    for (const WordCaseRules &rules : allRules) {
        onRandomBytes([&](const Kernels &kernels, std::string_view text) {
            WordCaseState state;
            state.isInWord = random() % 2 == 0;
            state.isBehindAlphanumeric = state.isInWord && random() % 4 != 0;
            state.isBehindLetter = state.isInWord && random() % 2 == 0;
            WordCaseState expectedState = state;
            std::string result(text.size() + blockSize, '#');
            char *to = result.data();
            const std::size_t read = kernels.caseWords(text.data(), text.size(), rules, state, to);
            EXPECT_EQ(read % blockSize, 0U);
            EXPECT_TRUE(read == 0 || read < text.size());
            EXPECT_EQ(std::string_view(result.data(), static_cast<std::size_t>(to - result.data())),
                      plainCaseWords(text, read, rules, expectedState));
            EXPECT_EQ(state.isInWord, expectedState.isInWord);
            EXPECT_EQ(state.isBehindAlphanumeric, expectedState.isBehindAlphanumeric);
            if (rules.capitalizes && state.isInWord) {
                EXPECT_EQ(state.isBehindLetter, expectedState.isBehindLetter);
            }
        });
    }
}

TEST(Kernels, AlternateCaseEqualsThePlainLoop) {
    onRandomBytes([](const Kernels &kernels, std::string_view text) {
        for (const bool begins : {true, false}) {
            bool isUppersTurn = begins;
            std::string result(text.size(), '#');
            const std::size_t read = kernels.alternateCase(text.data(), text.size(), isUppersTurn, result.data());
            bool expectedTurn = begins;
            for (std::size_t i = 0; i < read; ++i) {
                EXPECT_EQ(result[i], expectedTurn ? upper(text[i]) : lower(text[i]));
                expectedTurn = expectedTurn != isLetter(text[i]);
            }
            EXPECT_EQ(isUppersTurn, expectedTurn);
        }
    });
}

/// One of the two kernels that work on sentences, which have the same parameters.
struct SentenceKernel {
    std::size_t (*Kernels::*run)(const char *, std::size_t, bool &, char *&);
    bool isForCase;          ///< Else it breaks the text after each sentence.
    std::size_t mostForEach; ///< How many bytes it writes at the most for each that it reads.
};
constexpr SentenceKernel caseSentences{&Kernels::caseSentences, true, 2};
constexpr SentenceKernel breakSentences{&Kernels::breakSentences, false, 1};

/// What the kernel makes of the first `size` bytes of the text.
std::string plainSentences(const SentenceKernel &kernel, std::string_view text, std::size_t size, bool &isAtBegin) {
    const auto isEnd = [](char byte) { return byte == '.' || byte == '!' || byte == '?'; };
    std::string result;
    for (std::size_t i = 0; i < size; ++i) {
        const char byte = text[i];
        if (isEnd(byte)) {
            result += kernel.isForCase ? ". " : isAtBegin ? "" : "\n";
            isAtBegin = true;
        } else if (byte == ' ' || byte == '\t') {
            const std::size_t next = text.find_first_not_of(" \t", i);
            const bool isLast = next == std::string_view::npos || isEnd(text[next]);
            result += isAtBegin || isLast ? std::string() : std::string(1, byte);
        } else {
            const bool isCapital = byte >= 'A' && byte <= 'Z';
            const bool isSmall = byte >= 'a' && byte <= 'z';
            const bool isTurned = kernel.isForCase && (isAtBegin ? isSmall : isCapital);
            result += static_cast<char>(isTurned ? byte ^ 0x20 : byte);
            isAtBegin = false;
        }
    }
    return result;
}

/// Returns how much of the text the kernel read.
std::size_t expectPlainSentences(const SentenceKernel &kernel, const Kernels &kernels, std::string_view text,
                                 bool isAtBegin) {
    bool isPlainAtBegin = isAtBegin;
    const ExactCopy result(std::string(kernel.mostForEach * text.size() + blockSize, '#'), text.size() % 7);
    char *to = result.data();
    const auto run = kernels.*kernel.run;
    const std::size_t read = run(text.data(), text.size(), isAtBegin, to);
    EXPECT_LE(read, text.size());
    EXPECT_EQ(result.view().substr(0, static_cast<std::size_t>(to - result.data())),
              plainSentences(kernel, text, std::min(read, text.size()), isPlainAtBegin))
        << testing::PrintToString(text);
    EXPECT_EQ(isAtBegin, isPlainAtBegin);
    return read;
}

void expectPlainSentencesOfRandomBytes(const SentenceKernel &kernel) {
    onRandomBytes([&](const Kernels &kernels, std::string_view text) {
        expectPlainSentences(kernel, kernels, text, false);
        expectPlainSentences(kernel, kernels, text, true);
    });
}

void expectTrimsAtEveryPlaceOfABlock(const SentenceKernel &kernel) {
    for (const std::string_view middle : {".", ". ", " .", " \t. \t", "..", " . .  !? ", "   "}) {
        for (std::size_t before = 0; before < 2 * blockSize + 4; ++before) {
            std::string text(before, 'A');
            text.append(middle).append(3 * blockSize, 'b');
            onAllKernels([&](const Kernels &kernels) {
                expectPlainSentences(kernel, kernels, text, true);
                EXPECT_GE(expectPlainSentences(kernel, kernels, text, false), text.size() - blockSize - 1);
            });
        }
    }
}

TEST(Kernels, CaseSentencesEqualsThePlainLoop) { expectPlainSentencesOfRandomBytes(caseSentences); }

TEST(Kernels, CaseSentencesTrimsAtEveryPlaceOfABlock) { expectTrimsAtEveryPlaceOfABlock(caseSentences); }

TEST(Kernels, BreakSentencesEqualsThePlainLoop) { expectPlainSentencesOfRandomBytes(breakSentences); }

TEST(Kernels, BreakSentencesTrimsAtEveryPlaceOfABlock) { expectTrimsAtEveryPlaceOfABlock(breakSentences); }

TEST(Kernels, EscapeInPairsEqualsThePlainLoop) {
    PairEscapes escapes;
    escapes.first = '\\';
    for (int byte = 0; byte < 0x80; ++byte) {
        escapes.seconds[byte] = static_cast<char>(byte);
    }
    for (const char escaped : {'a', 'Z', '\n', ' ', '\x7f'}) {
        escapes.escaped.add(escaped);
        escapes.seconds[static_cast<unsigned char>(escaped)] = static_cast<char>(escaped ^ 1);
        onRandomBytes([&](const Kernels &kernels, std::string_view text) {
            std::string result(2 * text.size() + blockSize, '#');
            char *to = result.data();
            const std::size_t read = kernels.escapeInPairs(text.data(), text.size(), escapes, to);
            ASSERT_LE(read, text.size());
            result.resize(static_cast<std::size_t>(to - result.data()));
            std::string expected;
            for (const char byte : text.substr(0, read)) {
                const bool isEscaped = escapes.escaped.contains(byte);
                expected += isEscaped ? std::string{'\\', static_cast<char>(byte ^ 1)} : std::string(1, byte);
            }
            EXPECT_EQ(result, expected);
        });
    }
}

TEST(Kernels, CompressReplacingPutsTheReplacementInPlace) {
    std::mt19937_64 random(seed);
    onRandomBytes([&](const Kernels &kernels, std::string_view text) {
        const std::size_t blocks = text.size() / blockSize;
        std::vector<std::uint64_t> keep(blocks);
        std::vector<std::uint64_t> replaced(blocks);
        std::string expected;
        for (std::size_t block = 0; block < blocks; ++block) {
            keep[block] = random() % 4 == 0 ? ~std::uint64_t{0} : random();
            replaced[block] = random() % 4 == 0 ? 0 : randomBits(random, 4);
            for (std::size_t i = 0; i < blockSize; ++i) {
                if ((keep[block] >> i & 1U) != 0) {
                    expected += (replaced[block] >> i & 1U) != 0 ? '\n' : text[block * blockSize + i];
                }
            }
        }
        std::string result(text.size() + blockSize, '#');
        result.resize(
            kernels.compressReplacing(text.data(), blocks, keep.data(), replaced.data(), '\n', result.data()));
        EXPECT_EQ(result, expected);
    });
}

TEST(Kernels, ReplacePartsEqualsThePlainLoop) {
    std::mt19937 random(seed);
    for (std::size_t round = 0; round < 2'000; ++round) {
        const std::size_t size = random() % 1500;
        const std::size_t mostBetween = std::size_t{1} << random() % 10;
        const ExactCopy text(randomBytes(random, size + replacingSlack, 20), round % blockSize);
        const std::string_view bytes = text.view();
        PartReplacements parts;
        parts.count = 1 + random() % PartReplacements::most;
        for (std::size_t byte = 0; byte < std::size(parts.sizes); ++byte) {
            parts.sizes[byte] = static_cast<std::uint8_t>(1 + random() % 16);
            parts.indices[byte] = static_cast<std::uint8_t>(random() % parts.count);
        }
        const bool isLong = round % 2 == 0;
        for (Replacement &replacement : parts.replacements) {
            replacement = Replacement(std::string(random() % (isLong ? Replacement::longest + 1 : 3), '#'));
        }
        const std::size_t begin = size < 2 ? 0 : random() % (size / 2); // where the places are counted from
        std::size_t position = begin + random() % 8;                    // parts before it are none
        const std::size_t from = position;
        std::vector<std::uint16_t> places;
        std::string expected;
        for (std::size_t place = begin; (place += random() % (mostBetween + 1)) + Replacement::longest < size;
             ++place) {
            places.push_back(static_cast<std::uint16_t>(place - begin));
            if (place >= position) {
                expected.append(bytes.substr(position, place - position));
                const auto first = static_cast<unsigned char>(bytes[place]);
                const Replacement &replacement = parts.replacements[parts.indices[first]];
                expected.append(replacement.bytes, replacement.size);
                position = place + parts.sizes[first];
            }
        }
        onAllKernels([&](const Kernels &kernels) {
            std::string result(expected.size() + replacingSlack, '?');
            char *to = result.data();
            const char *const end =
                kernels.replaceParts(text.data() + from, text.data() + begin, places.data(), places.size(), parts, to);
            EXPECT_EQ(end - text.data(), static_cast<std::ptrdiff_t>(position));
            EXPECT_EQ(result.substr(0, static_cast<std::size_t>(to - result.data())), expected);
        });
    }
}

TEST(Kernels, ReplaceMarkedEqualsThePlainLoop) {
    std::mt19937 random(seed);
    for (std::size_t round = 0; round < 2'000; ++round) {
        const std::size_t blocks = 1 + random() % 6;
        const ExactCopy text(randomBytes(random, blocks * blockSize, 20), round % blockSize);
        BytewiseReplacement replacement;
        replacement.partSize = 1 + random() % longestMarked;
        if (round % 2 == 0) {
            replacement.leftOut = random() % (replacement.partSize + 1);
        } else {
            replacement.inserted = 1 + random() % BytewiseReplacement::mostInserted;
        }
        std::generate(std::begin(replacement.bytes), std::end(replacement.bytes), [&] { return 'a' + random() % 26; });
        std::string_view("XYZ").copy(replacement.insertedBytes, replacement.inserted);

        // The last one that began before, if any, and those from its end on.
        const std::size_t mostBetween = std::size_t{1} << random() % 8;
        const std::size_t goingOn = random() % replacement.partSize;
        const std::uint64_t before =
            goingOn == 0 ? 0 : std::uint64_t{1} << (blockSize - (replacement.partSize - goingOn));
        std::vector<std::uint64_t> begins(blocks);
        std::vector<std::size_t> placesInPart(blocks * blockSize, SIZE_MAX);
        for (std::size_t i = 0; i < goingOn; ++i) {
            placesInPart[i] = replacement.partSize - goingOn + i;
        }
        for (std::size_t place = goingOn; (place += random() % mostBetween) < placesInPart.size();
             place += replacement.partSize) {
            begins[place / blockSize] |= std::uint64_t{1} << place % blockSize;
            for (std::size_t i = 0; i < replacement.partSize && place + i < placesInPart.size(); ++i) {
                placesInPart[place + i] = i;
            }
        }
        std::string expected;
        for (std::size_t i = 0; i < placesInPart.size(); ++i) {
            const char byte = text.view()[i];
            if (placesInPart[i] == SIZE_MAX) {
                expected += byte;
            } else if (placesInPart[i] >= replacement.leftOut) {
                expected += replacement.bytes[static_cast<unsigned char>(byte) % std::size(replacement.bytes)];
                expected.append(replacement.insertedBytes, placesInPart[i] == 0 ? replacement.inserted : 0);
            }
        }
        onAllKernels([&](const Kernels &kernels) {
            if (kernels.replaceMarked != nullptr) {
                const ExactCopy result(std::string(expected.size() + blockSize, '?'), round % 7);
                const char *const end =
                    kernels.replaceMarked(text.data(), blocks, begins.data(), before, replacement, result.data());
                EXPECT_EQ(end - result.data(), static_cast<std::ptrdiff_t>(expected.size()));
                EXPECT_EQ(result.view().substr(0, expected.size()), expected);
            }
        });
    }
}

} // namespace
} // namespace lexivore::kernels
