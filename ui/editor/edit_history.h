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
    /// Steps undone together, in the order in which they were made.
    using Entry = std::vector<EditStep>;

    /// A step that was made. Whatever could be redone cannot be any more.
    void push(EditStep step, EditKind kind);
    void beginGroup();
    void endGroup();
    /// The next step starts an entry of its own, outside of groups.
    void close() { m_isOpen = false; }
    void clear();

    [[nodiscard]] bool canUndo() const { return !m_undo.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_redo.empty(); }
    /// The entry to undo or redo, moved to the other side. There must be one.
    [[nodiscard]] Entry undo();
    [[nodiscard]] Entry redo();

private:
    [[nodiscard]] bool mergesWithLast(const EditStep &step, EditKind kind) const;

    std::vector<Entry> m_undo;
    std::vector<Entry> m_redo;
    EditKind m_lastKind = EditKind::other;
    bool m_isOpen = false;
    int m_groupDepth = 0;
    bool m_groupHasEntry = false;
};

} // namespace lexivore
