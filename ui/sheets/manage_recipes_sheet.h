// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/recipe.h"
#include "ui/sheets/sheet.h"

#include <optional>
#include <vector>

namespace lexivore {

class PushButton;
class RecipeRow;
class TransformationManager;

/// Lists the user's own recipes, to rename, delete, import and export them. It follows the manager's list.
class ManageRecipesSheet : public Sheet {
    Q_OBJECT

public:
    explicit ManageRecipesSheet(TransformationManager &manager);

    void takeFocus() override;
    void confirm() override { dismiss(); }

signals:
    void importRequested();
    /// One of the recipes, or all of them.
    void exportRequested(const std::vector<Recipe> &recipes);

private:
    [[nodiscard]] QWidget *makeHeader();
    [[nodiscard]] QWidget *makeFooter();
    [[nodiscard]] QWidget *makeEmptyState();
    [[nodiscard]] QWidget *makeList();
    void showContent(QWidget *content);
    void showRows(const std::vector<Recipe> &recipes);
    static void remove(QWidget *widget);
    [[nodiscard]] bool isEdited(const Recipe &recipe) const;
    void fillExportMenu();
    void rebuild();
    void connectRow(RecipeRow &row);
    [[nodiscard]] int indexOf(const RecipeRow &row) const;
    void startRenaming(const Recipe &recipe);
    void stopRenaming();
    void confirmRename();
    void moveFrom(int index, int key);
    /// The index that the key leads to, which may be one beyond the ends.
    [[nodiscard]] int rowBehind(int index, int key) const;
    void setCurrentRow(int index);
    void focusRow(int index);

    TransformationManager &m_manager;
    std::optional<Recipe> m_editingRecipe; ///< The recipe whose name is being edited, one at a time.
    QString m_editedName;
    PushButton *m_doneButton = nullptr;
    PushButton *m_exportButton = nullptr;
    QVBoxLayout *m_rowColumn = nullptr; ///< Of the list, while there is one.
    std::vector<RecipeRow *> m_rows;
    int m_currentRow = 0;
};

} // namespace lexivore
