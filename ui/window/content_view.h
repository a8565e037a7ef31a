// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/window/file_panels.h"

#include <QMainWindow>

#include <memory>

namespace lexivore {

class Alerts;
class CategorySidebar;
class ClipboardFlow;
class EditorFontFlow;
class EditorPane;
class FileFlow;
class NotificationCenter;
class OperationsFlow;
class OperationsPanel;
class Preferences;
class RecipeFlow;
class Sheets;
class ToolFlow;
class ToolsManager;
class TransformationFlow;
class TransformationList;
class TransformationManager;
class UndoFlow;
class WindowColumns;
class WindowMemory;
class WindowState;
class WindowToolBar;

/// The one main window: sidebar, transformation list, editor and operations panel under a toolbar.
/// It creates the pieces, places them, and owns them; what they do is theirs.
class ContentView : public QMainWindow {
    Q_OBJECT

public:
    /// All of these must outlive the window. Without `panels` it asks for files by the toolkit's dialogs.
    ContentView(TransformationManager &manager, const ToolsManager &tools, Preferences &preferences,
                NotificationCenter &center, std::unique_ptr<FilePanels> panels = nullptr);
    ~ContentView() override;

    /// The file that a start of the program was given; of several none.
    void openFiles(const QStringList &paths);

    [[nodiscard]] WindowState &state() { return *m_state; }

protected:
    void showEvent(QShowEvent *event) override;

private:
    void createPieces(std::unique_ptr<FilePanels> panels);
    void createFlows();
    void layOut();
    void connectPieces();
    void connectToolBar();
    void subscribeCommands();
    void restorePreferences();
    void appear();
    void reportUnstored();
    void post(const char *name);
    void announceText();

    TransformationManager &m_manager;
    const ToolsManager &m_tools;
    Preferences &m_preferences;
    NotificationCenter &m_center;
    WindowState *m_state = nullptr;
    Alerts *m_alerts = nullptr;
    Sheets *m_sheets = nullptr;
    std::unique_ptr<FilePanels> m_panels;

    UndoFlow *m_undoFlow = nullptr;
    TransformationFlow *m_transformationFlow = nullptr;
    RecipeFlow *m_recipeFlow = nullptr;
    FileFlow *m_fileFlow = nullptr;
    ClipboardFlow *m_clipboardFlow = nullptr;
    OperationsFlow *m_operationsFlow = nullptr;
    ToolFlow *m_toolFlow = nullptr;
    EditorFontFlow *m_fontFlow = nullptr;

    WindowToolBar *m_toolBar = nullptr;
    WindowColumns *m_columns = nullptr;
    CategorySidebar *m_sidebar = nullptr;
    TransformationList *m_list = nullptr;
    EditorPane *m_editor = nullptr;
    OperationsPanel *m_operations = nullptr;
    std::unique_ptr<WindowMemory> m_memory; ///< Goes before the window's pieces: at last it saves their sizes.
    bool m_hasAppeared = false;
    bool m_hasReportedUnstored = false; ///< Since something could be stored last.
};

} // namespace lexivore
