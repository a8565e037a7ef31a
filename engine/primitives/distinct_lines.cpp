// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/distinct_lines.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/scratch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>
#include <random>
#include <span>
#include <utility>

#define XXH_INLINE_ALL
#include <xxhash.h>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace lexivore {

namespace {

/// Numbers that no text can know: hashes are seeded anew in each run of the program, so that no text can be made to
/// collide.
struct Seeds {
    kernels::LineHash ofLines;
    std::uint64_t ofLongLines;
};

const Seeds &seeds() {
    static const Seeds made = [] {
        std::random_device source;
        const auto next = [&source] { return std::uint64_t{source()} << 32 | source(); };
        Seeds seeds{{{}, next() | 1U, next() | 1U}, next()};
        std::generate(std::begin(seeds.ofLines.addends), std::end(seeds.ofLines.addends), std::ref(source));
        return seeds;
    }();
    return made;
}

using Line = kernels::HashedLine;

/// As many lines as can be looked at at once: what a cache holds together.
struct alignas(64) Bucket {
    static constexpr std::size_t slots = 8;

    std::array<std::uint32_t, slots> hashes; ///< 0 for a free slot.
    std::array<std::uint32_t, slots> places; ///< Of the lines, in the text.

    /// A bit for each slot with that hash.
    [[nodiscard]] unsigned find(std::uint32_t hash) const {
#ifdef __SSE2__
        const __m128i wanted = _mm_set1_epi32(static_cast<int>(hash));
        const auto *const halves = reinterpret_cast<const __m128i *>(hashes.data());
        const __m128i low = _mm_cmpeq_epi32(_mm_load_si128(halves), wanted);
        const __m128i high = _mm_cmpeq_epi32(_mm_load_si128(halves + 1), wanted);
        return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(low)) | _mm_movemask_ps(_mm_castsi128_ps(high))
                                                                                  << 4);
#else
        unsigned found = 0;
        for (std::size_t i = 0; i < slots; ++i) {
            found |= unsigned{hashes[i] == hash} << i;
        }
        return found;
#endif
    }
    /// False when no slot is free.
    bool put(std::uint32_t hash, std::uint32_t place) {
        const unsigned free = find(0);
        if (free == 0) {
            return false;
        }
        const auto slot = static_cast<std::size_t>(std::countr_zero(free));
        hashes[slot] = hash;
        places[slot] = place;
        return true;
    }
};

/// A set of lines of a text: a table that is at most three quarters full. It knows all of a hash, so that it can grow
/// without a look at the text.
class LineSet {
public:
    /// `text` must outlive the set. Throws TextTooLarge when the places in it cannot be counted in 32 bits.
    explicit LineSet(std::string_view text)
        : m_text(text),
          m_bits(std::max(fewestBits, static_cast<int>(std::bit_width(usualLineCount(text) / Bucket::slots)))),
          m_buckets(freeBuckets()) {
        if (text.size() >= UINT32_MAX) {
            throw TextTooLarge();
        }
    }

    /// Without its hash yet.
    [[nodiscard]] Line lineOf(std::string_view line) const {
        return {static_cast<std::uint32_t>(line.data() - m_text.data()), static_cast<std::uint32_t>(line.size()), 0};
    }
    [[nodiscard]] std::string_view viewOf(const Line &line) const { return {m_text.data() + line.offset, line.size}; }

    // Lines are looked for some at a time, in steps between which the memory comes into the cache: prepare all,
    // lineToCompare of each, which is to be prefetched, insert each.
    void prepare(std::span<Line> lines) {
        while (m_size + lines.size() > bucketCount() * Bucket::slots / 4 * 3) {
            grow();
        }
        hash(lines);
        for (Line &line : lines) {
            line.hash |= 1U;
            __builtin_prefetch(&m_buckets[bucketOf(line.hash)]);
        }
    }
    /// Where a line stands that may be the same, if there is one.
    [[nodiscard]] const char *lineToCompare(const Line &line) const {
        const Bucket &bucket = m_buckets[bucketOf(line.hash)];
        const unsigned found = bucket.find(line.hash);
        const std::uint32_t place = bucket.places[static_cast<std::size_t>(std::countr_zero(found | 0x80U))];
        return m_text.data() + (found != 0 ? place : line.offset);
    }
    /// True when the line was not in the set before. Lines are inserted in their order in the text.
    bool insert(const Line &line) {
        std::size_t index = bucketOf(line.hash);
        for (;; index = bucketBehind(index)) {
            Bucket &bucket = m_buckets[index];
            for (unsigned found = bucket.find(line.hash); found != 0; found &= found - 1) {
                if (isSame(bucket.places[static_cast<std::size_t>(std::countr_zero(found))], line)) {
                    return false;
                }
            }
            if (bucket.put(line.hash, line.offset)) {
                ++m_size;
                return true;
            }
        }
    }

private:
    static constexpr int fewestBits = 7;

