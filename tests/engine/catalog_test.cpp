// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/catalog.h"

#include "engine/add_remove_transformations.h"
#include "engine/case_transformations.h"
#include "engine/encoding_transformations.h"
#include "engine/find_replace_transformations.h"
#include "engine/line_transformations.h"
#include "engine/sorting_transformations.h"
#include "tests/engine/outcome.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <typeinfo>

namespace lexivore::test {

namespace {

using namespace std::string_literals;
using enum TransformationCategory;

template<typename Type> TransformationPointer make(std::string id, TransformationCategory category) {
    return std::make_shared<const Type>(std::move(id), "", "", category, "");
}

struct Row {
    /// An instance of the type that the entry must have, with metadata of its own.
    TransformationPointer (*make)(std::string id, TransformationCategory category);
    const char *id;
    const char *name;
    const char *description;
    TransformationCategory category;
    const char *icon;
    std::vector<StringParameter> parameters;
};

// clang-format off
const Row rows[] = {
    {make<UppercaseTransformation>, "uppercase", "UPPERCASE", "Convert all text to uppercase", caseConversion, "textformat.size.larger", {}},
    {make<LowercaseTransformation>, "lowercase", "lowercase", "Convert all text to lowercase", caseConversion, "textformat.size.smaller", {}},
    {make<TitleCaseTransformation>, "titlecase", "Title Case", "Capitalize The First Letter Of Each Word", caseConversion, "textformat.abc", {}},
    {make<SentenceCaseTransformation>, "sentencecase", "Sentence case", "Capitalize first letter of sentences", caseConversion, "text.quote", {}},
    {make<CamelCaseTransformation>, "camelcase", "camelCase", "Convert to camelCase format", caseConversion, "arrow.up.and.down.text.horizontal", {}},
    {make<PascalCaseTransformation>, "pascalcase", "PascalCase", "Convert to PascalCase format", caseConversion, "arrow.up.doc", {}},
    {make<SnakeCaseTransformation>, "snakecase", "snake_case", "Convert to snake_case format", caseConversion, "arrow.down.doc", {}},
    {make<KebabCaseTransformation>, "kebabcase", "kebab-case", "Convert to kebab-case format", caseConversion, "minus", {}},
    {make<AlternatingCaseTransformation>, "alternatingcase", "aLtErNaTiNg CaSe", "Alternate between upper and lower case", caseConversion, "arrow.up.arrow.down", {}},
    {make<InvertCaseTransformation>, "invertcase", "iNVERT cASE", "Swap uppercase and lowercase", caseConversion, "arrow.left.arrow.right", {}},
    {make<AddPrefixTransformation>, "add-prefix", "Add Prefix", "Add text to the beginning of each line", addRemove, "arrow.left.to.line", {{"prefix", "Prefix", "> ", "Enter prefix text..."}}},
    {make<AddSuffixTransformation>, "add-suffix", "Add Suffix", "Add text to the end of each line", addRemove, "arrow.right.to.line", {{"suffix", "Suffix", ";", "Enter suffix text..."}}},
    {make<RemoveWhitespaceTransformation>, "remove-whitespace", "Remove Extra Whitespace", "Remove extra spaces and tabs", addRemove, "space", {}},
    {make<RemoveAllSpacesTransformation>, "remove-all-spaces", "Remove All Spaces", "Remove every space character", addRemove, "space", {}},
    {make<RemoveTabsTransformation>, "remove-tabs", "Remove Tabs", "Remove all tab characters", addRemove, "arrow.right.to.line", {}},
    {make<RemoveEmptyLinesTransformation>, "remove-empty-lines", "Remove Empty Lines", "Delete all blank lines", addRemove, "minus.circle", {}},
    {make<RemoveLineBreaksTransformation>, "remove-line-breaks", "Remove Line Breaks", "Join all lines into one", addRemove, "arrow.right", {}},
    {make<RemoveDuplicateLinesTransformation>, "remove-duplicates", "Remove Duplicate Lines", "Keep only unique lines", addRemove, "doc.on.doc", {}},
    {make<RemoveDuplicateWordsTransformation>, "remove-duplicate-words", "Remove Duplicate Words", "Keep only unique words", addRemove, "doc.text", {}},
    {make<DeleteNonAlphanumericTransformation>, "delete-non-alphanumeric", "Delete Non-Alphanumeric", "Remove all non-alphanumeric characters", addRemove, "textformat.123", {}},
    {make<DeleteNumericCharactersTransformation>, "delete-numeric", "Delete Numeric Characters", "Remove all numbers", addRemove, "number", {}},
    {make<KeepOnlyNumericTransformation>, "keep-only-numeric", "Keep Only Numbers", "Remove everything except numbers", addRemove, "123.rectangle", {}},
    {make<RemovePunctuationTransformation>, "remove-punctuation", "Remove Punctuation", "Remove all punctuation marks", addRemove, "exclamationmark.triangle", {}},
    {make<RemoveSpecialCharactersTransformation>, "remove-special-chars", "Remove Special Characters", "Keep only letters, numbers, and spaces", addRemove, "textformat.alt", {}},
    {make<WrapLinesTransformation>, "wrap-lines", "Wrap Lines", "Wrap text at specified width", addRemove, "arrow.turn.down.right", {{"width", "Width", "80", "Characters per line..."}}},
    {make<TrimLinesTransformation>, "trim-lines", "Trim Lines", "Remove leading/trailing whitespace from each line", lines, "arrow.left.and.right", {}},
    {make<NumberLinesTransformation>, "number-lines", "Number Lines", "Add line numbers to each line", lines, "list.number", {}},
    {make<BreakAfterEveryWordTransformation>, "break-after-word", "Break After Every Word", "Add line break after each word", lines, "return", {}},
    {make<BreakAfterEverySentenceTransformation>, "break-after-sentence", "Break After Every Sentence", "Add line break after each sentence", lines, "text.append", {}},
    {make<DeleteLinesContainingTransformation>, "delete-lines-containing", "Delete Lines Containing...", "Remove lines that contain specific text", lines, "line.3.horizontal.decrease", {{"text", "Text to find", "", "Lines containing this will be deleted..."}}},
    {make<DeleteLinesStartingWithTransformation>, "delete-lines-starting", "Delete Lines Starting With...", "Remove lines that start with specific text", lines, "text.line.first.and.arrowtriangle.forward", {{"text", "Text to find", "", "Lines starting with this will be deleted..."}}},
    {make<KeepLinesContainingTransformation>, "keep-lines-containing", "Keep Lines Containing...", "Keep only lines that contain specific text", lines, "text.magnifyingglass", {{"text", "Text to find", "", "Only lines containing this will be kept..."}}},
    {make<KeepLinesStartingWithTransformation>, "keep-lines-starting", "Keep Lines Starting With...", "Keep only lines that start with specific text", lines, "text.justify.leading", {{"text", "Text to find", "", "Only lines starting with this will be kept..."}}},
    {make<ReverseLinesTransformation>, "reverse-lines", "Reverse Lines Order", "Reverse the order of lines", lines, "arrow.up.arrow.down.circle", {}},
    {make<DeleteFirstNLinesTransformation>, "delete-first-n-lines", "Delete First N Lines", "Remove first N lines from text", lines, "arrow.up.to.line", {{"count", "Number of lines", "1", "How many lines to delete..."}}},
    {make<DeleteLastNLinesTransformation>, "delete-last-n-lines", "Delete Last N Lines", "Remove last N lines from text", lines, "arrow.down.to.line", {{"count", "Number of lines", "1", "How many lines to delete..."}}},
    {make<KeepFirstNLinesTransformation>, "keep-first-n-lines", "Keep First N Lines", "Keep only first N lines", lines, "arrow.up.doc", {{"count", "Number of lines", "10", "How many lines to keep..."}}},
    {make<KeepLastNLinesTransformation>, "keep-last-n-lines", "Keep Last N Lines", "Keep only last N lines", lines, "arrow.down.doc", {{"count", "Number of lines", "10", "How many lines to keep..."}}},
    {make<ExtractLinesByRangeTransformation>, "extract-lines-range", "Extract Lines by Range", "Extract lines from X to Y", lines, "arrow.left.and.right.square", {{"start", "Start line", "1", "First line number..."}, {"end", "End line", "10", "Last line number..."}}},
    {make<JoinLinesTransformation>, "join-lines", "Join Lines", "Join all lines with custom separator", lines, "arrow.merge", {{"separator", "Separator", ", ", "Text to join lines with..."}}},
    {make<SortLinesTransformation>, "sort-lines", "Sort Lines Alphabetically", "Sort lines in alphabetical order", sorting, "arrow.up.arrow.down", {}},
    {make<SortLinesReverseTransformation>, "sort-lines-reverse", "Sort Lines (Reverse)", "Sort lines in reverse alphabetical order", sorting, "arrow.down.to.line", {}},
    {make<SortLinesByLengthTransformation>, "sort-lines-length", "Sort Lines by Length", "Sort lines by their length", sorting, "arrow.up.and.down.text.horizontal", {}},
    {make<ShuffleLinesTransformation>, "shuffle-lines", "Shuffle Lines", "Randomly shuffle all lines", sorting, "shuffle", {}},
    {make<SortWordsAlphabeticallyTransformation>, "sort-words", "Sort Words Alphabetically", "Sort individual words in alphabetical order", sorting, "character.textbox", {}},
    {make<ReverseWordsInLineTransformation>, "reverse-words-in-line", "Reverse Words in Line", "Reverse word order in each line", sorting, "arrow.left.arrow.right.square", {}},
    {make<ReplaceTextTransformation>, "replace-text", "Replace Text", "Find and replace text", findReplace, "arrow.left.arrow.right.circle", {{"find", "Find", "", "Text to find..."}, {"replace", "Replace with", "", "Replacement text..."}}},
    {make<ReplaceWithRegexTransformation>, "replace-regex", "Replace with Regex", "Find and replace using regular expressions", findReplace, "wand.and.stars", {{"pattern", "Regex pattern", "", "Regular expression pattern..."}, {"replace", "Replace with", "", "Replacement text..."}}},
    {make<ReverseTextTransformation>, "reverse", "Reverse Text", "Reverse the entire text", findReplace, "arrow.left.arrow.right", {}},
    {make<Base64EncodeTransformation>, "base64-encode", "Base64 Encode", "Encode text to Base64", encoding, "lock.fill", {}},
    {make<Base64DecodeTransformation>, "base64-decode", "Base64 Decode", "Decode Base64 to text", encoding, "lock.open.fill", {}},
    {make<URLEncodeTransformation>, "url-encode", "URL Encode", "Encode text for URLs", encoding, "link", {}},
    {make<URLDecodeTransformation>, "url-decode", "URL Decode", "Decode URL-encoded text", encoding, "link.badge.plus", {}},
    {make<HTMLEncodeTransformation>, "html-encode", "HTML Encode", "Encode special HTML characters", encoding, "chevron.left.forwardslash.chevron.right", {}},
    {make<HTMLDecodeTransformation>, "html-decode", "HTML Decode", "Decode HTML entities", encoding, "chevron.left.slash.chevron.right", {}},
    {make<JSONEscapeTransformation>, "json-escape", "JSON Escape", "Escape text for JSON strings", encoding, "curlybraces", {}},
    {make<HexEncodeTransformation>, "hex-encode", "Hex Encode", "Convert text to hexadecimal", encoding, "number.square", {}},
    {make<HexDecodeTransformation>, "hex-decode", "Hex Decode", "Decode hexadecimal to text", encoding, "number.square.fill", {}},
};
// clang-format on

std::vector<std::string> namesOf(TransformationCategory category) {
    std::vector<std::string> names;
    for (const TransformationPointer &entry : makeCatalog()) {
        if (entry->category() == category) {
            names.push_back(entry->name());
        }
    }
    return names;
}

TEST(Catalog, HasAnEntryForEveryRowInOrder) {
    const Catalog catalog = makeCatalog();
    ASSERT_EQ(catalog.size(), 58U);
    ASSERT_EQ(std::size(rows), 58U);
    for (std::size_t i = 0; i < catalog.size(); ++i) {
        const TextTransformation &entry = *catalog[i];
        const Row &row = rows[i];
        SCOPED_TRACE(row.id);
        EXPECT_EQ(entry.id(), row.id);
        EXPECT_EQ(entry.name(), row.name);
        EXPECT_EQ(entry.description(), row.description);
        EXPECT_EQ(entry.category(), row.category);
        EXPECT_EQ(entry.icon(), row.icon);
        const TransformationPointer model = row.make("", favorites);
        EXPECT_TRUE(typeid(entry) == typeid(*model)) << typeid(entry).name();
    }
}

TEST(Catalog, AsksForTheParametersOfEveryRow) {
    const Catalog catalog = makeCatalog();
    ASSERT_EQ(catalog.size(), std::size(rows));
    for (std::size_t i = 0; i < catalog.size(); ++i) {
        SCOPED_TRACE(rows[i].id);
        const std::vector<TransformationParameter> parameters = catalog[i]->parameters();
        ASSERT_EQ(parameters.size(), rows[i].parameters.size());
        for (std::size_t p = 0; p < parameters.size(); ++p) {
            EXPECT_EQ(parameters[p].id, rows[i].parameters[p].id);
            EXPECT_EQ(parameters[p].label, rows[i].parameters[p].label);
            EXPECT_EQ(parameters[p].defaultValue, rows[i].parameters[p].defaultValue);
            EXPECT_EQ(parameters[p].placeholder, rows[i].parameters[p].placeholder);
        }
    }
}

TEST(Catalog, HasNoIdOrNameTwice) {
    std::set<std::string> ids;
    std::set<std::string> names;
    for (const TransformationPointer &entry : makeCatalog()) {
        EXPECT_TRUE(ids.insert(entry->id()).second) << entry->id();
        EXPECT_TRUE(names.insert(entry->name()).second) << entry->name();
    }
}

TEST(Catalog, SpellsIdsAsSlugs) {
    for (const TransformationPointer &entry : makeCatalog()) {
        EXPECT_FALSE(entry->id().empty());
        EXPECT_EQ(entry->id().find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"), std::string::npos)
            << entry->id();
    }
}

TEST(Catalog, FillsTheCategories) {
    EXPECT_TRUE(namesOf(favorites).empty());
    EXPECT_EQ(namesOf(caseConversion).size(), 10U);
    EXPECT_EQ(namesOf(addRemove).size(), 15U);
    EXPECT_EQ(namesOf(lines).size(), 15U);
    EXPECT_EQ(namesOf(sorting).size(), 6U);
    EXPECT_EQ(namesOf(findReplace).size(), 3U);
    EXPECT_EQ(namesOf(encoding).size(), 9U);
}

TEST(Catalog, KeepsItsOrderWithinACategory) {
    const std::vector<std::string> sortingNames = {"Sort Lines Alphabetically", "Sort Lines (Reverse)",
                                                   "Sort Lines by Length",      "Shuffle Lines",
                                                   "Sort Words Alphabetically", "Reverse Words in Line"};
    EXPECT_EQ(namesOf(sorting), sortingNames);
    const std::vector<std::string> findReplaceNames = {"Replace Text", "Replace with Regex", "Reverse Text"};
    EXPECT_EQ(namesOf(findReplace), findReplaceNames);
    EXPECT_EQ(namesOf(addRemove).back(), "Wrap Lines");
}

TEST(Catalog, HasOneEntryThatIsRandomAndOneThatGivesUpAfterSomeTime) {
    for (const TransformationPointer &entry : makeCatalog()) {
        EXPECT_EQ(entry->isRandom(), entry->id() == "shuffle-lines") << entry->id();
        EXPECT_EQ(entry->hasTimeLimit(), entry->id() == "replace-regex") << entry->id();
    }
}

TEST(Catalog, FindsAnEntryByItsExactId) {
    const Catalog catalog = makeCatalog();
    for (const TransformationPointer &entry : catalog) {
        EXPECT_EQ(findTransformation(catalog, entry->id()), entry);
    }
    for (const std::string_view id : {"", "Trim-Lines", "trim-lines ", "trim", "Trim Lines", "no-such-id"}) {
        EXPECT_EQ(findTransformation(catalog, id), nullptr) << id;
    }
    EXPECT_EQ(findTransformation({}, "trim-lines"), nullptr);
}

TEST(Catalog, FindsTheFirstOfTwoEntries) {
    const Catalog catalog = {make<TrimLinesTransformation>("a", lines), make<SortLinesTransformation>("a", sorting)};
    EXPECT_EQ(findTransformation(catalog, "a"), catalog.front());
}

/// What every entry of the catalog promises, tried on texts of every kind.
class TransformationContract : public testing::TestWithParam<std::size_t> {
protected:
    static std::vector<std::string> texts() {
        std::string manyLines;
        for (int i = 0; i < 40; ++i) {
            manyLines += "line " + std::to_string(i * 7 % 10) + " ÄÖ, Straße!\t\r\n";
        }
        return {"",
                "a",
                "SGVsbG8=",
                "48 69",
                "a%20b &amp;lt;",
                "One two. THREE? 4!",
                " a \n\tb\r\nc\rd\u0085e\u2028f ",
                "e\u0301 👨\u200D👩\u200D👧 क्षत्रिय ΟΔΟΣ ǆ\u00A0½",
                "\0a\0\n"s,
                manyLines,
                "\xFF\xC3(\xE2\x82\n\x80 \xED\xA0\x80\xF4\x90\x80\x80"};
    }

    /// Every parameter that the entry asks for, with a value that serves.
    static ParameterMap parametersOf(const TextTransformation &transformation) {
        const ParameterMap values = {{"prefix", "> "}, {"suffix", ";"}, {"width", "8"},    {"text", "a"},
                                     {"count", "2"},   {"start", "1"},  {"end", "3"},      {"separator", ", "},
                                     {"find", "a"},    {"replace", ""}, {"pattern", "(.)"}};
        ParameterMap parameters;
        for (const TransformationParameter &parameter : transformation.parameters()) {
            parameters.insert({parameter.id, values.at(parameter.id)});
        }
        return parameters;
    }

    /// What `given` does to `text`. The order of the lines does not count if it is the one that shuffles them.
    Outcome outcome(const TextTransformation &given, std::string_view text, const ParameterMap &values) const {
        Outcome result = outcomeOf(given, text, values);
        if (row.id == "shuffle-lines"s) {
            std::sort(result.text.begin(), result.text.end());
        }
        return result;
    }
    Outcome outcome(std::string_view text, const ParameterMap &values) const {
        return outcome(*transformation, text, values);
    }

    const Row &row = rows[GetParam()];
    const TransformationPointer transformation = findTransformation(makeCatalog(), row.id);
    const ParameterMap parameters = parametersOf(*transformation);
};

TEST_P(TransformationContract, TheSameTextAndParametersGiveTheSameResult) {
    const Catalog another = makeCatalog();
    for (const std::string &text : texts()) {
        const Outcome first = outcome(text, parameters);
        EXPECT_EQ(outcome(text, parameters), first);
        EXPECT_EQ(outcome(*findTransformation(another, row.id), text, parameters), first);
    }
}

TEST_P(TransformationContract, ReadsOnlyItsOwnKeys) {
    ParameterMap more = parameters;
    for (const Row &other : rows) {
        for (const StringParameter &parameter : other.parameters) {
            more.insert({parameter.id, "7"}); // keeps the values of its own keys
        }
    }
    more.insert({{"", "7"}, {"id", "7"}, {"name", "7"}, {"default", "7"}});
    for (const std::string &text : texts()) {
        EXPECT_EQ(outcome(text, more), outcome(text, parameters));
    }
}

TEST_P(TransformationContract, ItsMetadataDoesNotMatter) {
    const TransformationPointer other = row.make("another-id", encoding);
    EXPECT_EQ(other->parameters(), transformation->parameters());
    for (const std::string &text : texts()) {
        EXPECT_EQ(outcome(*other, text, parameters), outcome(text, parameters));
    }
}

TEST_P(TransformationContract, WithoutParametersItFailsOnlyIfItAsksForSome) {
    const bool asks = !transformation->parameters().empty();
    EXPECT_EQ(outcome("2442", {}).failed, asks); // "2442" is something to every decoder
}

TEST_P(TransformationContract, AnEmptyTextNeedsNoBytes) {
    const std::string_view nothing; // its data() is null
    EXPECT_EQ(outcome(nothing, parameters), outcome("", parameters));
}

TEST_P(TransformationContract, AnErrorIsOneOfTheThreeCases) {
    for (const std::string &text : texts()) {
        for (const ParameterMap &given : {parameters, ParameterMap()}) {
            const Outcome result = outcomeOf(*transformation, text, given);
            if (result.failed) {
                EXPECT_TRUE(result.text.starts_with("Invalid input: ") ||
                            result.text.starts_with("Operation failed: ") ||
                            result.text.starts_with("Missing parameter: "))
                    << result.text;
            }
        }
    }
}

std::string idAsName(const testing::TestParamInfo<std::size_t> &info) {
    std::string name = rows[info.param].id;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Catalog, TransformationContract, testing::Range(std::size_t{0}, std::size(rows)), idAsName);

} // namespace

} // namespace lexivore::test
