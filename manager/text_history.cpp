// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// How undoing stays cheap although few texts are held. Number the texts from the oldest, and let L be the largest power
// of two that divides a text's number. While all texts are made one after the other, a text is worth keeping until 3 L
// more have come: that leaves one or two for each L. When the user goes back, the text `x` is begun to be made again
// from `x - L` when the distance is 3 L, and is finished when it is 2 L, just when `x + L / 2` is begun from it; so
// each call makes one step for each L at most. (Others have found this for chains of hashes that are revealed from the
// end.)
#include "manager/text_history.h"

#include <algorithm>
#include <cassert>
#include <functional>
#include <map>
#include <new>
#include <utility>

namespace lexivore {

namespace {

using Steps = std::vector<const AppliedOperation *>;

/// One would do if every change made the next text of the last; some begin further back in the stack.
constexpr std::size_t mostStepsPerCall = 4;

/// What leads from the state's origin to its text.
Steps enabledSteps(const TextHistoryState &state) {
    Steps steps;
    for (std::size_t i = state.origin->operations; i < state.operations.size(); ++i) {
        if (state.operations[i].isEnabled) {
            steps.push_back(&state.operations[i]);
        }
    }
    return steps;
}

bool isSameStep(const AppliedOperation *one, const AppliedOperation *other) {
    return one->id == other->id && one->parameters == other->parameters;
}

bool beginsWith(const Steps &steps, const Steps &front, std::size_t length) {
    const auto end = front.begin() + static_cast<std::ptrdiff_t>(length);
    return length <= steps.size() && std::equal(front.begin(), end, steps.begin(), isSameStep);
}

bool haveSameOrigin(const TextHistoryState &one, const TextHistoryState &other) {
    return one.origin.has_value() && other.origin.has_value() && one.origin->text.sharesAllWith(other.origin->text);
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
    return !state.isTextForgotten && state.origin.has_value() && !state.text.sharesAllWith(state.origin->text);
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
    std::erase_if(m_preparations, [this](const Preparation &one) { return one.index >= m_undoStack.size(); });
    prepareOrLeave(restored);
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
    m_preparations.clear();
}

/// The text nearest to the wanted one of all that are held and lead to it, if disabled operations are taken as steps.
TextHistory::Partial TextHistory::nearest(const TextHistoryState &wanted, const TextHistoryState &current) const {
    struct Held {
        const TextHistoryState *state;
        const Partial *made; ///< Null when the state's text is there.
        std::size_t length;
    };
    std::vector<Held> all;
    const auto add = [&](const TextHistoryState &state, const Partial *made) {
        if (haveSameOrigin(state, wanted) && (made != nullptr || !state.isTextForgotten)) {
            all.push_back({&state, made, made != nullptr ? made->done : state.operations.size()});
        }
    };
    add(current, nullptr);
    for (const auto *stack : {&m_undoStack, &m_redoStack}) {
        for (const HistoryEntry &entry : *stack) {
            add(entry.state, nullptr);
        }
    }
    for (const Preparation &preparation : m_preparations) {
        add(m_undoStack[preparation.index].state, &preparation.made);
    }
    // Comparing takes longer than all the rest. So the longest are looked at first, and the first that fits is taken.
    std::ranges::stable_sort(all, std::ranges::greater(), &Held::length);
    const Steps steps = enabledSteps(wanted);
    for (const Held &held : all) {
        const Steps known = enabledSteps(*held.state);
        const std::size_t done = held.made != nullptr ? held.made->done : known.size();
        if (beginsWith(steps, known, done)) {
            return {held.made != nullptr ? held.made->text : held.state->text, done};
        }
    }
    return {wanted.origin->text, 0};
}

/// Makes a forgotten text again, and takes those along that it passes on the way: they are what is undone next.
void TextHistory::remake(TextHistoryState &wanted, const TextHistoryState &current) {
    if (!wanted.isTextForgotten) {
        return;
    }
    const Steps steps = enabledSteps(wanted);
    Partial made = nearest(wanted, current);
    std::map<std::size_t, TextHistoryState *> forgotten; // by the number of their steps
    for (std::size_t i = 0; i < m_undoStack.size() && made.done + 1 < steps.size(); ++i) {
        TextHistoryState &state = m_undoStack[i].state;
        const bool mayBePassed = state.isTextForgotten && haveSameOrigin(state, wanted) &&
                                 state.operations.size() - state.origin->operations > made.done;
        if (const Steps known = mayBePassed ? enabledSteps(state) : Steps();
            known.size() > made.done && beginsWith(steps, known, known.size())) {
            forgotten[known.size()] = &state;
        }
    }
    while (made.done < steps.size()) {
        made.text = withStep(*m_catalog, *steps[made.done], made.text);
        ++made.done;
        if (const auto passed = forgotten.find(made.done); passed != forgotten.end()) {
            passed->second->text = made.text;
            passed->second->isTextForgotten = false;
            keepWithinBudget();
        }
    }
    wanted.text = std::move(made.text);
    wanted.isTextForgotten = false;
}

/// What is prepared is not needed yet: a lack of memory leaves it.
void TextHistory::prepareOrLeave(const TextHistoryState &current) {
    if (m_catalog == nullptr) {
        return;
    }
    const std::size_t count = m_undoStack.size();
    try {
        for (std::size_t distance = 1; distance * 3 <= count; distance *= 2) {
            if (const std::size_t place = count / distance; place % 2 == 1) {
                prepare((place - 2) * distance, count % distance + 1, current);
            }
        }
    } catch (const std::bad_alloc &) {
        m_preparations.clear();
    }
}

/// Goes on with the text at `index` so far that it is ready after `callsLeft` calls, this one included.
void TextHistory::prepare(std::size_t index, std::size_t callsLeft, const TextHistoryState &current) {
    TextHistoryState &wanted = m_undoStack[index].state;
    if (!wanted.isTextForgotten) {
        return;
    }
    const Steps steps = enabledSteps(wanted);
    auto preparation = std::ranges::find(m_preparations, index, &Preparation::index);
    if (preparation == m_preparations.end()) {
        Partial start = nearest(wanted, current);
        const bool isFar = steps.size() - start.done > mostStepsPerCall * callsLeft;
        if (isFar || !hasRoomFor(start.text.size(), rank(index))) {
            return; // when it is needed, all others on the way will be taken along
        }
        preparation = m_preparations.insert(preparation, {index, std::move(start)});
    }
    Partial &made = preparation->made;
    for (std::size_t left = (steps.size() - made.done + callsLeft - 1) / callsLeft; left > 0; --left) {
        made.text = withStep(*m_catalog, *steps[made.done], made.text);
        ++made.done;
    }
    if (made.done == steps.size()) {
        wanted.text = std::move(made.text);
        wanted.isTextForgotten = false;
        m_preparations.erase(preparation);
    }
    keepWithinBudget();
}

/// The higher, the less is the text at `index` worth keeping.
double TextHistory::rank(std::size_t index) const {
    if (index == 0) {
        return 0;
    }
    const std::size_t distance = index & (~index + 1);
    return static_cast<double>(m_undoStack.size() - index) / static_cast<double>(distance);
}

/// Whether `bytes` more fit in beside all that is worth at least as much.
bool TextHistory::hasRoomFor(std::size_t bytes, double ofRank) const {
    for (std::size_t i = 0; i < m_undoStack.size(); ++i) {
        if (const TextHistoryState &state = m_undoStack[i].state; canBeForgotten(state) && rank(i) <= ofRank) {
            bytes += state.text.size();
        }
    }
    for (const Preparation &preparation : m_preparations) {
        bytes += rank(preparation.index) <= ofRank ? preparation.made.text.size() : 0;
    }
    return bytes <= m_budget;
}

void TextHistory::keepWithinBudget() {
    while (m_catalog != nullptr && heldBytes() > m_budget) {
        const std::optional<Candidate> least = leastWanted();
        if (!least.has_value()) {
            return;
        }
        if (least->state != nullptr) {
            least->state->text = Text();
            least->state->isTextForgotten = true;
        } else {
            m_preparations.erase(m_preparations.begin() + static_cast<std::ptrdiff_t>(least->preparation));
        }
    }
}

std::size_t TextHistory::heldBytes() const {
    std::size_t bytes = 0;
    for (const auto *stack : {&m_undoStack, &m_redoStack}) {
        for (const HistoryEntry &entry : *stack) {
            bytes += canBeForgotten(entry.state) ? entry.state.text.size() : 0;
        }
    }
    for (const Preparation &preparation : m_preparations) {
        bytes += preparation.made.text.size();
    }
    return bytes;
}

/// Of what can be redone the last, for every step forward makes the next text; then of what can be undone and of what
/// is prepared for it that of the highest rank. Never the tops.
std::optional<TextHistory::Candidate> TextHistory::leastWanted() {
    for (std::size_t i = 0; i + 1 < m_redoStack.size(); ++i) {
        if (canBeForgotten(m_redoStack[i].state)) {
            return Candidate{.state = &m_redoStack[i].state};
        }
    }
    std::optional<Candidate> found;
    const auto consider = [&](const Candidate &other) {
        if (!found.has_value() || other.rank > found->rank) {
            found = other;
        }
    };
    for (std::size_t i = 0; i + 1 < m_undoStack.size(); ++i) {
        if (canBeForgotten(m_undoStack[i].state)) {
            consider({.rank = rank(i), .state = &m_undoStack[i].state});
        }
    }
    for (std::size_t i = 0; i < m_preparations.size(); ++i) {
        consider({.rank = rank(m_preparations[i].index), .preparation = i});
    }
    return found;
}

} // namespace lexivore
