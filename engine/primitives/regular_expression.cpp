// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/regular_expression.h"

#include "engine/primitives/byte_search.h"
#include "engine/primitives/pattern_syntax.h"
#include "engine/primitives/replacement.h"
#include "engine/primitives/replacement_template.h"
#include "engine/primitives/sequence_pattern.h"
#include "engine/primitives/simple_pattern.h"
#include "engine/primitives/utf8.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace lexivore {

namespace {

/// What ICU may take to remember where it can go back to; its own limit of 8 MB ends "(a|b)*" after 100,000 characters.
constexpr std::int32_t mostStackBytes = 64 << 20;

/// Seconds of the processor that this program has taken: a busy machine makes no pattern fail.
double processorSeconds() {
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// How long the search of a whole text may take: a fixed time, and what a harmless pattern may need for its size.
double secondsAllowed(std::size_t bytes) {
    constexpr double fixedSeconds = 1.25;
    constexpr double bytesPerSecond = 25e6;
    return fixedSeconds + static_cast<double>(bytes) / bytesPerSecond;
}

/// A clock that ticks every few milliseconds and takes next to no time to look at.
std::int64_t coarseTicks() {
    std::timespec time{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

/// Until when the search of a text may go on.
class Deadline {
public:
    explicit Deadline(std::size_t bytes) : m_seconds(processorSeconds() + secondsAllowed(bytes)) {}

    [[nodiscard]] bool isPassed() const { return processorSeconds() >= m_seconds; }
    /// The same, asked at each attempt to match. All of these may take a moment more: a search whose attempts are short
    /// comes to its end, however many there are.
    [[nodiscard]] bool isPassedAtAttempt() {
        constexpr std::size_t attemptsForALook = 16;
        return ++m_attempts % attemptsForALook == 0 && isPassedAfterAttempts();
    }

private:
    [[nodiscard]] bool isPassedAfterAttempts() {
        constexpr double secondsForAnAttempt = 1e-6;
        const std::int64_t ticks = coarseTicks();
        return std::exchange(m_ticks, ticks) != ticks &&
               processorSeconds() >= m_seconds + static_cast<double>(m_attempts) * secondsForAnAttempt;
    }

    double m_seconds;
    std::size_t m_attempts = 0;
    std::int64_t m_ticks = 0; ///< When the processor's time was looked at.
};

/// ICU asks this from time to time while it backtracks.
UBool U_CALLCONV mayGoOn(const void *deadline, std::int32_t) {
    return static_cast<const Deadline *>(deadline)->isPassed() ? 0 : 1;
}

/// And this behind each attempt that failed, which may have read a whole text without backtracking.
UBool U_CALLCONV mayTryAgain(const void *deadline, std::int64_t) {
    return static_cast<Deadline *>(const_cast<void *>(deadline))->isPassedAtAttempt() ? 0 : 1;
}

std::string describe(UErrorCode status) {
    return u_errorName(status == U_REGEX_STOPPED_BY_CALLER ? U_REGEX_TIME_OUT : status);
}

[[noreturn]] void fail(UErrorCode status) { throw RegularExpressionError(describe(status)); }

void check(UErrorCode status) {
    if (U_FAILURE(status)) {
        fail(status);
    }
}

icu::UnicodeString toUtf16(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() / 2)) {
        fail(U_INDEX_OUTOFBOUNDS_ERROR); // ICU's strings are indexed by 32-bit numbers
    }
    icu::UnicodeString result;
    char16_t *const units = result.getBuffer(static_cast<std::int32_t>(text.size()));
    if (units == nullptr) {
        fail(U_MEMORY_ALLOCATION_ERROR);
    }
    std::int32_t length = 0;
    const char *position = text.data();
    const char *const end = position + text.size();
    while (position != end) {
        const char *const runEnd = asciiRunEnd(position, end);
        for (; position != runEnd; ++position) {
            units[length++] = static_cast<unsigned char>(*position);
        }
        if (position != end) {
            const DecodedCodePoint decoded = decode(position, end);
            U16_APPEND_UNSAFE(units, length, static_cast<UChar32>(decoded.value));
            position += decoded.length;
        }
    }
    result.releaseBuffer(length);
    return result;
}

void appendUtf8(TextBuffer &to, const icu::UnicodeString &text, std::int32_t begin, std::int32_t end) {
    constexpr std::size_t longestUnit = 3; // bytes of UTF-8 for one unit of UTF-16
    char *place = to.room(static_cast<std::size_t>(end - begin) * longestUnit + 1);
    const char16_t *const units = text.getBuffer();
    while (begin < end) {
        UChar32 codePoint = 0;
        U16_NEXT(units, begin, end, codePoint);
        // Where a pattern has one half of a surrogate pair, ICU lets a match or a group end between the two.
        place = encode(U_IS_SURROGATE(codePoint) ? replacementCharacter : static_cast<char32_t>(codePoint), place);
    }
    to.commit(place);
}

/// Follows a position in a text in UTF-8 and in UTF-16 at once, forwards only.
class ParallelPosition {
public:
    ParallelPosition(std::string_view text, std::int32_t units)
        : m_text(text), m_isUnitAByte(static_cast<std::size_t>(units) == text.size()) {}

    /// Moves to the UTF-16 index `unit` and returns the byte offset there.
    std::size_t moveTo(std::int32_t unit) {
        if (m_isUnitAByte) {
            return static_cast<std::size_t>(unit);
        }
        const char *const end = m_text.data() + m_text.size();
        while (m_unit < unit) {
            const char *const position = m_text.data() + m_byte;
            // No byte is more than a unit, so that this run of ASCII does not lead too far.
            const std::int32_t run = static_cast<std::int32_t>(
                asciiRunEnd(position, position + std::min<std::ptrdiff_t>(end - position, unit - m_unit)) - position);
            m_unit += run;
            m_byte += static_cast<std::size_t>(run);
            if (m_unit < unit) {
                const DecodedCodePoint decoded = decode(m_text.data() + m_byte, end);
                m_unit += decoded.length == 4 ? 2 : 1;
                m_byte += decoded.length;
            }
        }
        return m_byte;
    }

private:
    std::string_view m_text;
    bool m_isUnitAByte;
    std::size_t m_byte = 0;
    std::int32_t m_unit = 0;
};

std::unique_ptr<icu::RegexPattern> compile(std::string_view pattern) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError place{};
    std::unique_ptr<icu::RegexPattern> compiled(icu::RegexPattern::compile(toUtf16(pattern), 0, place, status));
    if (U_FAILURE(status)) {
        std::string description = describe(status);
        if (place.line > 0) {
            description += " (line " + std::to_string(place.line) + ", offset " + std::to_string(place.offset) + ")";
        }
        throw RegularExpressionError(description);
    }
    return compiled;
}

/// A pattern with all that has been found out about it.
struct Pattern {
    std::string source;
    std::unique_ptr<icu::RegexPattern> compiled;
    std::optional<SequencePattern> sequence;
    std::string required; ///< A literal that every match has, or nothing.
};

Pattern preparePattern(std::string_view source) {
    Pattern pattern{std::string(source), compile(source), std::nullopt, {}};
    if (const auto tokens = readPattern(pattern.source)) {
        pattern.sequence = SequencePattern::make(*tokens);
        pattern.required = requiredLiteral(*tokens);
    }
    return pattern;
}

/// The pattern, ready for use. The last few are kept: a stack that is run again has the same ones.
const Pattern &preparedPattern(std::string_view source) {
    constexpr std::size_t mostKept = 8;
    static std::list<Pattern> kept; // the one used last in front
    const auto found = std::ranges::find(kept, source, &Pattern::source);
    if (found != kept.end()) {
        kept.splice(kept.begin(), kept, found);
    } else {
        kept.push_front(preparePattern(source));
        if (kept.size() > mostKept) {
            kept.pop_back();
        }
    }
    return kept.front();
}

/// Copies a text with some parts of it, in order, replaced.
class MatchReplacer {
public:
    explicit MatchReplacer(std::string_view text) : m_text(text), m_result(TextBuffer::withCapacity(text.size())) {}

