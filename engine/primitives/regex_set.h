// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace lexivore {

/// The characters that a set of a regular expression matches, such as "[^,]", "\w" or ".", as ICU itself has it. It is
/// asked about many code points at once when the first of them comes up, and never again.
class RegexSet {
public:
    /// `source` is one set and ASCII. Null when ICU does not take it.
    [[nodiscard]] static std::shared_ptr<const RegexSet> make(std::string_view source);

    ~RegexSet();
    RegexSet(const RegexSet &) = delete;
    RegexSet &operator=(const RegexSet &) = delete;

    /// `codePoint` is no surrogate.
    [[nodiscard]] bool contains(char32_t codePoint) const {
        const std::unique_ptr<const Page> &page = m_pages[codePoint / pageSize];
        return (page != nullptr ? *page : fill(codePoint / pageSize))[codePoint % pageSize];
    }

private:
    static constexpr std::size_t pageSize = 256; ///< Code points.
    using Page = std::bitset<pageSize>;
    using Pages = std::vector<std::unique_ptr<const Page>>; ///< Each null as long as nobody asks.

    struct Pattern; ///< ICU's.

    explicit RegexSet(std::unique_ptr<const Pattern> pattern);

    const Page &fill(std::size_t index) const;

    std::unique_ptr<const Pattern> m_pattern;
    mutable Pages m_pages = Pages(0x110000 / pageSize);
};

} // namespace lexivore
