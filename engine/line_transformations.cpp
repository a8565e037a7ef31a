// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/line_transformations.h"

#include "engine/parameters.h"
#include "engine/primitives/line_mapping.h"
#include "engine/primitives/line_search.h"
#include "engine/primitives/membership_scan.h"
#include "engine/primitives/part_replacer.h"
#include "engine/primitives/sentence_breaks.h"
#include "engine/primitives/words.h"

#include <array>
#include <charconv>
#include <cstring>

namespace lexivore {

namespace {

/// The value of "text", which four transformations look for in every line.
std::string_view textToFind(const ParameterMap &given) { return requiredNonEmptyValue(given, "text"); }

std::vector<TransformationParameter> textToFindParameter(std::string placeholder) {
    return {{"text", "Text to find", "", std::move(placeholder)}};
}

/// The value of "count", which four transformations read.
std::uint64_t lineCountParameter(const ParameterMap &given) {
    return static_cast<std::uint64_t>(wholeNumberAtLeast(given, "count", 1, "Count must be a positive number"));
}

std::vector<TransformationParameter> countParameter(std::string suggested, std::string placeholder) {
    return {{"count", "Number of lines", std::move(suggested), std::move(placeholder)}};
}

/// The lines whose index is at least `first` and below `limit`, which is greater.
TextBuffer linesBetween(std::string_view text, std::uint64_t first, std::uint64_t limit) {
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

constexpr std::uint64_t noLimit = UINT64_MAX;

/// Counts lines and writes their numbers. The last digits, as text, are counted up in a register.
class LineNumber {
public:
    /// How many bytes a number may overwrite.
    static constexpr std::size_t mostBytes = 24;

    /// Writes the next number, ". " behind it, and returns the place behind that.
    char *writeNext(char *to) {
        if (m_lastDigit == '9') {
            m_number += 10; // as it stands in the text
            m_digits = static_cast<std::size_t>(std::to_chars(m_text.data(), m_text.data() + longest, m_number).ptr -
                                                m_text.data());
            m_lastDigit = '0';
        } else {
            ++m_lastDigit;
        }
        std::memcpy(to, m_text.data(), m_text.size());
        to += m_digits;
        to[-1] = m_lastDigit;
        to[0] = '.';
        to[1] = ' ';
        return to + 2;
    }

private:
    static constexpr std::size_t longest = 20;

    std::array<char, mostBytes> m_text{'0'}; ///< The number with 0 as its last digit.
    std::uint64_t m_number = 0;
    std::size_t m_digits = 1;
    char m_lastDigit = '0';
};

} // namespace

TextBuffer TrimLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    return trimAndJoinLines(text, '\n');
}

TextBuffer NumberLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    LineNumber number;
    char first[LineNumber::mostBytes];
    const std::string_view firstNumber(first, static_cast<std::size_t>(number.writeNext(first) - first));
    PartReplacer replacer(text, text.size() + text.size() / 4, firstNumber);
    replacer.replaceAll(MembershipScan(text, newlines, MembershipScan::Mark::firstByte), newlineLength,
                        1 + LineNumber::mostBytes, [&number](char *to, const char *) {
                            *to = '\n';
                            return number.writeNext(to + 1);
                        });
    return replacer.take();
}

TextBuffer BreakAfterEveryWordTransformation::apply(std::string_view text, const ParameterMap &) const {
    return joinPieces(text, whitespaceAndNewlines, '\n');
}

TextBuffer BreakAfterEverySentenceTransformation::apply(std::string_view text, const ParameterMap &) const {
    return breakAfterSentences(text);
}

TextBuffer ReverseLinesTransformation::apply(std::string_view text, const ParameterMap &) const {
    return reverseLines(text);
}

std::vector<TransformationParameter> DeleteLinesContainingTransformation::parameters() const {
    return textToFindParameter("Lines containing this will be deleted...");
}

TextBuffer DeleteLinesContainingTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesNotContaining(text, textToFind(parameters));
}

std::vector<TransformationParameter> DeleteLinesStartingWithTransformation::parameters() const {
    return textToFindParameter("Lines starting with this will be deleted...");
}

TextBuffer DeleteLinesStartingWithTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesNotStartingWith(text, textToFind(parameters));
}

std::vector<TransformationParameter> KeepLinesContainingTransformation::parameters() const {
    return textToFindParameter("Only lines containing this will be kept...");
}

TextBuffer KeepLinesContainingTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesContaining(text, textToFind(parameters));
}

std::vector<TransformationParameter> KeepLinesStartingWithTransformation::parameters() const {
    return textToFindParameter("Only lines starting with this will be kept...");
}

TextBuffer KeepLinesStartingWithTransformation::apply(std::string_view text, const ParameterMap &parameters) const {
    return linesStartingWith(text, textToFind(parameters));
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
    const char *const end = findNewlineNumberFromEnd(text, lineCountParameter(parameters) - 1);
    return end == nullptr ? TextBuffer() : joinLines({text.data(), static_cast<std::size_t>(end - text.data())}, "\n");
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
    const char *const newline = findNewlineNumberFromEnd(text, lineCountParameter(parameters) - 1);
    if (newline == nullptr) {
        return joinLines(text, "\n");
    }
    const char *const begin = newline + newlineLength(newline);
    return joinLines({begin, static_cast<std::size_t>(text.data() + text.size() - begin)}, "\n");
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
