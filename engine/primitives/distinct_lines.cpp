// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/distinct_lines.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/code_points.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/read_ahead.h"
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
#include <unordered_set>
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

/// As many lines as can be looked at at once: what a cache holds together.
struct alignas(64) Bucket {
    static constexpr std::size_t slots = 8;

    std::array<std::uint32_t, slots> hashes; ///< 0 for a free slot.
    std::array<std::uint32_t, slots> places; ///< Of the lines that came first with them, in the text.

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
};

/// The place of the line that came first with each hash, in a table that is at most three quarters full. It knows all
/// of a hash, so that it can grow without a look at the text.
class FirstPlaces {
public:
    explicit FirstPlaces(std::size_t expectedCount)
        : m_bits(std::max(fewestBits, static_cast<int>(std::bit_width(expectedCount / Bucket::slots)))),
          m_buckets(freeBuckets()) {}

    /// For `count` hashes more.
    void makeRoom(std::size_t count) {
        while (m_size + count > bucketCount() * Bucket::slots / 4 * 3) {
            grow();
        }
    }
    void prefetch(std::uint32_t hash) const { __builtin_prefetch(&m_buckets[bucketOf(hash)]); }

    /// The place that was given first with that hash, which is not 0. There must be room. Without a branch on whether
    /// it is this one, for that cannot be guessed.
    std::uint32_t firstWith(std::uint32_t hash, std::uint32_t place) {
        for (std::size_t index = bucketOf(hash);; index = bucketBehind(index)) {
            Bucket &bucket = m_buckets[index];
            const unsigned candidates = bucket.find(hash) | bucket.find(0) << Bucket::slots;
            if (candidates == 0) [[unlikely]] {
                continue;
            }
            const auto candidate = static_cast<std::size_t>(std::countr_zero(candidates));
            const std::size_t slot = candidate % Bucket::slots;
            const auto isNew = static_cast<std::uint32_t>(candidate / Bucket::slots);
            const std::uint32_t known = bucket.places[slot];
            const std::uint32_t first = known ^ ((known ^ place) & (0U - isNew));
            bucket.hashes[slot] = hash;
            bucket.places[slot] = first;
            m_size += isNew;
            return first;
        }
    }

private:
    static constexpr int fewestBits = 7;

    [[nodiscard]] std::size_t bucketCount() const { return std::size_t{1} << m_bits; }
    [[nodiscard]] Scratch<Bucket> freeBuckets() const {
        Scratch<Bucket> buckets(bucketCount());
        std::memset(static_cast<void *>(buckets.data()), 0, bucketCount() * sizeof(Bucket));
        return buckets;
    }
    [[nodiscard]] std::size_t bucketOf(std::uint32_t hash) const { return hash >> (32 - m_bits); }
    [[nodiscard]] std::size_t bucketBehind(std::size_t index) const { return (index + 1) & (bucketCount() - 1); }

    void grow() {
        const std::size_t count = bucketCount();
        ++m_bits;
        m_size = 0;
        const Scratch<Bucket> buckets = std::exchange(m_buckets, freeBuckets());
        for (std::size_t i = 0; i < count; ++i) {
            const Bucket &bucket = buckets[i];
            for (std::size_t slot = 0; slot < Bucket::slots && bucket.hashes[slot] != 0; ++slot) {
                firstWith(bucket.hashes[slot], bucket.places[slot]);
            }
        }
    }

    int m_bits; ///< Of a hash that lead to its bucket.
    Scratch<Bucket> m_buckets;
    std::size_t m_size = 0;
};

/// Joins the lines of a text that are not there before. They take three steps in small groups, each of which waits for
/// another to be filled before it takes its next: meanwhile what that step will read comes into the cache. So little
/// waits at a time that it is there still.
class DistinctLines {
public:
    /// `text` must outlive this. Throws TextTooLarge when the places in it cannot be counted in 32 bits.
    explicit DistinctLines(std::string_view text)
        : m_text(text), m_readAhead(text), m_firstPlaces(usualLineCount(text)), m_joiner('\n', text, text.size()) {
        if (text.size() >= UINT32_MAX) {
            throw TextTooLarge();
        }
    }

