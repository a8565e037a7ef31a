// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/shell/menu_bar_builder.h"

#include "manager/text_conversion.h"
#include "manager/transformation_manager.h"
#include "services/support_request.h"
#include "tools/tools_manager.h"
#include "ui/icon.h"
#include "ui/sheets/alert_sheet.h"
#include "ui/sheets/sheet_layer.h"
#include "ui/shell/notification_center.h"
#include "ui/shell/open_address.h"
#include "ui/translation.h"
#include "ui/updates/check_for_updates_menu_item.h"
#include "ui/window/recipe_menu.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace lexivore {

namespace {

enum class Needs { nothing, text };

/// A command that posts a notification without an object.
struct Command {
    const char *group; ///< The menu, or a part of one.
    const char *title;
    const char *notification;
    const char *shortcuts; ///< Separated by "; ". The first is the one that the menu shows.
    Needs needs = Needs::nothing;
};

// clang-format off
constexpr Command commands[] = {
    {"file",    QT_TRANSLATE_NOOP("Menu", "Open..."),                  notification::openFile,           "Ctrl+O"},
    {"file",    QT_TRANSLATE_NOOP("Menu", "Save As..."),               notification::saveFile,           "Ctrl+S", Needs::text},
    {"edit",    QT_TRANSLATE_NOOP("Menu", "Undo"),                     notification::undoTransformation, "Ctrl+Z"},
    {"edit",    QT_TRANSLATE_NOOP("Menu", "Redo"),                     notification::redoTransformation, "Ctrl+Shift+Z; Ctrl+Y"},
    {"view",    QT_TRANSLATE_NOOP("Menu", "Toggle Sidebar"),           notification::toggleSidebar,      "Ctrl+Alt+S"},
    {"view",    QT_TRANSLATE_NOOP("Menu", "Toggle Operations Stack"),  notification::toggleOperations,   "Ctrl+Alt+O"},
    {"find",    QT_TRANSLATE_NOOP("Menu", "Find..."),                  notification::find,               "Ctrl+F"},
    {"find",    QT_TRANSLATE_NOOP("Menu", "Find Next"),                notification::findNext,           "F3; Ctrl+G"},
    {"find",    QT_TRANSLATE_NOOP("Menu", "Find Previous"),            notification::findPrevious,       "Shift+F3; Ctrl+Shift+G"},
    {"zoom",    QT_TRANSLATE_NOOP("Menu", "Zoom In"),                  notification::zoomIn,             "Ctrl++; Ctrl+="},
    {"zoom",    QT_TRANSLATE_NOOP("Menu", "Zoom Out"),                 notification::zoomOut,            "Ctrl+-"},
    {"zoom",    QT_TRANSLATE_NOOP("Menu", "Actual Size"),              notification::resetZoom,          "Ctrl+0"},
    {"recipes", QT_TRANSLATE_NOOP("Menu", "Save Current as Recipe..."), notification::showRecipeSheet,   "Ctrl+Shift+S"},
    {"recipes", QT_TRANSLATE_NOOP("Menu", "Manage Recipes..."),        notification::showManageRecipes,  "Ctrl+Shift+M"},
    {"recipe files", QT_TRANSLATE_NOOP("Menu", "Import Recipes..."),   notification::importRecipes,      ""},
    {"recipe files", QT_TRANSLATE_NOOP("Menu", "Export Recipes..."),   notification::exportRecipes,      ""},
    {"search",  QT_TRANSLATE_NOOP("Menu", "Search Transformations"),   notification::searchTransformations, "Ctrl+K; Ctrl+Shift+F"},
    {"transformations", QT_TRANSLATE_NOOP("Menu", "Multiple Operation Mode"), notification::toggleStackOperationMode, "Ctrl+Alt+1"},
};

/// What the widget with the keyboard does itself, if it can.
struct WidgetCommand {
    const char *title;
    const char *slot;
    QKeySequence::StandardKey shortcut;
};
constexpr WidgetCommand widgetCommands[] = {
    {QT_TRANSLATE_NOOP("Menu", "Cut"),        "cut",       QKeySequence::Cut},
    {QT_TRANSLATE_NOOP("Menu", "Copy"),       "copy",      QKeySequence::Copy},
    {QT_TRANSLATE_NOOP("Menu", "Paste"),      "paste",     QKeySequence::Paste},
    {QT_TRANSLATE_NOOP("Menu", "Select All"), "selectAll", QKeySequence::SelectAll},
};
// clang-format on

QString inMenu(const char *text) { return QCoreApplication::translate("Menu", text); }

} // namespace

