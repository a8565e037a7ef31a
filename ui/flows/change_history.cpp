// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/change_history.h"

#include <utility>

namespace lexivore {

namespace {

/// A typed character has at most this many bytes when it is one code point. Longer insertions are pasted.
constexpr std::size_t longestKeystroke = 4;

bool isKeystroke(const TextChange &change) {
    return change.removed + change.inserted <= longestKeystroke && (change.removed == 0 || change.inserted == 0);
}

} // namespace

void ChangeHistory::append(Entry entry) {
    m_entries.resize(m_done);
    m_entries.push_back(std::move(entry));
    m_done = m_entries.size();
}

bool ChangeHistory::continuesRun(const TextChange &change) const {
    if (!m_runIsOpen || !isKeystroke(change) || !canUndoEdit() || m_done != m_entries.size()) {
        return false;
    }
    const TextChange &run = m_entries.back().change;
    if (change.removed == 0) {
        return run.removed == 0 && change.offset == run.offset + run.inserted;
    }
    const bool backspaces = change.offset + change.removed == run.offset;
    const bool deletesForward = change.offset == run.offset;
    return run.inserted == 0 && (backspaces || deletesForward);
}

bool ChangeHistory::takesBackLatest(const Text &after, const TextChange &change) const {
    if (!canUndoEdit()) {
        return false;
    }
    const Entry &latest = m_entries[m_done - 1];
    return change.offset == latest.change.offset && change.removed == latest.change.inserted &&
           change.inserted == latest.change.removed &&
           after.slice(change.offset, change.inserted) == latest.before.slice(change.offset, change.inserted);
}

void ChangeHistory::recordEdit(const Text &before, const Text &after, const TextChange &change) {
    if (takesBackLatest(after, change)) {
        --m_done;
        m_runIsOpen = false;
        return;
    }
    if (!continuesRun(change)) {
        append({before, after, change, false});
        m_runIsOpen = isKeystroke(change);
        return;
    }
    Entry &run = m_entries.back();
    run.after = after;
    run.change.offset = change.removed == 0 ? run.change.offset : change.offset;
    run.change.removed += change.removed;
    run.change.inserted += change.inserted;
}

void ChangeHistory::recordSteps(std::span<const Text> before, const Text &after) {
    for (std::size_t index = 0; index < before.size(); ++index) {
        const Text &next = index + 1 < before.size() ? before[index + 1] : after;
        append({before[index], next, wholeChange(before[index], next), true});
    }
    m_runIsOpen = false;
}

void ChangeHistory::stepUndone(const Text &previous, const Text &now) {
    m_runIsOpen = false;
    std::size_t step = m_done;
    while (step > 0 && !m_entries[step - 1].isStep) {
        --step;
    }
    if (step > 0 && m_entries[step - 1].before == now) {
        m_done = step - 1;
        return;
    }
    // The manager shows something else than what stood before that step. Keep the way back as edits.
    if (step > 0) {
        m_entries[step - 1].isStep = false;
    }
    append({previous, now, wholeChange(previous, now), false});
}

void ChangeHistory::stepRedone(const Text &previous, const Text &now) {
    m_runIsOpen = false;
    if (m_done < m_entries.size() && m_entries[m_done].isStep && m_entries[m_done].before == previous) {
        for (std::size_t last = m_done; last < m_entries.size(); ++last) {
            if (last > m_done && m_entries[last].isStep) {
                break;
            }
            if (m_entries[last].after == now) {
                m_done = last + 1;
                return;
            }
        }
    }
    append({previous, now, wholeChange(previous, now), true});
}

void ChangeHistory::forgetSteps() {
    for (Entry &entry : m_entries) {
        entry.isStep = false;
    }
    m_runIsOpen = false;
}

bool ChangeHistory::canUndoEdit() const { return m_done > 0 && !m_entries[m_done - 1].isStep; }

bool ChangeHistory::canRedoEdit() const { return m_done < m_entries.size() && !m_entries[m_done].isStep; }

std::optional<ChangeHistory::Restored> ChangeHistory::undoEdit() {
    m_runIsOpen = false;
    if (!canUndoEdit()) {
        return std::nullopt;
    }
    const Entry &entry = m_entries[--m_done];
    return Restored{entry.before, {entry.change.offset, entry.change.inserted, entry.change.removed}};
}

std::optional<ChangeHistory::Restored> ChangeHistory::redoEdit() {
    m_runIsOpen = false;
    if (!canRedoEdit()) {
        return std::nullopt;
    }
    const Entry &entry = m_entries[m_done++];
    return Restored{entry.after, entry.change};
}

} // namespace lexivore
