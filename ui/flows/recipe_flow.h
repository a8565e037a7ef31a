// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/recipe.h"

#include <QObject>
#include <QString>

#include <vector>

namespace lexivore {

class Alerts;
class FilePanels;
class Preferences;
class Sheets;
class TransformationManager;
class WindowState;

/// Choosing, saving and managing recipes.
class RecipeFlow : public QObject {
    Q_OBJECT

public:
    RecipeFlow(TransformationManager &manager, Preferences &preferences, WindowState &state, Sheets &sheets,
               Alerts &alerts, FilePanels &panels, QObject *parent = nullptr);

    /// Replaces the operations by the recipe's, after asking when there are any and the user has not turned the
    /// question off. Does nothing while the operations are paused.
    void select(const Recipe &recipe);
    /// As above for a recipe's id as a UUID string; anything else, or an id that no recipe has, is ignored.
    void select(const QString &id);

    /// Asks for a name and saves the current operations under it.
    void showSaveSheet();
    void showManageSheet();

    /// Asks for a file and adds its recipes to the user's own, in the sheet that lists them. A file that is no list of
    /// recipes changes nothing; the user is told why.
    void importRecipes();
    /// Asks for a file and writes the user's own recipes to it, or only these. Does nothing without any.
    void exportRecipes();
    void exportRecipes(const std::vector<Recipe> &recipes);

private:
    void replaceOperations(const Recipe &recipe);
    void save(const QString &name);
    void saveAndClose(const QString &name);
    void importFrom(const QString &path);

    TransformationManager &m_manager;
    Preferences &m_preferences;
    WindowState &m_state;
    Sheets &m_sheets;
    Alerts &m_alerts;
    FilePanels &m_panels;
};

} // namespace lexivore
