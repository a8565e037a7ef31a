// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/recipe.h"

#include <QWidget>

namespace lexivore {

class Field;
class PushButton;

/// One of the user's recipes in the list of `ManageRecipesSheet`: its name and size with buttons to rename and delete
/// it, or a field for its new name. It shows what it is given and says what the user wants.
class RecipeRow : public QWidget {
    Q_OBJECT

public:
    explicit RecipeRow(const Recipe &recipe, QWidget *parent = nullptr);

    [[nodiscard]] const Recipe &recipe() const { return m_recipe; }

    /// Turns the row into a field that holds `name`, selected.
    void startEditing(const QString &name);
    [[nodiscard]] bool isEditing() const { return m_field != nullptr; }

    /// The current row is the one that Tab reaches, and its buttons with it.
    void setCurrent(bool isCurrent);

signals:
    void renameRequested();
    void deletionRequested();
    void nameEdited(const QString &name);
    void renameConfirmed();
    void renameCancelled();
    /// The row got the focus, or a click.
    void entered();
    /// Up, Down, Page Up, Page Down, Home or End was pressed.
    void moveRequested(int key);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showRecipe();
    void confirmRename();

    Recipe m_recipe;
    Field *m_field = nullptr;
    PushButton *m_confirmButton = nullptr;
    QList<QWidget *> m_buttons;
};

} // namespace lexivore
