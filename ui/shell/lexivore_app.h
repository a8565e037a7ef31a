// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/transformation_manager.h"
#include "services/app_delegate.h"
#include "services/bundle_information.h"
#include "tools/tools_manager.h"
#include "ui/shell/notification_center.h"
#include "ui/window/content_view.h"

#include <QObject>

#include <memory>

namespace lexivore {

class MenuBarBuilder;
class UpdateFlow;
class Preferences;

/// The shell: creates the shared objects and the main window, builds the menu bar, and keeps the menu's labels and
/// check marks in step with the window through the notifications.
class LexivoreApp : public QObject {
    Q_OBJECT

public:
    /// `preferences` must outlive it. Without `panels` the window asks for files by the toolkit's dialogs.
    /// `information` is what the program was built with.
    explicit LexivoreApp(Preferences &preferences, std::unique_ptr<FilePanels> panels = nullptr,
                         const QVariantMap &information = mainBundleInformation());
    ~LexivoreApp() override;

    /// Brings the window forward, with its text as it was, and opens the file that `files` may hold. Of several it
    /// opens none and tells the user. `activationToken` is what the window system lets it take the keyboard with, if it
    /// gave one.
    void comeForward(const QStringList &files = {}, const QString &activationToken = {});

    [[nodiscard]] AppDelegate &appDelegate() { return m_appDelegate; }
    [[nodiscard]] ContentView &window() { return *m_window; }
    [[nodiscard]] NotificationCenter &notificationCenter() { return m_center; }
    [[nodiscard]] TransformationManager &transformationManager() { return m_transformationManager; }

    /// Whether the editor holds text; enables the commands that act on it.
    [[nodiscard]] bool hasText() const { return m_hasText; }

    // Mirrors of the window's flags. They start false and change by the notifications alone.
    [[nodiscard]] bool stackOperationMode() const { return m_stackOperationMode; }
    [[nodiscard]] bool showOperations() const { return m_showOperations; }
    [[nodiscard]] bool showSidebar() const { return m_showSidebar; }

private:
    void subscribe();
    void setHasText(const QVariant &object);

    Preferences &m_preferences;
    AppDelegate m_appDelegate;
    NotificationCenter m_center;
    TransformationManager m_transformationManager;
    ToolsManager m_toolsManager;
    std::unique_ptr<ContentView> m_window;
    MenuBarBuilder *m_menuBar = nullptr;
    std::unique_ptr<UpdateFlow> m_updateFlow;
    bool m_hasText = false;
    bool m_stackOperationMode = false;
    bool m_showOperations = false;
    bool m_showSidebar = false;
};

} // namespace lexivore
