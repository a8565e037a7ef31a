// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/property.h"

#include <cstdlib>
#include <iostream>
#include <string>

namespace lexivore::test {

namespace {

std::uint64_t chosenSeed() {
    const char *const given = std::getenv("LEXIVORE_TEST_SEED");
    const std::uint64_t seed = given != nullptr ? std::strtoull(given, nullptr, 10) : 20240229;
    std::cout << "Generated tests use LEXIVORE_TEST_SEED=" << seed << '\n';
    return seed;
}

} // namespace

std::uint64_t testSeed() {
    static const std::uint64_t seed = chosenSeed();
    return seed;
}

std::uint64_t seedOfRunningTest() {
    const testing::TestInfo &test = *testing::UnitTest::GetInstance()->current_test_info();
    std::uint64_t seed = testSeed();
    for (const char character : std::string(test.test_suite_name()) + '.' + test.name()) {
        seed = (seed ^ static_cast<unsigned char>(character)) * 1099511628211U; // FNV-1a
    }
    return seed;
}

} // namespace lexivore::test
