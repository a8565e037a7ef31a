// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/kernels/kernels.h"

#include <array>

namespace lexivore::kernels {

extern const Kernels plainKernels;
#ifdef LEXIVORE_X86_KERNELS
extern const Kernels avx2Kernels;
extern const Kernels avx512Kernels;
#endif

namespace {

struct Choice {
    std::array<const Kernels *, 3> kernels{&plainKernels};
    std::size_t count = 1;

    Choice() {
#ifdef LEXIVORE_X86_KERNELS
        __builtin_cpu_init();
        if (__builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi2") != 0) {
            kernels[count++] = &avx2Kernels;
        }
        if (__builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512dq") != 0 &&
            __builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512vbmi") != 0 &&
            __builtin_cpu_supports("avx512vbmi2") != 0 && __builtin_cpu_supports("avx512vpopcntdq") != 0 &&
            __builtin_cpu_supports("gfni") != 0) {
            kernels[count++] = &avx512Kernels;
        }
#endif
    }
};

const Choice &choice() {
    static const Choice made;
    return made;
}

} // namespace

const Kernels &best() {
    static const Kernels &chosen = *choice().kernels[choice().count - 1];
    return chosen;
}

std::size_t availableCount() { return choice().count; }

const Kernels &available(std::size_t index) { return *choice().kernels[index]; }

} // namespace lexivore::kernels
