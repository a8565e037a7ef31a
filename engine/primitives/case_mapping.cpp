// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/case_mapping.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/byte_search.h"
#include "engine/primitives/case_writing.h"
#include "engine/primitives/character_blocks.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/characters.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/unicode_tables.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <cstdint>

namespace lexivore {

using unicode_tables::CaseTables;
using unicode_tables::lowercase;
using unicode_tables::uppercase;

namespace {

/// How much of a text is looked at before it is worked on: it is still in the cache then.
constexpr std::ptrdiff_t stretch = 16'384;

constexpr bool isAsciiLetter(char byte) { return static_cast<unsigned char>((byte | 0x20) - 'a') < 26; }

bool changes(const CaseTables &tables, char32_t codePoint) {
    return unicode_tables::lookUp(tables.blocks, tables.deltaIndices, codePoint) != 0;
}

/// Writes the code point at `position` with `write(codePoint, to)`; bytes that belong to no well-formed sequence as
/// they are. Moves the position and returns the place behind what it wrote.
template<typename Write> char *writeOne(const char *&position, const char *end, char *to, Write write) {
    const DecodedCodePoint decoded = decode(position, end);
    if (decoded.length == 1 && !isAscii(*position)) {
        *to++ = *position;
    } else {
        to = write(decoded.value, to);
    }
    position += decoded.length;
    return to;
}

/// Appends `text` mapped in stretches: by the kernel what keeps its length, everything else with
/// `write(codePoint, position, to)`, which returns the place behind what it wrote.
/// `correct(position, size, to)` is called with what the kernel mapped when there is a capital sigma in it.
template<typename Correct, typename Write>
void appendMapped(TextBuffer &result, std::string_view text, const kernels::CasePages &pages, Correct correct,
                  Write write) {
    constexpr std::size_t codePointsAtOnce = 8; // what the kernel stops at seldom stands alone
    constexpr std::size_t scratch = std::max(kernels::blockSize, codePointsAtOnce * longestMapping);
    const char *position = text.data();
    const char *const end = position + text.size();
    const auto writeUpTo = [&](std::size_t codePoints, bool takesAscii) {
        char *to = result.room(scratch);
        for (; codePoints > 0 && position != end && (takesAscii || !isAscii(*position)); --codePoints) {
            to = writeOne(position, end, to, [&, place = position](char32_t codePoint, char *placeTo) {
                return write(codePoint, place, placeTo);
            });
        }
        result.commit(to);
    };
    if (text.size() <= codePointsAtOnce) {
        writeUpTo(codePointsAtOnce, true);
        return;
    }
    static_cast<void>(result.room(text.size() + scratch));
    while (position != end) {
        const auto length = static_cast<std::size_t>(std::min(stretch, end - position));
        char *to = result.room(length + scratch);
        const kernels::MappedCase mapped = kernels::best().mapCase(position, length, pages, to);
        if (mapped.hasCapitalSigma) {
            correct(position, mapped.size, to);
        }
        position += mapped.size;
        result.commit(to + mapped.size);
        if (mapped.size < length) {
            writeUpTo(codePointsAtOnce, false);
        }
    }
}

constexpr auto nothingToCorrect = [](const char *, std::size_t, char *) {};

/// The tables by which a character is inverted that has such code points; null when it is kept.
const CaseTables *inversion(bool changesUp, bool changesDown) {
    if (changesUp == changesDown) { // neither upper nor lower case, or both as in "ǅ"
        return nullptr;
    }
    return changesUp ? &uppercase : &lowercase;
}

/// For any text: each character as its code points together tell.
TextBuffer invertCharacters(std::string_view text) {
    TextBuffer result = TextBuffer::withCapacity(text.size() + longestMapping);
    forEachCharacter(text, [&result](std::string_view character) {
        const char *const end = character.data() + character.size();
        bool changesUp = false;
        bool changesDown = false;
        for (const char *position = character.data(); position != end;) {
            const DecodedCodePoint decoded = decode(position, end);
            changesUp = changesUp || changes(uppercase, decoded.value);
            changesDown = changesDown || changes(lowercase, decoded.value);
            position += decoded.length;
        }
        const CaseTables *const tables = inversion(changesUp, changesDown);
        if (tables == nullptr) {
            result.append(character);
            return;
        }
        for (const char *position = character.data(); position != end;) {
            result.commit(writeOne(position, end, result.room(longestMapping), [tables](char32_t codePoint, char *to) {
                return writeMapped(*tables, codePoint, to);
            }));
        }
    });
    return result;
}

/// Writes the letters of a text in turn upper and lower case.
class AlternatingWriter {
public:
    explicit AlternatingWriter(std::string_view text)
        : m_blocks(text, property::letter), m_end(text.data() + text.size()) {}

    void appendTo(TextBuffer &result) {
        while (!m_blocks.isAtEnd()) {
            if (isAscii(*m_blocks.position())) {
                appendAscii(result);
            }
            for (CharacterBlock block; m_blocks.next(block);) {
                append(result, block);
            }
        }
    }

private:
    /// How the code points of a character are mapped.
    enum class Case { kept, upper, lower };

    static char inCase(char ascii, Case mapping) {
        constexpr int lowerBit = 0x20;
        const bool stays = mapping == Case::kept || !isAsciiLetter(ascii);
        return stays ? ascii : static_cast<char>(mapping == Case::lower ? ascii | lowerBit : ascii & ~lowerBit);
    }

