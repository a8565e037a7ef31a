// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/line_transformations.h"

#include "engine/parameters.h"
#include "engine/primitives/byte_search.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/words.h"

#include <algorithm>
#include <charconv>

namespace lexivore {

namespace {

/// The value of "text", which four transformations look for in every line.
std::string_view textToFind(const ParameterMap &given) { return requiredNonEmptyValue(given, "text"); }

std::vector<TransformationParameter> textToFindParameter(std::string placeholder) {
    return {{"text", "Text to find", "", std::move(placeholder)}};
}

/// Where `part` first stands in the text that ends at `end` and begins at `position`, or `end`.
const char *findPart(const char *position, const char *end, std::string_view part) {
    const std::size_t found = findBytes({position, static_cast<std::size_t>(end - position)}, part);
    return found == std::string_view::npos ? end : position + found;
}

/// No line has a part that holds a newline character.
bool canBeInALine(std::string_view part) { return lineCount(part) == 1; }

/// The lines without `part`. The whole text is searched once, not each line.
TextBuffer linesWithout(std::string_view text, std::string_view part) {
    const char *const end = text.data() + text.size();
    const char *match = canBeInALine(part) ? findPart(text.data(), end, part) : end;
    return filterLines(text, [&](std::string_view line) {
        const char *const lineEnd = line.data() + line.size();
        const bool contains = match < lineEnd;
        if (contains) {
            match = findPart(lineEnd, end, part);
        }
        return !contains;
    });
}

/// The lines with `part`. Those between them are not even looked for.
TextBuffer linesWith(std::string_view text, std::string_view part) {
    Joiner joiner("\n", 0);
    const char *const end = text.data() + text.size();
    const char *match = canBeInALine(part) ? findPart(text.data(), end, part) : end;
    while (match != end) {
        const char *const lineBegin = lineBeginAt(text.data(), match);
        const NewlineMatch newline = findNewline(match + part.size(), end);
        joiner.add({lineBegin, static_cast<std::size_t>(newline.position - lineBegin)});
        match = findPart(newline.position + newline.length, end, part);
    }
    return joiner.take();
}

/// The lines that begin with `part`: searched for as long as it seldom stands elsewhere, then looked at one by one.
TextBuffer linesBeginningWith(std::string_view text, std::string_view part) {
    constexpr std::size_t bytesWorthAMiss = 256;
    Joiner joiner("\n", 0);
    const char *const end = text.data() + text.size();
    const char *match = canBeInALine(part) ? findPart(text.data(), end, part) : end;
    std::size_t misses = 0;
    while (match != end && misses * bytesWorthAMiss <= static_cast<std::size_t>(match - text.data()) + 4096) {
        const bool isHit = isLineBegin(text.data(), match);
        const NewlineMatch newline = findNewline(match + part.size(), end);
        if (isHit) {
            joiner.add({match, static_cast<std::size_t>(newline.position - match)});
        }
        misses += isHit ? 0 : 1;
        match = findPart(newline.position + newline.length, end, part);
    }
    if (match != end) {
        const char *const lineBegin = lineBeginAt(text.data(), match);
        forEachLine({lineBegin, static_cast<std::size_t>(end - lineBegin)}, [&](std::string_view line) {
            if (line.starts_with(part)) {
                joiner.add(line);
            }
        });
    }
    return joiner.take();
}

/// The value of "count", which four transformations read.
std::uint64_t lineCountParameter(const ParameterMap &given) {
    return static_cast<std::uint64_t>(wholeNumberAtLeast(given, "count", 1, "Count must be a positive number"));
}

std::vector<TransformationParameter> countParameter(std::string suggested, std::string placeholder) {
    return {{"count", "Number of lines", std::move(suggested), std::move(placeholder)}};
}

/// The lines whose index is at least `first` and below `limit`.
TextBuffer linesBetween(std::string_view text, std::uint64_t first, std::uint64_t limit) {
    if (first >= limit) {
        return {};
    }
    const char *const end = text.data() + text.size();
    const char *begin = text.data();
    if (first > 0) {
        begin = findNewlineNumber(text, first - 1);
        if (begin == end) {
            return {}; // there are no more lines
        }
        begin += newlineLength(begin);
    }
    const std::string_view rest(begin, static_cast<std::size_t>(end - begin));
    const char *const lastEnd = findNewlineNumber(rest, limit - first - 1);
    return joinLines(rest.substr(0, static_cast<std::size_t>(lastEnd - begin)), "\n");
}

/// `count - most`, but at least 0.
std::uint64_t less(std::uint64_t count, std::uint64_t most) { return count - std::min(count, most); }

constexpr std::uint64_t noLimit = UINT64_MAX;

} // namespace

TextBuffer TrimLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    return trimAndJoinLines(text, "\n");
}

