// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/text_buffer.h"

#include "tests/support/allocation.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lexivore {

namespace {

constexpr std::size_t large = 8'000'000;

TEST(TextBuffer, IsEmptyAtFirst) {
    const TextBuffer buffer;
    EXPECT_TRUE(buffer.empty());
    EXPECT_EQ(buffer.size(), 0U);
    EXPECT_EQ(buffer.view(), "");
}

TEST(TextBuffer, KeepsTheBytesOfATextAsTheyAre) {
    const std::string text("a\0é\r\n\xFF", 7);
    const TextBuffer buffer{std::string_view(text)};
    EXPECT_EQ(buffer.view(), text);
    EXPECT_TRUE(buffer == std::string_view(text));
    EXPECT_FALSE(buffer == std::string_view("a"));
}

TEST(TextBuffer, AppendsTextsOfEveryLength) {
    TextBuffer buffer;
    std::string expected;
    for (std::size_t length = 0; length < 300; ++length) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i) {
            text += static_cast<char>('a' + static_cast<char>((length + i) % 26));
        }
        buffer.append(text);
        buffer.append('|');
        expected += text + "|";
        ASSERT_EQ(buffer.view(), expected);
    }
    buffer.append(std::string_view());
    EXPECT_EQ(buffer.view(), expected);
}

TEST(TextBuffer, HasRoomThatBecomesTextWhenCommitted) {
    TextBuffer buffer("ab");
    char *const place = buffer.room(1000);
    EXPECT_GE(buffer.capacity(), 1002U);
    EXPECT_EQ(buffer.view(), "ab");
    std::string_view("cdef").copy(place, 4);
    buffer.commit(place + 3);
    EXPECT_EQ(buffer.view(), "abcde");
}

TEST(TextBuffer, HasTheCapacityThatWasAskedFor) {
    TextBuffer buffer = TextBuffer::withCapacity(1000);
    EXPECT_TRUE(buffer.empty());
    EXPECT_GE(buffer.capacity(), 1000U);
    const char *const place = buffer.room(1000);
    EXPECT_EQ(place, buffer.data());
    EXPECT_TRUE(TextBuffer::withCapacity(0).empty());
}

TEST(TextBuffer, DropsWhatStandsBehindASize) {
    TextBuffer buffer("abcdef");
    buffer.truncate(9);
    EXPECT_EQ(buffer.view(), "abcdef");
    buffer.truncate(2);
    EXPECT_EQ(buffer.view(), "ab");
    buffer.append("x");
    EXPECT_EQ(buffer.view(), "abx");
    buffer.truncate(0);
    EXPECT_EQ(buffer.view(), "");
}