MenuBarBuilder::MenuBarBuilder(QMainWindow &window, NotificationCenter &center, TransformationManager &manager,
                               const ToolsManager &tools, Updater &updater, const QVariantMap &information)
    : QObject(&window), m_window(window), m_center(center), m_manager(manager), m_tools(tools) {
    buildApplicationMenu(updater);
    addCommands(addMenu("file", tr("&File")));
    buildEditMenu();
    buildViewMenu();
    buildRecipesMenu();
    buildTransformationsMenu();
    buildToolsMenu();
    buildHelpMenu(information);
    setHasText(false);
    setStackOperationMode(false);
}

void MenuBarBuilder::setHasText(bool hasText) {
    for (QAction *action : m_needText) {
        action->setEnabled(hasText);
    }
    m_recipes->setRecipesEnabled(hasText);
}

void MenuBarBuilder::setStackOperationMode(bool isStack) {
    const QString title = inMenu("Multiple Operation Mode");
    m_mode->setText(isStack ? QString::fromUtf8("✓ ") + title : title);
}

QMenu *MenuBarBuilder::addMenu(const QString &name, const QString &title) {
    QMenu *menu = m_window.menuBar()->addMenu(title);
    menu->setObjectName("menu." + name);
    return menu;
}

std::vector<QAction *> MenuBarBuilder::commandsOf(const QString &group) {
    std::vector<QAction *> actions;
    for (const Command &command : commands) {
        if (group != command.group) {
            continue;
        }
        auto *action = new QAction(inMenu(command.title), this);
        action->setObjectName(command.notification);
        if (*command.shortcuts != '\0') {
            action->setShortcuts(QKeySequence::listFromString(command.shortcuts));
        }
        connect(action, &QAction::triggered, this, [this, &command] { m_center.post(command.notification); });
        if (command.needs == Needs::text) {
            m_needText.push_back(action);
        }
        if (command.notification == notification::toggleStackOperationMode) {
            m_mode = action;
        }
        actions.push_back(action);
    }
    return actions;
}

void MenuBarBuilder::addCommands(QMenu *menu) { addCommands(menu, menu->objectName().mid(QString("menu.").size())); }

void MenuBarBuilder::addCommands(QMenu *menu, const QString &group) {
    for (QAction *action : commandsOf(group)) {
        menu->addAction(action);
    }
}

void MenuBarBuilder::addPost(QMenu *menu, const std::string &title, const char *notification, const std::string &id) {
    QAction *action = menu->addAction(translated(title).replace('&', "&&"));
    const QString object = toQString(id);
    action->setObjectName(QString(notification) + "." + object);
    connect(action, &QAction::triggered, this, [this, notification, object] { m_center.post(notification, object); });
    m_needText.push_back(action);
}

