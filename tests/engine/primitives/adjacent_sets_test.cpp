// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/adjacent_sets.h"

#include "engine/primitives/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

namespace {

using kernels::AsciiSet;
using kernels::ByteClass;

/// The places that are found one after the other, each asked for right behind the one before.
std::vector<std::size_t> placesOf(std::string_view text, const std::vector<ByteClass> &sets) {
    std::vector<std::size_t> places;
    AdjacentSetsFinder finder(text, sets);
    const char *const end = text.data() + text.size();
    for (const char *place = finder.from(text.data()); place != end; place = finder.from(place + 1)) {
        places.push_back(static_cast<std::size_t>(place - text.data()));
    }
    return places;
}

bool isMember(const ByteClass &set, char byte) {
    return set.ascii.contains(byte) || (set.takesEveryNonAsciiByte && !isAscii(byte));
}

std::vector<std::size_t> placesOneByOne(std::string_view text, const std::vector<ByteClass> &sets) {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place + sets.size() <= text.size(); ++place) {
        std::size_t matching = 0;
        while (matching < sets.size() && isMember(sets[matching], text[place + matching])) {
            ++matching;
        }
        if (matching == sets.size()) {
            places.push_back(place);
        }
    }
    return places;
}

TEST(AdjacentSets, AreFoundWhereTheyStandInTheirOrder) {
    const std::vector<ByteClass> sets = {ByteClass{AsciiSet("ab")}, ByteClass{AsciiSet(" ")},
                                         ByteClass{AsciiSet("12")}};
    EXPECT_EQ(placesOf("a 1 b 2", sets), (std::vector<std::size_t>{0, 4}));
    EXPECT_EQ(placesOf("a 3 1a a  1", sets), (std::vector<std::size_t>{}));
    EXPECT_EQ(placesOf("", sets), (std::vector<std::size_t>{}));
    EXPECT_EQ(placesOf("a ", sets), (std::vector<std::size_t>{}));
    EXPECT_EQ(placesOf("aa", {ByteClass{AsciiSet("a")}}), (std::vector<std::size_t>{0, 1}));
}

TEST(AdjacentSets, MayTakeEveryByteOutsideAscii) {
    const std::vector<ByteClass> sets = {ByteClass{AsciiSet("a"), true}, ByteClass{AsciiSet(" ")}};
    EXPECT_EQ(placesOf("\u00E9 a b ", sets), (std::vector<std::size_t>{1, 3}));
}

TEST(AdjacentSets, MayHaveNulAmongTheirMembers) {
    using namespace std::string_view_literals;
    EXPECT_EQ(placesOf("a\0"sv, {ByteClass{AsciiSet("a")}, ByteClass{AsciiSet("\0"sv)}}),
              (std::vector<std::size_t>{0}));
    EXPECT_EQ(placesOf("a", {ByteClass{AsciiSet("a")}, ByteClass{AsciiSet("\0"sv)}}), (std::vector<std::size_t>{}));
}

TEST(AdjacentSets, AreFoundAcrossBlocksAtEveryPlace) {
    const std::vector<ByteClass> sets = {ByteClass{AsciiSet("a")}, ByteClass{AsciiSet("b")}, ByteClass{AsciiSet("c")}};
    for (const std::size_t around : {64U, 128U, 4096U, 8192U}) {
        for (std::size_t place = around - 4; place <= around + 1; ++place) {
            std::string text(around + 10, '-');
            text.replace(place, 3, "abc");
            EXPECT_EQ(placesOf(text, sets), std::vector<std::size_t>{place});
            text.resize(place + 3);
            EXPECT_EQ(placesOf(text, sets), std::vector<std::size_t>{place});
            text.resize(place + 2);
            EXPECT_EQ(placesOf(text, sets), std::vector<std::size_t>{});
        }
    }
}

TEST(AdjacentSets, AreThoseOfAPlainSearchInRandomTexts) {
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        std::string text;
        for (std::size_t left = random() % 10'000; left > 0; --left) {
            text += "abc \xC3"[random() % 5];
        }
        std::vector<ByteClass> sets;
        for (std::size_t left = 1 + random() % 4; left > 0; --left) {
            static const char *const members[] = {"a", "ab", "bc", " ", "abc "};
            sets.push_back({AsciiSet(members[random() % std::size(members)]), random() % 3 == 0});
        }
        ASSERT_EQ(placesOf(text, sets), placesOneByOne(text, sets)) << "round " << i;
    }
}

TEST(AdjacentSets, AreFoundFromAnyPlaceOn) {
    std::mt19937 random(2);
    std::string text;
    for (int i = 0; i < 20'000; ++i) {
        text += "ab--------"[random() % 10];
    }
    const std::vector<ByteClass> sets = {ByteClass{AsciiSet("a")}, ByteClass{AsciiSet("b")}};
    const std::vector<std::size_t> places = placesOneByOne(text, sets);
    for (const std::size_t most : {10U, 100U, 5'000U}) {
        AdjacentSetsFinder finder(text, sets);
        for (std::size_t from = 0; from < text.size(); from += random() % most) {
            const auto expected = std::lower_bound(places.begin(), places.end(), from);
            ASSERT_EQ(finder.from(text.data() + from) - text.data(),
                      static_cast<std::ptrdiff_t>(expected == places.end() ? text.size() : *expected));
        }
    }
}

} // namespace

} // namespace lexivore