    void appendAscii(TextBuffer &result) {
        const char *position = m_blocks.position();
        const char *const limit = position + std::min(stretch, m_end - position);
        char *to = result.room(static_cast<std::size_t>(limit - position));
        if (!character_breaks::transition(m_blocks.state(), static_cast<unsigned char>(*position)).isBoundary) {
            *to++ = inCase(*position++, m_case); // of the character before
        }
        const char *const begin = position;
        const std::size_t written =
            kernels::best().alternateCase(position, static_cast<std::size_t>(limit - position), m_isUppersTurn, to);
        position += written;
        to += written;
        const char *const runEnd =
            asciiRunEnd(position, position + std::min(std::ptrdiff_t{kernels::blockSize}, limit - position));
        for (; position != runEnd; ++position) {
            *to++ = inCase(*position, m_isUppersTurn ? Case::upper : Case::lower);
            m_isUppersTurn = m_isUppersTurn != isAsciiLetter(*position);
        }
        result.commit(to);
        if (runEnd != begin) { // marks may follow
            const bool wasUppersTurn = !m_isUppersTurn;
            m_case = !isAsciiLetter(runEnd[-1]) ? Case::kept : wasUppersTurn ? Case::upper : Case::lower;
        }
        m_blocks.passAscii(runEnd);
    }

    void append(TextBuffer &result, const CharacterBlock &block) {
        const std::uint64_t letters = block.boundaries & block.members;
        // The parity of the number of letters up to each byte; whose turn it is depends on those before it.
        std::uint64_t parity = letters;
        for (unsigned step = 1; step < kernels::blockSize; step *= 2) {
            parity ^= parity << step;
        }
        const std::uint64_t isUppersTurn = parity ^ letters ^ (m_isUppersTurn ? ~std::uint64_t{0} : 0);
        const std::uint64_t upper = wholeCharacters(letters & isUppersTurn, block, m_case == Case::upper);
        const std::uint64_t lower = wholeCharacters(letters & ~isUppersTurn, block, m_case == Case::lower);
        m_isUppersTurn = m_isUppersTurn != (parity >> (kernels::blockSize - 1) != 0);
        const std::uint64_t last = std::uint64_t{1} << (block.size - 1);
        m_case = (upper & last) != 0 ? Case::upper : (lower & last) != 0 ? Case::lower : Case::kept;

        char *to = result.room(kernels::blockSize * longestMapping);
        const kernels::MappedBlock mapped =
            kernels::best().mapCaseOf(block.begin, static_cast<std::size_t>(m_end - block.begin), upper,
                                      uppercase.pages, lower, lowercase.pages, to);
        if (mapped.specials == 0) {
            result.commit(to + block.size);
            return;
        }
        const char *const end = block.begin + block.size;
        for (const char *position = block.begin; position != end;) {
            const std::uint64_t bit = std::uint64_t{1} << (position - block.begin);
            to = writeOne(position, end, to, [&](char32_t codePoint, char *place) {
                return (upper & bit) != 0   ? writeMapped(uppercase, codePoint, place)
                       : (lower & bit) != 0 ? writeMapped(lowercase, codePoint, place)
                                            : encode(codePoint, place);
            });
        }
        result.commit(to);
    }

    CharacterBlocks m_blocks;
    const char *m_end;
    bool m_isUppersTurn = true;
    Case m_case = Case::kept; ///< Of the character before the block.
};

} // namespace

void appendUppercase(TextBuffer &to, std::string_view text) {
    appendMapped(to, text, uppercase.pages, nothingToCorrect, [](char32_t codePoint, const char *, char *place) {
        return writeMapped(uppercase, codePoint, place);
    });
}

void appendLowercase(TextBuffer &to, std::string_view text, std::string_view context) {
    const SigmaContext sigmaContext{context.data(), context.data() + context.size()};
    const auto correct = [&sigmaContext](const char *position, std::size_t size, char *mapped) {
        constexpr std::string_view sigma = "\u03A3";
        std::string_view left(position, size);
        for (std::size_t found = findBytes(left, sigma); found != std::string_view::npos;
             found = findBytes(left, sigma)) {
            const char *const place = left.data() + found;
            if (isFinalSigma(place, sigmaContext)) {
                writeFinalSigma(mapped + (place - position));
            }
            left.remove_prefix(found + sigma.size());
        }
    };
    appendMapped(to, text, lowercase.pages, correct, [&](char32_t codePoint, const char *position, char *place) {
        return writeLowercase(codePoint, position, sigmaContext, place);
    });
}

TextBuffer invertCase(std::string_view text) {
    TextBuffer result;
    bool hasCasedMark = false;
    appendMapped(result, text, unicode_tables::inversionPages, nothingToCorrect,
                 [&hasCasedMark](char32_t codePoint, const char *, char *place) {
                     hasCasedMark = hasCasedMark || codePoint == unicode_tables::casedMark;
                     const CaseTables *const tables =
                         inversion(changes(uppercase, codePoint), changes(lowercase, codePoint));
                     return tables == nullptr ? encode(codePoint, place) : writeMapped(*tables, codePoint, place);
                 });
    if (hasCasedMark) { // then characters are not inverted one code point at a time
        return invertCharacters(text);
    }
    result.shrink();
    return result;
}

TextBuffer alternateCase(std::string_view text) {
    TextBuffer result = TextBuffer::withCapacity(text.size() + kernels::blockSize * longestMapping);
    AlternatingWriter(text).appendTo(result);
    result.shrink();
    return result;
}

} // namespace lexivore
