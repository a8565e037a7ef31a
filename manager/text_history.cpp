// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/text_history.h"

#include <algorithm>
#include <cassert>
#include <map>
#include <new>
#include <utility>

namespace lexivore {

namespace {

using Steps = std::vector<const AppliedOperation *>;

Steps enabledSteps(const TextHistoryState &state) {
    Steps steps;
    for (const AppliedOperation &operation : state.operations) {
        if (operation.isEnabled) {
            steps.push_back(&operation);
        }
    }
    return steps;
}

bool beginsWith(const Steps &steps, const Steps &front) {
    return front.size() <= steps.size() &&
           std::equal(front.begin(), front.end(), steps.begin(), [](const auto *one, const auto *other) {
               return one->id == other->id && one->parameters == other->parameters;
           });
}

/// As in the run that first made the text, a step that fails leaves the text as it was.
Text withStep(const Catalog &catalog, const AppliedOperation &operation, const Text &text) {
    const TransformationPointer transformation = findTransformation(catalog, operation.transformation);
    if (transformation == nullptr) {
        return text;
    }
    try {
        return resultOf(*transformation, text, operation.parameters);
    } catch (const std::bad_alloc &) {
        throw;
    } catch (const std::exception &) {
        return text;
    }
}

bool canBeForgotten(const TextHistoryState &state) {
    return !state.isTextForgotten && state.base.has_value() && !state.text.sharesAllWith(*state.base);
}

/// Moves the top of one stack over to the other, with `current` in the place of its state, which is returned.
/// When memory runs out both stacks are as they were.
TextHistoryState moveTop(std::vector<HistoryEntry> &from, std::vector<HistoryEntry> &to, TextHistoryState current) {
    to.push_back({std::move(current), from.back().action});
    TextHistoryState restored = std::move(from.back().state);
    from.pop_back();
    return restored;
}

} // namespace

void TextHistory::push(TextHistoryState before, HistoryActionType action) {
    m_undoStack.push_back({std::move(before), std::move(action)});
    m_redoStack.clear();
    keepWithinBudget();
}

TextHistoryState TextHistory::undo(TextHistoryState current) {
    assert(!m_undoStack.empty());
    remake(m_undoStack.back().state, current);
    TextHistoryState restored = moveTop(m_undoStack, m_redoStack, std::move(current));
    keepWithinBudget();
    return restored;
}

TextHistoryState TextHistory::redo(TextHistoryState current) {
    assert(!m_redoStack.empty());
    remake(m_redoStack.back().state, current);
    TextHistoryState restored = moveTop(m_redoStack, m_undoStack, std::move(current));
    keepWithinBudget();
    return restored;
}

void TextHistory::clear() {
    m_undoStack.clear();
    m_redoStack.clear();
}

/// Makes a forgotten text again from the nearest one that leads to it, and takes those along that it passes on the way:
/// they are what is undone next.
void TextHistory::remake(TextHistoryState &wanted, const TextHistoryState &current) {
    if (!wanted.isTextForgotten) {
        return;
    }
    const Steps steps = enabledSteps(wanted);
    Text text = *wanted.base;
    std::size_t done = 0;
    std::map<std::size_t, TextHistoryState *> forgotten; // by the number of their steps
    const auto startFrom = [&](const TextHistoryState &state) {
        const Steps known = enabledSteps(state);
        if (known.size() > done && beginsWith(steps, known)) {
            text = state.text;
            done = known.size();
        }
    };
    const auto look = [&](auto &stack) {
        for (HistoryEntry &entry : stack) {
            TextHistoryState &state = entry.state;
            if (!state.base.has_value() || !state.base->sharesAllWith(*wanted.base)) {
                continue;
            }
            if (!state.isTextForgotten) {
                startFrom(state);
            } else if (const Steps known = enabledSteps(state); beginsWith(steps, known)) {
                forgotten[known.size()] = &state;
            }
        }
    };
    look(m_undoStack);
    look(m_redoStack);
    if (current.base.has_value() && current.base->sharesAllWith(*wanted.base)) {
        startFrom(current);
    }

    for (; done < steps.size(); ++done) {
        text = withStep(*m_catalog, *steps[done], text);
        if (const auto passed = forgotten.find(done + 1); passed != forgotten.end()) {
            passed->second->text = text;
            passed->second->isTextForgotten = false;
            keepWithinBudget();
        }
    }
    wanted.text = std::move(text);
    wanted.isTextForgotten = false;
}

void TextHistory::keepWithinBudget() {
    while (m_catalog != nullptr && heldBytes() > m_budget) {
        TextHistoryState *const state = leastWanted();
        if (state == nullptr) {
            return;
        }
        state->text = Text();
        state->isTextForgotten = true;
    }
}

std::size_t TextHistory::heldBytes() const {
    std::size_t bytes = 0;
    for (const auto *stack : {&m_undoStack, &m_redoStack}) {
        for (const HistoryEntry &entry : *stack) {
            bytes += canBeForgotten(entry.state) ? entry.state.text.size() : 0;
        }
    }
    return bytes;
}

/// Of what can be redone the last, for every step forward makes the next text; then of what can be undone the one whose
/// loss makes the smallest gap for how far back it is. Never the tops.
TextHistoryState *TextHistory::leastWanted() {
    for (std::size_t i = 0; i + 1 < m_redoStack.size(); ++i) {
        if (canBeForgotten(m_redoStack[i].state)) {
            return &m_redoStack[i].state;
        }
    }
    std::vector<std::size_t> held;
    for (std::size_t i = 0; i < m_undoStack.size(); ++i) {
        if (!m_undoStack[i].state.isTextForgotten) {
            held.push_back(i);
        }
    }
    TextHistoryState *found = nullptr;
    double smallest = 0;
    for (std::size_t i = 0; i < held.size(); ++i) {
        TextHistoryState &state = m_undoStack[held[i]].state;
        if (!canBeForgotten(state) || held[i] + 1 == m_undoStack.size()) {
            continue;
        }
        const std::size_t begin = i == 0 ? 0 : held[i - 1];
        const std::size_t end = i + 1 == held.size() ? m_undoStack.size() : held[i + 1];
        const double loss = static_cast<double>(end - begin) / static_cast<double>(m_undoStack.size() - held[i]);
        if (found == nullptr || loss < smallest) {
            found = &state;
            smallest = loss;
        }
    }
    return found;
}

} // namespace lexivore
