// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/window_state.h"

#include <utility>

namespace lexivore {

namespace {

/// True when `field` really changed.
template<typename Value> bool assign(Value &field, Value value) {
    if (field == value) {
        return false;
    }
    field = std::move(value);
    return true;
}

} // namespace

void WindowState::setSelectedCategory(std::optional<TransformationCategory> category) {
    if (assign(m_selectedCategory, category)) {
        emit selectedCategoryChanged();
    }
}

void WindowState::setSearchText(const QString &text) {
    if (assign(m_searchText, text)) {
        emit searchTextChanged();
    }
}

void WindowState::setShowCategories(bool show) {
    if (assign(m_showCategories, show)) {
        emit showCategoriesChanged();
    }
}

void WindowState::setShowSidebar(bool show) {
    if (assign(m_showSidebar, show)) {
        emit showSidebarChanged();
    }
}

void WindowState::setShowOperations(bool show) {
    if (assign(m_showOperations, show)) {
        emit showOperationsChanged();
    }
}

void WindowState::setStackOperationMode(bool stack) {
    if (assign(m_stackOperationMode, stack)) {
        emit stackOperationModeChanged();
    }
}

void WindowState::setOperationsEnabled(bool enabled) {
    if (assign(m_operationsEnabled, enabled)) {
        emit operationsEnabledChanged();
    }
}

void WindowState::setDraggedOperation(std::optional<AppliedOperation> operation) {
    if (assign(m_draggedOperation, std::move(operation))) {
        emit draggedOperationChanged();
    }
}

void WindowState::setSelectedOperationIndex(std::optional<int> index) {
    if (assign(m_selectedOperationIndex, index)) {
        emit selectedOperationIndexChanged();
    }
}

void WindowState::setEditorFontSize(double points) {
    if (assign(m_editorFontSize, points)) {
        emit editorFontSizeChanged();
    }
}

void WindowState::setShowCopyConfirmation(bool show) {
    if (assign(m_showCopyConfirmation, show)) {
        emit showCopyConfirmationChanged();
    }
}

void WindowState::bumpOperationsRefreshTrigger() {
    ++m_operationsRefreshTrigger;
    emit operationsRefreshTriggerChanged();
}

} // namespace lexivore
