// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Hundreds of operations on a large text, all undone and all redone: the same bytes each time, in bounded memory.
// LEXIVORE_HISTORY_MEGABYTES and LEXIVORE_HISTORY_OPERATIONS in the environment ask for more than the ordinary.
#include "manager/transformation_manager.h"
#include "tests/support/allocation.h"
#include "tests/support/memory_preferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20U;

std::size_t wanted(const char *variable, std::size_t ordinarily) {
    const char *const asked = std::getenv(variable);
    return asked != nullptr ? static_cast<std::size_t>(std::strtoull(asked, nullptr, 10)) : ordinarily;
}

std::string largeText(std::size_t bytes) {
    std::string text;
    text.reserve(bytes + 100);
    for (std::size_t line = 0; text.size() < bytes; ++line) {
        text +=
            "line " + std::to_string(line * 7919 % 100'003) + ": The quick brown fox, jumps over Żółć's lazy dog.\n";
    }
    return text;
}

/// A story of operations that each leave another text of about the same size.
class HistoryBudgetTest : public testing::Test {
protected:
    [[nodiscard]] std::size_t hash() const { return std::hash<std::string_view>()(manager.currentText().view()); }
    void note() {
        hashes.push_back(hash());
        peak = std::max(peak, test::allocatedBytes());
    }
    void apply(const char *id, const ParameterMap &parameters = {}) {
        manager.applyTransformation(*manager.findTransformation(id), parameters);
    }
    void act(std::size_t number) {
        const std::size_t last = manager.appliedOperations().size() - 1;
        switch (number % 12) {
        case 0:
            return apply("invertcase");
        case 1:
            return apply("reverse-lines");
        case 2:
            return apply("replace-text", {{"find", "o"}, {"replace", "0"}});
        case 3:
            return apply("uppercase");
        case 4:
            return apply("titlecase");
        case 5:
            return apply("replace-text", {{"find", "0"}, {"replace", "O"}});
        case 6:
            return manager.toggleOperation(last);
        case 7:
            return apply("alternatingcase");
        case 8:
            return apply("reverse");
        case 9:
            return manager.moveOperation(last, last - 2);
        case 10:
            return manager.removeOperation(last - 1);
        default:
            return apply("lowercase");
        }
    }

    test::MemoryPreferences preferences;
    TransformationManager manager{preferences};
    std::vector<std::size_t> hashes;
    std::size_t peak = 0;
};

TEST_F(HistoryBudgetTest, UndoAndRedoOfHundredsOfOperationsOnALargeTextTakeBoundedMemory) {
    using Clock = std::chrono::steady_clock;
    const std::size_t megabytes = wanted("LEXIVORE_HISTORY_MEGABYTES", 2);
    const std::size_t count = wanted("LEXIVORE_HISTORY_OPERATIONS", 320);
    const std::size_t before = test::allocatedBytes();
    manager.setCurrentText(Text(std::string_view(largeText(megabytes * megabyte))));
    note();
    for (std::size_t number = 0; number < count; ++number) {
        act(number);
        note();
    }
    const auto begin = Clock::now();
    std::chrono::milliseconds longest{};
    const auto timed = [&](auto step) {
        const auto start = Clock::now();
        step();
        longest = std::max(longest, std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start));
        peak = std::max(peak, test::allocatedBytes());
    };
    for (std::size_t left = count; left > 0; --left) {
        timed([&] { manager.undo(); });
        ASSERT_EQ(hash(), hashes[left - 1]) << "after undoing action " << left;
    }
    for (std::size_t done = 1; done <= count; ++done) {
        timed([&] { manager.redo(); });
        ASSERT_EQ(hash(), hashes[done]) << "after redoing action " << done;
    }
    const auto all = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
    std::cout << count << " actions on " << megabytes << " MB: peak " << (peak - before) / megabyte
              << " MB; undone and redone in " << all.count() << " ms, the longest step " << longest.count() << " ms\n";
    // The history's texts and the run's, the base, the current one and what a step works in; then the records.
    const std::size_t texts = 2 * TextHistory::usualBudget + 8 * megabytes * megabyte;
    EXPECT_LT(peak - before, texts + count * count * 400);
}

} // namespace
} // namespace lexivore
