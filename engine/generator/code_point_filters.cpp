// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/generator/code_point_filters.h"

#include "engine/generator/code_point_classes.h"
#include "engine/generator/code_point_pages.h"
#include "engine/primitives/code_points.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace lexivore::unicode_tables::generator {

namespace {

struct Stretch {
    CodePoint first;
    CodePoint last;
};

/// Filters for the code points of two and three bytes that are wanted. Each bit stands for those of a stretch, and one
/// for all others. It also lets through what is made of the bytes of several of them, so that those stretches have bits
/// of their own in which many scripts have other code points beside the wanted ones.
template<typename IsWanted>
void writeFilters(std::ostream &out, std::span<const Stretch> stretches, IsWanted isWanted) {
    constexpr std::size_t bitsInFilter = 8;
    if (stretches.size() >= bitsInFilter * kernels::CodePointFilters::count) {
        fail("too many stretches of code points");
    }
    const auto bitOf = [&stretches](CodePoint c) {
        const auto found = std::find_if(stretches.begin(), stretches.end(), [c](const Stretch &stretch) {
            return c >= stretch.first && c <= stretch.last;
        });
        return static_cast<std::size_t>(found - stretches.begin()); // all others have the next one
    };
    constexpr std::size_t bytesLookedAt = 3;
    std::array<std::array<PageMaker::Page, bytesLookedAt>, kernels::CodePointFilters::count> filters{};
    for (CodePoint c = 0x80; c < static_cast<CodePoint>(kernels::CodePointTables::firstWide); ++c) {
        if (U_IS_SURROGATE(c) || !isWanted(c)) {
            continue;
        }
        std::string bytes;
        icu::UnicodeString(c).toUTF8String(bytes);
        const std::size_t bit = bitOf(c);
        auto &filter = filters[bit / bitsInFilter];
        const auto add = [&](std::size_t byte, std::size_t index) {
            filter[byte][index] = static_cast<std::uint8_t>(filter[byte][index] | 1U << bit % bitsInFilter);
        };
        for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
            add(byte, static_cast<unsigned char>(bytes[byte]) & 0x3FU);
        }
        for (std::size_t any = 0; any < filter[2].size() && bytes.size() == 2; ++any) {
            add(2, any);
        }
    }
    out << "{{";
    for (const auto &filter : filters) {
        out << '{';
        for (const PageMaker::Page &page : filter) {
            PageMaker::writePage(out, page);
        }
        out << "},\n";
    }
    out << "}}";
}

} // namespace

void writeRoleFilters(std::ostream &out) {
    constexpr Stretch stretches[] = {{0x80, 0xBF},     {0x480, 0x4BF},   {0x5C0, 0x5FF},   {0x600, 0x63F},
                                     {0x640, 0x67F},   {0x6C0, 0x6FF},   {0x1000, 0x1FFF}, {0x2000, 0x203F},
                                     {0x2040, 0x2FFF}, {0x3000, 0x303F}, {0x3040, 0x31FF}, {0x3200, 0x33FF},
                                     {0xA000, 0xAFFF}, {0xD000, 0xD7FF}, {0xF000, 0xFFFF}};
    writeFilters(out, stretches, [](CodePoint c) { return roleOf(c) != kernels::Role::none; });
}

void writeChangeableFilters(std::ostream &out) {
    constexpr Stretch stretches[] = {{0x300, 0x37F},   {0x380, 0x3BF},   {0x480, 0x5FF},  {0x600, 0x63F},
                                     {0x640, 0x6FF},   {0x700, 0x7FF},   {0x800, 0x8FF},  {0x900, 0x93F},
                                     {0x940, 0x97F},   {0x980, 0xDFF},   {0xE00, 0xFFF},  {0x1000, 0x1FFF},
                                     {0x2000, 0x203F}, {0x2040, 0x2FFF}, {0x3000, 0x33FF}};
    writeFilters(out, stretches, [](CodePoint c) { return (propertiesOf(c) & property::mayChangeInComposing) != 0; });
}

} // namespace lexivore::unicode_tables::generator
