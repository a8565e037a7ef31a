// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/bytewise_replacement.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <iterator>

namespace lexivore {

namespace {

/// Whether one occurrence can begin within another: whether it ends as it begins.
bool mayOverlapItself(std::string_view part) {
    for (std::size_t size = 1; size < part.size(); ++size) {
        if (part.ends_with(part.substr(0, size))) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<kernels::BytewiseReplacement> bytewiseReplacement(std::string_view part, std::string_view replacement) {
    kernels::BytewiseReplacement result;
    result.partSize = part.size();
    result.leftOut = part.size() - std::min(part.size(), replacement.size());
    result.inserted = replacement.size() - std::min(part.size(), replacement.size());
    if (result.inserted > kernels::BytewiseReplacement::mostInserted || mayOverlapItself(part)) {
        return std::nullopt;
    }
    if (result.inserted > 0) {
        replacement.substr(1, result.inserted).copy(result.insertedBytes, result.inserted);
    }
    std::bitset<std::size(decltype(result.bytes){})> isKnown;
    for (std::size_t i = result.leftOut; i < part.size(); ++i) {
        const std::size_t index = static_cast<unsigned char>(part[i]) % isKnown.size();
        const char byte = replacement[i == 0 ? 0 : i + result.inserted - result.leftOut];
        if (isKnown[index] && result.bytes[index] != byte) {
            return std::nullopt;
        }
        isKnown[index] = true;
        result.bytes[index] = byte;
    }
    return result;
}

} // namespace lexivore
