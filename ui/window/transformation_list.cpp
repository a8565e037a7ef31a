// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/transformation_list.h"

#include "manager/transformation_manager.h"
#include "ui/controls/field.h"
#include "ui/controls/label.h"
#include "ui/icon.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/translation.h"
#include "ui/window/empty_state.h"
#include "ui/window/row_column.h"
#include "ui/window/row_navigator.h"
#include "ui/window/transformation_button.h"
#include "ui/window/window_state.h"

#include <QAction>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace lexivore {

namespace {

constexpr int headerHeight = 28;

/// The same for texts that differ in case alone, whatever the number of letters: "ß", "ẞ" and "SS".
QString withoutCase(const QString &text) { return text.toLower().toUpper(); }

} // namespace

TransformationList::TransformationList(TransformationManager &manager, WindowState &state, QWidget *parent)
    : Surface(&Theme::pane, parent), m_manager(manager), m_state(state),
      m_search(new Field(tr("Search transformations"), this)),
      m_header(new Label({}, FontRole::sectionTitle, &Theme::text2, Label::Lines::one, this)),
      m_scroll(new QScrollArea(this)), m_rows(new RowColumn(tr("Transformations"))),
      m_emptyState(new EmptyState(this, this)), m_navigator(new RowNavigator(this)) {
    setObjectName("transformationList");
    createSearchField();
    createRows();
    m_header->setObjectName("listHeader");
    fitHeader();
    m_emptyState->setObjectName("listEmptyState");

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 8, 0, 0);
    column->setSpacing(0);
    auto *searchRow = new QVBoxLayout;
    searchRow->setContentsMargins(12, 0, 12, 8);
    searchRow->addWidget(m_search);
    column->addLayout(searchRow);
    auto *headerRow = new QVBoxLayout;
    headerRow->setContentsMargins(18, 0, 12, 0);
    headerRow->addWidget(m_header);
    column->addLayout(headerRow);
    column->addWidget(m_scroll, 1);
    column->addWidget(m_emptyState, 1);

    connect(m_search, &QLineEdit::textChanged, &m_state, &WindowState::setSearchText);
    connect(m_search, &QLineEdit::returnPressed, this, &TransformationList::selectFirst);
    connect(m_navigator, &RowNavigator::leftAtTop, this, &TransformationList::focusSearch);
    for (const auto change : {&WindowState::searchTextChanged, &WindowState::selectedCategoryChanged}) {
        connect(&m_state, change, this, [this] {
            showMatches();
            m_scroll->verticalScrollBar()->setValue(0);
        });
    }
    connect(&m_state, &WindowState::operationsEnabledChanged, this, &TransformationList::showPause);
    connect(&m_manager, &TransformationManager::favoritesChanged, this, &TransformationList::showFavorites);
    showPause();
    showFavorites();
}

void TransformationList::createSearchField() {
    m_search->setObjectName("search");
    m_search->setPlaceholderText(tr("Search transformations..."));
    m_search->setTextMargins(-5, 0, 0, 0); // nearer to the icon than the toolkit puts it
    m_searchIcon = m_search->addAction(QIcon(), QLineEdit::LeadingPosition);
    m_searchIcon->setText(tr("Search"));
    connect(m_searchIcon, &QAction::triggered, this, &TransformationList::focusSearch);
    m_clearSearch = m_search->addAction(QIcon(), QLineEdit::TrailingPosition);
    m_clearSearch->setObjectName("clearSearch");
    m_clearSearch->setText(tr("Clear search"));
    m_clearSearch->setVisible(false);
    connect(m_clearSearch, &QAction::triggered, m_search, &QLineEdit::clear);
    connect(m_search, &QLineEdit::textChanged, m_clearSearch,
            [this](const QString &text) { m_clearSearch->setVisible(!text.isEmpty()); });
    colourSearchIcons();
    m_search->installEventFilter(this);
}

void TransformationList::colourSearchIcons() {
    m_searchIcon->setIcon(symbolIcon("magnifyingglass", theme().text2, theme().text2));
    m_clearSearch->setIcon(symbolIcon("xmark.circle.fill", theme().text2, theme().text2));
}

void TransformationList::changeEvent(QEvent *event) {
    Surface::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colourSearchIcons();
    } else if (event->type() == QEvent::FontChange) {
        fitHeader();
    }
}

