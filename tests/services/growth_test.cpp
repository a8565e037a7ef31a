// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// What grows beyond the memory that there is ends in an error, with the text and the stack as before.
// LEXIVORE_GROWTH_MEGABYTES in the environment asks for texts of that size and the program's own limit of memory.
#include "manager/transformation_manager.h"
#include "services/memory_limit.h"
#include "tests/support/files.h"
#include "tests/support/memory_preferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <new>
#include <string>
#include <string_view>

namespace lexivore {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20U;

#ifndef __SANITIZE_ADDRESS__ // which takes terabytes of addresses itself

std::size_t kilobytesOf(const std::string &field) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (std::size_t kilobytes = 0; word == field && status >> kilobytes) {
            return kilobytes;
        }
    }
    return 0;
}

/// In a process of its own, for the limit stays.
class Growth : public testing::Test {
protected:
    static std::size_t wantedMegabytes() {
        const char *const asked = std::getenv("LEXIVORE_GROWTH_MEGABYTES");
        return asked != nullptr ? std::strtoull(asked, nullptr, 10) : 0;
    }
    static std::size_t textSize() { return std::max<std::size_t>(wantedMegabytes(), 16) * megabyte; }
    /// The usual one for what was asked for, else room for a few texts.
    static void limit() {
        if (wantedMegabytes() > 0) {
            return limitMemory();
        }
        const rlimit little{kilobytesOf("VmData:") * 1024 + 5 * textSize() / 2, RLIM_INFINITY};
        ::setrlimit(RLIMIT_DATA, &little);
    }

    /// Applies to a large text until it grows no more; 0 when all was as it has to be.
    static int growTo(const char *id, const ParameterMap &parameters, std::size_t mostSteps) {
        test::MemoryPreferences preferences;
        TransformationManager manager(preferences);
        manager.setCurrentText(Text(std::string_view(std::string(textSize(), 'a'))));
        limit();
        std::string failure;
        const auto begin = std::chrono::steady_clock::now();
        std::size_t sizeBefore = 0;
        while (failure.empty() && manager.appliedOperations().size() <= mostSteps) {
            sizeBefore = manager.currentText().size();
            try {
                manager.applyTransformation(*manager.findTransformation(id), parameters);
            } catch (const TransformationError &error) {
                failure = error.description();
            } catch (const std::bad_alloc &) {
                failure = "no memory";
            }
        }
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        const std::size_t steps = manager.appliedOperations().size();
        std::cout << id << " on " << textSize() / megabyte << " MB: " << steps << " times, then \"" << failure
                  << "\" after " << time.count() << " s; at most " << kilobytesOf("VmHWM:") / 1024 << " MB"
                  << std::endl; // the child will not do it
        if (failure.empty() || manager.currentText().size() != sizeBefore) {
            return 1;
        }
        // It all goes on: everything can be taken back, and something else done.
        while (!manager.history().undoStack().empty()) {
            manager.undo();
        }
        const std::string_view text = manager.currentText().view();
        if (text.size() != textSize() || text.find_first_not_of('a') != std::string_view::npos) {
            return 2;
        }
        manager.setCurrentText(Text("still here"));
        manager.applyTransformation(*manager.findTransformation("uppercase"), {});
        return manager.currentText().view() == "STILL HERE" ? 0 : 3;
    }
};

TEST_F(Growth, OfHexadecimalDigitsEndsInAnError) {
    EXPECT_EQ(test::inChild([] { return growTo("hex-encode", {}, 8); }), 0);
}

TEST_F(Growth, OfAReplacementThatMultipliesEndsInAnError) {
    const ParameterMap tenfold{{"find", "a"}, {"replace", "aaaaaaaaaa"}};
    EXPECT_EQ(test::inChild([&] { return growTo("replace-text", tenfold, 8); }), 0);
}

TEST_F(Growth, OfARegularExpressionThatMultipliesEndsInAnError) {
    const ParameterMap tenfold{{"pattern", "a"}, {"replace", "$0$0$0$0$0$0$0$0$0$0"}};
    EXPECT_EQ(test::inChild([&] { return growTo("replace-regex", tenfold, 8); }), 0);
}

#else

TEST(Growth, EndsInAnError) { GTEST_SKIP() << "The memory cannot be limited under AddressSanitizer."; }

#endif

} // namespace
} // namespace lexivore
