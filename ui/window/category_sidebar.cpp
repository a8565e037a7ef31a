// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/category_sidebar.h"

#include "ui/theme/motion.h"
#include "ui/window/category_button.h"
#include "ui/window/row_column.h"
#include "ui/window/row_navigator.h"
#include "ui/window/section_header.h"
#include "ui/window/window_state.h"

#include <QScrollArea>
#include <QVBoxLayout>
#include <QVariantAnimation>

#include <algorithm>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds foldingTime = 200ms;
constexpr int rowInset = 8;
constexpr int rowGap = 2;

} // namespace

CategorySidebar::CategorySidebar(WindowState &state, QWidget *parent)
    : Surface(&Theme::sidebar, parent), m_state(state), m_header(new SectionHeader(tr("Categories"), this)),
      m_rows(new RowColumn(tr("Categories"))), m_scroll(new QScrollArea(this)), m_navigator(new RowNavigator(this)),
      m_folding(new QVariantAnimation(this)) {
    setObjectName("sidebar");
    m_header->setObjectName("categoriesHeader");
    m_rows->setObjectName("categories");
    createRows();

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 8, 0, 0);
    column->setSpacing(8);
    auto *headerRow = new QHBoxLayout;
    headerRow->setContentsMargins(rowInset, 0, rowInset, 0);
    headerRow->addWidget(m_header);
    column->addLayout(headerRow);
    column->addWidget(m_scroll, 1);
    column->addStretch();

    m_folding->setEasingCurve(QEasingCurve::InOutSine);
    connect(m_folding, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_header->setDisclosure(value.toReal());
        m_scroll->setMaximumHeight(qRound(value.toReal() * m_rows->sizeHint().height()));
    });
    connect(m_folding, &QVariantAnimation::finished, this, [this] {
        m_scroll->setVisible(m_state.showCategories());
        m_scroll->setMaximumHeight(QWIDGETSIZE_MAX);
    });
    connect(m_header, &SectionHeader::clicked, this, [this] { m_state.setShowCategories(!m_state.showCategories()); });
    connect(&m_state, &WindowState::showCategoriesChanged, this, &CategorySidebar::fold);
    connect(&m_state, &WindowState::selectedCategoryChanged, this, &CategorySidebar::showSelection);
    showSelection();
}

QSize CategorySidebar::minimumSizeHint() const {
    int widest = 0;
    for (const CategoryButton *button : m_buttons) {
        widest = std::max(widest, button->sizeHint().width());
    }
    return {widest + 2 * rowInset, Surface::minimumSizeHint().height()};
}

void CategorySidebar::createRows() {
    auto *column = new QVBoxLayout(m_rows);
    column->setSpacing(rowGap);
    for (const TransformationCategory category : allTransformationCategories) {
        auto *button = new CategoryButton(category, m_rows);
        connect(button, &CategoryButton::clicked, this, [this, category] { m_state.setSelectedCategory(category); });
        m_rows->showWhenFocused(*button);
        column->addWidget(button);
        m_buttons.push_back(button);
    }
    column->addStretch();
    m_navigator->setRows({m_buttons.begin(), m_buttons.end()});
    m_rows->standIn(*m_scroll, {rowInset, 0, rowInset, rowInset});
}

void CategorySidebar::showSelection() {
    for (CategoryButton *button : m_buttons) {
        const bool isSelected = m_state.selectedCategory() == button->category();
        button->setSelected(isSelected);
        if (isSelected) {
            m_navigator->setCurrent(button);
        }
    }
}

void CategorySidebar::fold() {
    m_scroll->show();
    m_folding->stop();
    m_folding->setDuration(static_cast<int>(motionDuration(*this, foldingTime).count()));
    m_folding->setStartValue(m_header->disclosure());
    m_folding->setEndValue(m_state.showCategories() ? 1.0 : 0.0);
    m_folding->start();
}

} // namespace lexivore
