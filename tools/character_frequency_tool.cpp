// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/character_frequency_tool.h"

#include "engine/primitives/characters.h"
#include "tools/number_text.h"
#include "tools/tool_view_factory.h"

#include <algorithm>
#include <unordered_map>

namespace lexivore {

std::vector<CharacterFrequency> characterFrequencies(std::string_view text) {
    std::vector<CharacterFrequency> frequencies;
    std::unordered_map<std::string_view, std::size_t> indices;
    forEachCharacter(text, [&](std::string_view character) {
        const auto [entry, isNew] = indices.try_emplace(character, frequencies.size());
        if (isNew) {
            frequencies.push_back({std::string(character == " " ? "" : character), 0});
        }
        ++frequencies[entry->second].count;
    });
    std::stable_sort(
        frequencies.begin(), frequencies.end(),
        [](const CharacterFrequency &left, const CharacterFrequency &right) { return left.count > right.count; });
    return frequencies;
}

std::string_view displayedCharacter(const CharacterFrequency &entry) {
    return entry.character.empty() ? std::string_view("Space") : entry.character;
}

std::string characterFrequencyReport(const std::vector<CharacterFrequency> &frequencies) {
    std::string report = "Character Frequency Analysis\n\n";
    for (std::size_t i = 0; i < std::min(shownFrequencyCount, frequencies.size()); ++i) {
        report.append(i == 0 ? "" : "\n").append(displayedCharacter(frequencies[i]));
        report.append(": ").append(decimalText(frequencies[i].count));
    }
    return report;
}

ToolView *CharacterFrequencyTool::makeView(const Text &text, ToolViewFactory &factory) const {
    return factory.makeCharacterFrequencyView(*this, text);
}

} // namespace lexivore
