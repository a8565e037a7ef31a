// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/character_tally.h"

#include "engine/primitives/character_blocks.h"
#include "engine/primitives/character_breaks.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <unordered_map>
#include <utility>

// Nearly all characters are one code point, for which there is a count each; where a text is ASCII, it is counted many
// bytes at a time. Only what consists of several code points, or of one that takes four bytes, is looked for by its
// bytes.
namespace lexivore {

namespace {

constexpr kernels::AsciiSet allOfAscii() {
    kernels::AsciiSet set;
    for (std::uint8_t &row : set.rows) {
        row = 0xFF;
    }
    return set;
}

/// Counts ASCII bytes that are each a character, in the order of the text.
class ByteTable {
public:
    void add(std::string_view bytes) {
        if (bytes.size() >= worthPairs) {
            addPairs(bytes);
        } else {
            addEach(bytes);
        }
    }
    /// Counts bytes that `text` begins with, which are ASCII, and returns how many: none where there are few. Which of
    /// them are no characters is to be told with `take`, and then `note` is to be called with the rest of them.
    [[nodiscard]] std::size_t addMany(std::string_view text) {
        return text.size() < worthMany ? 0 : kernels::best().countAscii(text.data(), text.size(), m_counts);
    }
    void take(char byte, std::size_t count) { m_counts.counts[static_cast<unsigned char>(byte)] -= count; }
    void note(std::string_view bytes) {
        for (std::size_t byte = 0; byte < m_firstAppearances.size(); ++byte) {
            if (m_counts.counts[byte] != 0 && m_firstAppearances[byte] == nullptr) {
                note(firstOf(static_cast<char>(byte), bytes));
            }
        }
    }
    [[nodiscard]] std::uint64_t countOf(char byte) const { return m_counts.counts[static_cast<unsigned char>(byte)]; }
    /// Calls `visit(const char *firstAppearance, std::int64_t count)` with every byte that occurs.
    template<typename Visit> void forEach(Visit visit) const {
        std::array<std::uint64_t, 128> counts = std::to_array(m_counts.counts);
        for (std::size_t pair = 0; pair < m_pairCounts.size(); ++pair) {
            counts[pair & 0x7F] += m_pairCounts[pair];
            counts[pair >> 8] += m_pairCounts[pair];
        }
        for (std::size_t byte = 0; byte < counts.size(); ++byte) {
            if (counts[byte] > 0) {
                visit(m_firstAppearances[byte], static_cast<std::int64_t>(counts[byte]));
            }
        }
    }

private:
    static constexpr std::size_t pairs = 0x8000; ///< Those of two ASCII bytes are below it, whichever comes first.
    static constexpr std::size_t worthPairs = 64;
    static constexpr std::size_t worthMany = 2048;

    void note(const char *byte) {
        const char *&first = m_firstAppearances[static_cast<unsigned char>(*byte)];
        if (first == nullptr) {
            first = byte;
            m_unseen.remove(*byte);
        }
    }

    void addEach(std::string_view bytes) {
        for (const char &byte : bytes) {
            ++m_counts.counts[static_cast<unsigned char>(byte)];
            note(&byte);
        }
    }
    /// Two at once take half the steps.
    void addPairs(std::string_view bytes) {
        forEachMember(MembershipScan(bytes, m_unseen), [this](const char *byte) { note(byte); });
        m_pairCounts.resize(pairs);
        const char *position = bytes.data();
        for (std::size_t left = bytes.size() / 2; left > 0; --left) {
            std::uint16_t pair = 0;
            std::memcpy(&pair, position, sizeof pair);
            ++m_pairCounts[pair];
            position += sizeof pair;
        }
        if (bytes.size() % 2 != 0) {
            ++m_counts.counts[static_cast<unsigned char>(bytes.back())];
        }
    }
    /// Where `byte` first stands in `bytes` without being half of a CR LF.
    static const char *firstOf(char byte, std::string_view bytes) {
        std::size_t place = bytes.find(byte);
        while ((byte == '\n' && place > 0 && bytes[place - 1] == '\r') ||
               (byte == '\r' && bytes.substr(place + 1, 1) == "\n")) {
            place = bytes.find(byte, place + 1);
        }
        return bytes.data() + place;
    }

