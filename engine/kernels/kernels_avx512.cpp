// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/kernels/kernels_body.h"

namespace lexivore::kernels {

extern const Kernels avx512Kernels;
const Kernels avx512Kernels = {"avx512",          asciiPrefix, classify,          findCounted,
                               countBits,         compress,    compressReplacing, caseWords,
                               alternateCase,     find,        isValidUtf8,       encodeHexadecimal,
                               decodeHexadecimal, reverse,     encodeBase64,      decodeBase64};

} // namespace lexivore::kernels
