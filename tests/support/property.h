// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/detail/TestListenerAdapter.h>

#include <cstdint>
#include <random>
#include <sstream>
#include <string>
#include <unordered_map>
#include <utility>

namespace lexivore::test {

/// The seed of all generated tests. It is fixed; LEXIVORE_TEST_SEED in the environment gives another one.
[[nodiscard]] std::uint64_t testSeed();

/// The source of everything random in a generated test, the same on every run with the same seed.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : m_engine(seed) {}

    /// A number from 0 to `limit` - 1. `limit` is at least 1.
    [[nodiscard]] std::size_t below(std::size_t limit) { return static_cast<std::size_t>(m_engine() % limit); }
    /// A number from `first` to `last`, both included.
    [[nodiscard]] std::size_t between(std::size_t first, std::size_t last) { return first + below(last - first + 1); }
    [[nodiscard]] bool chance(unsigned percent) { return below(100) < percent; }
    template<typename Container> [[nodiscard]] const auto &pick(const Container &container) {
        return *(std::begin(container) + static_cast<std::ptrdiff_t>(below(std::size(container))));
    }

private:
    std::mt19937_64 m_engine;
};

/// `testSeed` made different for each test, so that not all of them see the same cases.
[[nodiscard]] std::uint64_t seedOfRunningTest();

/// Checks a RapidCheck property on `cases` generated cases and makes a failure one of the running test, with the
/// smallest case found and the seed.
template<typename Property> void checkProperty(int cases, Property &&property) {
    rc::detail::TestParams parameters;
    parameters.seed = seedOfRunningTest();
    parameters.maxSuccess = cases;
    // With a listener and no cases to reproduce RapidCheck reads no configuration, and so prints no seed that would not
    // be this one.
    rc::detail::TestListenerAdapter silent;
    const rc::detail::TestResult result =
        rc::detail::checkTestable(std::forward<Property>(property), rc::detail::TestMetadata(), parameters, silent,
                                  std::unordered_map<std::string, rc::detail::Reproduce>());
    if (!result.template is<rc::detail::SuccessResult>()) {
        std::ostringstream message;
        rc::detail::printResultMessage(result, message);
        ADD_FAILURE() << message.str() << "\nseed " << testSeed();
    }
}

} // namespace lexivore::test
