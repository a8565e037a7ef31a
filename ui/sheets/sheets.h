// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "engine/text_transformation.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace lexivore {

class ManageRecipesSheet;
class RecipeSaveSheet;
class TextTool;
class TransformationManager;
struct Recipe;

/// The window's sheets. Each call returns at once; what the user does in the sheet is called back.
class Sheets : public QObject {
    Q_OBJECT

public:
    /// Shows them over `window`, which must outlive this.
    explicit Sheets(QWidget &window, QObject *parent = nullptr);

    /// Asks for the values of the transformation's parameters, starting with `values`.
    void showParameterSheet(const TransformationPointer &transformation, const ParameterMap &values,
                            std::function<void(const ParameterMap &)> apply, std::function<void()> cancel);

    /// Asks for a recipe's name; the sheet stays open until it is closed or cancelled. `changed` follows the typing.
    /// Nothing new when it is open already.
    void showRecipeSaveSheet(const QString &name, std::function<void(const QString &)> changed,
                             std::function<void(const QString &)> save);
    void setRecipeName(const QString &name);
    void closeRecipeSaveSheet();

    /// Nothing new when it is open already.
    void showManageRecipesSheet(TransformationManager &manager, std::function<void()> importRecipes,
                                std::function<void(const std::vector<Recipe> &)> exportRecipes);

    /// `changed` follows the slider while it moves. Points.
    void showEditorSettings(double fontSize, std::function<void(double)> changed);

    /// Shows what the tool finds in the text as it is now.
    void showToolResult(const TextTool &tool, const Text &text, std::function<void()> closed);

private:
    QWidget &m_window;
    QPointer<RecipeSaveSheet> m_recipeSaveSheet;
    QPointer<ManageRecipesSheet> m_manageRecipesSheet;
};

} // namespace lexivore