    /// About how many lines a text has that goes on as it begins.
    static std::size_t usualLineCount(std::string_view text) {
        constexpr std::size_t sampleSize = std::size_t{1} << 14;
        const std::string_view sample = text.substr(0, sampleSize);
        constexpr std::size_t fewestBytes = 16; // so that no table becomes much larger than its text
        const std::size_t lines = text.size() / sampleSize * lineCount(sample) / 32 * 33;
        return std::min(lines, text.size() / fewestBytes);
    }
    [[nodiscard]] std::size_t bucketCount() const { return std::size_t{1} << m_bits; }
    [[nodiscard]] Scratch<Bucket> freeBuckets() const {
        Scratch<Bucket> buckets(bucketCount());
        std::memset(static_cast<void *>(buckets.data()), 0, bucketCount() * sizeof(Bucket));
        return buckets;
    }
    void hash(std::span<Line> lines) const {
        std::size_t readable = lines.size(); // as far as the kernel does
        while (readable > 0 && m_text.size() - lines[readable - 1].offset < kernels::longestHashedLine) {
            --readable;
        }
        kernels::best().hashLines(m_text.data(), lines.data(), readable, m_seeds.ofLines);
        for (Line &line : lines.first(readable)) {
            if (line.size > kernels::longestHashedLine) {
                line.hash = static_cast<std::uint32_t>(
                    XXH3_64bits_withSeed(viewOf(line).data(), line.size, m_seeds.ofLongLines));
            }
        }
        for (Line &line : lines.subspan(readable)) {
            std::array<char, kernels::longestHashedLine> copy = {};
            viewOf(line).copy(copy.data(), copy.size());
            Line copied{0, line.size, 0};
            kernels::best().hashLines(copy.data(), &copied, 1, m_seeds.ofLines);
            line.hash = copied.hash;
        }
    }
    [[nodiscard]] std::size_t bucketOf(std::uint32_t hash) const { return hash >> (32 - m_bits); }
    [[nodiscard]] std::size_t bucketBehind(std::size_t index) const { return (index + 1) & (bucketCount() - 1); }

    [[nodiscard]] bool isSame(std::uint32_t place, const Line &line) const {
        const char *const other = m_text.data() + place; // as long, at the least, as what it begins like
        return std::memcmp(other, m_text.data() + line.offset, line.size) == 0 && isLineEnd(other + line.size);
    }
    /// Whether a newline character stands there, before the end of the text.
    [[nodiscard]] bool isLineEnd(const char *place) const {
        const char *const end = m_text.data() + m_text.size();
        return place == end || isNewline(decode(place, end).value);
    }

    void grow() {
        const std::size_t count = bucketCount();
        ++m_bits;
        const Scratch<Bucket> buckets = std::exchange(m_buckets, freeBuckets());
        for (std::size_t i = 0; i < count; ++i) {
            const Bucket &bucket = buckets[i];
            for (std::size_t slot = 0; slot < Bucket::slots && bucket.hashes[slot] != 0; ++slot) {
                std::size_t index = bucketOf(bucket.hashes[slot]);
                while (!m_buckets[index].put(bucket.hashes[slot], bucket.places[slot])) {
                    index = bucketBehind(index);
                }
            }
        }
    }

    std::string_view m_text;
    const Seeds &m_seeds = seeds();
    int m_bits; ///< Of a hash that lead to its bucket.
    Scratch<Bucket> m_buckets;
    std::size_t m_size = 0;
};

} // namespace

TextBuffer distinctLines(std::string_view text) {
    Joiner joiner('\n', text, text.size());
    LineSet seen(text);
    std::array<Line, 128> waiting; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
    std::size_t waitingCount = 0;
    const auto lookUp = [&]() {
        const std::span<Line> lines(waiting.data(), waitingCount);
        seen.prepare(lines);
        for (const Line &line : lines) {
            __builtin_prefetch(seen.lineToCompare(line));
        }
        for (const Line &line : lines) {
            if (seen.insert(line)) {
                joiner.add(seen.viewOf(line));
            }
        }
        waitingCount = 0;
    };
    forEachLine(text, [&](std::string_view line) {
        waiting[waitingCount] = seen.lineOf(line);
        if (++waitingCount == waiting.size()) {
            lookUp();
        }
    });
    lookUp();
    return joiner.take();
}

} // namespace lexivore
