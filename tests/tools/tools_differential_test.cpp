// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/tools_reference.h"
#include "tests/support/engine_outcome.h"
#include "tests/support/transformation_cases.h"
#include "tools/character_frequency_tool.h"
#include "tools/readability_tool.h"
#include "tools/reading_time_tool.h"
#include "tools/statistics_tool.h"

#include <gtest/gtest.h>

#include <algorithm>

// The four tools against the reference, on generated texts.
namespace lexivore::test {

namespace {

constexpr int casesPerTool = 3000;

/// Checks `property` on texts that fill a block of the heap of their own, at every alignment in turn.
template<typename Property> void checkOnTexts(Property &&property) {
    std::size_t offset = 0;
    checkProperty(casesPerTool, [&] {
        const TransformationCase given = *texts();
        offset = (offset + 1) % 64;
        property(PlacedBytes(given.text(), offset).view());
    });
}

TEST(ToolsDifferential, StatisticsAreTheReferences) {
    checkOnTexts([](std::string_view text) {
        RC_ASSERT(statisticsReport(textStatistics(text)) == reference::statisticsReport(reference::statistics(text)));
    });
}

TEST(ToolsDifferential, FrequenciesAreTheReferencesInAnyOrderOfEqualCounts) {
    checkOnTexts([](std::string_view text) {
        std::vector<reference::Frequency> expected = reference::frequencies(text);
        std::vector<reference::Frequency> actual;
        for (const CharacterFrequency &entry : characterFrequencies(text)) {
            actual.emplace_back(entry.character, entry.count);
        }
        RC_ASSERT(std::is_sorted(actual.begin(), actual.end(),
                                 [](const auto &left, const auto &right) { return left.second > right.second; }));
        std::sort(expected.begin(), expected.end());
        std::sort(actual.begin(), actual.end());
        RC_ASSERT(actual == expected);
    });
}

TEST(ToolsDifferential, ReadingTimesAreTheReferences) {
    checkOnTexts([](std::string_view text) {
        RC_ASSERT(readingTimeReport(readingTime(text)) == reference::readingTimeReport(reference::readingTime(text)));
    });
}

TEST(ToolsDifferential, ReadabilityIsTheReferences) {
    checkOnTexts([](std::string_view text) {
        RC_ASSERT(readabilityReport(readability(text)) == reference::readabilityReport(reference::readability(text)));
    });
}

} // namespace

} // namespace lexivore::test
