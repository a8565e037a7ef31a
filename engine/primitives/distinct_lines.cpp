// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/distinct_lines.h"

#include "engine/kernels/kernels.h"
#include "engine/primitives/bit_tally.h"
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
#include <unordered_set>
#include <utility>

#define XXH_INLINE_ALL
#include <xxhash.h>

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

/// Where the lines are that came first with each hash, in a table that is at most three quarters full. It knows all of
/// a hash, so that it can grow without a look at the text.
class FirstLines {
public:
    explicit FirstLines(std::size_t expectedCount)
        : m_bits(std::max(fewestBits, static_cast<int>(std::bit_width(expectedCount / Bucket::slotCount)))),
          m_buckets(freeBuckets()) {}

    /// Asks for the memory where the hashes of the lines belong.
    void prefetch(const kernels::LineBatch &lines, std::size_t count) const {
        for (std::size_t i = 0; i < count; ++i) {
            __builtin_prefetch(m_buckets.data() + (lines.hashes[i] >> (bitsInHash - m_bits)));
        }
    }
    /// Finds the lines that came first with the hashes of these. Returns a bit for each that did not itself.
    std::uint32_t enter(kernels::LineBatch &lines, std::size_t count) {
        while (m_size + count > bucketCount() * Bucket::slotCount / 4 * 3) {
            grow();
        }
        const std::uint32_t known = kernels::best().enterLines(lines, count, {m_buckets.data(), m_bits});
        m_size += count - bitCount(known);
        return known;
    }

private:
    using Bucket = kernels::LineBucket;

    static constexpr int bitsInHash = 32;
    static constexpr int fewestBits = 7;

    [[nodiscard]] std::size_t bucketCount() const { return std::size_t{1} << m_bits; }
    [[nodiscard]] Scratch<Bucket> freeBuckets() const {
        Scratch<Bucket> buckets(bucketCount());
        std::memset(static_cast<void *>(buckets.data()), 0, bucketCount() * sizeof(Bucket));
        return buckets;
    }