    kernels::AsciiCounts m_counts;
    std::array<const char *, 128> m_firstAppearances{};
    kernels::AsciiSet m_unseen = allOfAscii();
    std::vector<std::uint32_t> m_pairCounts; ///< A text has fewer bytes than these can count.
};

/// Counts characters of a text by their bytes. Those that were seen lately are found without looking at their bytes one
/// by one.
class SequenceTable {
public:
    explicit SequenceTable(const char *textEnd) : m_textEnd(textEnd) {}

    void add(std::string_view sequence, std::size_t count = 1) {
        // Of up to eight bytes it is these, and never only zeros, for NUL is a character by itself.
        const std::uint64_t key = keyOf(sequence);
        Recent &recent = m_recent[key * 0x9E3779B97F4A7C15U >> (64 - recentBits)];
        const bool isShort = sequence.size() <= sizeof key;
        if (recent.key != key || recent.sequence.size() != sequence.size() ||
            (!isShort && recent.sequence != sequence)) {
            recent = {key, sequence, &m_counts.try_emplace(sequence, 0).first->second};
        }
        *recent.count += static_cast<std::int64_t>(count);
    }
    void appendTo(std::vector<TalliedCharacter> &characters) const {
        for (const auto &[sequence, count] : m_counts) {
            characters.push_back({sequence, count});
        }
    }

private:
    static constexpr unsigned recentBits = 10;
    struct Recent {
        std::uint64_t key = 0;
        std::string_view sequence;
        std::int64_t *count = nullptr;
    };

    [[nodiscard]] std::uint64_t keyOf(std::string_view sequence) const {
        std::uint64_t begin = 0;
        const std::size_t size = sequence.size();
        if (size > sizeof begin) {
            std::uint64_t end = 0;
            std::memcpy(&begin, sequence.data(), sizeof begin);
            std::memcpy(&end, sequence.data() + size - sizeof end, sizeof end);
            return begin ^ (end << 1 | 1U) * (2 * size + 1);
        }
        if constexpr (std::endian::native == std::endian::little) {
            if (m_textEnd - sequence.data() >= static_cast<std::ptrdiff_t>(sizeof begin)) {
                std::memcpy(&begin, sequence.data(), sizeof begin); // all of it at once
                return begin & ~std::uint64_t{0} >> (8 * (sizeof begin - size));
            }
        }
        std::memcpy(&begin, sequence.data(), size);
        return begin;
    }

    const char *m_textEnd;
    std::unordered_map<std::string_view, std::int64_t> m_counts;
    std::array<Recent, std::size_t{1} << recentBits> m_recent{};
};

/// Counts characters of one code point that takes up to three bytes, many at once.
class UnitTable {
public:
    /// Counts those of a block and returns the places of these characters.
    [[nodiscard]] std::uint64_t add(const CharacterBlock &block, bool isFollowedByBoundary) {
        makeRoom();
        const kernels::SingleUnits singles = kernels::best().selectSingles(
            block.starts, block.boundaries, isFollowedByBoundary, block.units, m_units.data() + m_waiting);
        m_blocks[m_blockCount++] = {block.begin, singles.places, m_waiting};
        m_waiting += singles.count;
        return singles.places;
    }
    /// Counts the character that is `unit` and stands at `place`.
    void add(std::uint16_t unit, const char *place) {
        makeRoom();
        m_blocks[m_blockCount++] = {place, 1, m_waiting};
        m_units[m_waiting++] = unit;
    }
    /// Calls `visit(const char *firstAppearance, std::uint16_t unit, std::int64_t count)` with every one that occurs.
    template<typename Visit> void forEach(Visit visit) {
        count();
        for (const auto &[unit, place] : m_firstAppearances) {
            visit(place, unit, std::int64_t{m_counts[unit]});
        }
    }

private:
    static constexpr std::size_t unitCount = 0x10000;
    static constexpr std::size_t mostWaiting = 1024;
    /// Where units come from.
    struct Block {
        const char *begin = nullptr;
        std::uint64_t places = 0;
        std::size_t firstUnit = 0;
    };

