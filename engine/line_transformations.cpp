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

/// The lines that contain `part`, or those that do not. The whole text is searched once, not each line.
TextBuffer filterLinesContaining(std::string_view text, std::string_view part, bool keepsContaining) {
    const char *const end = text.data() + text.size();
    const auto findFrom = [&](const char *position) {
        const std::string_view rest(position, static_cast<std::size_t>(end - position));
        const std::size_t found = findBytes(rest, part);
        return found == std::string_view::npos ? end : position + found;
    };
    // A match cannot reach over the end of a line unless the part holds a newline character, and then no line has it.
    const char *match = lineCount(part) > 1 ? end : findFrom(text.data());
    return filterLines(text, [&](std::string_view line) {
        const char *const lineEnd = line.data() + line.size();
        const bool contains = match < lineEnd;
        if (contains) {
            match = findFrom(lineEnd);
        }
        return contains == keepsContaining;
    });
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
    return filterLinesContaining(text, textToFind(parameters), false);
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
    return filterLinesContaining(text, textToFind(parameters), true);
}

std::vector<TransformationParameter> KeepLinesStartingWithTransformation::parameters() const {
    return textToFindParameter("Only lines starting with this will be kept...");
}

TextBuffer KeepLinesStartingWithTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    const std::string_view part = textToFind(parameters);
    return filterLines(text, [part](std::string_view line) { return line.starts_with(part); });
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
