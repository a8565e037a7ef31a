// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace lexivore {

/// A range of a text that was replaced. Offsets and lengths in bytes.
struct TextChange {
    std::size_t offset = 0;
    std::size_t removed = 0;
    std::size_t inserted = 0;
};

/// Every change of the text in the order in which the user saw them: edits (typing, pasting, opening, clearing) and the
/// steps that the manager's own history takes back, side by side, so that one undo key can take back the latest.
///
/// No text that was seen is lost while nothing new is done: what the manager's history cannot restore stays here as an
/// edit. An entry holds two texts by reference, so it costs the same for any size.
class ChangeHistory {
public:
    /// What to show after an edit was taken back or done again, and what that changes in the text shown before.
    struct Restored {
        Text text;
        TextChange change;
    };

    /// An edit. Forgets what could be redone, unless it takes the latest edit back by hand. A run of typing or of
    /// deleting, character by character, is one edit.
    void recordEdit(const Text &before, const Text &after, const TextChange &change);
    /// Steps of the manager's history that were just made, oldest first: the text before each of them, and the text
    /// that is shown now. Forgets what could be redone.
    void recordSteps(std::span<const Text> before, const Text &after);
    /// The manager took its latest step back (with the edits made since) and shows `now` instead of `previous`.
    void stepUndone(const Text &previous, const Text &now);
    /// The manager redid a step, with the edits that had been made after it.
    void stepRedone(const Text &previous, const Text &now);
    /// The manager forgot its history: only edits can bring back what the steps had changed.
    void forgetSteps();
    /// The next edit begins an entry of its own.
    void breakRun() { m_runIsOpen = false; }

    /// The latest change is an edit.
    [[nodiscard]] bool canUndoEdit() const;
    /// The change that was taken back last is an edit.
    [[nodiscard]] bool canRedoEdit() const;
    /// Nothing when the latest change is no edit.
    [[nodiscard]] std::optional<Restored> undoEdit();
    [[nodiscard]] std::optional<Restored> redoEdit();

private:
    struct Entry {
        Text before;
        Text after;
        TextChange change;
        bool isStep = false;
    };

    void append(Entry entry);
    [[nodiscard]] bool takesBackLatest(const Text &after, const TextChange &change) const;
    [[nodiscard]] bool continuesRun(const TextChange &change) const;

    std::vector<Entry> m_entries;
    std::size_t m_done = 0; ///< Entries before it are done, the others were taken back.
    bool m_runIsOpen = false;
};

/// The change that turns one text into another seen as a replacement of everything.
[[nodiscard]] inline TextChange wholeChange(const Text &before, const Text &after) {
    return {0, before.size(), after.size()};
}

} // namespace lexivore
