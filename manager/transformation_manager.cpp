// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Every operation works on a copy of the state, which costs next to nothing, and publishes it at the end: whatever is
// thrown on the way leaves the published fields as they were, and each changed one is announced once.
#include "manager/transformation_manager.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace lexivore {

namespace {

template<typename Container> auto at(Container &container, std::size_t index) {
    return std::next(container.begin(), static_cast<std::ptrdiff_t>(index));
}

/// Whether it can be run again for the same result, as far as the catalog, which may lack it, can tell.
bool isRepeatable(const TransformationPointer &found) {
    return found != nullptr && !found->isRandom() && !found->hasTimeLimit();
}

} // namespace

TransformationManager::TransformationManager(Preferences &preferences, QObject *parent)
    : TransformationManager(preferences, MemoryBudget(), parent) {}

TransformationManager::TransformationManager(Preferences &preferences, const MemoryBudget &memory, QObject *parent)
    : QObject(parent), m_preferences(preferences), m_transformations(makeCatalog()),
      m_runner(m_transformations, memory.run), m_history(m_transformations, memory.historyBytes) {
    loadFavorites();
    loadRecipes();
}

TransformationManager::~TransformationManager() = default;

Catalog TransformationManager::transformations(TransformationCategory category) const {
    if (category == TransformationCategory::favorites) {
        return favoriteTransformations();
    }
    Catalog found;
    std::ranges::copy_if(m_transformations, std::back_inserter(found),
                         [&](const TransformationPointer &entry) { return entry->category() == category; });
    return found;
}

Catalog TransformationManager::favoriteTransformations() const {
    Catalog found;
    std::ranges::copy_if(m_transformations, std::back_inserter(found),
                         [&](const TransformationPointer &entry) { return m_favorites.contains(entry->id()); });
    return found;
}

TransformationPointer TransformationManager::findTransformation(std::string_view id) const {
    return lexivore::findTransformation(m_transformations, id);
}

std::optional<OperationMeasures> TransformationManager::operationMeasures(const QUuid &operation) const {
    const auto found = m_state.texts.find(operation);
    if (found == m_state.texts.end()) {
        return std::nullopt;
    }
    return OperationMeasures{found->second.before->measures(), found->second.after->measures()};
}

void TransformationManager::setCurrentText(Text text) {
    State next = m_state;
    next.currentText = std::move(text);
    next.origin = {next.currentText, next.appliedOperations.size()};
    publish(std::move(next));
}

void TransformationManager::editCurrentText(std::size_t offset, std::size_t length, std::string_view replacement) {
    setCurrentText(m_state.currentText.replaced(offset, length, replacement));
}

void TransformationManager::returnToOriginalText() {
    if (m_state.appliedOperations.empty()) {
        return; // then the base text belongs to a stack that is gone
    }
    State next = m_state;
    next.appliedOperations.clear();
    reapplyOrReturnToOriginal(next);
    publish(std::move(next));
}

void TransformationManager::applyTransformation(const TextTransformation &transformation,
                                                const ParameterMap &parameters) {
    State next = m_state;
    try {
        apply(next, transformation, parameters);
    } catch (...) {
        publish(std::move(next)); // it may have become the base text of a new stack
        throw;
    }
    publish(std::move(next));
}

/// One application, without publishing. When it throws, `state` is what has to be published all the same.
void TransformationManager::apply(State &state, const TextTransformation &transformation,
                                  const ParameterMap &parameters) {
    if (state.currentText.empty()) {
        throw TransformationError::invalidInput(QT_TRANSLATE_NOOP("Engine", "Text is empty"));
    }
    record(state, HistoryTransformation{});
    if (state.appliedOperations.empty()) {
        state.originalText = state.currentText;
        state.origin = {state.originalText, 0};
    }
    Text result = resultOf(transformation, state.currentText, parameters);
    const AppliedOperation applied{
        .transformation = transformation.id(), .transformationName = transformation.name(), .parameters = parameters};
    state.texts[applied.id] =
        m_runner.add(state.originalText, state.appliedOperations, state.currentText, applied, result);
    state.appliedOperations.push_back(applied);
    state.currentText = std::move(result);
    if (!isRepeatable(findTransformation(transformation.id()))) {
        state.origin = {state.currentText, state.appliedOperations.size()};
    }
}

void TransformationManager::toggleOperation(std::size_t index, TextAfterChange shown) {
    if (index >= m_state.appliedOperations.size()) {
        return;
    }
    State next = m_state;
    AppliedOperation &operation = next.appliedOperations[index];
    operation.isEnabled = !operation.isEnabled;
    reapply(next, shown);
    record(m_state, HistoryToggle{index});
    publish(std::move(next));
}

void TransformationManager::removeOperation(std::size_t index, TextAfterChange shown) {
    if (index >= m_state.appliedOperations.size()) {
        return;
    }
    State next = m_state;
    next.appliedOperations.erase(at(next.appliedOperations, index));
    reapplyOrReturnToOriginal(next, shown);
    record(m_state, HistoryRemoval{index, m_state.appliedOperations[index]});
    publish(std::move(next));
}

void TransformationManager::moveOperation(std::size_t from, std::size_t to, TextAfterChange shown) {
    const std::size_t count = m_state.appliedOperations.size();
    if (from >= count || to >= count || from == to) {
        return;
    }
    State next = m_state;
    auto &operations = next.appliedOperations;
    if (from < to) {
        std::rotate(at(operations, from), at(operations, from + 1), at(operations, to + 1));
    } else {
        std::rotate(at(operations, to), at(operations, from), at(operations, from + 1));
    }
    reapply(next, shown);
    record(m_state, HistoryMove{from, to});
    publish(std::move(next));
}

