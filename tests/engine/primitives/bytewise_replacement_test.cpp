// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/bytewise_replacement.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace lexivore {

namespace {

/// What the part becomes when it is done as told.
std::string replacedAsTold(std::string_view part, const kernels::BytewiseReplacement &told) {
    std::string result;
    for (std::size_t i = told.leftOut; i < part.size(); ++i) {
        result += told.bytes[static_cast<unsigned char>(part[i]) % 64];
        if (i == 0) {
            result.append(told.insertedBytes, told.inserted);
        }
    }
    return result;
}

TEST(BytewiseReplacement, TellsWhatEachByteBecomes) {
    for (const std::string_view part : {"x", "xy", "the", "Ärger", "abcb", "0123456789abcdef"}) {
        for (const std::string_view replacement : {"", "z", "zz", "zzz", "zzzz"}) {
            if (const auto told = bytewiseReplacement(part, replacement)) {
                EXPECT_EQ(told->partSize, part.size());
                EXPECT_EQ(replacedAsTold(part, *told), replacement) << part;
            } else {
                EXPECT_GT(replacement.size(), part.size() + 3) << part << " " << replacement;
            }
        }
    }
    for (const std::string_view replacement : {"THAT", "THA", "TA", "THERE", "TTHERE"}) {
        const auto told = bytewiseReplacement("the", replacement);
        ASSERT_TRUE(told) << replacement;
        EXPECT_EQ(replacedAsTold("the", *told), replacement);
    }
}

TEST(BytewiseReplacement, IsNoneWhereThePartMayOverlapItself) {
    EXPECT_FALSE(bytewiseReplacement("aa", "b"));
    EXPECT_FALSE(bytewiseReplacement("abab", "b"));
    EXPECT_FALSE(bytewiseReplacement("abcda", "b"));
    EXPECT_TRUE(bytewiseReplacement("a", "b"));
    EXPECT_TRUE(bytewiseReplacement("aab", "b"));
}

TEST(BytewiseReplacement, IsNoneWhereBytesThatLookAlikeWouldDiffer) {
    EXPECT_TRUE(bytewiseReplacement("abcb", "wxyx"));
    EXPECT_FALSE(bytewiseReplacement("abcb", "wxyz"));
    EXPECT_FALSE(bytewiseReplacement("a!", "xy")); // 0x61 and 0x21
    EXPECT_TRUE(bytewiseReplacement("a!", "x"));   // the first one is left out
}

TEST(BytewiseReplacement, IsNoneForMuchMore) {
    EXPECT_TRUE(bytewiseReplacement("ab", "12345"));
    EXPECT_FALSE(bytewiseReplacement("ab", "123456"));
}

} // namespace

} // namespace lexivore
