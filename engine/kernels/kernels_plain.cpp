// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/kernels/kernels_body.inc"

namespace lexivore::kernels {

extern const Kernels plainKernels;
const Kernels plainKernels = kernelsNamed("plain");

} // namespace lexivore::kernels
