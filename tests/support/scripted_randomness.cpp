// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/scripted_randomness.h"

#include <random>

namespace {

std::mt19937 scripted;

} // namespace

// In the place of the C++ library's own.
std::random_device::result_type std::random_device::_M_getval() { return static_cast<result_type>(scripted()); }

namespace lexivore::test {

void restartRandomness(std::uint32_t seed) { scripted.seed(seed); }

} // namespace lexivore::test
