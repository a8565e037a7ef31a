// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/kernels/kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <string_view>

// What the tests of the kernels run them on.
namespace lexivore::kernels {

inline constexpr unsigned seed = 20240613;

/// A mask in which about every `spacing`-th bit, a power of two, is set.
inline std::uint64_t randomBits(std::mt19937_64 &random, unsigned spacing) {
    std::uint64_t bits = ~std::uint64_t{0};
    for (; spacing > 1; spacing /= 2) {
        bits &= random();
    }
    return bits;
}

/// Bytes of the kinds that the kernels tell apart, with ever fewer outside ASCII.
inline std::string randomBytes(std::mt19937 &random, std::size_t size, unsigned nonAsciiPerThousand) {
    const std::string common = "abcxyzABCXYZ0159'' .,;!?\t\n\r-_/@[`{\x7f";
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
        const bool isAscii = random() % 1000 >= nonAsciiPerThousand;
        bytes += isAscii ? common[random() % common.size()] : static_cast<char>(0x80 + random() % 0x80);
    }
    return bytes;
}

/// A copy of a text that begins `offset` bytes behind the alignment of a vector and ends where its memory does, so that
/// AddressSanitizer sees every read and write behind it.
class ExactCopy {
public:
    ExactCopy(std::string_view text, std::size_t offset)
        : m_memory(new (std::align_val_t{blockSize}) char[offset + text.size()]), m_offset(offset),
          m_size(text.size()) {
        std::copy(text.begin(), text.end(), data());
    }
    [[nodiscard]] char *data() const { return m_memory.get() + m_offset; }
    [[nodiscard]] std::string_view view() const { return {data(), m_size}; }

private:
    struct Free {
        void operator()(char *memory) const { ::operator delete[](memory, std::align_val_t{blockSize}); }
    };
    std::unique_ptr<char[], Free> m_memory;
    std::size_t m_offset;
    std::size_t m_size;
};

/// Runs `check(kernels)` for every set of kernels.
template<typename Check> void onAllKernels(Check check) {
    for (std::size_t index = 0; index < availableCount(); ++index) {
        SCOPED_TRACE(available(index).name);
        check(available(index));
    }
}

/// Runs `check(kernels, bytes)` for every set of kernels on texts of many sizes, at every alignment of a vector.
template<typename Check> void onRandomBytes(Check check) {
    std::mt19937 random(seed);
    for (const unsigned nonAscii : {0U, 2U, 30U, 500U}) {
        for (std::size_t size = 0; size < 700; size += size < 140 ? 1 : 37) {
            const ExactCopy bytes(randomBytes(random, size, nonAscii), size % blockSize);
            SCOPED_TRACE(std::to_string(size) + " bytes");
            onAllKernels([&](const Kernels &kernels) { check(kernels, bytes.view()); });
        }
    }
}

} // namespace lexivore::kernels