void TransformationList::fitHeader() { m_header->setFixedHeight(heightFor(headerHeight, FontRole::sectionTitle)); }

void TransformationList::createRows() {
    m_rows->setObjectName("transformations");
    auto *column = new QVBoxLayout(m_rows);
    column->setSpacing(0);
    for (const TransformationPointer &transformation : m_manager.transformations()) {
        auto *button = new TransformationButton(transformation, m_rows);
        connect(button, &TransformationButton::clicked, this,
                [this, transformation] { emit transformationSelected(transformation); });
        connect(button, &TransformationButton::favoriteToggled, this,
                [this, transformation] { emit favoriteToggled(transformation); });
        m_rows->showWhenFocused(*button);
        column->addWidget(button);
        m_buttons.push_back(button);
    }
    column->addStretch();
    m_navigator->setRows({m_buttons.begin(), m_buttons.end()});

    m_scroll->setObjectName("transformationScroll");
    m_rows->standIn(*m_scroll, {8, 0, 12, 8});
}

bool TransformationList::isListed(const TextTransformation &transformation) const {
    if (!m_state.searchText().isEmpty()) {
        const QString searched = withoutCase(m_state.searchText());
        return withoutCase(translated(transformation.name())).contains(searched) ||
               withoutCase(translated(transformation.description())).contains(searched);
    }
    if (!m_state.selectedCategory()) {
        return false;
    }
    if (*m_state.selectedCategory() == TransformationCategory::favorites) {
        return m_manager.favorites().contains(transformation.id());
    }
    return transformation.category() == *m_state.selectedCategory();
}

void TransformationList::showMatches() {
    m_header->setText(m_state.searchText().isEmpty() ? tr("Transformations") : tr("Search Results"));
    std::vector<TransformationButton *> unlisted;
    for (TransformationButton *button : m_buttons) {
        if (isListed(*button->transformation())) {
            button->show();
        } else {
            unlisted.push_back(button);
        }
    }
    keepFocus();
    for (TransformationButton *button : unlisted) {
        button->hide();
    }
    const bool isEmpty = unlisted.size() == m_buttons.size();
    m_scroll->setVisible(!isEmpty);
    if (!isEmpty) {
        m_emptyState->hide();
    } else if (m_state.searchText().isEmpty() && !m_state.selectedCategory()) {
        m_emptyState->show("questionmark.circle", tr("Select a category"));
    } else {
        m_emptyState->show({}, tr("No results"));
    }
}

// A row that is hidden with the focus would pass it on out of the list, to the editor.
void TransformationList::keepFocus() {
    const QWidget *focused = window()->focusWidget();
    const auto isListedRow = [this](const auto *row) { return isListed(*row->transformation()); };
    const auto row = std::find_if(m_buttons.begin(), m_buttons.end(), [focused](const auto *button) {
        return button == focused || button->isAncestorOf(focused);
    });
    if (row == m_buttons.end() || isListedRow(*row)) {
        return;
    }
    const auto next = std::find_if(row, m_buttons.end(), isListedRow);
    const auto previous = std::find_if(std::make_reverse_iterator(row), m_buttons.rend(), isListedRow);
    if (next != m_buttons.end()) {
        (*next)->setFocus(Qt::OtherFocusReason);
    } else if (previous != m_buttons.rend()) {
        (*previous)->setFocus(Qt::OtherFocusReason);
    } else {
        m_search->setFocus(Qt::OtherFocusReason);
    }
}

void TransformationList::showFavorites() {
    for (TransformationButton *button : m_buttons) {
        button->setFavorite(m_manager.favorites().contains(button->transformation()->id()));
    }
    showMatches();
}

void TransformationList::showPause() {
    for (TransformationButton *button : m_buttons) {
        button->setPaused(!m_state.operationsEnabled());
    }
}

void TransformationList::focusSearch() {
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void TransformationList::selectFirst() {
    const auto first =
        std::find_if(m_buttons.begin(), m_buttons.end(), [](const auto *row) { return !row->isHidden(); });
    if (first != m_buttons.end() && !m_state.searchText().isEmpty()) {
        emit transformationSelected((*first)->transformation());
    }
}

bool TransformationList::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Down && m_navigator->focusFirst()) {
            return true;
        }
        if (key->key() == Qt::Key_Escape) {
            m_search->clear();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace lexivore
