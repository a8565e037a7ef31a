// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// What libFuzzer calls, and scripts/test on the files of the corpus. Each target defines it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace lexivore::fuzz {

/// Ends the run with a finding: `rule` says what did not hold, `shown` what it was instead.
[[noreturn]] inline void fail(std::string_view rule, std::string_view shown = "") {
    std::fprintf(stderr, "FOUND: %.*s\n%.*s\n", static_cast<int>(rule.size()), rule.data(),
                 static_cast<int>(shown.size()), shown.data());
    std::abort();
}

inline void require(bool holds, std::string_view rule) {
    if (!holds) {
        fail(rule);
    }
}

/// Reads values off the bytes that the fuzzer made up. At the end come zeros and empty fields.
///
/// Texts stand in fields that end with the byte FF, which no UTF-8 has, so that the corpus can be read and written by
/// hand and the fuzzer can change a text without moving what follows.
class Input {
public:
    Input(const std::uint8_t *data, std::size_t size) : m_rest(reinterpret_cast<const char *>(data), size) {}

    [[nodiscard]] bool isOver() const { return m_rest.empty(); }
    [[nodiscard]] std::size_t byte() {
        if (m_rest.empty()) {
            return 0;
        }
        const auto value = static_cast<unsigned char>(m_rest.front());
        m_rest.remove_prefix(1);
        return value;
    }
    /// A number from 0 to `limit` - 1; `limit` is at least 1.
    [[nodiscard]] std::size_t below(std::size_t limit) {
        std::size_t value = byte();
        for (std::size_t reach = 256; reach < limit; reach *= 256) {
            value = value * 256 + byte();
        }
        return value % limit;
    }
    [[nodiscard]] std::string_view field() {
        const std::size_t end = m_rest.find('\xFF');
        const std::string_view result = m_rest.substr(0, end);
        m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
        return result;
    }
    [[nodiscard]] std::string_view rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

} // namespace lexivore::fuzz
