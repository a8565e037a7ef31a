// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/sheets/sheet.h"

#include <functional>

namespace lexivore {

class Field;
class PushButton;

/// Asks for the name under which the current operations are saved as a recipe.
class RecipeSaveSheet : public Sheet {
    Q_OBJECT

public:
    /// `onSave` gets the name, which is not empty. The sheet stays until it is dismissed, so that a question may come
    /// between.
    RecipeSaveSheet(const QString &recipeName, std::function<void(const QString &)> onSave);

    void setRecipeName(const QString &name);

    void takeFocus() override;
    void confirm() override;

signals:
    /// Typed, or set from outside.
    void recipeNameChanged(const QString &name);

private:
    void updateSaveButton();

    Field *m_recipeName;
    PushButton *m_saveButton;
    std::function<void(const QString &)> m_onSave;
};

} // namespace lexivore
