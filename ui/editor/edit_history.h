// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <cstddef>
#include <vector>

namespace lexivore {

/// How an edit came about, which decides what it is undone together with.
enum class EditKind {
    typing,        ///< Runs of typing are undone as one, up to a space behind a word or a line break.
    deletingBack,  ///< Likewise, key after key.
    deletingAhead, ///< Likewise.
    other,         ///< On its own.
};

/// One replacement. The texts share the bytes of those they were cut from.
struct EditStep {
    std::size_t offset = 0;
    Text removed;
    Text inserted;
    std::size_t caretBefore = 0;
    std::size_t anchorBefore = 0;
    std::size_t caretAfter = 0;
    std::size_t anchorAfter = 0;
};

/// Undo and redo of edits.
class EditHistory {
public:
    /// A step that was made. Whatever could be redone cannot be any more.
    void push(EditStep step, EditKind kind);
    /// The next step is undone on its own.
    void close() { m_isOpen = false; }
    void clear();

    [[nodiscard]] bool canUndo() const { return !m_undo.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_redo.empty(); }
    /// What to undo or redo, moved to the other side. There must be something.
    [[nodiscard]] EditStep undo();
    [[nodiscard]] EditStep redo();

private:
    [[nodiscard]] bool mergesWithLast(const EditStep &step, EditKind kind) const;

    std::vector<EditStep> m_undo; ///< Each with what was merged into it.
    std::vector<EditStep> m_redo;
    EditKind m_lastKind = EditKind::other;
    bool m_isOpen = false;
};

} // namespace lexivore
