// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Replacing by a regular expression: what the reference gives, or an error, and never for long.
// Input: the pattern, the template and the text, a field each.
#include "engine/primitives/regular_expression.h"

#include "fuzz/input.h"
#include "fuzz/well_formed.h"
#include "tests/reference/reference.h"
#include "tests/support/escaped.h"
#include "tests/support/placed_bytes.h"

#include <ctime>
#include <string>
#include <string_view>

namespace lexivore::fuzz {
namespace {

/// Seconds of the processor, for the machine may have other things to do.
double secondsUsed() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

reference::Outcome engineOutcome(std::string_view text, std::string_view pattern, std::string_view replacement) {
    const test::PlacedBytes placed(text, text.size() % 64);
    try {
        return {true, std::string(replaceMatches(placed.view(), pattern, replacement).view())};
    } catch (const RegularExpressionError &error) {
        return {false, std::string("Invalid input: Invalid regular expression: ") + error.what()};
    }
}

bool isSame(const reference::Outcome &expected, const reference::Outcome &actual) {
    if (expected.succeeded) {
        return expected == actual;
    }
    // How far a match may go is the engine's choice, and it adds the place in the pattern to an error's name.
    return expected.text.ends_with("U_REGEX_TIME_OUT") || expected.text.ends_with("U_REGEX_STACK_OVERFLOW") ||
           (!actual.succeeded && actual.text.starts_with(expected.text));
}

void run(Input input) {
    const std::string pattern = wellFormed(input.field());
    const std::string replacement = wellFormed(input.field());
    const std::string text = wellFormed(input.rest());

    const double begin = secondsUsed();
    const reference::Outcome actual = engineOutcome(text, pattern, replacement);
    const double used = secondsUsed() - begin;
#ifdef LEXIVORE_FUZZ // The replay is a test, and no test depends on how fast the machine is.
    if (used > 2.0) {
        fail("a match or an error comes within two seconds", std::to_string(used));
    }
#endif
    (void)engineOutcome(input.rest(), pattern, replacement);
    if (pattern.empty() || used > 0.2) {
        return; // nothing to compare, or too long for the reference
    }
    const reference::Outcome expected =
        reference::apply("replace-regex", text, {{"pattern", pattern}, {"replace", replacement}});
    if (!isSame(expected, actual)) {
        fail("it gives what the reference gives",
             "expected " + test::escaped(expected.text) + "\nbut got  " + test::escaped(actual.text));
    }
}

} // namespace
} // namespace lexivore::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    lexivore::fuzz::run(lexivore::fuzz::Input(data, size));
    return 0;
}