    /// What stands before the byte `begin` has been copied; now comes what replaces the part up to `end`.
    TextBuffer &replace(std::size_t begin, std::size_t end) {
        m_result.append(m_text.substr(m_copied, begin - m_copied));
        m_copied = end;
        return m_result;
    }
    [[nodiscard]] TextBuffer take() {
        m_result.append(m_text.substr(m_copied));
        m_result.shrink();
        return std::move(m_result);
    }

private:
    std::string_view m_text;
    TextBuffer m_result;
    std::size_t m_copied = 0;
};

/// Throws TextTooLarge before gigabytes are written in vain. `forEachSize(visit)` tells the sizes of every match and of
/// its replacement; it is asked only when it could come to that.
template<typename ForEachSize>
void requireRoomForAll(std::string_view text, const ReplacementTemplate &replacement, ForEachSize forEachSize) {
    if (replacement.mostBytesFor(text.size()) <= largestText) {
        return;
    }
    std::size_t size = text.size();
    forEachSize([&](std::size_t matched, std::size_t written) {
        size += written - matched;
        if (size > largestText + text.size()) { // whatever the rest of the matches is
            throw TextTooLarge();
        }
    });
}

TextBuffer replaceSimply(std::string_view text, const SimplePattern &pattern, const ReplacementTemplate &replacement) {
    if (!pattern.literal.empty()) {
        TextBuffer same; // for every match
        replacement.append(same, [&](int group) { same.append(group == 0 ? pattern.literal : std::string_view()); });
        return replaceAll(text, pattern.literal, same);
    }
    requireRoomForAll(text, replacement, [&](auto visit) {
        forEachMatch(text, pattern, [&](std::string_view match) {
            visit(match.size(), replacement.sizeFor([&](int group) { return group == 0 ? match.size() : 0; }));
        });
    });
    MatchReplacer replacer(text);
    forEachMatch(text, pattern, [&](std::string_view match) {
        const auto begin = static_cast<std::size_t>(match.data() - text.data());
        TextBuffer &result = replacer.replace(begin, begin + match.size());
        replacement.append(result, [&](int group) { result.append(group == 0 ? match : std::string_view()); });
    });
    return replacer.take();
}

/// Nothing when the text is not made for it.
std::optional<TextBuffer> replaceSequence(std::string_view text, const SequencePattern &pattern,
                                          const ReplacementTemplate &replacement) {
    if (!pattern.canSearch(text)) {
        return std::nullopt;
    }
    requireRoomForAll(text, replacement, [&](auto visit) {
        (void)pattern.forEachMatch(text, [&](const SequencePattern::Groups &groups) {
            visit(groups[0].size(), replacement.sizeFor([&](int group) {
                return static_cast<std::size_t>(group) < groups.size() ? groups[static_cast<std::size_t>(group)].size()
                                                                       : 0;
            }));
        });
    });
    MatchReplacer replacer(text);
    const bool isDone = pattern.forEachMatch(text, [&](const SequencePattern::Groups &groups) {
        const auto begin = static_cast<std::size_t>(groups[0].data() - text.data());
        TextBuffer &result = replacer.replace(begin, begin + groups[0].size());
        replacement.append(result, [&](int group) {
            if (static_cast<std::size_t>(group) < groups.size()) {
                result.append(groups[static_cast<std::size_t>(group)]);
            }
        });
    });
    return isDone ? std::optional(replacer.take()) : std::nullopt;
}

TextBuffer replaceWithIcu(std::string_view text, const icu::RegexPattern &pattern,
                          const ReplacementTemplate &replacement) {
    const icu::UnicodeString input = toUtf16(text);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::RegexMatcher> matcher(pattern.matcher(input, status));
    check(status);
    Deadline deadline(text.size());
    matcher->setMatchCallback(mayGoOn, &deadline, status);
    matcher->setFindProgressCallback(mayTryAgain, &deadline, status);
    matcher->setStackLimit(mostStackBytes, status);
    check(status);

    MatchReplacer replacer(text);
    ParallelPosition position(text, input.length());
    while (matcher->find(status) != 0) {
        if (deadline.isPassedAtAttempt()) {
            fail(U_REGEX_TIME_OUT);
        }
        const std::size_t begin = position.moveTo(matcher->start(status));
        TextBuffer &result = replacer.replace(begin, position.moveTo(matcher->end(status)));
        replacement.append(result, [&](int group) {
            if (group <= matcher->groupCount() && matcher->start(group, status) >= 0) { // it took part in the match
                appendUtf8(result, input, matcher->start(group, status), matcher->end(group, status));
            }
        });
        check(status);
    }
    check(status);
    return replacer.take();
}

} // namespace

TextBuffer replaceMatches(std::string_view text, std::string_view pattern, std::string_view replacementTemplate) {
    const ReplacementTemplate replacement(replacementTemplate);
    if (const std::optional<SimplePattern> simple = simplePattern(pattern)) {
        return replaceSimply(text, *simple, replacement);
    }
    const Pattern &prepared = preparedPattern(pattern);
    if (!prepared.required.empty() && findBytes(text, prepared.required) == std::string_view::npos) {
        return TextBuffer(text);
    }
    if (prepared.sequence.has_value()) {
        if (std::optional<TextBuffer> result = replaceSequence(text, *prepared.sequence, replacement)) {
            return std::move(*result);
        }
    }
    return replaceWithIcu(text, *prepared.compiled, replacement);
}

} // namespace lexivore
