// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Every transformation against its plain counterpart.
// Input: the transformation's id, then a field for each of its parameters ("\xFE" leaves it out), then the text. An id
// with "*N" behind it has the text N times. An id that there is not stands for any.
#include "engine/catalog.h"
#include "fuzz/input.h"
#include "fuzz/well_formed.h"
#include "tests/reference/reference.h"
#include "tests/support/engine_outcome.h"
#include "tests/support/escaped.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore::fuzz {
namespace {

constexpr std::size_t mostBytes = std::size_t(1024) * 32;

struct Case {
    const TextTransformation *transformation = nullptr;
    ParameterMap parameters;
    std::string text;
};

const TextTransformation &transformationNamed(std::string_view id) {
    static const Catalog catalog = makeCatalog();
    if (const TransformationPointer found = findTransformation(catalog, id)) {
        return *found;
    }
    std::size_t sum = 0;
    for (const char byte : id) {
        sum = sum * 31 + static_cast<unsigned char>(byte);
    }
    return *catalog[sum % catalog.size()];
}

Case readCase(Input input) {
    Case read;
    std::string_view id = input.field();
    std::size_t times = 1;
    if (const std::size_t star = id.rfind('*'); star != std::string_view::npos) {
        std::from_chars(id.data() + star + 1, id.data() + id.size(), times);
        id = id.substr(0, star);
    }
    read.transformation = &transformationNamed(id);
    for (const TransformationParameter &parameter : read.transformation->parameters()) {
        if (const std::string_view value = input.field(); value != "\xFE") {
            read.parameters[parameter.id] = wellFormed(value);
        }
    }
    const std::string_view text = input.rest();
    for (times = std::clamp<std::size_t>(times, 1, mostBytes / (text.size() + 1) + 1); times > 0; --times) {
        read.text += text;
    }
    return read;
}

/// Matching may go on for long, and has a target of its own.
bool isWorthwhile(const Case &given) {
    if (given.transformation->id() != "replace-regex") {
        return true;
    }
    const auto pattern = given.parameters.find("pattern");
    return given.text.size() < 512 && (pattern == given.parameters.end() || pattern->second.size() < 32);
}

/// The pieces between line feeds in the order of their bytes.
std::vector<std::string> sortedLines(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream stream(text + '\n');
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

reference::Outcome expectedOutcome(const Case &given) {
    return reference::apply(given.transformation->id(), given.text, given.parameters);
}

bool isSame(const reference::Outcome &expected, const reference::Outcome &actual) {
    // How far a match may go is the engine's choice, and it adds the place in the pattern to an error's name.
    const bool isRegexError = !expected.succeeded && expected.text.find("regular expression: ") != std::string::npos;
    if (isRegexError) {
        return expected.text.ends_with("U_REGEX_TIME_OUT") || expected.text.ends_with("U_REGEX_STACK_OVERFLOW") ||
               (!actual.succeeded && actual.text.starts_with(expected.text));
    }
    return expected == actual;
}

void compare(const Case &given) {
    const reference::Outcome actual =
        test::engineOutcome(*given.transformation, given.text, given.parameters, given.text.size() % 64);
    const std::string &id = given.transformation->id();
    if (id == "shuffle-lines") {
        const std::string reversed = reference::apply("reverse-lines", given.text, {}).text;
        require(sortedLines(actual.text) == sortedLines(reversed), "the shuffled lines are the same lines");
        return;
    }
    const reference::Outcome expected = expectedOutcome(given);
    if (!isSame(expected, actual)) {
        fail(id + " gives what the reference gives",
             "expected " + test::escaped(expected.text) + "\nbut got  " + test::escaped(actual.text));
    }
}

} // namespace
} // namespace lexivore::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace lexivore;
    fuzz::Case given = fuzz::readCase(fuzz::Input(data, size));
    if (!fuzz::isWorthwhile(given)) {
        return 0;
    }
    const std::string text = fuzz::wellFormed(given.text);
    if (text != given.text) {
        // What comes of it is nobody's business, but it must come.
        (void)test::engineOutcome(*given.transformation, given.text, given.parameters, given.text.size() % 64);
        given.text = text;
    }
    fuzz::compare(given);
    return 0;
}