    void makeRoom() {
        if (m_waiting + kernels::blockSize > mostWaiting || m_blockCount == m_blocks.size()) {
            count();
        }
    }
    /// Counts what was put aside.
    void count() {
        if (m_waiting > 0) {
            m_counts.resize(unitCount);
        }
        std::uint32_t *const counts = m_counts.data();
        for (std::size_t i = 0; i < m_waiting; ++i) {
            if (counts[m_units[i]]++ == 0) {
                m_firstAppearances.emplace_back(m_units[i], placeOf(i));
            }
        }
        m_waiting = m_blockCount = 0;
    }
    [[nodiscard]] const char *placeOf(std::size_t index) const {
        const Block *block = m_blocks.data() + m_blockCount - 1;
        while (block->firstUnit > index) {
            --block;
        }
        std::uint64_t places = block->places;
        for (std::size_t before = index - block->firstUnit; before > 0; --before) {
            places &= places - 1;
        }
        return block->begin + std::countr_zero(places);
    }

    std::vector<std::uint32_t> m_counts; ///< A text has fewer bytes than these can count.
    std::vector<std::pair<std::uint16_t, const char *>> m_firstAppearances;
    std::array<std::uint16_t, mostWaiting + kernels::blockSize> m_units;
    std::array<Block, 32> m_blocks;
    std::size_t m_waiting = 0; ///< Units that were put aside, of that many blocks.
    std::size_t m_blockCount = 0;
};

/// Counts all characters of a text.
class Tally {
public:
    explicit Tally(std::string_view text)
        : m_end(text.data() + text.size()), m_begin(text.data()), m_blocks(text, 0, CharacterBlocks::Units::wanted),
          m_sequences(text.data() + text.size()) {}

    [[nodiscard]] std::vector<TalliedCharacter> characters() {
        addText();
        std::vector<TalliedCharacter> characters;
        std::array<TalliedCharacter, 128> ascii;
        const auto addAscii = [&ascii](const char *place, std::int64_t count) {
            TalliedCharacter &character = ascii[static_cast<unsigned char>(*place)];
            if (character.count == 0 || place < character.firstAppearance.data()) {
                character.firstAppearance = {place, 1};
            }
            character.count += count;
        };
        m_bytes.forEach(addAscii);
        m_units.forEach([&](const char *place, std::uint16_t unit, std::int64_t count) {
            if (unit < ascii.size()) {
                addAscii(place, count);
            } else {
                characters.push_back({{place, unit < 0x800U ? 2U : 3U}, count});
            }
        });
        std::copy_if(ascii.begin(), ascii.end(), std::back_inserter(characters),
                     [](const TalliedCharacter &character) { return character.count > 0; });
        m_sequences.appendTo(characters);
        return characters;
    }

private:
    void addText() {
        while (!m_blocks.isAtEnd()) {
            if (isAscii(*m_blocks.position())) {
                addAsciiRun();
            }
            CharacterBlock before; // what it ends with is known when the next one is read
            for (CharacterBlock block; m_blocks.next(block); before = block) {
                add(before, (block.boundaries & 1U) != 0);
            }
            const bool isEnd = m_blocks.isAtEnd();
            add(before, isEnd || isBoundaryBeforeAscii());
        }
        endCharacter(m_end);
    }

    [[nodiscard]] bool isBoundaryBeforeAscii() const {
        const auto first = static_cast<unsigned char>(*m_blocks.position());
        return character_breaks::transition(m_blocks.state(), first).isBoundary;
    }

    /// Counts one character, of any kind.
    void add(std::string_view character) {
        const DecodedCodePoint first = decode(character.data(), character.data() + character.size());
        const bool isIllFormed = first.length == 1 && !isAscii(character.front());
        if (first.length < character.size() || first.length == 4 || isIllFormed) {
            m_sequences.add(character);
        } else {
            m_units.add(static_cast<std::uint16_t>(first.value), character.data());
        }
    }
    /// Counts the character that was begun, if any.
    void endCharacter(const char *end) {
        if (m_begin != end) {
            add({m_begin, static_cast<std::size_t>(end - m_begin)});
            m_begin = end;
        }
    }

