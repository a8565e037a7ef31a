// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/generator/role_filters.h"

#include "engine/generator/code_point_classes.h"
#include "engine/generator/code_point_pages.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

namespace lexivore::unicode_tables::generator {

/// Each bit stands for some of the code points that the filters have to let through. It also lets through what is made
/// of the bytes of several of them, so that those stretches have bits of their own in which many scripts have letters
/// and punctuation beside marks.
void writeRoleFilters(std::ostream &out) {
    struct Stretch {
        CodePoint first;
        CodePoint last;
    };
    constexpr Stretch stretches[] = {{0x80, 0xBF},     {0x480, 0x4BF},   {0x5C0, 0x5FF},   {0x600, 0x63F},
                                     {0x640, 0x67F},   {0x6C0, 0x6FF},   {0x1000, 0x1FFF}, {0x2000, 0x203F},
                                     {0x2040, 0x2FFF}, {0x3000, 0x303F}, {0x3040, 0x31FF}, {0x3200, 0x33FF},
                                     {0xA000, 0xAFFF}, {0xD000, 0xD7FF}, {0xF000, 0xFFFF}};
    constexpr std::size_t bitCount = 8 * kernels::CodePointTables::filterCount;
    static_assert(std::size(stretches) < bitCount);
    const auto bitOf = [&stretches](CodePoint c) {
        const auto *const found = std::find_if(std::begin(stretches), std::end(stretches), [c](const Stretch &stretch) {
            return c >= stretch.first && c <= stretch.last;
        });
        return static_cast<std::size_t>(found - std::begin(stretches)); // all others have the next one
    };
    constexpr std::size_t bytesLookedAt = 3;
    std::array<std::array<PageMaker::Page, bytesLookedAt>, kernels::CodePointTables::filterCount> filters{};
    for (CodePoint c = 0x80; c < static_cast<CodePoint>(kernels::CodePointTables::firstWide); ++c) {
        if (U_IS_SURROGATE(c) || roleOf(c) == kernels::Role::none) {
            continue;
        }
        std::string bytes;
        icu::UnicodeString(c).toUTF8String(bytes);
        const std::size_t bit = bitOf(c);
        auto &filter = filters[bit / 8];
        const auto add = [&](std::size_t byte, std::size_t index) {
            filter[byte][index] = static_cast<std::uint8_t>(filter[byte][index] | 1U << bit % 8);
        };
        for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
            add(byte, static_cast<unsigned char>(bytes[byte]) & 0x3FU);
        }
        for (std::size_t any = 0; any < filter[2].size() && bytes.size() == 2; ++any) {
            add(2, any);
        }
    }
    out << '{';
    for (const auto &filter : filters) {
        out << '{';
        for (const PageMaker::Page &page : filter) {
            PageMaker::writePage(out, page);
        }
        out << "},\n";
    }
    out << '}';
}

} // namespace lexivore::unicode_tables::generator
