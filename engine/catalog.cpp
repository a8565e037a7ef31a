// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/catalog.h"

#include "engine/add_remove_transformations.h"
#include "engine/case_transformations.h"
#include "engine/encoding_transformations.h"
#include "engine/find_replace_transformations.h"
#include "engine/line_transformations.h"
#include "engine/sorting_transformations.h"

#include <algorithm>

namespace lexivore {

namespace {

template<typename Type>
TransformationPointer row(const char *id, const char *name, const char *description, TransformationCategory category,
                          const char *icon) {
    return std::make_shared<const Type>(id, name, description, category, icon);
}

} // namespace

Catalog makeCatalog() {
    using enum TransformationCategory;
    // Icons that several rows share are shared on purpose.
    // clang-format off
    return {
        row<UppercaseTransformation>              ("uppercase"              , "UPPERCASE"                    , "Convert all text to uppercase"                    , caseConversion, "textformat.size.larger"),
        row<LowercaseTransformation>              ("lowercase"              , "lowercase"                    , "Convert all text to lowercase"                    , caseConversion, "textformat.size.smaller"),
        row<TitleCaseTransformation>              ("titlecase"              , "Title Case"                   , "Capitalize The First Letter Of Each Word"         , caseConversion, "textformat.abc"),
        row<SentenceCaseTransformation>           ("sentencecase"           , "Sentence case"                , "Capitalize first letter of sentences"             , caseConversion, "text.quote"),
        row<CamelCaseTransformation>              ("camelcase"              , "camelCase"                    , "Convert to camelCase format"                      , caseConversion, "arrow.up.and.down.text.horizontal"),
        row<PascalCaseTransformation>             ("pascalcase"             , "PascalCase"                   , "Convert to PascalCase format"                     , caseConversion, "arrow.up.doc"),
        row<SnakeCaseTransformation>              ("snakecase"              , "snake_case"                   , "Convert to snake_case format"                     , caseConversion, "arrow.down.doc"),
        row<KebabCaseTransformation>              ("kebabcase"              , "kebab-case"                   , "Convert to kebab-case format"                     , caseConversion, "minus"),
        row<AlternatingCaseTransformation>        ("alternatingcase"        , "aLtErNaTiNg CaSe"             , "Alternate between upper and lower case"           , caseConversion, "arrow.up.arrow.down"),
        row<InvertCaseTransformation>             ("invertcase"             , "iNVERT cASE"                  , "Swap uppercase and lowercase"                     , caseConversion, "arrow.left.arrow.right"),
        row<AddPrefixTransformation>              ("add-prefix"             , "Add Prefix"                   , "Add text to the beginning of each line"           , addRemove     , "arrow.left.to.line"),
        row<AddSuffixTransformation>              ("add-suffix"             , "Add Suffix"                   , "Add text to the end of each line"                 , addRemove     , "arrow.right.to.line"),
        row<RemoveWhitespaceTransformation>       ("remove-whitespace"      , "Remove Extra Whitespace"      , "Remove extra spaces and tabs"                     , addRemove     , "space"),
        row<RemoveAllSpacesTransformation>        ("remove-all-spaces"      , "Remove All Spaces"            , "Remove every space character"                     , addRemove     , "space"),
        row<RemoveTabsTransformation>             ("remove-tabs"            , "Remove Tabs"                  , "Remove all tab characters"                        , addRemove     , "arrow.right.to.line"),
        row<RemoveEmptyLinesTransformation>       ("remove-empty-lines"     , "Remove Empty Lines"           , "Delete all blank lines"                           , addRemove     , "minus.circle"),
        row<RemoveLineBreaksTransformation>       ("remove-line-breaks"     , "Remove Line Breaks"           , "Join all lines into one"                          , addRemove     , "arrow.right"),
        row<RemoveDuplicateLinesTransformation>   ("remove-duplicates"      , "Remove Duplicate Lines"       , "Keep only unique lines"                           , addRemove     , "doc.on.doc"),
        row<RemoveDuplicateWordsTransformation>   ("remove-duplicate-words" , "Remove Duplicate Words"       , "Keep only unique words"                           , addRemove     , "doc.text"),
        row<DeleteNonAlphanumericTransformation>  ("delete-non-alphanumeric", "Delete Non-Alphanumeric"      , "Remove all non-alphanumeric characters"           , addRemove     , "textformat.123"),
        row<DeleteNumericCharactersTransformation>("delete-numeric"         , "Delete Numeric Characters"    , "Remove all numbers"                               , addRemove     , "number"),
        row<KeepOnlyNumericTransformation>        ("keep-only-numeric"      , "Keep Only Numbers"            , "Remove everything except numbers"                 , addRemove     , "123.rectangle"),
        row<RemovePunctuationTransformation>      ("remove-punctuation"     , "Remove Punctuation"           , "Remove all punctuation marks"                     , addRemove     , "exclamationmark.triangle"),
        row<RemoveSpecialCharactersTransformation>("remove-special-chars"   , "Remove Special Characters"    , "Keep only letters, numbers, and spaces"           , addRemove     , "textformat.alt"),
        row<WrapLinesTransformation>              ("wrap-lines"             , "Wrap Lines"                   , "Wrap text at specified width"                     , addRemove     , "arrow.turn.down.right"), // meant: it fills lines rather than working on each
        row<TrimLinesTransformation>              ("trim-lines"             , "Trim Lines"                   , "Remove leading/trailing whitespace from each line", lines         , "arrow.left.and.right"),
        row<NumberLinesTransformation>            ("number-lines"           , "Number Lines"                 , "Add line numbers to each line"                    , lines         , "list.number"),
        row<BreakAfterEveryWordTransformation>    ("break-after-word"       , "Break After Every Word"       , "Add line break after each word"                   , lines         , "return"),
        row<BreakAfterEverySentenceTransformation>("break-after-sentence"   , "Break After Every Sentence"   , "Add line break after each sentence"               , lines         , "text.append"),
        row<DeleteLinesContainingTransformation>  ("delete-lines-containing", "Delete Lines Containing..."   , "Remove lines that contain specific text"          , lines         , "line.3.horizontal.decrease"),
        row<DeleteLinesStartingWithTransformation>("delete-lines-starting"  , "Delete Lines Starting With...", "Remove lines that start with specific text"       , lines         , "text.line.first.and.arrowtriangle.forward"),
        row<KeepLinesContainingTransformation>    ("keep-lines-containing"  , "Keep Lines Containing..."     , "Keep only lines that contain specific text"       , lines         , "text.magnifyingglass"),
        row<KeepLinesStartingWithTransformation>  ("keep-lines-starting"    , "Keep Lines Starting With..."  , "Keep only lines that start with specific text"    , lines         , "text.justify.leading"),
        row<ReverseLinesTransformation>           ("reverse-lines"          , "Reverse Lines Order"          , "Reverse the order of lines"                       , lines         , "arrow.up.arrow.down.circle"),
        row<DeleteFirstNLinesTransformation>      ("delete-first-n-lines"   , "Delete First N Lines"         , "Remove first N lines from text"                   , lines         , "arrow.up.to.line"),
        row<DeleteLastNLinesTransformation>       ("delete-last-n-lines"    , "Delete Last N Lines"          , "Remove last N lines from text"                    , lines         , "arrow.down.to.line"),
        row<KeepFirstNLinesTransformation>        ("keep-first-n-lines"     , "Keep First N Lines"           , "Keep only first N lines"                          , lines         , "arrow.up.doc"),
        row<KeepLastNLinesTransformation>         ("keep-last-n-lines"      , "Keep Last N Lines"            , "Keep only last N lines"                           , lines         , "arrow.down.doc"),
        row<ExtractLinesByRangeTransformation>    ("extract-lines-range"    , "Extract Lines by Range"       , "Extract lines from X to Y"                        , lines         , "arrow.left.and.right.square"),
        row<JoinLinesTransformation>              ("join-lines"             , "Join Lines"                   , "Join all lines with custom separator"             , lines         , "arrow.merge"),
        row<SortLinesTransformation>              ("sort-lines"             , "Sort Lines Alphabetically"    , "Sort lines in alphabetical order"                 , sorting       , "arrow.up.arrow.down"),
        row<SortLinesReverseTransformation>       ("sort-lines-reverse"     , "Sort Lines (Reverse)"         , "Sort lines in reverse alphabetical order"         , sorting       , "arrow.down.to.line"),
        row<SortLinesByLengthTransformation>      ("sort-lines-length"      , "Sort Lines by Length"         , "Sort lines by their length"                       , sorting       , "arrow.up.and.down.text.horizontal"),
        row<ShuffleLinesTransformation>           ("shuffle-lines"          , "Shuffle Lines"                , "Randomly shuffle all lines"                       , sorting       , "shuffle"),
        row<SortWordsAlphabeticallyTransformation>("sort-words"             , "Sort Words Alphabetically"    , "Sort individual words in alphabetical order"      , sorting       , "character.textbox"),
        row<ReverseWordsInLineTransformation>     ("reverse-words-in-line"  , "Reverse Words in Line"        , "Reverse word order in each line"                  , sorting       , "arrow.left.arrow.right.square"),
        row<ReplaceTextTransformation>            ("replace-text"           , "Replace Text"                 , "Find and replace text"                            , findReplace   , "arrow.left.arrow.right.circle"),
        row<ReplaceWithRegexTransformation>       ("replace-regex"          , "Replace with Regex"           , "Find and replace using regular expressions"       , findReplace   , "wand.and.stars"),
        row<ReverseTextTransformation>            ("reverse"                , "Reverse Text"                 , "Reverse the entire text"                          , findReplace   , "arrow.left.arrow.right"), // meant: it turns the whole text, no line or word
        row<Base64EncodeTransformation>           ("base64-encode"          , "Base64 Encode"                , "Encode text to Base64"                            , encoding      , "lock.fill"),
        row<Base64DecodeTransformation>           ("base64-decode"          , "Base64 Decode"                , "Decode Base64 to text"                            , encoding      , "lock.open.fill"),
        row<URLEncodeTransformation>              ("url-encode"             , "URL Encode"                   , "Encode text for URLs"                             , encoding      , "link"),
        row<URLDecodeTransformation>              ("url-decode"             , "URL Decode"                   , "Decode URL-encoded text"                          , encoding      , "link.badge.plus"),
        row<HTMLEncodeTransformation>             ("html-encode"            , "HTML Encode"                  , "Encode special HTML characters"                   , encoding      , "chevron.left.forwardslash.chevron.right"),
        row<HTMLDecodeTransformation>             ("html-decode"            , "HTML Decode"                  , "Decode HTML entities"                             , encoding      , "chevron.left.slash.chevron.right"),
        row<JSONEscapeTransformation>             ("json-escape"            , "JSON Escape"                  , "Escape text for JSON strings"                     , encoding      , "curlybraces"),
        row<HexEncodeTransformation>              ("hex-encode"             , "Hex Encode"                   , "Convert text to hexadecimal"                      , encoding      , "number.square"),
        row<HexDecodeTransformation>              ("hex-decode"             , "Hex Decode"                   , "Decode hexadecimal to text"                       , encoding      , "number.square.fill"),
    };
    // clang-format on
}

TransformationPointer findTransformation(const Catalog &catalog, std::string_view id) {
    const auto found = std::find_if(catalog.begin(), catalog.end(),
                                    [id](const TransformationPointer &entry) { return entry->id() == id; });
    return found == catalog.end() ? nullptr : *found;
}

} // namespace lexivore
