// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/character_frequency_tool.h"

#include "engine/primitives/character_blocks.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"
#include "tools/number_text.h"
#include "tools/tool_view_factory.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <unordered_map>
#include <utility>

namespace lexivore {

namespace {

/// A character where it first stands in the text, and how often it occurs.
struct Entry {
    std::string_view firstAppearance;
    std::int64_t count = 0;
};

/// Counts ASCII bytes that are each a character, in the order of the text.
class ByteTable {
public:
    void add(const char *byte) {
        ++m_counts[static_cast<unsigned char>(*byte)];
        note(byte);
    }
    void add(std::string_view bytes) {
        if (bytes.size() < worthPairs) {
            for (const char &byte : bytes) {
                add(&byte);
            }
            return;
        }
        forEachMember(MembershipScan(bytes, m_unseen), [this](const char *byte) { note(byte); });
        // Two at once take half the steps.
        m_pairCounts.resize(pairs);
        const char *position = bytes.data();
        for (std::size_t left = bytes.size() / 2; left > 0; --left) {
            std::uint16_t pair = 0;
            std::memcpy(&pair, position, sizeof pair);
            ++m_pairCounts[pair];
            position += sizeof pair;
        }
        m_counts[static_cast<unsigned char>(bytes.back())] += bytes.size() % 2 != 0 ? 1 : 0;
    }
    void appendTo(std::vector<Entry> &entries) const {
        std::array<std::int64_t, 128> counts = m_counts;
        for (std::size_t pair = 0; pair < m_pairCounts.size(); ++pair) {
            counts[pair & 0x7F] += m_pairCounts[pair];
            counts[pair >> 8] += m_pairCounts[pair];
        }
        for (std::size_t byte = 0; byte < counts.size(); ++byte) {
            if (counts[byte] > 0) {
                entries.push_back({{m_firstAppearances[byte], 1}, counts[byte]});
            }
        }
    }

private:
    static constexpr std::size_t pairs = 0x8000; ///< Those of two ASCII bytes are below it, whichever comes first.
    static constexpr std::size_t worthPairs = 64;

    static constexpr kernels::AsciiSet allOfAscii() {
        kernels::AsciiSet set;
        for (std::uint8_t &row : set.rows) {
            row = 0xFF;
        }
        return set;
    }

    void note(const char *byte) {
        const char *&first = m_firstAppearances[static_cast<unsigned char>(*byte)];
        if (first == nullptr) {
            first = byte;
            m_unseen.remove(*byte);
        }
    }

    std::array<std::int64_t, 128> m_counts{};
    std::array<const char *, 128> m_firstAppearances{};
    kernels::AsciiSet m_unseen = allOfAscii();
    std::vector<std::uint32_t> m_pairCounts; ///< A text has fewer bytes than these can count.
};

/// Counts characters of several code points. Those of few bytes are found without looking at their bytes one by one.
class SequenceTable {
public:
    void add(std::string_view sequence) {
        if (sequence.size() > sizeof(std::uint64_t)) {
            ++m_counts.try_emplace(sequence, 0).first->second;
            return;
        }
        std::uint64_t bytes = 0; // never only zeros: NUL is a character by itself
        std::memcpy(&bytes, sequence.data(), sequence.size());
        Recent &recent = m_recent[bytes * 0x9E3779B97F4A7C15U >> (64 - recentBits)];
        if (recent.bytes != bytes) {
            recent = {bytes, &m_counts.try_emplace(sequence, 0).first->second};
        }
        ++*recent.count;
    }
    void appendTo(std::vector<Entry> &entries) const {
        for (const auto &[sequence, count] : m_counts) {
            entries.push_back({sequence, count});
        }
    }

private:
    static constexpr unsigned recentBits = 10;
    struct Recent {
        std::uint64_t bytes = 0;
        std::int64_t *count = nullptr;
    };

    std::unordered_map<std::string_view, std::int64_t> m_counts;
    std::array<Recent, std::size_t{1} << recentBits> m_recent{};
};

/// Counts characters of any kind. Lends their bytes from the text.
class FrequencyTable {
public:
    /// Counts ASCII bytes that are each a character.
    void addBytes(std::string_view bytes) { m_bytes.add(bytes); }
    void addCharacter(std::string_view character) {
        const DecodedCodePoint first = decode(character.data(), character.data() + character.size());
        if (first.length < character.size() || first.value == replacementCharacter) {
            m_sequences.add(character);
        } else if (first.length == 1) {
            m_bytes.add(character.data());
        } else {
            addCodePoint(character, first.value);
        }
    }
    /// Everything that was counted, in no order.
    [[nodiscard]] std::vector<Entry> entries() const {
        std::vector<Entry> entries;
        for (const auto &[character, codePoint] : m_codePoints) {
            entries.push_back({character, m_codePointCounts[codePoint]});
        }
        m_bytes.appendTo(entries);
        m_sequences.appendTo(entries);
        return entries;
    }

private:
    void addCodePoint(std::string_view character, char32_t codePoint) {
        constexpr std::size_t codePoints = 0x110000;
        m_codePointCounts.resize(codePoints);
        if (m_codePointCounts[codePoint]++ == 0) {
            m_codePoints.emplace_back(character, codePoint);
        }
    }