    void grow() {
        const std::size_t count = bucketCount();
        ++m_bits;
        m_size = 0;
        const Scratch<Bucket> buckets = std::exchange(m_buckets, freeBuckets());
        for (std::size_t i = 0; i < count; ++i) {
            kernels::LineBatch lines; // NOLINT(cppcoreguidelines-pro-type-member-init): what is read was written
            std::size_t used = 0;
            for (; used < Bucket::slotCount && buckets[i].hashes[used] != 0; ++used) {
                lines.hashes[used] = buckets[i].hashes[used];
                lines.offsets[used] = buckets[i].offsets[used];
            }
            enter(lines, used);
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
    /// Lines that take their steps together.
    struct Group {
        kernels::LineBatch lines;
        std::size_t size = 0;
        /// A bit for each line that does not follow the one before it with a line feed between them.
        std::uint32_t breaks = 0;
        std::uint32_t known = 0; ///< A bit for each line whose hash another one had before.
    };

    /// `text` must outlive this. Throws TextTooLarge when the places in it cannot be counted in 32 bits.
    explicit DistinctLines(std::string_view text)
        : m_text(text), m_firstLines(usualLineCount(text)), m_joiner('\n', text, text.size()) {
        if (text.size() >= UINT32_MAX) {
            throw TextTooLarge();
        }
    }

    /// Where the next lines belong.
    [[nodiscard]] Group &next() { return m_groups[m_next]; }
    /// To be called when these are there, all lines in order; the last ones, too.
    void takeSteps() {
        join(m_groups[(m_next + 1) % std::size(m_groups)]);
        enter(m_groups[(m_next + 2) % std::size(m_groups)]);
        hash(m_groups[m_next]);
        m_next = (m_next + 1) % std::size(m_groups);
        next().size = 0;
    }
    [[nodiscard]] TextBuffer take() {
        takeSteps(); // those that are hashed and entered
        takeSteps();
        return m_joiner.take();
    }

private:
    /// About how many lines a text has that goes on as it begins.
    static std::size_t usualLineCount(std::string_view text) {
        constexpr std::size_t sampleSize = std::size_t{1} << 14;
        const std::string_view sample = text.substr(0, sampleSize);
        constexpr std::size_t fewestBytes = 16; // so that no table becomes much larger than its text
        const std::size_t lines = text.size() / sampleSize * lineCount(sample) / 32 * 33;
        return std::min(lines, text.size() / fewestBytes);
    }
    [[nodiscard]] std::string_view lineAt(const Group &group, std::size_t index) const {
        return {m_text.data() + group.lines.offsets[index], group.lines.sizes[index]};
    }

    void hash(Group &group) {
        std::size_t readable = group.size; // as far as the kernel does
        while (readable > 0 && m_text.size() - group.lines.offsets[readable - 1] < kernels::longestHashedLine) {
            --readable;
        }
        const std::uint32_t tooLong = kernels::best().hashLines(m_text.data(), group.lines, readable, m_seeds.ofLines);
        for (std::uint32_t left = tooLong; left != 0; left &= left - 1) {
            const auto index = static_cast<std::size_t>(std::countr_zero(left));
            const std::string_view line = lineAt(group, index);
            group.lines.hashes[index] =
                static_cast<std::uint32_t>(XXH3_64bits_withSeed(line.data(), line.size(), m_seeds.ofLongLines)) | 1U;
        }
        for (std::size_t i = readable; i < group.size; ++i) {
            std::array<char, kernels::longestHashedLine> copy = {};
            kernels::LineBatch copied{{0}, {group.lines.sizes[i]}, {}, {}};
            lineAt(group, i).copy(copy.data(), copy.size());
            kernels::best().hashLines(copy.data(), copied, 1, m_seeds.ofLines);
            group.lines.hashes[i] = copied.hashes[0];
        }
        m_firstLines.prefetch(group.lines, group.size);
    }

    void enter(Group &group) {
        group.known = m_firstLines.enter(group.lines, group.size);
        for (std::uint32_t left = group.known; left != 0; left &= left - 1) {
            __builtin_prefetch(m_text.data() + group.lines.firsts[std::countr_zero(left)]);
        }
    }

    void join(const Group &group) {
        std::uint64_t kept = (std::uint64_t{1} << group.size) - 1;
        for (std::uint32_t left = group.known; left != 0; left &= left - 1) {
            const auto index = static_cast<std::size_t>(std::countr_zero(left));
            const std::string_view line = lineAt(group, index);
            if (isSame(group.lines.firsts[index], line) || !m_othersOfSameHash.insert(line).second) {
                kept ^= left & -left;
            }
        }
        // All that stand side by side are one piece.
        const std::uint64_t following = kept & kept << 1 & ~std::uint64_t{group.breaks};
        for (std::uint64_t left = kept & ~following; left != 0; left &= left - 1) {
            const auto first = static_cast<std::size_t>(std::countr_zero(left));
            const std::size_t last = first + static_cast<std::size_t>(std::countr_one(following >> (first + 1)));
            const char *const begin = lineAt(group, first).data();
            const std::string_view lastLine = lineAt(group, last);
            m_joiner.add({begin, static_cast<std::size_t>(lastLine.data() + lastLine.size() - begin)});
        }
    }
    /// Whether the line that begins there, before this one, is the same.
    [[nodiscard]] bool isSame(std::uint32_t offset, std::string_view line) const {
        const char *const other = m_text.data() + offset;
        return std::memcmp(other, line.data(), line.size()) == 0 &&
               isNewline(decode(other + line.size(), m_text.data() + m_text.size()).value);
    }

    std::string_view m_text;
    const Seeds &m_seeds = seeds();
    FirstLines m_firstLines;
    std::unordered_set<std::string_view> m_othersOfSameHash; ///< Lines whose hash a different one had before.
    Joiner m_joiner;
    std::array<Group, 3> m_groups; ///< One that is filled, one that is hashed, and one that is entered.
    std::size_t m_next = 0;
};

} // namespace

TextBuffer distinctLines(std::string_view text) {
    DistinctLines lines(text);
    DistinctLines::Group *group = &lines.next();
    std::size_t size = 0;
    std::uint32_t breaks = 0;
    const auto takeSteps = [&] {
        group->size = std::exchange(size, 0);
        group->breaks = std::exchange(breaks, 0);
        lines.takeSteps();
        group = &lines.next();
    };
    const char lineFeed = '\n';
    const char *endBefore = &lineFeed; // what the line before ends with
    forEachLine(text, [&](std::string_view line) {
        group->lines.offsets[size] = static_cast<std::uint32_t>(line.data() - text.data());
        group->lines.sizes[size] = static_cast<std::uint32_t>(line.size());
        breaks |= std::uint32_t{*endBefore != '\n'} << size;
        endBefore = line.data() + line.size();
        if (++size == kernels::LineBatch::mostLines) {
            takeSteps();
        }
    });
    takeSteps();
    return lines.take();
}

} // namespace lexivore