TextBuffer NumberLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    TextBuffer result = TextBuffer::withCapacity(text.size() + text.size() / 4);
    std::uint64_t number = 0;
    forEachLine(text, [&](std::string_view line) {
        constexpr std::size_t longestNumber = 20;
        char *to = result.room(1 + longestNumber + 2);
        if (number > 0) {
            *to++ = '\n';
        }
        to = std::to_chars(to, to + longestNumber, ++number).ptr;
        *to++ = '.';
        *to++ = ' ';
        result.commit(to);
        result.append(line);
    });
    result.shrink();
    return result;
}

TextBuffer BreakAfterEveryWordTransformation::apply(std::string_view text, const ParameterMap &) const {
    return joinPieces(text, whitespaceAndNewlines, '\n');
}

TextBuffer BreakAfterEverySentenceTransformation::apply(std::string_view text, const ParameterMap &) const {
    Joiner joiner("\n", text.size());
    forEachSentencePiece(text, [&](std::string_view piece) {
        const std::string_view sentence = trimmed(piece);
        if (!sentence.empty()) {
            joiner.add(sentence);
        }
    });
    return joiner.take();
}

TextBuffer ReverseLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    const std::vector<std::string_view> lines = splitLines(text);
    Joiner joiner("\n", text.size());
    std::for_each(lines.rbegin(), lines.rend(), [&](std::string_view line) { joiner.add(line); });
    return joiner.take();
}

std::vector<TransformationParameter> DeleteLinesContainingTransformation::parameters() const {
    return textToFindParameter("Lines containing this will be deleted...");
}

TextBuffer DeleteLinesContainingTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesWithout(text, textToFind(parameters));
}

std::vector<TransformationParameter> DeleteLinesStartingWithTransformation::parameters() const {
    return textToFindParameter("Lines starting with this will be deleted...");
}

TextBuffer DeleteLinesStartingWithTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const std::string_view part = textToFind(parameters);
    return filterLines(text, [part](std::string_view line) { return !line.starts_with(part); });
}

std::vector<TransformationParameter> KeepLinesContainingTransformation::parameters() const {
    return textToFindParameter("Only lines containing this will be kept...");
}

TextBuffer KeepLinesContainingTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesWith(text, textToFind(parameters));
}

std::vector<TransformationParameter> KeepLinesStartingWithTransformation::parameters() const {
    return textToFindParameter("Only lines starting with this will be kept...");
}

TextBuffer KeepLinesStartingWithTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesBeginningWith(text, textToFind(parameters));
}

std::vector<TransformationParameter> DeleteFirstNLinesTransformation::parameters() const {
    return countParameter("1", "How many lines to delete...");
}

TextBuffer DeleteFirstNLinesTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesBetween(text, lineCountParameter(parameters), noLimit);
}

std::vector<TransformationParameter> DeleteLastNLinesTransformation::parameters() const {
    return countParameter("1", "How many lines to delete...");
}

TextBuffer DeleteLastNLinesTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const std::uint64_t count = lineCountParameter(parameters);
    return linesBetween(text, 0, less(lineCount(text), count));
}

std::vector<TransformationParameter> KeepFirstNLinesTransformation::parameters() const {
    return countParameter("10", "How many lines to keep...");
}

TextBuffer KeepFirstNLinesTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesBetween(text, 0, lineCountParameter(parameters));
}

std::vector<TransformationParameter> KeepLastNLinesTransformation::parameters() const {
    return countParameter("10", "How many lines to keep...");
}

TextBuffer KeepLastNLinesTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const std::uint64_t count = lineCountParameter(parameters);
    return linesBetween(text, less(lineCount(text), count), noLimit);
}

std::vector<TransformationParameter> ExtractLinesByRangeTransformation::parameters() const {
    return {{"start", "Start line", "1", "First line number..."}, {"end", "End line", "10", "Last line number..."}};
}

TextBuffer ExtractLinesByRangeTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const auto start = wholeNumberAtLeast(parameters, "start", 1, "Start must be a positive number");
    const auto end = wholeNumberAtLeast(parameters, "end", start, "End must be >= start");
    return linesBetween(text, static_cast<std::uint64_t>(start) - 1, static_cast<std::uint64_t>(end));
}

std::vector<TransformationParameter> JoinLinesTransformation::parameters() const {
    return {{"separator", "Separator", ", ", "Text to join lines with..."}};
}

TextBuffer JoinLinesTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return joinLines(text, requiredValue(parameters, "separator"));
}

} // namespace lexivore