    ByteTable m_bytes;
    std::vector<std::uint32_t> m_codePointCounts;                    ///< Of characters of one code point.
    std::vector<std::pair<std::string_view, char32_t>> m_codePoints; ///< Those that occur.
    SequenceTable m_sequences;
};

/// Counts the ASCII characters in [position, end), which does not end between the halves of a CR LF.
void addAscii(FrequencyTable &table, const char *position, const char *end) {
    while (position != end) {
        const void *const found = std::memchr(position, '\r', static_cast<std::size_t>(end - position));
        const char *const carriageReturn = found != nullptr ? static_cast<const char *>(found) : end;
        table.addBytes({position, static_cast<std::size_t>(carriageReturn - position)});
        position = carriageReturn;
        if (position != end) {
            const std::size_t length = end - position > 1 && position[1] == '\n' ? 2 : 1;
            table.addCharacter({position, length});
            position += length;
        }
    }
}

/// Counts all characters of `text`.
void addText(FrequencyTable &table, std::string_view text) {
    constexpr std::ptrdiff_t stretch = 16'384; // is still in the cache when it is counted
    const char *const end = text.data() + text.size();
    const char *begin = text.data(); // of the character that was not counted yet
    const auto endCharacter = [&](const char *characterEnd) {
        if (characterEnd != begin) {
            table.addCharacter({begin, static_cast<std::size_t>(characterEnd - begin)});
            begin = characterEnd;
        }
    };
    CharacterBlocks blocks(text);
    while (!blocks.isAtEnd()) {
        if (const char *position = blocks.position(); isAscii(*position)) {
            const char *const runEnd = asciiRunEnd(position, position + std::min(stretch, end - position));
            const auto first = static_cast<unsigned char>(*position);
            position += character_breaks::transition(blocks.state(), first).isBoundary ? 0 : 1;
            if (position != runEnd) {
                endCharacter(position);
                begin = runEnd - 1; // a mark may follow, or the other half of a CR LF
                begin -= begin != position && begin[-1] == '\r' && *begin == '\n' ? 1 : 0;
                addAscii(table, position, begin);
            }
            blocks.passAscii(runEnd);
        }
        for (CharacterBlock block; blocks.next(block);) {
            for (std::uint64_t left = block.boundaries; left != 0; left &= left - 1) {
                endCharacter(block.begin + std::countr_zero(left));
            }
        }
    }
    endCharacter(end);
}

} // namespace

std::vector<CharacterFrequency> characterFrequencies(std::string_view text) {
    FrequencyTable table;
    addText(table, text);
    std::vector<Entry> entries = table.entries();
    std::sort(entries.begin(), entries.end(), [](const Entry &left, const Entry &right) {
        return left.count != right.count ? left.count > right.count
                                         : left.firstAppearance.data() < right.firstAppearance.data();
    });
    std::vector<CharacterFrequency> frequencies;
    frequencies.reserve(entries.size());
    for (const Entry &entry : entries) {
        frequencies.push_back({std::string(entry.firstAppearance == " " ? "" : entry.firstAppearance), entry.count});
    }
    return frequencies;
}

std::string_view displayedCharacter(const CharacterFrequency &entry) {
    return entry.character.empty() ? std::string_view("Space") : entry.character;
}

std::string characterFrequencyReport(const std::vector<CharacterFrequency> &frequencies) {
    std::string report = "Character Frequency Analysis\n\n";
    for (std::size_t i = 0; i < std::min(shownFrequencyCount, frequencies.size()); ++i) {
        report.append(i == 0 ? "" : "\n").append(displayedCharacter(frequencies[i]));
        report.append(": ").append(decimalText(frequencies[i].count));
    }
    return report;
}

ToolView *CharacterFrequencyTool::makeView(const Text &text, ToolViewFactory &factory) const {
    return factory.makeCharacterFrequencyView(*this, text);
}

} // namespace lexivore
