// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "ui/editor/text_change.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace lexivore {

/// Every change of the text in the order in which the user saw them: edits (typing, pasting, opening, clearing) and the
/// steps that the manager's own history takes back, side by side, so that one undo key can take back the latest.
///
/// No text that was seen is lost while nothing new is done: what the manager's history cannot restore stays here as an
/// edit. Of the texts around steps, which the manager's history has too, only as many are held as the budget allows;
/// the older ones cannot come back when the manager forgets its history.
class ChangeHistory {
public:
    /// Bytes of the texts around steps.
    static constexpr std::size_t usualBudget = std::size_t{128} << 20U;

    explicit ChangeHistory(std::size_t budget = usualBudget) : m_budget(budget) {}

    /// What to show after an edit was taken back or done again, and what that changes in the text shown before.
    struct Restored {
        Text text;
        TextChange change;
    };

    /// An edit. Forgets what could be redone. A run of typing or of deleting, character by character, is one edit.
    void recordEdit(const Text &before, const Text &after, const TextChange &change);
    /// Steps of the manager's history that were just made, oldest first: the text before each of them, where the
    /// manager still has it, and the text that is shown now. Forgets what could be redone.
    void recordSteps(std::span<const std::optional<Text>> before, const Text &after);
    /// The manager took its latest step back (with the edits made since) and shows `now` instead of `previous`.
    void stepUndone(const Text &previous, const Text &now);
    /// The manager redid a step, with the edits that had been made after it.
    void stepRedone(const Text &previous, const Text &now);
    /// The manager forgot its history: only edits can bring back what the steps had changed.
    void forgetSteps();

    /// The latest change is an edit.
    [[nodiscard]] bool canUndoEdit() const;
    /// The change that was taken back last is an edit.
    [[nodiscard]] bool canRedoEdit() const;
    /// Nothing when the latest change is no edit.
    [[nodiscard]] std::optional<Restored> undoEdit();
    [[nodiscard]] std::optional<Restored> redoEdit();

private:
    /// A text that was shown. It can be forgotten and is known again nevertheless. One that nobody has shown, because
    /// the manager had forgotten it before, is taken for any text.
    class Seen {
    public:
        Seen() = default;
        Seen(const Text &text) : m_text(text) {} // NOLINT(google-explicit-constructor): it is that text
        explicit Seen(const std::optional<Text> &text) : m_text(text.value_or(Text())), m_isUnknown(!text) {}

        [[nodiscard]] const Text &text() const { return m_text; }
        [[nodiscard]] bool isForgotten() const { return m_isUnknown || wasDropped(); }
        [[nodiscard]] bool wasDropped() const { return m_hash.has_value(); }
        [[nodiscard]] bool is(const Text &other) const;
        void drop();

    private:
        Text m_text;
        std::size_t m_size = 0;
        std::optional<std::size_t> m_hash; ///< Of the text that was dropped.
        bool m_isUnknown = false;
    };
    struct Entry {
        Seen before;
        Seen after;
        TextChange change;
        bool isStep = false;

        [[nodiscard]] bool isForgotten() const { return before.isForgotten() || after.isForgotten(); }
        [[nodiscard]] bool wasDropped() const { return before.wasDropped() || after.wasDropped(); }
    };

    void append(Entry entry);
    void keepWithinBudget();
    void makeEdits(std::size_t begin, std::size_t end);
    [[nodiscard]] bool continuesRun(const TextChange &change) const;

    std::size_t m_budget;
    std::vector<Entry> m_entries;
    std::size_t m_done = 0; ///< Entries before it are done, the others were taken back.
    bool m_runIsOpen = false;
};

/// The change that turns one text into another seen as a replacement of everything.
[[nodiscard]] inline TextChange wholeChange(const Text &before, const Text &after) {
    return {0, before.size(), after.size()};
}

} // namespace lexivore
