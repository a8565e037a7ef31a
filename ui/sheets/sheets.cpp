// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/sheets.h"

#include "tools/text_tool.h"
#include "ui/results/result_view_factory.h"
#include "ui/results/tool_view.h"
#include "ui/sheets/editor_settings_sheet.h"
#include "ui/sheets/manage_recipes_sheet.h"
#include "ui/sheets/parameter_input_sheet.h"
#include "ui/sheets/recipe_save_sheet.h"
#include "ui/sheets/sheet_layer.h"

#include <utility>

namespace lexivore {

Sheets::Sheets(QWidget &window, QObject *parent) : QObject(parent), m_window(window) {}

void Sheets::showParameterSheet(const TransformationPointer &transformation, const ParameterMap &values,
                                std::function<void(const ParameterMap &)> apply, std::function<void()> cancel) {
    SheetLayer::show(m_window, new ParameterInputSheet(transformation, values, std::move(apply), std::move(cancel)));
}

void Sheets::showRecipeSaveSheet(const QString &name, std::function<void(const QString &)> changed,
                                 std::function<void(const QString &)> save) {
    if (m_recipeSaveSheet != nullptr && m_recipeSaveSheet->isVisible()) {
        return;
    }
    m_recipeSaveSheet = new RecipeSaveSheet(name, std::move(save));
    connect(m_recipeSaveSheet, &RecipeSaveSheet::recipeNameChanged, this, std::move(changed));
    SheetLayer::show(m_window, m_recipeSaveSheet);
}

void Sheets::setRecipeName(const QString &name) {
    if (m_recipeSaveSheet != nullptr) {
        m_recipeSaveSheet->setRecipeName(name);
    }
}

void Sheets::closeRecipeSaveSheet() {
    if (m_recipeSaveSheet != nullptr) {
        m_recipeSaveSheet->dismiss();
    }
}

void Sheets::showManageRecipesSheet(TransformationManager &manager, std::function<void()> importRecipes,
                                    std::function<void(const std::vector<Recipe> &)> exportRecipes) {
    if (m_manageRecipesSheet != nullptr && m_manageRecipesSheet->isVisible()) {
        return;
    }
    m_manageRecipesSheet = new ManageRecipesSheet(manager);
    connect(m_manageRecipesSheet, &ManageRecipesSheet::importRequested, this, std::move(importRecipes));
    connect(m_manageRecipesSheet, &ManageRecipesSheet::exportRequested, this, std::move(exportRecipes));
    SheetLayer::show(m_window, m_manageRecipesSheet);
}

void Sheets::showEditorSettings(double fontSize, std::function<void(double)> changed) {
    SheetLayer::show(m_window, new EditorSettingsSheet(fontSize, std::move(changed)));
}

void Sheets::showToolResult(const TextTool &tool, const Text &text, std::function<void()> closed) {
    ResultViewFactory factory;
    ToolView *view = tool.makeView(text, factory);
    connect(view, &ToolView::dismissed, this, std::move(closed));
    SheetLayer::show(m_window, view);
}

} // namespace lexivore
