// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/families.h"
#include "tests/reference/plain_text.h"

#include <algorithm>

namespace lexivore::reference {

namespace {

std::u32string trimLines(std::u32string_view text, const Parameters &) { return trimAndJoin(text, U"\n"); }

std::u32string numberLines(std::u32string_view text, const Parameters &) {
    Pieces result;
    for (const std::u32string &line : lines(text)) {
        result.push_back(codePoints(std::to_string(result.size() + 1)) + U". " + line);
    }
    return join(result, U"\n");
}

std::u32string breakAfterWord(std::u32string_view text, const Parameters &) {
    return join(withoutEmpty(split(text, isWhitespaceOrNewline)), U"\n");
}

std::u32string breakAfterSentence(std::u32string_view text, const Parameters &) {
    Pieces sentences;
    for (const std::u32string &piece : split(text, isSentenceEnd)) {
        sentences.push_back(trimmed(piece));
    }
    return join(withoutEmpty(sentences), U"\n");
}

using LineTest = bool (*)(const std::u32string &line, const std::u32string &sought);

bool contains(const std::u32string &line, const std::u32string &sought) {
    return line.find(sought) != std::u32string::npos;
}
bool startsWith(const std::u32string &line, const std::u32string &sought) { return line.starts_with(sought); }

std::u32string keptLines(std::u32string_view text, const Parameters &parameters, LineTest test, bool keepsMatching) {
    const std::u32string sought = requiredNotEmpty(parameters, "text");
    Pieces kept;
    for (const std::u32string &line : lines(text)) {
        if (test(line, sought) == keepsMatching) {
            kept.push_back(line);
        }
    }
    return join(kept, U"\n");
}

std::u32string deleteContaining(std::u32string_view text, const Parameters &parameters) {
    return keptLines(text, parameters, contains, false);
}
std::u32string deleteStarting(std::u32string_view text, const Parameters &parameters) {
    return keptLines(text, parameters, startsWith, false);
}
std::u32string keepContaining(std::u32string_view text, const Parameters &parameters) {
    return keptLines(text, parameters, contains, true);
}
std::u32string keepStarting(std::u32string_view text, const Parameters &parameters) {
    return keptLines(text, parameters, startsWith, true);
}

std::u32string reverseLines(std::u32string_view text, const Parameters &) {
    Pieces all = lines(text);
    std::reverse(all.begin(), all.end());
    return join(all, U"\n");
}

/// Lines number `first` to `last`, counted from 1; both may lie outside the text.
std::u32string lineRange(const Pieces &all, std::int64_t first, std::int64_t last) {
    Pieces kept;
    for (std::size_t index = 0; index < all.size(); ++index) {
        const auto lineNumber = static_cast<std::int64_t>(index) + 1;
        if (lineNumber >= first && lineNumber <= last) {
            kept.push_back(all[index]);
        }
    }
    return join(kept, U"\n");
}

std::int64_t lineCount(const Pieces &all) { return static_cast<std::int64_t>(all.size()); }

/// At most the number of lines, so that sums and differences with it do not overflow.
std::int64_t count(const Parameters &parameters, const Pieces &all) {
    const std::optional<std::int64_t> given = number(parameters, "count");
    if (!given || *given < 1) {
        throw Failure("Invalid input: Count must be a positive number");
    }
    return std::min(*given, lineCount(all));
}

std::u32string deleteFirst(std::u32string_view text, const Parameters &parameters) {
    const Pieces all = lines(text);
    return lineRange(all, count(parameters, all) + 1, lineCount(all));
}

std::u32string deleteLast(std::u32string_view text, const Parameters &parameters) {
    const Pieces all = lines(text);
    return lineRange(all, 1, lineCount(all) - count(parameters, all));
}

std::u32string keepFirst(std::u32string_view text, const Parameters &parameters) {
    const Pieces all = lines(text);
    return lineRange(all, 1, count(parameters, all));
}

std::u32string keepLast(std::u32string_view text, const Parameters &parameters) {
    const Pieces all = lines(text);
    return lineRange(all, lineCount(all) - count(parameters, all) + 1, lineCount(all));
}

std::u32string extractRange(std::u32string_view text, const Parameters &parameters) {
    const std::optional<std::int64_t> start = number(parameters, "start");
    if (!start || *start < 1) {
        throw Failure("Invalid input: Start must be a positive number");
    }
    const std::optional<std::int64_t> end = number(parameters, "end");
    if (!end || *end < *start) {
        throw Failure("Invalid input: End must be >= start");
    }
    return lineRange(lines(text), *start, *end);
}

std::u32string joinLines(std::u32string_view text, const Parameters &parameters) {
    return join(lines(text), required(parameters, "separator"));
}

} // namespace

std::u32string wrapLines(std::u32string_view text, const Parameters &parameters) {
    const std::optional<std::int64_t> width = number(parameters, "width");
    if (!width || *width < 1) {
        throw Failure("Invalid input: Width must be a positive number");
    }
    std::u32string result;
    std::u32string current;
    for (const std::u32string &piece : split(text, isWhitespace)) {
        if (current.empty()) {
            current = piece;
        } else if (static_cast<std::int64_t>(length(current) + length(piece) + 1) > *width) {
            result += current + U"\n";
            current = piece;
        } else {
            current += U" " + piece;
        }
    }
    return result + current;
}

std::vector<Row> lineRows() {
    return {
        {"trim-lines", trimLines},
        {"number-lines", numberLines},
        {"break-after-word", breakAfterWord},
        {"break-after-sentence", breakAfterSentence},
        {"delete-lines-containing", deleteContaining},
        {"delete-lines-starting", deleteStarting},
        {"keep-lines-containing", keepContaining},
        {"keep-lines-starting", keepStarting},
        {"reverse-lines", reverseLines},
        {"delete-first-n-lines", deleteFirst},
        {"delete-last-n-lines", deleteLast},
        {"keep-first-n-lines", keepFirst},
        {"keep-last-n-lines", keepLast},
        {"extract-lines-range", extractRange},
        {"join-lines", joinLines},
    };
}

} // namespace lexivore::reference
