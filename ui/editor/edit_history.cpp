// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/edit_history.h"

#include "engine/primitives/code_points.h"
#include "engine/primitives/utf8.h"

#include <cassert>
#include <string_view>
#include <utility>

namespace lexivore {

namespace {

bool isSpace(char32_t codePoint) { return isIn(whitespaceAndNewlines, codePoint); }

/// Typing a word after a space, or anything after a line break, begins something new.
bool beginsAnew(const Text &typedBefore, const Text &typed) {
    const std::string_view before = typedBefore.view();
    const std::string_view next = typed.view();
    if (before.empty() || next.empty()) {
        return false;
    }
    const char32_t last = decodeBefore(before.data(), before.data() + before.size()).value;
    const char32_t first = decode(next.data(), next.data() + next.size()).value;
    return isIn(newlines, last) || (isSpace(last) && !isSpace(first));
}

} // namespace

void EditHistory::push(EditStep step, EditKind kind) {
    m_redo.clear();
    if (mergesWithLast(step, kind)) {
        EditStep &last = m_undo.back();
        if (kind == EditKind::typing) {
            last.removed = last.removed.replaced(last.removed.size(), 0, step.removed);
            last.inserted = last.inserted.replaced(last.inserted.size(), 0, step.inserted);
        } else if (kind == EditKind::deletingBack) {
            last.removed = step.removed.replaced(step.removed.size(), 0, last.removed);
            last.offset = step.offset;
        } else {
            last.removed = last.removed.replaced(last.removed.size(), 0, step.removed);
        }
        last.caretAfter = step.caretAfter;
        last.anchorAfter = step.anchorAfter;
        return;
    }
    m_undo.push_back(std::move(step));
    m_lastKind = kind;
    m_isOpen = kind != EditKind::other;
}

bool EditHistory::mergesWithLast(const EditStep &step, EditKind kind) const {
    if (!m_isOpen || kind != m_lastKind || m_undo.empty()) {
        return false;
    }
    const EditStep &last = m_undo.back();
    switch (kind) {
    case EditKind::typing:
        return step.offset == last.offset + last.inserted.size() && !beginsAnew(last.inserted, step.inserted);
    case EditKind::deletingBack:
        return step.inserted.empty() && step.offset + step.removed.size() == last.offset;
    case EditKind::deletingAhead:
        return step.inserted.empty() && step.offset == last.offset;
    case EditKind::other:
        break;
    }
    return false;
}

void EditHistory::clear() {
    m_undo.clear();
    m_redo.clear();
    m_isOpen = false;
}

EditStep EditHistory::undo() {
    assert(canUndo());
    m_isOpen = false;
    m_redo.push_back(std::move(m_undo.back()));
    m_undo.pop_back();
    return m_redo.back();
}

EditStep EditHistory::redo() {
    assert(canRedo());
    m_isOpen = false;
    m_undo.push_back(std::move(m_redo.back()));
    m_redo.pop_back();
    return m_undo.back();
}

} // namespace lexivore
