// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/manage_recipes_sheet.h"

#include "manager/text_conversion.h"
#include "manager/transformation_manager.h"
#include "ui/controls/accessible_menu_button.h"
#include "ui/controls/accessible_role.h"
#include "ui/controls/label.h"
#include "ui/controls/menu_pointer.h"
#include "ui/controls/page_of_rows.h"
#include "ui/controls/push_button.h"
#include "ui/controls/scrolling_pointer.h"
#include "ui/controls/sheet_edges.h"
#include "ui/controls/symbol.h"
#include "ui/menu_text.h"
#include "ui/sheets/recipe_row.h"
#include "ui/theme/metrics.h"
#include "ui/translation.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QScrollArea>

#include <algorithm>
#include <utility>

namespace lexivore {

namespace {

constexpr int sheetWidth = 400;
constexpr int greatestHeight = 480;
constexpr int headerHeight = 56;
constexpr int doneInset = 12;
constexpr int emptyHeight = 232;
constexpr int listInset = 8;
constexpr int emptySymbolSize = 48;

} // namespace

ManageRecipesSheet::ManageRecipesSheet(TransformationManager &manager)
    : Sheet(tr("Manage Recipes"), sheetWidth), m_manager(manager) {
    setObjectName(QStringLiteral("manageRecipesSheet"));
    setGreatestHeight(heightFor(greatestHeight, FontRole::body, 12));
    // In the order of Tab: behind the rows, which are made last, the round begins anew.
    addBelowBody(makeFooter());
    addAboveBody(makeHeader());
    pointAtWhatScrolls(scrollArea());
    rebuild();
    connect(&manager, &TransformationManager::recipesChanged, this, &ManageRecipesSheet::rebuild);
}

QWidget *ManageRecipesSheet::makeHeader() {
    m_doneButton = new PushButton(tr("Done"), PushButton::Kind::primary);
    m_doneButton->setObjectName(QStringLiteral("done"));
    m_doneButton->setLeastWidth(0);
    connect(m_doneButton, &PushButton::clicked, this, &ManageRecipesSheet::dismiss);

    auto *header =
        new SheetEdge(SheetEdge::Side::above, heightFor(headerHeight, FontRole::callout), metrics::sheetPadding);
    header->row().setContentsMargins(metrics::sheetPadding, 0, doneInset, 0);
    // Aligned, the row takes all the height that the line leaves.
    header->row().addWidget(new Label(tr("Manage Recipes"), FontRole::headline), 1, Qt::AlignVCenter);
    header->row().addWidget(m_doneButton, 0, Qt::AlignVCenter);
    return header;
}

QWidget *ManageRecipesSheet::makeFooter() {
    auto *importButton = new PushButton(tr("Import..."));
    importButton->setObjectName(QStringLiteral("import"));
    importButton->setToolTip(tr("Add the recipes of a file"));
    connect(importButton, &PushButton::clicked, this, &ManageRecipesSheet::importRequested);
    m_exportButton = new PushButton(tr("Export..."));
    m_exportButton->setObjectName(QStringLiteral("export"));
    m_exportButton->setToolTip(tr("Write one recipe or all to a file"));
    auto *menu = new QMenu(m_exportButton);
    menu->setObjectName(QStringLiteral("exportMenu"));
    connect(menu, &QMenu::aboutToShow, this, &ManageRecipesSheet::fillExportMenu);
    m_exportButton->setMenu(menu);
    setAccessibleMenuButton(*m_exportButton);
    leaveWhenClosedElsewhere(*menu, *m_exportButton);
    return makeButtonFooter({importButton, m_exportButton}, {});
}

void ManageRecipesSheet::fillExportMenu() {
    QMenu *menu = m_exportButton->menu();
    menu->clear();
    const std::vector<Recipe> recipes = m_manager.userRecipes();
    connect(menu->addAction(tr("All Recipes")), &QAction::triggered, this,
            [this, recipes] { emit exportRequested(recipes); });
    menu->addSeparator();
    for (const Recipe &recipe : recipes) {
        connect(menu->addAction(menuText(translatedName(recipe))), &QAction::triggered, this,
                [this, recipe] { emit exportRequested({recipe}); });
    }
}

QWidget *ManageRecipesSheet::makeEmptyState() {
    auto *state = new QWidget;
    auto *column = new QVBoxLayout(state);
    column->setContentsMargins(metrics::sheetPadding, 0, metrics::sheetPadding, 0);
    column->setSpacing(0);
    const auto addText = [&](const QString &text, FontRole role) {
        auto *label = new Label(text, role, &Theme::text2, Label::Lines::wrapped);
        label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        column->addWidget(label);
    };
    column->addStretch();
    column->addWidget(new Symbol(QStringLiteral("book"), emptySymbolSize, &Theme::text3), 0, Qt::AlignHCenter);
    column->addSpacing(12);
    addText(tr("No user recipes"), FontRole::body);
    column->addSpacing(4);
    addText(tr("Create recipes by saving your current operations"), FontRole::caption);
    column->addStretch();
    state->setMinimumHeight(heightFor(emptyHeight, FontRole::body, 2));
    return state;
}

QWidget *ManageRecipesSheet::makeList() {
    auto *list = new QWidget;
    list->setObjectName(QStringLiteral("recipes"));
    setAccessibleRole(*list, QAccessible::List);
    list->setAccessibleName(tr("My Recipes"));
    m_rowColumn = new QVBoxLayout(list);
    m_rowColumn->setContentsMargins(listInset, listInset, listInset, listInset);
    m_rowColumn->setSpacing(2);
    m_rowColumn->addStretch();
    return list;
}

void ManageRecipesSheet::showContent(QWidget *content) {
    if (body().count() > 0) {
        remove(body().itemAt(0)->widget());
    }
    body().addWidget(content);
    content->show();
}

/// The rows of recipes that have not changed stay: there may be hundreds.
void ManageRecipesSheet::showRows(const std::vector<Recipe> &recipes) {
    std::vector<RecipeRow *> shown;
    auto before = m_rows.begin();
    for (const Recipe &recipe : recipes) {
        const auto same = std::find_if(before, m_rows.end(), [&](const RecipeRow *row) {
            return !row->isEditing() && !isEdited(recipe) && haveSameFields(row->recipe(), recipe);
        });
        if (same != m_rows.end()) {
            std::for_each(before, same, remove);
            before = same + 1;
            shown.push_back(*same);
            continue;
        }
        auto *row = new RecipeRow(recipe);
        connectRow(*row);
        m_rowColumn->insertWidget(static_cast<int>(shown.size()), row);
        row->show(); // now, for it may get the focus
        if (before != m_rows.end()) {
            row->stackUnder(*before); // in this order assistive technology reads
        }
        shown.push_back(row);
    }
    std::for_each(before, m_rows.end(), remove);
    m_rows = std::move(shown);
}

/// The signal may come from what is removed, which must outlive it.
void ManageRecipesSheet::remove(QWidget *widget) {
    widget->parentWidget()->layout()->removeWidget(widget);
    widget->hide();
    widget->deleteLater();
}

bool ManageRecipesSheet::isEdited(const Recipe &recipe) const {
    return m_editingRecipe && recipe.id == m_editingRecipe->id;
}

void ManageRecipesSheet::rebuild() {
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    const std::vector<Recipe> recipes = m_manager.userRecipes();
    if (recipes.size() > m_rows.size()) {
        // what has come stands at the end
        m_currentRow = static_cast<int>(m_rows.size());
    }
    // Hidden with the focus, a row would pass it on as Tab does, and the ring would show whatever the mouse did.
    if (hadFocus) {
        window()->focusWidget()->clearFocus();
    }
    if (recipes.empty()) {
        m_rows.clear();
        showContent(makeEmptyState());
    } else {
        if (m_rows.empty()) {
            showContent(makeList());
        }
        showRows(recipes);
    }
    m_exportButton->setEnabled(!recipes.empty());
    setCurrentRow(qBound(0, m_currentRow, qMax(0, static_cast<int>(recipes.size()) - 1)));

    const auto edited = std::ranges::find_if(recipes, [&](const Recipe &recipe) { return isEdited(recipe); });
    if (edited == recipes.end()) {
        m_editingRecipe.reset();
    } else {
        m_rows[static_cast<std::size_t>(edited - recipes.begin())]->startEditing(m_editedName);
    }
    if (hadFocus && !m_editingRecipe) {
        ManageRecipesSheet::takeFocus();
    }
    emit sizeChanged();
}

void ManageRecipesSheet::connectRow(RecipeRow &row) {
    connect(&row, &RecipeRow::entered, this, [this, &row] { setCurrentRow(indexOf(row)); });
    connect(&row, &RecipeRow::moveRequested, this, [this, &row](int key) { moveFrom(indexOf(row), key); });
    connect(&row, &RecipeRow::renameRequested, this, [this, &row] {
        m_currentRow = indexOf(row);
        startRenaming(row.recipe());
    });
    connect(&row, &RecipeRow::nameEdited, this, [this](const QString &name) { m_editedName = name; });
    connect(&row, &RecipeRow::renameConfirmed, this, &ManageRecipesSheet::confirmRename);
    connect(&row, &RecipeRow::renameCancelled, this, &ManageRecipesSheet::stopRenaming);
    connect(&row, &RecipeRow::deletionRequested, this, [this, &row] {
        m_currentRow = indexOf(row);
        m_manager.deleteRecipe(row.recipe());
    });
}

int ManageRecipesSheet::indexOf(const RecipeRow &row) const {
    return static_cast<int>(std::ranges::find(m_rows, &row) - m_rows.begin());
}

void ManageRecipesSheet::startRenaming(const Recipe &recipe) {
    m_editingRecipe = recipe;
    m_editedName = toQString(recipe.name);
    rebuild();
}

void ManageRecipesSheet::stopRenaming() {
    m_editingRecipe.reset();
    rebuild();
}

void ManageRecipesSheet::confirmRename() {
    if (const std::optional<Recipe> renamed = std::exchange(m_editingRecipe, std::nullopt)) {
        m_manager.renameRecipe(*renamed, toUtf8(m_editedName));
        // An unchanged name is announced by nobody.
        rebuild();
    }
}

void ManageRecipesSheet::moveFrom(int index, int key) {
    focusRow(qBound(0, rowBehind(index, key), static_cast<int>(m_rows.size()) - 1));
}

int ManageRecipesSheet::rowBehind(int index, int key) const {
    const auto onePage = [&](PageDirection direction) {
        return static_cast<int>(
            rowOnePageOn({m_rows.begin(), m_rows.end()}, static_cast<std::size_t>(index), direction));
    };
    switch (key) {
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return static_cast<int>(m_rows.size()) - 1;
    case Qt::Key_PageUp:
        return onePage(PageDirection::up);
    case Qt::Key_PageDown:
        return onePage(PageDirection::down);
    case Qt::Key_Up:
        return index - 1;
    default:
        return index + 1;
    }
}

void ManageRecipesSheet::setCurrentRow(int index) {
    m_currentRow = index;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        m_rows[row]->setCurrent(static_cast<int>(row) == index);
    }
}

void ManageRecipesSheet::focusRow(int index) {
    RecipeRow *row = m_rows[static_cast<std::size_t>(index)];
    row->setFocus(Qt::OtherFocusReason);
    scrollArea().ensureWidgetVisible(row, 0, listInset);
}

void ManageRecipesSheet::takeFocus() {
    if (m_rows.empty()) {
        m_doneButton->setFocus(Qt::OtherFocusReason);
    } else {
        focusRow(m_currentRow);
    }
}

} // namespace lexivore