bool TransformationManager::editOperationParameters(std::size_t index, ParameterMap parameters, TextAfterChange shown) {
    if (index >= m_state.appliedOperations.size() || m_state.appliedOperations[index].parameters == parameters) {
        return false;
    }
    State next = m_state;
    next.appliedOperations[index].parameters = std::move(parameters);
    reapply(next, shown);
    record(m_state, HistoryTransformation{});
    publish(std::move(next));
    return true;
}

void TransformationManager::clearOperations() {
    if (m_state.appliedOperations.empty()) {
        return;
    }
    State next = m_state;
    next.appliedOperations.clear();
    reapplyOrReturnToOriginal(next);
    record(m_state, HistoryTransformation{});
    publish(std::move(next));
}

void TransformationManager::clearAll() {
    m_historyHasChanged = !m_history.undoStack().empty() || !m_history.redoStack().empty();
    m_history.clear();
    publish(State());
}

void TransformationManager::reapplyOperations() {
    State next = m_state;
    reapply(next);
    publish(std::move(next));
}

void TransformationManager::reapply(State &state, TextAfterChange shown) {
    OperationsRun run = m_runner.run(state.originalText, state.appliedOperations);
    state.currentText = shown == TextAfterChange::result ? std::move(run.result) : state.originalText;
    state.problems = std::move(run.problems);
    state.texts = std::move(run.texts);
    if (shown == TextAfterChange::original) {
        state.origin = {state.currentText, state.appliedOperations.size()};
        return;
    }
    state.origin = {state.originalText, 0};
    const auto found = std::find_if(
        state.appliedOperations.rbegin(), state.appliedOperations.rend(), [&](const AppliedOperation &operation) {
            const TransformationPointer transformation = findTransformation(operation.transformation);
            return operation.isEnabled && transformation != nullptr && !isRepeatable(transformation);
        });
    if (found == state.appliedOperations.rend()) {
        return;
    }
    const auto texts = state.texts.find(found->id);
    const Text *const made = texts != state.texts.end() ? texts->second.after->text() : nullptr;
    if (made != nullptr) {
        state.origin = {*made, static_cast<std::size_t>(state.appliedOperations.rend() - found)};
    } else { // it failed, or its text has been forgotten
        state.origin = {state.currentText, state.appliedOperations.size()};
    }
}

void TransformationManager::reapplyOrReturnToOriginal(State &state, TextAfterChange shown) {
    if (state.appliedOperations.empty()) {
        state.currentText = state.originalText;
        state.problems.clear();
        state.texts.clear();
        state.origin = {state.originalText, 0};
    } else {
        reapply(state, shown);
    }
}

void TransformationManager::undo() {
    if (!m_history.undoStack().empty()) {
        restore(m_history.undo(snapshot(m_state)), true);
    }
}

void TransformationManager::redo() {
    if (!m_history.redoStack().empty()) {
        restore(m_history.redo(snapshot(m_state)), false);
    }
}

void TransformationManager::restore(TextHistoryState restored, bool emptyStackShowsOriginalText) {
    const bool showOriginalText = emptyStackShowsOriginalText && restored.operations.empty();
    Text text = showOriginalText ? m_state.originalText : std::move(restored.text);
    TextOrigin origin = restored.origin.value_or(TextOrigin{text, restored.operations.size()});
    if (showOriginalText) {
        origin = {text, 0};
    }
    m_historyHasChanged = true;
    publish({.currentText = std::move(text),
             .originalText = m_state.originalText,
             .appliedOperations = std::move(restored.operations),
             .problems = std::move(restored.problems),
             .texts = std::move(restored.texts),
             .origin = std::move(origin)});
}

TextHistoryState TransformationManager::snapshot(const State &state) {
    return {.text = state.currentText,
            .operations = state.appliedOperations,
            .problems = state.problems,
            .texts = state.texts,
            .origin = state.origin};
}

void TransformationManager::record(const State &before, HistoryActionType action) {
    m_history.push(snapshot(before), std::move(action));
    m_historyHasChanged = true;
}

/// Makes `next` the published state and announces what is different. An equal text stays the value that it was, so that
/// a transformation without effect keeps no second copy.
void TransformationManager::publish(State next) {
    const bool currentTextIsNew = next.currentText != m_state.currentText;
    const bool originalTextIsNew = next.originalText != m_state.originalText;
    const bool operationsAreNew = !haveSameFields(next.appliedOperations, m_state.appliedOperations);
    const bool problemsAreNew = next.problems != m_state.problems;
    const bool measuresAreNew = next.texts != m_state.texts;
    const bool historyIsNew = std::exchange(m_historyHasChanged, false);
    const auto keep = [&next](Text &text, const Text &same) {
        if (next.origin.text.sharesAllWith(text)) {
            next.origin.text = same;
        }
        text = same;
    };
    if (!currentTextIsNew) {
        keep(next.currentText, m_state.currentText);
    }
    if (!originalTextIsNew) {
        keep(next.originalText, m_state.originalText);
    }
    m_state = std::move(next);
    if (m_state.appliedOperations.empty()) {
        m_runner.forget();
    }

    if (currentTextIsNew) {
        emit currentTextChanged();
    }
    if (originalTextIsNew) {
        emit originalTextChanged();
    }
    if (operationsAreNew) {
        emit appliedOperationsChanged();
    }
    if (problemsAreNew) {
        emit operationProblemsChanged();
    }
    if (measuresAreNew) {
        emit operationMeasuresChanged();
    }
    if (historyIsNew) {
        emit historyChanged();
    }
}

} // namespace lexivore
