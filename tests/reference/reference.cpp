// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/reference/reference.h"

#include "tests/reference/families.h"
#include "tests/reference/plain_text.h"

#include <algorithm>
#include <limits>

namespace lexivore::reference {

namespace {

std::vector<Row> allRows() {
    std::vector<Row> rows;
    for (const auto family : {caseRows, addRemoveRows, lineRows, sortingRows, findReplaceRows, encodingRows}) {
        for (const Row &row : family()) {
            rows.push_back(row);
        }
    }
    return rows;
}

std::optional<std::int64_t> parsedNumber(std::u32string_view text) {
    const bool isNegative = text.starts_with(U'-');
    if (isNegative || text.starts_with(U'+')) {
        text.remove_prefix(1);
    }
    const bool hasOnlyDigits = std::all_of(text.begin(), text.end(),
                                           [](char32_t codePoint) { return codePoint >= U'0' && codePoint <= U'9'; });
    if (text.empty() || !hasOnlyDigits) {
        return std::nullopt;
    }
    while (text.size() > 1 && text.front() == U'0') {
        text.remove_prefix(1);
    }
    if (text.size() > 19) {
        return std::nullopt;
    }
    std::uint64_t magnitude = 0; // 19 digits fit
    for (const char32_t digit : text) {
        magnitude = magnitude * 10 + (digit - U'0');
    }
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (magnitude <= largest) {
        const auto absolute = static_cast<std::int64_t>(magnitude);
        return isNegative ? -absolute : absolute;
    }
    if (isNegative && magnitude == largest + 1) {
        return std::numeric_limits<std::int64_t>::min();
    }
    return std::nullopt;
}

} // namespace

std::optional<std::u32string> value(const Parameters &parameters, std::string_view key) {
    const auto found = parameters.find(key);
    if (found == parameters.end()) {
        return std::nullopt;
    }
    return codePoints(found->second);
}

std::u32string required(const Parameters &parameters, std::string_view key) {
    const std::optional<std::u32string> given = value(parameters, key);
    if (!given) {
        throw Failure("Missing parameter: " + std::string(key));
    }
    return *given;
}

std::u32string requiredNotEmpty(const Parameters &parameters, std::string_view key) {
    std::u32string given = required(parameters, key);
    if (given.empty()) {
        throw Failure("Missing parameter: " + std::string(key));
    }
    return given;
}

std::optional<std::int64_t> number(const Parameters &parameters, std::string_view key) {
    const std::optional<std::u32string> given = value(parameters, key);
    return given ? parsedNumber(*given) : std::nullopt;
}

const std::vector<std::string> &transformationIds() {
    static const std::vector<std::string> ids = [] {
        std::vector<std::string> result;
        for (const Row &row : allRows()) {
            result.emplace_back(row.id);
        }
        return result;
    }();
    return ids;
}

Outcome apply(std::string_view id, std::string_view text, const Parameters &parameters) {
    static const std::vector<Row> rows = allRows();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Row &candidate) { return candidate.id == id; });
    if (row == rows.end()) {
        throw std::invalid_argument("The reference has no transformation " + std::string(id));
    }
    try {
        return {true, utf8(row->apply(codePoints(text), parameters))};
    } catch (const Failure &failure) {
        return {false, failure.what()};
    }
}

} // namespace lexivore::reference
