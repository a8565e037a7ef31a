// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/content_view.h"

#include "manager/preferences.h"
#include "manager/transformation_manager.h"
#include "ui/editor/text_editor.h"
#include "ui/flows/clipboard_flow.h"
#include "ui/flows/editor_font_flow.h"
#include "ui/flows/file_flow.h"
#include "ui/flows/operations_flow.h"
#include "ui/flows/recipe_flow.h"
#include "ui/flows/tool_flow.h"
#include "ui/flows/transformation_flow.h"
#include "ui/flows/undo_flow.h"
#include "ui/operations/operations_panel.h"
#include "ui/sheets/alerts.h"
#include "ui/sheets/sheets.h"
#include "ui/shell/notification_center.h"
#include "ui/window/category_sidebar.h"
#include "ui/window/copy_toast.h"
#include "ui/window/editor_pane.h"
#include "ui/window/toolbar_size_configurator.h"
#include "ui/window/transformation_list.h"
#include "ui/window/window_columns.h"
#include "ui/window/window_commands.h"
#include "ui/window/window_keys.h"
#include "ui/window/window_memory.h"
#include "ui/window/window_state.h"
#include "ui/window/window_tool_bar.h"

#include <utility>

namespace lexivore {

namespace {

constexpr QSize initialSize(1280, 800);
constexpr QSize smallestSize(900, 600);

// Together with the lines between them, 1 px each.
constexpr WindowColumns::Width sidebarWidth{183, 183, 159};
constexpr WindowColumns::Width listWidth{303, 239, 186};
constexpr WindowColumns::Width editorWidth{504, 303, 264};
constexpr WindowColumns::Width operationsWidth{287, 280, 268};

} // namespace

ContentView::ContentView(TransformationManager &manager, const ToolsManager &tools, Preferences &preferences,
                         NotificationCenter &center, std::unique_ptr<FilePanels> panels)
    : m_manager(manager), m_tools(tools), m_preferences(preferences), m_center(center) {
    createPieces(std::move(panels));
    layOut();
    connectPieces();
    subscribeCommands();
    restorePreferences();
}

ContentView::~ContentView() = default;

void ContentView::createPieces(std::unique_ptr<FilePanels> panels) {
    m_state = new WindowState(this);
    m_alerts = new Alerts(*this, this);
    m_sheets = new Sheets(*this, this);
    m_panels = panels ? std::move(panels) : std::make_unique<FileDialogs>(*this);
    createFlows();
    m_toolBar = new WindowToolBar(m_manager, *m_state, this);
    m_sidebar = new CategorySidebar(*m_state);
    m_list = new TransformationList(m_manager, *m_state);
    m_editor = new EditorPane(m_manager, *m_state);
    m_operations = new OperationsPanel(m_manager, *m_state);
    new CopyToast(*m_state, m_editor->editor(), this);
    new WindowKeys(*this);
    new ToolbarSizeConfigurator(ToolbarSizeMode::regular, this);
}

void ContentView::createFlows() {
    m_undoFlow = new UndoFlow(
        m_manager, *m_alerts, [this] { return m_editor->editorHasFocus(); }, this);
    m_transformationFlow = new TransformationFlow(m_manager, *m_state, *m_sheets, *m_alerts, this);
    m_recipeFlow = new RecipeFlow(m_manager, m_preferences, *m_state, *m_sheets, *m_alerts, *m_panels, this);
    m_fileFlow = new FileFlow(m_manager, *m_panels, *m_alerts, this);
    m_clipboardFlow = new ClipboardFlow(m_manager, *m_state, *m_alerts, this);
    m_operationsFlow = new OperationsFlow(m_manager, *m_state, m_center, *m_sheets, *m_alerts, this);
    m_fontFlow = new EditorFontFlow(*m_state, *m_sheets, this);
    m_toolFlow = new ToolFlow(m_manager, m_tools, *m_state, *m_sheets, *m_alerts, this);
}

void ContentView::layOut() {
    setObjectName("mainWindow");
    setWindowTitle(tr("Lexivore"));
    setContextMenuPolicy(Qt::NoContextMenu); // the toolkit's, over the menu bar, would take the toolbar away
    addToolBar(Qt::TopToolBarArea, m_toolBar);
    m_columns = new WindowColumns(this);
    m_columns->setObjectName("columns");
    m_columns->add(m_sidebar, sidebarWidth);
    m_columns->add(m_list, listWidth);
    m_columns->add(m_editor, editorWidth, WindowColumns::Space::takesTheRest);
    m_columns->add(m_operations, operationsWidth);
    m_columns->resetWidths();
    setCentralWidget(m_columns);
    setMinimumSize(smallestSize);
    resize(initialSize);
    m_sidebar->setVisible(m_state->showSidebar());
    m_operations->setVisible(m_state->showOperations());
}

void ContentView::connectPieces() {
    connect(m_state, &WindowState::showSidebarChanged, m_sidebar,
            [this] { m_sidebar->setVisible(m_state->showSidebar()); });
    connect(m_state, &WindowState::showOperationsChanged, m_operations, [this] {
        // Hidden with the focus, the last column would pass it on to the first button of the toolbar.
        if (!m_state->showOperations() && m_operations->isAncestorOf(focusWidget())) {
            m_editor->focusEditor();
        }
        m_operations->setVisible(m_state->showOperations());
    });
    connect(m_list, &TransformationList::transformationSelected, m_transformationFlow,
            [this](const TransformationPointer &chosen) { m_transformationFlow->select(chosen); });
    connect(m_list, &TransformationList::favoriteToggled, m_transformationFlow,
            [this](const TransformationPointer &marked) { m_transformationFlow->toggleFavorite(marked->id()); });
    connect(m_editor, &EditorPane::edited, m_undoFlow, &UndoFlow::edit);
    connect(m_editor, &EditorPane::undoRequested, m_undoFlow, &UndoFlow::undo);
    connect(m_editor, &EditorPane::redoRequested, m_undoFlow, &UndoFlow::redo);
    connect(m_undoFlow, &UndoFlow::restoring, m_editor, &EditorPane::restore);
    connect(m_editor, &EditorPane::fileDropped, m_fileFlow, &FileFlow::openGiven);
    connect(m_editor, &EditorPane::refused, m_alerts, &Alerts::showError);
    connect(&m_manager, &TransformationManager::currentTextChanged, this, &ContentView::announceText);
    connect(m_editor, &EditorPane::settingsRequested, m_fontFlow, &EditorFontFlow::showSettings);
    connect(m_editor, &EditorPane::zoomRequested, m_fontFlow, &EditorFontFlow::zoom);
    connect(m_operations, &OperationsPanel::editRequested, m_operationsFlow, &OperationsFlow::edit);
    connect(m_operations, &OperationsPanel::modeToggled, this,
            [this] { post(notification::toggleStackOperationMode); });
    connect(m_operations, &OperationsPanel::pauseToggled, m_operationsFlow, &OperationsFlow::togglePause);
    connect(m_operations, &OperationsPanel::operationToggled, m_operationsFlow, &OperationsFlow::toggle);
    connect(m_operations, &OperationsPanel::operationRemoved, m_operationsFlow, &OperationsFlow::remove);
    connect(m_operations, &OperationsPanel::operationMoved, m_operationsFlow, &OperationsFlow::move);
    connectToolBar();
}

void ContentView::connectToolBar() {
    connect(m_toolBar, &WindowToolBar::pasteRequested, m_clipboardFlow, &ClipboardFlow::paste);
    connect(m_toolBar, &WindowToolBar::copyRequested, m_clipboardFlow, &ClipboardFlow::copy);
    connect(m_toolBar, &WindowToolBar::clearTextRequested, m_clipboardFlow, &ClipboardFlow::clear);
    connect(m_toolBar, &WindowToolBar::recipeSelected, this,
            [this](const QString &id) { m_center.post(notification::applyRecipe, id); });
    connect(m_toolBar, &WindowToolBar::saveRecipeRequested, this, [this] { post(notification::showRecipeSheet); });
    connect(m_toolBar, &WindowToolBar::clearOperationsRequested, m_operationsFlow, &OperationsFlow::clear);
    connect(m_toolBar, &WindowToolBar::operationsPanelToggled, this, [this] { post(notification::toggleOperations); });
}

void ContentView::subscribeCommands() {
    new WindowCommands(m_center, *m_state,
                       {*m_transformationFlow, *m_recipeFlow, *m_fileFlow, *m_toolFlow, *m_undoFlow, *m_fontFlow},
                       {*m_list, *m_editor}, this);
}

void ContentView::restorePreferences() {
    const double fontSize = m_preferences.value(preference::editorFontSize).toDouble();
    if (fontSize != 0) {
        m_state->setEditorFontSize(fontSize);
    }
    m_memory = std::make_unique<WindowMemory>(m_preferences, *this, *m_columns);
    connect(m_state, &WindowState::editorFontSizeChanged, this,
            [this] { m_preferences.setValue(preference::editorFontSize, m_state->editorFontSize()); });
}

void ContentView::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    if (!std::exchange(m_hasAppeared, true)) {
        appear();
    }
}

void ContentView::appear() {
    m_manager.ensureTemplates();
    // What the user made from now on. An alert waits until the sheet that it was made in is gone.
    connect(&m_manager, &TransformationManager::favoritesChanged, this, &ContentView::reportUnstored,
            Qt::QueuedConnection);
    connect(&m_manager, &TransformationManager::recipesChanged, this, &ContentView::reportUnstored,
            Qt::QueuedConnection);
    post(notification::toggleSidebar);
    post(notification::toggleOperations);
    m_editor->focusEditor();
}

void ContentView::reportUnstored() {
    const bool isStored = m_preferences.isStored();
    if (!isStored && !m_hasReportedUnstored) {
        m_alerts->showError(
            tr("Favorites and recipes cannot be saved now. What cannot be saved is lost when Lexivore quits."));
    }
    m_hasReportedUnstored = !isStored;
}

void ContentView::openFiles(const QStringList &paths) { m_fileFlow->openGivenFiles(paths); }

void ContentView::post(const char *name) { m_center.post(name); }

void ContentView::announceText() { m_center.post(notification::textChanged, !m_manager.currentText().empty()); }

} // namespace lexivore
