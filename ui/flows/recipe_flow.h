// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/recipe.h"

#include <QObject>
#include <QString>

namespace lexivore {

class Alerts;
class Preferences;
class Sheets;
class TransformationManager;
class WindowState;

/// Choosing, saving and managing recipes.
class RecipeFlow : public QObject {
    Q_OBJECT

public:
    RecipeFlow(TransformationManager &manager, Preferences &preferences, WindowState &state, Sheets &sheets,
               Alerts &alerts, QObject *parent = nullptr);

    /// Replaces the operations by the recipe's, after asking when there are any and the user has not turned the
    /// question off. Does nothing while the operations are paused.
    void select(const Recipe &recipe);
    /// As above for a recipe's id as a UUID string; anything else, or an id that no recipe has, is ignored.
    void select(const QString &id);

    /// Asks for a name and saves the current operations under it.
    void showSaveSheet();
    void showManageSheet();

private:
    void replaceOperations(const Recipe &recipe);
    void save(const QString &name);
    void saveAndClose(const QString &name);

    TransformationManager &m_manager;
    Preferences &m_preferences;
    WindowState &m_state;
    Sheets &m_sheets;
    Alerts &m_alerts;
};

} // namespace lexivore
