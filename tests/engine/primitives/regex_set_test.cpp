// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/regex_set.h"

#include <gtest/gtest.h>
#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <ios>

namespace lexivore {

namespace {

TEST(RegexSet, HasTheCharactersThatIcuMatches) {
    for (const char *source : {"\\w", "\\W", "\\d", "\\s", "\\S", ".", "[^,]", "[\\w-]", "[a-z]"}) {
        const auto set = RegexSet::make(source);
        ASSERT_NE(set, nullptr) << source;
        UErrorCode status = U_ZERO_ERROR;
        icu::RegexMatcher matcher(icu::UnicodeString(source), 0, status);
        for (char32_t codePoint = 0; codePoint < 0x110000; codePoint += codePoint < 0x3100 ? 1 : 97) {
            if (codePoint >= 0xD800 && codePoint < 0xE000) {
                continue;
            }
            const icu::UnicodeString character(static_cast<UChar32>(codePoint));
            matcher.reset(character);
            ASSERT_EQ(set->contains(codePoint), matcher.matches(status) != 0)
                << source << " and U+" << std::hex << static_cast<std::uint32_t>(codePoint);
        }
    }
}

TEST(RegexSet, IsNoneWhereIcuSeesNone) { EXPECT_EQ(RegexSet::make("[a"), nullptr); }

} // namespace

} // namespace lexivore
