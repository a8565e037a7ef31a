// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/window_tool_bar.h"

#include "ui/controls/menu_pointer.h"
#include "ui/controls/menu_tool_button.h"
#include "ui/controls/push_button.h"
#include "ui/controls/tool_button.h"
#include "ui/window/recipe_menu.h"
#include "ui/window/window_state.h"

#include <QEvent>
#include <QLayout>
#include <QSignalBlocker>

namespace lexivore {

namespace {

constexpr int margin = 6;
constexpr int buttonGap = 4;

} // namespace

WindowToolBar::WindowToolBar(TransformationManager &manager, WindowState &state, QWidget *parent)
    : QToolBar(parent), m_state(state) {
    setObjectName("toolBar");
    setWindowTitle(tr("Toolbar"));
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    placeButtons();
    addEnd();
    addTextGroup();
    auto *space = new QWidget(this);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(space);
    addOperationsGroup(manager);
    addEnd();
    connect(&m_state, &WindowState::showOperationsChanged, this, &WindowToolBar::showPanelState);
    showPanelState();
}

void WindowToolBar::addEnd() {
    auto *end = new QWidget(this);
    end->setFixedSize(0, 0);
    addWidget(end);
}

void WindowToolBar::placeButtons() {
    // The layout of toolbars takes one margin for all sides; what the ends need beyond it are empty widgets.
    layout()->setContentsMargins(margin, margin, margin, margin);
    layout()->setSpacing(buttonGap);
}

bool WindowToolBar::event(QEvent *event) {
    const bool isHandled = QToolBar::event(event);
    // The toolbar takes the style's margins each time the style changes.
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::Polish) {
        placeButtons();
    }
    return isHandled;
}

ToolButton *WindowToolBar::addButton(const QString &name, const QString &icon, const QString &help) {
    auto *button = new ToolButton(icon, help, ToolButton::toolBar, this);
    place(*button, name);
    return button;
}

void WindowToolBar::place(ToolButton &button, const QString &name) {
    button.setObjectName(name);
    button.setFocusPolicy(Qt::TabFocus);
    addWidget(&button);
}

void WindowToolBar::addTextGroup() {
    connect(addButton("paste", "doc.on.clipboard", tr("Paste text from clipboard")), &ToolButton::clicked, this,
            &WindowToolBar::pasteRequested);
    connect(addButton("copy", "doc.on.doc", tr("Copy text to clipboard")), &ToolButton::clicked, this,
            &WindowToolBar::copyRequested);
    connect(addButton("clearText", "trash", tr("Clear all text")), &ToolButton::clicked, this,
            &WindowToolBar::clearTextRequested);

    auto *show = new PushButton(tr("Operations"), PushButton::Kind::plain, this);
    show->setObjectName("showOperations");
    show->setToolTip(tr("Show operations panel"));
    show->setFocusPolicy(Qt::TabFocus);
    connect(show, &PushButton::clicked, this, &WindowToolBar::operationsPanelToggled);
    m_showOperations = addWidget(show);
}

void WindowToolBar::addOperationsGroup(TransformationManager &manager) {
    auto *recipes = new MenuToolButton("book.closed", tr("Load a saved recipe"), ToolButton::toolBar, this);
    place(*recipes, "recipes");
    auto *menu = new RecipeMenu(manager, recipes);
    menu->setObjectName("recipesToolMenu");
    recipes->setMenu(menu);
    leaveWhenClosedElsewhere(*menu, *recipes);
    connect(menu, &RecipeMenu::recipeSelected, this, &WindowToolBar::recipeSelected);

    connect(addButton("saveRecipe", "bookmark", tr("Save current operations as recipe")), &ToolButton::clicked, this,
            &WindowToolBar::saveRecipeRequested);
    connect(addButton("clearOperations", "xmark.circle", tr("Clear all operations")), &ToolButton::clicked, this,
            &WindowToolBar::clearOperationsRequested);
    m_panelToggle = addButton("toggleOperations", "sidebar.right", tr("Toggle operations panel"));
    m_panelToggle->setCheckable(true);
    // Assistive technology toggles without a click.
    connect(m_panelToggle, &ToolButton::toggled, this, [this] {
        // The notification decides; until then the button shows what holds.
        showPanelState();
        emit operationsPanelToggled();
    });
}

void WindowToolBar::showPanelState() {
    const QSignalBlocker blocker(m_panelToggle);
    m_panelToggle->setChecked(m_state.showOperations());
    // Hidden with the focus, the button would pass it on to the one that loads a recipe.
    if (m_state.showOperations() && widgetForAction(m_showOperations)->hasFocus()) {
        m_panelToggle->setFocus(Qt::OtherFocusReason);
    }
    m_showOperations->setVisible(!m_state.showOperations());
}

} // namespace lexivore
