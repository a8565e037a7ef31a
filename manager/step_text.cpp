// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/step_text.h"

#include "engine/primitives/characters.h"
#include "engine/primitives/lines.h"

#include <string_view>

namespace lexivore {

const TextMeasures &StepText::measures() const {
    if (!m_measures.has_value()) {
        const std::string_view bytes = m_text->view();
        m_measures = {.lines = lineCount(bytes), .characters = characterCount(bytes)};
    }
    return *m_measures;
}

void StepText::forget() {
    static_cast<void>(measures());
    m_text.reset();
}

bool StepText::operator==(const StepText &other) const {
    if (this == &other) {
        return true;
    }
    return m_text.has_value() && other.m_text.has_value() ? *m_text == *other.m_text : measures() == other.measures();
}

} // namespace lexivore
