// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/change_history.h"

#include <functional>
#include <string_view>
#include <utility>

namespace lexivore {

namespace {

/// A typed character has at most this many bytes when it is one code point. Longer insertions are pasted.
constexpr std::size_t longestKeystroke = 4;

bool isKeystroke(const TextChange &change) {
    return change.removed + change.inserted <= longestKeystroke && (change.removed == 0 || change.inserted == 0);
}

std::size_t hashOf(const Text &text) { return std::hash<std::string_view>()(text.view()); }

} // namespace

bool ChangeHistory::Seen::is(const Text &other) const {
    if (m_isUnknown) {
        return true;
    }
    return m_hash.has_value() ? other.size() == m_size && hashOf(other) == *m_hash : m_text == other;
}

void ChangeHistory::Seen::drop() {
    if (!isForgotten()) {
        m_hash = hashOf(m_text);
        m_size = m_text.size();
        m_text = Text();
    }
}

void ChangeHistory::append(Entry entry) {
    m_entries.resize(m_done);
    m_entries.push_back(std::move(entry));
    m_done = m_entries.size();
}

void ChangeHistory::keepWithinBudget() {
    std::size_t bytes = 0;
    for (auto entry = m_entries.rbegin(); entry != m_entries.rend() && !entry->wasDropped(); ++entry) {
        bytes += entry->isStep ? entry->before.text().size() : 0;
        if (entry->isStep && bytes > m_budget) {
            entry->before.drop();
            entry->after.drop();
        }
    }
}

/// The steps among the entries from `begin` to `end` become edits. One whose texts are forgotten cannot, and one that
/// left the text as it was would be an edit of nothing; they are gone.
void ChangeHistory::makeEdits(std::size_t begin, std::size_t end) {
    while (end > begin) {
        --end;
        Entry &entry = m_entries[end];
        const bool wasStep = std::exchange(entry.isStep, false);
        if (entry.isForgotten() || (wasStep && entry.before.is(entry.after.text()))) {
            m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(end));
            m_done -= end < m_done ? 1 : 0;
        }
    }
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

void ChangeHistory::recordEdit(const Text &before, const Text &after, const TextChange &change) {
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

void ChangeHistory::recordSteps(std::span<const std::optional<Text>> before, const Text &after) {
    for (std::size_t index = 0; index < before.size(); ++index) {
        const Seen first(before[index]);
        const Seen next = index + 1 < before.size() ? Seen(before[index + 1]) : Seen(after);
        append({first, next, wholeChange(first.text(), next.text()), true});
    }
    m_runIsOpen = false;
    keepWithinBudget();
}

void ChangeHistory::stepUndone(const Text &previous, const Text &now) {
    m_runIsOpen = false;
    std::size_t step = m_done;
    while (step > 0 && !m_entries[step - 1].isStep) {
        --step;
    }
    if (step == 0) {
        append({previous, now, wholeChange(previous, now), false});
        return;
    }
    m_done = step - 1;
    Entry &undone = m_entries[m_done];
    if (undone.before.is(now)) {
        return;
    }
    // The manager shows something else than what stood before that step. One more undo brings that back.
    const Seen before = std::exchange(undone.before, Seen(now));
    undone.change = wholeChange(now, undone.after.text());
    if (!before.isForgotten()) {
        m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(m_done),
                         {before, now, wholeChange(before.text(), now), false});
        ++m_done;
    }
}

void ChangeHistory::stepRedone(const Text &previous, const Text &now) {
    m_runIsOpen = false;
    if (m_done < m_entries.size() && m_entries[m_done].isStep && m_entries[m_done].before.is(previous)) {
        for (std::size_t last = m_done; last < m_entries.size(); ++last) {
            if (last > m_done && m_entries[last].isStep) {
                break;
            }
            if (m_entries[last].after.is(now)) {
                m_done = last + 1;
                return;
            }
        }
    }
    append({previous, now, wholeChange(previous, now), true});
}

void ChangeHistory::forgetSteps() {
    makeEdits(0, m_entries.size());
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
    return Restored{entry.before.text(), {entry.change.offset, entry.change.inserted, entry.change.removed}};
}

std::optional<ChangeHistory::Restored> ChangeHistory::redoEdit() {
    m_runIsOpen = false;
    if (!canRedoEdit()) {
        return std::nullopt;
    }
    const Entry &entry = m_entries[m_done++];
    return Restored{entry.after.text(), entry.change};
}

} // namespace lexivore