void MenuBarBuilder::buildApplicationMenu(Updater &updater) {
    QMenu *menu = addMenu("application", tr("&Lexivore"));
    QAction *about = menu->addAction(tr("About Lexivore"));
    about->setObjectName("About");
    connect(about, &QAction::triggered, this, &MenuBarBuilder::showAbout);
    menu->addAction(new CheckForUpdatesMenuItem(updater, menu));
    menu->addSeparator();
    QAction *quit = menu->addAction(tr("Quit Lexivore"));
    quit->setObjectName("Quit");
    quit->setShortcut(QKeySequence("Ctrl+Q"));
    connect(quit, &QAction::triggered, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void MenuBarBuilder::showAbout() {
    SheetLayer::show(
        m_window,
        new AlertSheet(
            {.title = tr("Lexivore"),
             .message = tr("Version %1\n\nTransforms plain text.").arg(QCoreApplication::applicationVersion()),
             .confirmation = tr("OK"),
             .icon = applicationIcon()},
            {}));
}

void MenuBarBuilder::buildEditMenu() {
    QMenu *menu = addMenu("edit", tr("&Edit"));
    addCommands(menu);
    menu->addSeparator();
    for (const WidgetCommand &command : widgetCommands) {
        QAction *action = menu->addAction(inMenu(command.title));
        action->setObjectName(command.slot);
        action->setShortcut(command.shortcut);
        connect(action, &QAction::triggered, this, [&command] {
            QWidget *focused = QApplication::focusWidget();
            const QByteArray signature = QByteArray(command.slot) + "()";
            if (focused != nullptr && focused->metaObject()->indexOfSlot(signature) >= 0) {
                QMetaObject::invokeMethod(focused, command.slot);
            }
        });
    }
    menu->addSeparator();
    addCommands(menu, "find");
}

void MenuBarBuilder::buildViewMenu() {
    QMenu *menu = addMenu("view", tr("&View"));
    addCommands(menu);
    menu->addSeparator();
    addCommands(menu, "zoom");
    menu->addSeparator();
    QAction *fullScreen = menu->addAction(tr("Full Screen"));
    fullScreen->setObjectName("FullScreen");
    fullScreen->setShortcut(QKeySequence("F11"));
    connect(fullScreen, &QAction::triggered, this,
            [this] { m_window.setWindowState(m_window.windowState() ^ Qt::WindowFullScreen); });
}

void MenuBarBuilder::buildRecipesMenu() {
    // Disabled with the bar, as the other menus are, while a sheet is open.
    m_recipes = new RecipeMenu(m_manager, m_window.menuBar());
    m_recipes->setTitle(tr("&Recipes"));
    m_recipes->setObjectName("menu.recipes");
    std::vector<QAction *> fixed = commandsOf("recipes");
    auto *divider = new QAction(this);
    divider->setSeparator(true);
    fixed.push_back(divider);
    for (QAction *action : commandsOf("recipe files")) {
        fixed.push_back(action);
    }
    m_recipes->setFixedActions(fixed);
    connect(m_recipes, &RecipeMenu::recipeSelected, this,
            [this](const QString &id) { m_center.post(notification::applyRecipe, id); });
    m_window.menuBar()->addMenu(m_recipes);
    enableExport();
    connect(&m_manager, &TransformationManager::recipesChanged, this, &MenuBarBuilder::enableExport);
}

void MenuBarBuilder::enableExport() {
    findChild<QAction *>(notification::exportRecipes)->setEnabled(!m_manager.userRecipes().empty());
}

void MenuBarBuilder::buildTransformationsMenu() {
    QMenu *menu = addMenu("transformations", tr("&Transformations"));
    for (const TransformationCategory category : allTransformationCategories) {
        if (category == TransformationCategory::favorites) {
            continue;
        }
        QMenu *submenu = menu->addMenu(translated(rawValue(category)).replace('&', "&&"));
        submenu->setObjectName("menu." + toQString(rawValue(category)));
        for (const TransformationPointer &transformation : m_manager.transformations(category)) {
            addPost(submenu, transformation->name(), notification::applyTransformation, transformation->id());
        }
    }
    menu->addSeparator();
    addCommands(menu);
    addCommands(menu, "search");
}

void MenuBarBuilder::buildToolsMenu() {
    QMenu *menu = addMenu("tools", tr("T&ools"));
    for (const TextToolPointer &tool : m_tools.tools()) {
        addPost(menu, tool->name(), notification::runTool, tool->id());
    }
}

void MenuBarBuilder::buildHelpMenu(const QVariantMap &information) {
    QAction *support = addMenu("help", tr("&Help"))->addAction(tr("Contact Support"));
    support->setObjectName("ContactSupport");
    connect(support, &QAction::triggered, this, [information] { contactSupport(information, &openAddress); });
}

} // namespace lexivore
