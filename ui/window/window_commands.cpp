// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/window_commands.h"

#include "manager/text_conversion.h"
#include "ui/flows/editor_font_flow.h"
#include "ui/flows/file_flow.h"
#include "ui/flows/recipe_flow.h"
#include "ui/flows/tool_flow.h"
#include "ui/flows/transformation_flow.h"
#include "ui/flows/undo_flow.h"
#include "ui/shell/notification_center.h"
#include "ui/window/editor_pane.h"
#include "ui/window/find_bar.h"
#include "ui/window/transformation_list.h"
#include "ui/window/window_state.h"

#include <utility>

namespace lexivore {

WindowCommands::WindowCommands(NotificationCenter &center, WindowState &state, Flows flows, Views views,
                               QObject *parent)
    : QObject(parent), m_center(center) {
    subscribe(notification::undoTransformation, [flows] { flows.undo.undo(); });
    subscribe(notification::redoTransformation, [flows] { flows.undo.redo(); });
    subscribe(notification::refreshOperations, [&state] { state.bumpOperationsRefreshTrigger(); });
    subscribe(notification::showRecipeSheet, [flows] { flows.recipes.showSaveSheet(); });
    subscribe(notification::showManageRecipes, [flows] { flows.recipes.showManageSheet(); });
    subscribe(notification::importRecipes, [flows] { flows.recipes.importRecipes(); });
    subscribe(notification::exportRecipes, [flows] { flows.recipes.exportRecipes(); });
    subscribe(notification::toggleOperations, [&state] { state.setShowOperations(!state.showOperations()); });
    subscribe(notification::toggleSidebar, [&state] { state.setShowSidebar(!state.showSidebar()); });
    subscribe(notification::toggleStackOperationMode,
              [&state] { state.setStackOperationMode(!state.stackOperationMode()); });
    subscribe(notification::openFile, [flows] { flows.files.open(); });
    subscribe(notification::saveFile, [flows] { flows.files.saveAs(); });
    subscribe(notification::zoomIn, [flows] { flows.font.zoom(1); });
    subscribe(notification::zoomOut, [flows] { flows.font.zoom(-1); });
    subscribe(notification::resetZoom, [flows] { flows.font.resetZoom(); });
    subscribe(notification::find, [views] { views.editor.findBar().open(); });
    subscribe(notification::findNext, [views] { views.editor.findBar().findNext(); });
    subscribe(notification::findPrevious, [views] { views.editor.findBar().findPrevious(); });
    subscribe(notification::searchTransformations, [views] { views.list.focusSearch(); });
    subscribeWithText(notification::applyRecipe, [flows](const QString &id) { flows.recipes.select(id); });
    subscribeWithText(notification::applyTransformation,
                      [flows](const QString &id) { flows.transformations.select(toUtf8(id)); });
    subscribeWithText(notification::runTool, [flows](const QString &id) { flows.tools.run(id); });
}

void WindowCommands::subscribe(const char *name, std::function<void()> handler) {
    m_center.subscribe(name, this, [handler = std::move(handler)](const QVariant &) { handler(); });
}

void WindowCommands::subscribeWithText(const char *name, std::function<void(const QString &)> handler) {
    m_center.subscribe(name, this, [handler = std::move(handler)](const QVariant &object) {
        if (object.typeId() == QMetaType::QString) {
            handler(object.toString());
        }
    });
}

} // namespace lexivore
