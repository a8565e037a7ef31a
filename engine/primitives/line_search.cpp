// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/line_search.h"

#include "engine/primitives/byte_search.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/lines.h"
#include "engine/primitives/membership_scan.h"

#include <algorithm>
#include <string>

namespace lexivore {

namespace {

/// Calls `visit(std::string_view)` with some lines at a time: all of a text, in parts that fit the caches unless a
/// single line is longer.
template<typename Visit> void forEachStretchOfLines(std::string_view text, Visit &&visit) {
    constexpr std::ptrdiff_t enough = std::ptrdiff_t{1} << 18;
    const char *const end = text.data() + text.size();
    const char *begin = text.data();
    while (true) {
        const NewlineMatch newline = findNewline(begin + std::min(enough, end - begin), end);
        visit(std::string_view(begin, static_cast<std::size_t>(newline.position - begin)));
        if (newline.length == 0) {
            return;
        }
        begin = newline.position + newline.length;
    }
}

/// No line has a part that holds a newline character.
bool canBeInALine(std::string_view part) { return lineCount(part) == 1; }

bool startsWith(std::string_view line, std::string_view part) {
    return !line.empty() && line[0] == part[0] && line.starts_with(part); // the first byte tells most of them apart
}

/// The lines for which `isDropped(std::string_view)` is false. `makeFinder(lines)` is asked for lines that line feeds
/// end, and gives what finds the first of those for which it is true that begins at or behind a line's begin, or null.
template<typename IsDropped, typename MakeFinder>
TextBuffer linesBetweenDropped(std::string_view text, IsDropped isDropped, MakeFinder makeFinder) {
    Joiner joiner('\n', text, text.size());
    forEachStretchOfLines(text, [&](std::string_view lines) {
        if (kernels::best().hasOtherNewlines(lines.data(), lines.size())) {
            forEachLine(lines, [&](std::string_view line) {
                if (!isDropped(line)) {
                    joiner.add(line);
                }
            });
            return;
        }
        const char *const end = lines.data() + lines.size();
        const char *begin = lines.data(); // of the line behind the last that is dropped
        auto find = makeFinder(lines);
        for (const char *dropped = find(begin); dropped != nullptr; dropped = begin > end ? nullptr : find(begin)) {
            if (dropped != begin) {
                joiner.add({begin, static_cast<std::size_t>(dropped - 1 - begin)});
            }
            begin = findNewline(dropped, end).position + 1;
        }
        if (begin <= end) {
            joiner.add({begin, static_cast<std::size_t>(end - begin)});
        }
    });
    return joiner.take();
}

} // namespace

TextBuffer linesContaining(std::string_view text, std::string_view part) {
    Joiner joiner('\n', text, 0);
    OccurrenceFinder parts(text, part);
    const char *const end = text.data() + text.size();
    const char *match = canBeInALine(part) ? parts.from(text.data()) : end;
    while (match != end) {
        const char *const lineBegin = lineBeginAt(text.data(), match);
        const NewlineMatch newline = findNewline(match + part.size(), end);
        joiner.add({lineBegin, static_cast<std::size_t>(newline.position - lineBegin)});
        match = parts.from(newline.position + newline.length);
    }
    return joiner.take();
}

TextBuffer linesNotContaining(std::string_view text, std::string_view part) {
    if (!canBeInALine(part)) {
        return joinLines(text, "\n");
    }
    return linesBetweenDropped(
        text, [part](std::string_view line) { return findBytes(line, part) != std::string_view::npos; },
        [part](std::string_view lines) {
            return [lines, parts = OccurrenceFinder(lines, part)](const char *begin) mutable -> const char * {
                const char *const match = parts.from(begin);
                return match == lines.data() + lines.size() ? nullptr : lineBeginAt(begin, match);
            };
        });
}

TextBuffer linesStartingWith(std::string_view text, std::string_view part) {
    // Searched for as long as it seldom stands elsewhere, then looked at line by line.
    constexpr std::size_t bytesWorthAMiss = 256;
    Joiner joiner('\n', text, 0);
    OccurrenceFinder parts(text, part);
    const char *const end = text.data() + text.size();
    const char *match = canBeInALine(part) ? parts.from(text.data()) : end;
    std::size_t misses = 0;
    while (match != end && misses * bytesWorthAMiss <= static_cast<std::size_t>(match - text.data()) + 4096) {
        const bool isHit = isLineBegin(text.data(), match);
        const NewlineMatch newline = findNewline(match + part.size(), end);
        if (isHit) {
            joiner.add({match, static_cast<std::size_t>(newline.position - match)});
        }
        misses += isHit ? 0 : 1;
        match = parts.from(newline.position + newline.length);
    }
    if (match != end) {
        const char *const lineBegin = lineBeginAt(text.data(), match);
        forEachLine({lineBegin, static_cast<std::size_t>(end - lineBegin)}, [&](std::string_view line) {
            if (startsWith(line, part)) {
                joiner.add(line);
            }
        });
    }
    return joiner.take();
}

TextBuffer linesNotStartingWith(std::string_view text, std::string_view part) {
    if (!canBeInALine(part)) {
        return joinLines(text, "\n");
    }
    const std::string partBehindLineFeed = '\n' + std::string(part);
    return linesBetweenDropped(
        text, [part](std::string_view line) { return startsWith(line, part); },
        [&](std::string_view lines) {
            return [lines, part,
                    parts = OccurrenceFinder(lines, partBehindLineFeed)](const char *begin) mutable -> const char * {
                const char *const end = lines.data() + lines.size();
                if (startsWith({begin, static_cast<std::size_t>(end - begin)}, part)) {
                    return begin;
                }
                const char *const match = parts.from(begin);
                return match == end ? nullptr : match + 1;
            };
        });
}

} // namespace lexivore