    /// To be called with each line, in order.
    void add(std::string_view line) {
        m_lines[m_added % waiting] = {static_cast<std::uint32_t>(line.data() - m_text.data()),
                                      static_cast<std::uint32_t>(line.size()), 0};
        if (++m_added % groupSize == 0) {
            m_readAhead.continueFrom(line.data());
            takeSteps();
        }
    }
    [[nodiscard]] TextBuffer take() {
        for (int step = 0; step < 3; ++step) {
            takeSteps();
        }
        return m_joiner.take();
    }

private:
    using Line = kernels::HashedLine;

    static constexpr std::size_t groupSize = 32;
    static constexpr std::size_t waiting = 4 * groupSize; ///< A group before each step, and a power of two.

    /// About how many lines a text has that goes on as it begins.
    static std::size_t usualLineCount(std::string_view text) {
        constexpr std::size_t sampleSize = std::size_t{1} << 14;
        const std::string_view sample = text.substr(0, sampleSize);
        constexpr std::size_t fewestBytes = 16; // so that no table becomes much larger than its text
        const std::size_t lines = text.size() / sampleSize * lineCount(sample) / 32 * 33;
        return std::min(lines, text.size() / fewestBytes);
    }
    [[nodiscard]] std::string_view viewOf(const Line &line) const { return {m_text.data() + line.offset, line.size}; }

    /// Each group its next step, the foremost one first.
    void takeSteps() {
        join();
        find();
        hash();
    }

    void hash() {
        const std::span lines(&m_lines[m_hashed % waiting], m_added - m_hashed);
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
        for (Line &line : lines) {
            line.hash |= 1U;
            m_firstPlaces.prefetch(line.hash);
        }
        m_hashed = m_added;
    }

    /// Where a line with that hash stands that came before, or else the line itself.
    void find() {
        m_firstPlaces.makeRoom(m_hashed - m_found);
        for (; m_found < m_hashed; ++m_found) {
            const Line &line = m_lines[m_found % waiting];
            const std::uint32_t first = m_firstPlaces.firstWith(line.hash, line.offset);
            m_firsts[m_found % waiting] = first;
            __builtin_prefetch(m_text.data() + first);
        }
    }

    void join() {
        for (; m_joined < m_found; ++m_joined) {
            const Line &line = m_lines[m_joined % waiting];
            const std::uint32_t first = m_firsts[m_joined % waiting];
            if (first == line.offset || (!isSame(first, line) && m_othersOfSameHash.insert(viewOf(line)).second)) {
                m_joiner.add(viewOf(line));
            }
        }
    }
    /// Whether what begins there, before the line, is the same one.
    [[nodiscard]] bool isSame(std::uint32_t place, const Line &line) const {
        const char *const other = m_text.data() + place;
        return std::memcmp(other, m_text.data() + line.offset, line.size) == 0 &&
               isNewline(decode(other + line.size, m_text.data() + m_text.size()).value);
    }

    std::string_view m_text;
    const Seeds &m_seeds = seeds();
    ReadAhead m_readAhead;
    FirstPlaces m_firstPlaces;
    std::unordered_set<std::string_view> m_othersOfSameHash; ///< Lines whose hash a different one had before.
    Joiner m_joiner;

    std::array<Line, waiting> m_lines;
    std::array<std::uint32_t, waiting> m_firsts;
    // How many lines have come that far.
    std::size_t m_added = 0;
    std::size_t m_hashed = 0;
    std::size_t m_found = 0;
    std::size_t m_joined = 0;
};

} // namespace

TextBuffer distinctLines(std::string_view text) {
    DistinctLines lines(text);
    forEachLine(text, [&lines](std::string_view line) { lines.add(line); });
    return lines.take();
}

} // namespace lexivore
