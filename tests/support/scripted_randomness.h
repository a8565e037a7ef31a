// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace lexivore::test {

/// From now on std::random_device gives, in the whole program, the numbers that follow from `seed`: what is random
/// comes out the same when it is done again after the same call.
void restartRandomness(std::uint32_t seed);

} // namespace lexivore::test
