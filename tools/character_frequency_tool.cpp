// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/character_frequency_tool.h"

#include "engine/primitives/character_blocks.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/utf8.h"
#include "tools/number_text.h"
#include "tools/tool_view_factory.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <unordered_map>

namespace lexivore {

namespace {

/// A character where it first stands in the text, and how often it occurs.
struct Entry {
    std::string_view firstAppearance;
    std::int64_t count = 0;
};

/// Counts ASCII bytes that are each a character.
class ByteTable {
public:
    void add(const char *byte) {
        const auto index = static_cast<unsigned char>(*byte);
        if (m_counts[index]++ == 0) {
            m_firstAppearances[index] = byte;
        }
    }
    /// Adds what another table has counted further on in the same text, or in turn with this one.
    void add(const ByteTable &other) {
        for (std::size_t byte = 0; byte < m_counts.size(); ++byte) {
            if (other.m_counts[byte] == 0) {
                continue;
            }
            const bool isFirst = m_counts[byte] == 0 || other.m_firstAppearances[byte] < m_firstAppearances[byte];
            m_firstAppearances[byte] = isFirst ? other.m_firstAppearances[byte] : m_firstAppearances[byte];
            m_counts[byte] += other.m_counts[byte];
        }
    }
    void appendTo(std::vector<Entry> &entries) const {
        for (std::size_t byte = 0; byte < m_counts.size(); ++byte) {
            if (m_counts[byte] > 0) {
                entries.push_back({{m_firstAppearances[byte], 1}, m_counts[byte]});
            }
        }
    }

private:
    std::array<std::int64_t, 128> m_counts{};
    std::array<const char *, 128> m_firstAppearances{};
};

/// Counts characters of any kind. Lends their bytes from the text.
class FrequencyTable {
public:
    /// Counts ASCII bytes that are each a character.
    void addBytes(const char *position, const char *end) {
        for (; end - position >= static_cast<std::ptrdiff_t>(m_bytes.size()); position += m_bytes.size()) {
            for (std::size_t i = 0; i < m_bytes.size(); ++i) {
                m_bytes[i].add(position + i);
            }
        }
        for (; position != end; ++position) {
            m_bytes[0].add(position);
        }
    }
    void addCharacter(std::string_view character) {
        const DecodedCodePoint first = decode(character.data(), character.data() + character.size());
        if (first.length < character.size() || first.value == replacementCharacter) {
            add(character, m_bySequence.try_emplace(character, 0).first->second);
        } else if (first.length == 1) {
            m_bytes[0].add(character.data());
        } else {
            m_byCodePoint.resize(0x110000);
            add(character, m_byCodePoint[first.value]);
        }
    }
    /// Everything that was counted, in no order.
    [[nodiscard]] std::vector<Entry> take() {
        std::for_each(m_bytes.begin() + 1, m_bytes.end(), [this](const ByteTable &table) { m_bytes[0].add(table); });
        m_bytes[0].appendTo(m_entries);
        return std::move(m_entries);
    }

private:
    /// `place` is one more than the character's index among the entries, or 0 when it is new.
    void add(std::string_view character, std::size_t &place) {
        if (place == 0) {
            m_entries.push_back({character, 0});
            place = m_entries.size();
        }
        ++m_entries[place - 1].count;
    }

    std::array<ByteTable, 4> m_bytes; ///< Used in turn, so that equal bytes in a row need not wait for each other.
    std::vector<Entry> m_entries;     ///< Of everything else.
    std::vector<std::size_t> m_byCodePoint;                         ///< The places of characters of one code point.
    std::unordered_map<std::string_view, std::size_t> m_bySequence; ///< The places of all others.
};

/// Counts the ASCII characters in [position, end), which does not end between the halves of a CR LF.
void addAscii(FrequencyTable &table, const char *position, const char *end) {
    while (position != end) {
        const void *const found = std::memchr(position, '\r', static_cast<std::size_t>(end - position));
        const char *const carriageReturn = found != nullptr ? static_cast<const char *>(found) : end;
        table.addBytes(position, carriageReturn);
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
    std::vector<Entry> entries = table.take();
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
