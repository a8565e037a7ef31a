// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace lexivore {

/// How long a text is.
struct TextMeasures {
    std::size_t lines = 0;
    std::size_t characters = 0;

    bool operator==(const TextMeasures &) const = default;
};

/// A text that a step of a run began or ended with. It is shared by the run, by the views that show what a step did to
/// the text and by the history, and can be forgotten to save memory: its measures stay.
class StepText {
public:
    explicit StepText(Text text) : m_text(std::move(text)) {}

    /// Null when it has been forgotten.
    [[nodiscard]] const Text *text() const { return m_text.has_value() ? &*m_text : nullptr; }
    /// The first call takes one pass over the text, later ones no time.
    [[nodiscard]] const TextMeasures &measures() const;
    /// Measures the text before it goes.
    void forget();

    /// The same text; once one of them has been forgotten, a text of the same measures.
    bool operator==(const StepText &other) const;

private:
    std::optional<Text> m_text;
    mutable std::optional<TextMeasures> m_measures;
};

using StepTextPointer = std::shared_ptr<StepText>;

} // namespace lexivore