    void add(const CharacterBlock &block, bool isFollowedByBoundary) {
        if (block.boundaries == 0) {
            return;
        }
        endCharacter(block.begin + std::countr_zero(block.boundaries));
        const std::uint64_t singles = block.units != nullptr ? m_units.add(block, isFollowedByBoundary) : 0;
        for (std::uint64_t others = block.boundaries & ~singles; others != 0; others &= others - 1) {
            const std::uint64_t later = block.boundaries & ~(others ^ (others - 1));
            m_begin = block.begin + std::countr_zero(others);
            if (later == 0 && !isFollowedByBoundary) {
                return; // goes on in the next block
            }
            endCharacter(block.begin + (later != 0 ? static_cast<std::size_t>(std::countr_zero(later)) : block.size));
        }
        m_begin = block.begin + block.size;
    }

    void addAsciiRun() {
        if (isBoundaryBeforeAscii() && addManyBytes()) {
            return;
        }
        const char *position = m_blocks.position();
        const char *const runEnd = asciiRunEnd(position, position + std::min(stretch, m_end - position));
        position += isBoundaryBeforeAscii() ? 0 : 1;
        if (position != runEnd) {
            endCharacter(position);
            m_begin = runEnd - 1; // a mark may follow, or the other half of a CR LF
            m_begin -= m_begin != position && m_begin[-1] == '\r' && *m_begin == '\n' ? 1 : 0;
            addAscii(position, m_begin);
        }
        m_blocks.passAscii(runEnd);
    }

    /// Counts the ASCII bytes from the position on, where a character begins, if there are many. False if not.
    bool addManyBytes() {
        const char *const begin = m_blocks.position();
        const std::uint64_t returnsBefore = m_bytes.countOf('\r');
        const std::size_t counted =
            m_bytes.addMany({begin, static_cast<std::size_t>(std::min(stretch, m_end - begin))});
        if (counted == 0) {
            return false;
        }
        endCharacter(begin);
        const char *const end = begin + counted;
        m_begin = end - (end[-2] == '\r' && end[-1] == '\n' ? 2 : 1); // a mark may follow, or the other half of a CR LF
        if (m_bytes.countOf('\r') != returnsBefore) {
            takeCrLfs({begin, static_cast<std::size_t>(m_begin - begin)});
        }
        for (const char *taken = m_begin; taken != end; ++taken) {
            m_bytes.take(*taken, 1);
        }
        m_bytes.note({begin, static_cast<std::size_t>(m_begin - begin)});
        m_blocks.passAscii(end);
        return true;
    }
    /// Each CR LF of `bytes` was counted as two characters.
    void takeCrLfs(std::string_view bytes) {
        constexpr std::string_view crLf = "\r\n";
        std::size_t count = 0;
        const std::size_t first = bytes.find(crLf);
        for (std::size_t place = first; place != std::string_view::npos; place = bytes.find(crLf, place + 2)) {
            ++count;
        }
        if (count > 0) {
            m_bytes.take('\r', count);
            m_bytes.take('\n', count);
            m_sequences.add(bytes.substr(first, crLf.size()), count);
        }
    }

    /// Counts the ASCII characters in [position, end), which does not end between the halves of a CR LF.
    void addAscii(const char *position, const char *end) {
        while (position != end) {
            const void *const found = std::memchr(position, '\r', static_cast<std::size_t>(end - position));
            const char *const carriageReturn = found != nullptr ? static_cast<const char *>(found) : end;
            m_bytes.add({position, static_cast<std::size_t>(carriageReturn - position)});
            position = carriageReturn;
            if (position != end) {
                const std::size_t length = end - position > 1 && position[1] == '\n' ? 2 : 1;
                add({position, length});
                position += length;
            }
        }
    }

    static constexpr std::ptrdiff_t stretch = 65'536; ///< Is still in the cache when it is counted.

    const char *m_end;
    const char *m_begin; ///< Of the character that was not counted yet.
    CharacterBlocks m_blocks;
    ByteTable m_bytes;
    UnitTable m_units;
    SequenceTable m_sequences;
};

} // namespace

std::vector<TalliedCharacter> tallyCharacters(std::string_view text) { return Tally(text).characters(); }

} // namespace lexivore
