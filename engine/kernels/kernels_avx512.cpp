// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/kernels/kernels_body.inc"

namespace lexivore::kernels {

extern const Kernels avx512Kernels;
const Kernels avx512Kernels = kernelsNamed("avx512");

} // namespace lexivore::kernels
