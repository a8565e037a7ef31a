// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"
#include "manager/applied_operation.h"
#include "manager/recipe.h"
#include "tools/text_tool.h"

#include <QObject>
#include <QString>

#include <optional>

namespace lexivore {

/// What several views of the window share and the manager does not own. Lent by reference, never copied.
/// Every signal is emitted after the change, and only for a change.
class WindowState : public QObject {
    Q_OBJECT

public:
    static constexpr double defaultEditorFontSize = 13; ///< points

    using QObject::QObject;

    /// The category whose transformations are listed; without one the list asks to select a category.
    [[nodiscard]] std::optional<TransformationCategory> selectedCategory() const { return m_selectedCategory; }
    void setSelectedCategory(std::optional<TransformationCategory> category);

    [[nodiscard]] const QString &searchText() const { return m_searchText; }
    void setSearchText(const QString &text);

    /// Whether the rows of the category section are unfolded.
    [[nodiscard]] bool showCategories() const { return m_showCategories; }
    void setShowCategories(bool show);

    /// The panels are hidden until the window appears; it then shows both by their notifications, so that everyone who
    /// counts those agrees with the window.
    [[nodiscard]] bool showSidebar() const { return m_showSidebar; }
    void setShowSidebar(bool show);
    [[nodiscard]] bool showOperations() const { return m_showOperations; }
    void setShowOperations(bool show);

    /// False: a click replaces the previous result. True: a click adds to the stack.
    [[nodiscard]] bool stackOperationMode() const { return m_stackOperationMode; }
    void setStackOperationMode(bool stack);

    /// False while the operations are paused.
    [[nodiscard]] bool operationsEnabled() const { return m_operationsEnabled; }
    void setOperationsEnabled(bool enabled);

    /// The operation being dragged. A cancelled drag leaves it until the next one replaces it.
    [[nodiscard]] const std::optional<AppliedOperation> &draggedOperation() const { return m_draggedOperation; }
    void setDraggedOperation(std::optional<AppliedOperation> operation);

    /// The selected row of the operations panel, counted from 0.
    [[nodiscard]] std::optional<int> selectedOperationIndex() const { return m_selectedOperationIndex; }
    void setSelectedOperationIndex(std::optional<int> index);

    /// Bumped to make the operations panel draw itself anew.
    [[nodiscard]] unsigned operationsRefreshTrigger() const { return m_operationsRefreshTrigger; }
    void bumpOperationsRefreshTrigger();

    /// Points.
    [[nodiscard]] double editorFontSize() const { return m_editorFontSize; }
    void setEditorFontSize(double points);

    [[nodiscard]] bool showCopyConfirmation() const { return m_showCopyConfirmation; }
    void setShowCopyConfirmation(bool show);

    // What a sheet or an alert is being asked about. Only the flow that opened it looks at these.
    TransformationPointer pendingTransformation; ///< Waits for its parameters.
    ParameterMap transformationParameters;       ///< The values being edited for it.
    std::optional<Recipe> pendingRecipe;         ///< Waits for "Replace Operations".
    std::optional<Recipe> existingRecipeToReplace;
    QString newRecipeName;                         ///< Typed in the sheet that saves a recipe.
    std::optional<ToolWrapper> currentToolWrapper; ///< The tool whose result is shown.

signals:
    void selectedCategoryChanged();
    void searchTextChanged();
    void showCategoriesChanged();
    void showSidebarChanged();
    void showOperationsChanged();
    void stackOperationModeChanged();
    void operationsEnabledChanged();
    void draggedOperationChanged();
    void selectedOperationIndexChanged();
    void operationsRefreshTriggerChanged();
    void editorFontSizeChanged();
    void showCopyConfirmationChanged();

private:
    std::optional<TransformationCategory> m_selectedCategory = TransformationCategory::caseConversion;
    QString m_searchText;
    std::optional<AppliedOperation> m_draggedOperation;
    std::optional<int> m_selectedOperationIndex;
    double m_editorFontSize = defaultEditorFontSize;
    unsigned m_operationsRefreshTrigger = 0;
    bool m_showCategories = true;
    bool m_showSidebar = false;
    bool m_showOperations = false;
    bool m_stackOperationMode = false;
    bool m_operationsEnabled = true;
    bool m_showCopyConfirmation = false;
};

} // namespace lexivore