TEST(TextBuffer, GivesBackRoomThatIsNotUsed) {
    for (const std::size_t reserved : {std::size_t{10'000}, large}) {
        TextBuffer buffer = TextBuffer::withCapacity(reserved);
        buffer.append("a few bytes");
        buffer.shrink();
        EXPECT_EQ(buffer.view(), "a few bytes");
        EXPECT_LT(buffer.capacity(), 1000U);
    }
    TextBuffer nothing = TextBuffer::withCapacity(10'000);
    nothing.shrink();
    EXPECT_EQ(nothing.view(), "");
}

TEST(TextBuffer, MovesItsText) {
    TextBuffer first("abc");
    TextBuffer second(std::move(first));
    EXPECT_EQ(second.view(), "abc");
    EXPECT_TRUE(first.empty()); // NOLINT(bugprone-use-after-move): a moved buffer is an empty one
    first.append("new");        // NOLINT(clang-analyzer-cplusplus.Move)
    EXPECT_EQ(first.view(), "new");
    second = std::move(first);
    EXPECT_EQ(second.view(), "new");
}

TEST(TextBuffer, KeepsLargeTextsApart) {
    TextBuffer first{std::string_view(std::string(large, 'a'))};
    {
        TextBuffer second{std::string_view(std::string(large, 'b'))};
        EXPECT_EQ(second.view(), std::string(large, 'b'));
    }
    TextBuffer third = TextBuffer::withCapacity(large);
    TextBuffer fourth = TextBuffer::withCapacity(large);
    third.append(std::string(large, 'c'));
    fourth.append(std::string(large, 'd'));
    EXPECT_EQ(first.view(), std::string(large, 'a'));
    EXPECT_EQ(third.view(), std::string(large, 'c'));
    EXPECT_EQ(fourth.view(), std::string(large, 'd'));
    TextBuffer::releaseSpareMemory();
    EXPECT_EQ(first.view(), std::string(large, 'a'));
    first = std::move(third);
    TextBuffer::releaseSpareMemory();
    TextBuffer::releaseSpareMemory();
    EXPECT_EQ(first.view(), std::string(large, 'c'));
}

TEST(TextBuffer, HasTheRoomThatIsAskedForWhenTwoWereGivenUp) {
    const std::size_t sizes[] = {large / 8, large, large * 3 / 2, 3 * large, 10 * large};
    for (const std::size_t first : sizes) {
        for (const std::size_t second : sizes) {
            for (const std::size_t asked : sizes) {
                TextBuffer::releaseSpareMemory();
                {
                    const TextBuffer one = TextBuffer::withCapacity(first);
                    const TextBuffer other = TextBuffer::withCapacity(second);
                }
                TextBuffer buffer = TextBuffer::withCapacity(asked);
                TextBuffer another = TextBuffer::withCapacity(asked);
                EXPECT_NE(buffer.data(), another.data());
                for (const TextBuffer *const taken : {&buffer, &another}) {
                    EXPECT_TRUE(taken->empty());
                    EXPECT_GE(taken->capacity(), asked);
                    EXPECT_LE(taken->capacity(), 4 * asked + 3);
                }
            }
        }
    }
    TextBuffer::releaseSpareMemory();
}

TEST(TextBuffer, HasTheRoomThatIsAskedForWhateverWasGivenUp) {
    for (const std::size_t given : {large / 4, large, large * 5 / 4, 4 * large}) {
        for (const std::size_t asked : {large / 4, large, large * 5 / 4, 4 * large}) {
            TextBuffer::releaseSpareMemory();
            static_cast<void>(TextBuffer::withCapacity(given));
            TextBuffer buffer = TextBuffer::withCapacity(asked);
            EXPECT_TRUE(buffer.empty());
            EXPECT_GE(buffer.capacity(), asked);
            EXPECT_LE(buffer.capacity(), 4 * asked + 3);
            buffer.append(std::string(asked, 'x'));
            EXPECT_EQ(buffer.view(), std::string(asked, 'x'));
        }
    }
}

#ifndef __SANITIZE_ADDRESS__ // under which no memory waits
TEST(TextBuffer, TakesUpAllThatWereGivenUp) {
    TextBuffer::releaseSpareMemory();
    std::size_t allocated = 0;
    for (int round = 0; round < 4; ++round) {
        {
            const TextBuffer result = TextBuffer::withCapacity(2 * large);
            const TextBuffer small = TextBuffer::withCapacity(large / 4);
            const TextBuffer table = TextBuffer::withCapacity(large);
            { const TextBuffer passing = TextBuffer::withCapacity(large / 4); }
            TextBuffer growing("a");
            growing.append(std::string(large / 2, 'x'));
            EXPECT_EQ(growing.view(), 'a' + std::string(large / 2, 'x'));
            if (round > 1) {
                EXPECT_EQ(test::allocatedBytes(), allocated); // nothing new
            }
        }
        for (int i = 0; i < 10; ++i) { // the others wait on
            static_cast<void>(TextBuffer::withCapacity(large));
        }
        if (round == 1) {
            allocated = test::allocatedBytes();
        }
    }
    TextBuffer::releaseSpareMemory();
}

TEST(TextBuffer, TakesUpALargeOneHoweverSlowlyItGrows) {
    constexpr std::size_t size = large / 2;
    TextBuffer::releaseSpareMemory();
    static_cast<void>(TextBuffer::withCapacity(size));
    const std::size_t before = test::allocatedBytes();
    TextBuffer growing;
    for (std::size_t i = 0; i < size; ++i) {
        growing.append('x');
    }
    EXPECT_LT(test::allocatedBytes(), before + 10'000);
    EXPECT_TRUE(growing.view() == std::string(size, 'x'));
    TextBuffer::releaseSpareMemory();
}

TEST(TextBuffer, TakesUpTheLatestThoughAnOlderOneWasMuchLarger) {
    TextBuffer::releaseSpareMemory();
    static_cast<void>(TextBuffer::withCapacity(7 * large));
    const std::size_t asked = large * 5 / 4;
    const char *latest = nullptr;
    {
        const TextBuffer buffer = TextBuffer::withCapacity(asked);
        latest = buffer.data();
    }
    const std::size_t before = test::allocatedBytes();
    const TextBuffer again = TextBuffer::withCapacity(asked);
    EXPECT_EQ(again.data(), latest);
    EXPECT_EQ(test::allocatedBytes(), before);
    TextBuffer::releaseSpareMemory();
}
#endif

TEST(TextBuffer, TheMemoryThatWaitsIsBounded) {
    TextBuffer::releaseSpareMemory();
    const std::size_t before = test::allocatedBytes();
    for (const std::size_t first : {60, 10, 100}) {
        {
            std::vector<TextBuffer> buffers;
            for (const std::size_t megabytes : {first, std::size_t{30}, std::size_t{20}, std::size_t{50}}) {
                buffers.push_back(TextBuffer::withCapacity(megabytes << 20U));
            }
        }
        EXPECT_LT(test::allocatedBytes(), before + (std::size_t{64} << 20U) + 10'000);
    }
    TextBuffer::releaseSpareMemory();
    EXPECT_LT(test::allocatedBytes(), before + 10'000);
}

TEST(TextBuffer, AShortTextDoesNotKeepTheMemoryOfALargeOne) {
    TextBuffer::releaseSpareMemory();
    TextBuffer buffer = TextBuffer::withCapacity(large);
    buffer.append(std::string(100'000, 'x'));
    buffer.shrink();
    EXPECT_EQ(buffer.view(), std::string(100'000, 'x'));
    EXPECT_LT(buffer.capacity(), 200'000U);
    TextBuffer::releaseSpareMemory();
    EXPECT_EQ(buffer.view(), std::string(100'000, 'x'));
}

TEST(TextBuffer, GrowsByteByByteToALargeText) {
    TextBuffer buffer;
    for (std::size_t i = 0; i < large; ++i) {
        buffer.append('x');
    }
    EXPECT_EQ(buffer.view(), std::string(large, 'x'));
}

} // namespace

} // namespace lexivore
