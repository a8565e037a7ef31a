// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tools/character_frequency_tool.h"

#include "engine/primitives/character_tally.h"
#include "tools/number_text.h"
#include "tools/tool_view_factory.h"

#include <algorithm>

namespace lexivore {

std::vector<CharacterFrequency> characterFrequencies(std::string_view text) {
    std::vector<TalliedCharacter> characters = tallyCharacters(text);
    std::sort(characters.begin(), characters.end(), [](const TalliedCharacter &left, const TalliedCharacter &right) {
        return left.count != right.count ? left.count > right.count
                                         : left.firstAppearance.data() < right.firstAppearance.data();
    });
    std::vector<CharacterFrequency> frequencies;
    frequencies.reserve(characters.size());
    for (const auto &[character, count] : characters) {
        frequencies.push_back({std::string(character == " " ? "" : character), count});
    }
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
