// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/kernels/kernels_body.inc"

namespace lexivore::kernels {

extern const Kernels avx2Kernels;
const Kernels avx2Kernels = kernelsNamed("avx2");

} // namespace lexivore::kernels
