// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QVariantMap>

#include <string>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;

namespace lexivore {

class NotificationCenter;
class RecipeMenu;
class ToolsManager;
class TransformationManager;
class Updater;

/// Fills a menu bar with every command. A command never calls the window: it posts a notification.
class MenuBarBuilder : public QObject {
    Q_OBJECT

public:
    /// Builds the menu bar of `window` at once and belongs to it. `information` is what the program was built with.
    MenuBarBuilder(QMainWindow &window, NotificationCenter &center, TransformationManager &manager,
                   const ToolsManager &tools, Updater &updater, const QVariantMap &information);

    /// Enables what acts on the text.
    void setHasText(bool hasText);
    /// Shows the mode in the label of its command.
    void setStackOperationMode(bool isStack);

private:
    QMenu *addMenu(const QString &name, const QString &title);
    [[nodiscard]] std::vector<QAction *> commandsOf(const QString &group);
    /// Those of the group named like the menu, or of another one.
    void addCommands(QMenu *menu);
    void addCommands(QMenu *menu, const QString &group);
    /// A command that posts a notification with an id, for what acts on the text.
    void addPost(QMenu *menu, const std::string &title, const char *notification, const std::string &id);
    void buildApplicationMenu(Updater &updater);
    void showAbout();
    void buildEditMenu();
    void buildViewMenu();
    void buildRecipesMenu();
    /// Only the user's own recipes are exported: there must be some.
    void enableExport();
    void buildTransformationsMenu();
    void buildToolsMenu();
    void buildHelpMenu(const QVariantMap &information);

    QMainWindow &m_window;
    NotificationCenter &m_center;
    TransformationManager &m_manager;
    const ToolsManager &m_tools;
    RecipeMenu *m_recipes = nullptr;
    QAction *m_mode = nullptr;
    std::vector<QAction *> m_needText;
};

} // namespace lexivore
