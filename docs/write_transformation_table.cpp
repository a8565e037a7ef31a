// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// Writes the table of all transformations, each with an example that is the result of running it:
// write_transformation_table FILE
#include "engine/catalog.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

namespace {

using namespace lexivore;

struct Example {
    std::string_view transformation;
    std::string_view text;
    ParameterMap parameters = {}; ///< Beside what the fields begin with.
};

// clang-format off
const Example examples[] = {
    {"uppercase",               "Straße nach İzmir"},
    {"lowercase",               "ΟΔΟΣ and ROAD"},
    {"titlecase",               "don't stop at ONE word"},
    {"sentencecase",            "first one. SECOND one! third?"},
    {"camelcase",               "user account name"},
    {"pascalcase",              "user account name"},
    {"snakecase",               "User Account Name"},
    {"kebabcase",               "User Account Name"},
    {"alternatingcase",         "alternating"},
    {"invertcase",              "Hello World"},
    {"add-prefix",              "one\ntwo"},
    {"add-suffix",              "one\ntwo"},
    {"remove-whitespace",       "  much \t  room  "},
    {"remove-all-spaces",       "a b  c"},
    {"remove-tabs",             "a\tb\tc"},
    {"remove-empty-lines",      "one\n\n  \ntwo"},
    {"remove-line-breaks",      "one\ntwo\nthree"},
    {"remove-duplicates",       "b\na\nb\nc"},
    {"remove-duplicate-words",  "the cat and the dog and"},
    {"delete-non-alphanumeric", "3 cats, 2 dogs!"},
    {"delete-numeric",          "Room 101, floor 2"},
    {"keep-only-numeric",       "Call 555 or 0199."},
    {"remove-punctuation",      "Well, yes: \"quoted\"!"},
    {"remove-special-chars",    "50% of $20 = $10"},
    {"wrap-lines",              "the quick brown fox jumps", {{"width", "10"}}},
    {"trim-lines",              "  one  \n\ttwo"},
    {"number-lines",            "one\ntwo"},
    {"break-after-word",        "one two three"},
    {"break-after-sentence",    "One. Two! Three?"},
    {"delete-lines-containing", "keep\ndrop this\nkeep", {{"text", "drop"}}},
    {"delete-lines-starting",   "# note\ncode # note", {{"text", "#"}}},
    {"keep-lines-containing",   "error: a\nfine\nerror: b", {{"text", "error"}}},
    {"keep-lines-starting",     "- one\ntwo\n- three", {{"text", "- "}}},
    {"reverse-lines",           "one\ntwo\nthree"},
    {"delete-first-n-lines",    "head\none\ntwo"},
    {"delete-last-n-lines",     "one\ntwo\ntail"},
    {"keep-first-n-lines",      "one\ntwo\nthree", {{"count", "2"}}},
    {"keep-last-n-lines",       "one\ntwo\nthree", {{"count", "2"}}},
    {"extract-lines-range",     "one\ntwo\nthree\nfour", {{"start", "2"}, {"end", "3"}}},
    {"join-lines",              "one\ntwo\nthree"},
    {"sort-lines",              "pear\nApple\nfig"},
    {"sort-lines-reverse",      "pear\nApple\nfig"},
    {"sort-lines-length",       "three\none\n12"},
    {"shuffle-lines",           "one\ntwo\nthree"},
    {"sort-words",              "pear apple fig"},
    {"reverse-words-in-line",   "one two three"},
    {"replace-text",            "red car, red door", {{"find", "red"}, {"replace", "blue"}}},
    {"replace-regex",           "2024-03-31", {{"pattern", R"((\d+)-(\d+)-(\d+))"}, {"replace", "$3.$2.$1"}}},
    {"reverse",                 "stressed 👩‍🚀"},
    {"base64-encode",           "Grüße"},
    {"base64-decode",           "R3LDvMOfZQ=="},
    {"url-encode",              "a b&c=ü"},
    {"url-decode",              "a%20b%26c%3D%C3%BC"},
    {"html-encode",             "<b>Tom & \"Jerry\"</b>"},
    {"html-decode",             "&lt;b&gt; &amp; &quot;"},
    {"json-escape",             "say \"hi\"\tnow"},
    {"hex-encode",              "Hi ü"},
    {"hex-decode",              "48 69 20 c3 bc"},
};
// clang-format on

const Example &exampleOf(const TextTransformation &transformation) {
    const auto *found = std::find_if(std::begin(examples), std::end(examples), [&](const Example &example) {
        return example.transformation == transformation.id();
    });
    if (found == std::end(examples)) {
        std::cerr << "there is no example of " << transformation.id() << '\n';
        std::exit(1);
    }
    return *found;
}

void replaceEach(std::string &text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

/// As a cell of a table: one line, in which what cannot be seen is shown by a sign.
std::string cell(std::string_view text) {
    std::string shown(text);
    replaceEach(shown, "\n", "⏎");
    replaceEach(shown, "\t", "⇥");
    replaceEach(shown, "|", "\\|");
    // Several spaces in a row, or some at an end, would get lost.
    replaceEach(shown, "  ", "\u00A0\u00A0");
    replaceEach(shown, "\u00A0 ", "\u00A0\u00A0");
    if (shown.starts_with(' ')) {
        shown.replace(0, 1, "\u00A0");
    }
    if (shown.ends_with(' ')) {
        shown.replace(shown.size() - 1, 1, "\u00A0");
    }
    return shown.empty() ? std::string() : "`" + shown + "`";
}

void writeRow(std::ostream &out, const TextTransformation &transformation) {
    const Example &example = exampleOf(transformation);
    ParameterMap given;
    std::string fields;
    for (const TransformationParameter &parameter : transformation.parameters()) {
        const auto chosen = example.parameters.find(parameter.id);
        const std::string &value = chosen == example.parameters.end() ? parameter.defaultValue : chosen->second;
        given[parameter.id] = value;
        fields += (fields.empty() ? "" : ", ") + parameter.label + " " + cell(value);
    }
    const std::string result =
        transformation.isRandom() ? "its lines in any order" : cell(transformation.apply(example.text, given).view());
    out << "| " << transformation.name() << " | " << transformation.description() << " | " << fields << " | "
        << cell(example.text) << " | " << result << " |\n";
}

void writeTable(std::ostream &out) {
    const Catalog catalog = makeCatalog();
    out << "# All " << catalog.size() << " transformations\n\n"
        << "Each example is the result of running the transformation; this page is written by\n"
        << "`ninja -C build/dev transformation_table`, and a test compares it with what the engine does. `⏎` is a line "
           "break, `⇥`\na tab. The fields are those that a transformation asks for, with what the example puts in.\n";
    for (const TransformationCategory category : allTransformationCategories) {
        if (category == TransformationCategory::favorites) {
            continue;
        }
        out << "\n## " << rawValue(category)
            << "\n\n| Name | What it does | Fields | Text | Result |\n|---|---|---|---|---|\n";
        for (const TransformationPointer &transformation : catalog) {
            if (transformation->category() == category) {
                writeRow(out, *transformation);
            }
        }
    }
}

} // namespace

int main(int argc, char *argv[]) {
    if (argc != 2) {
        std::cerr << "usage: write_transformation_table FILE\n";
        return 2;
    }
    std::ofstream out(argv[1], std::ios::binary);
    writeTable(out);
    out.close();
    return out.fail() ? 1 : 0;
}
