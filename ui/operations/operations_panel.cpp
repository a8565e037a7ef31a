// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/operations/operations_panel.h"

#include "manager/transformation_manager.h"
#include "ui/controls/hairline.h"
#include "ui/controls/label.h"
#include "ui/controls/switch.h"
#include "ui/controls/symbol.h"
#include "ui/controls/tool_button.h"
#include "ui/operations/draggable_operation_item.h"
#include "ui/operations/operation_drop_area.h"
#include "ui/operations/row_slide.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/window/empty_state.h"
#include "ui/window/row_column.h"
#include "ui/window/row_navigator.h"
#include "ui/window/window_state.h"

#include <QEvent>
#include <QHash>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QUuid>
#include <QVBoxLayout>

#include <algorithm>

namespace lexivore {

namespace {

constexpr int headerHeight = 48;
constexpr int smallIcon = 16;

} // namespace

OperationsPanel::OperationsPanel(TransformationManager &manager, WindowState &state, QWidget *parent)
    : Surface(&Theme::pane, parent), m_manager(manager), m_state(state), m_scroll(new QScrollArea(this)),
      m_rows(new RowColumn(tr("Operations"))), m_column(new QVBoxLayout(m_rows)),
      m_emptyState(new EmptyState(this, this)), m_navigator(new RowNavigator(this)), m_slide(new RowSlide(*m_rows)) {
    setObjectName("operationsPanel");
    m_rows->setObjectName("operations");
    m_column->setSpacing(0);
    m_column->addStretch();
    m_rows->standIn(*m_scroll, {8, 8, 8, 8});
    m_scroll->setObjectName("operationsScroll");
    new OperationDropArea(*m_scroll);
    m_emptyState->setObjectName("operationsEmptyState");

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    createHeader();
    m_header->lower(); // read before the rows by assistive technology
    column->addWidget(m_header);
    column->addWidget(new Hairline(Qt::Horizontal, this));
    column->addWidget(m_scroll, 1);
    column->addWidget(m_emptyState, 1);

    connect(&m_state, &WindowState::stackOperationModeChanged, this, &OperationsPanel::showMode);
    connect(&m_state, &WindowState::operationsEnabledChanged, this, &OperationsPanel::showPause);
    connect(&m_state, &WindowState::operationsRefreshTriggerChanged, this, &OperationsPanel::showOperations);
    connect(&m_manager, &TransformationManager::appliedOperationsChanged, this, &OperationsPanel::showOperations);
    showMode();
    showPause();
    showOperations();
}

void OperationsPanel::createHeader() {
    m_header = new QWidget(this);
    auto *header = m_header;
    fitHeader();
    auto *title = new Label(tr("Operations"), FontRole::headline, &Theme::text, Label::Lines::one, header);
    title->setObjectName("operationsTitle");
    m_modeIcon = new Symbol({}, smallIcon, &Theme::text2, header);
    m_modeIcon->setObjectName("modeIcon");
    m_modeIcon->setAttribute(Qt::WA_TransparentForMouseEvents, false); // it has a tooltip
    m_modeName = new Label({}, FontRole::captionMedium, &Theme::text, Label::Lines::one, header);
    m_modeName->setObjectName("modeName");
    m_mode = new Switch({}, header);
    m_mode->setObjectName("modeSwitch");
    m_mode->setFocusPolicy(Qt::TabFocus);
    // Assistive technology toggles without a click.
    connect(m_mode, &QAbstractButton::toggled, this, [this] {
        // The notification decides; until then the switch shows what holds.
        showMode();
        emit modeToggled();
    });
    auto *line = new Hairline(Qt::Vertical, header);
    line->setFixedHeight(20);
    m_pause = new ToolButton("pause", {}, ToolButton::row, header);
    m_pause->setObjectName("pause");
    m_pause->setCheckable(true);
    m_pause->setFocusPolicy(Qt::TabFocus);
    connect(m_pause, &ToolButton::toggled, this, [this] {
        showPause();
        emit pauseToggled();
    });

    auto *row = new QHBoxLayout(header);
    row->setContentsMargins(16, metrics::line, 10, 0); // in the middle of header and hairline together
    row->setSpacing(8);
    row->addWidget(title);
    row->addStretch();
    row->addWidget(m_modeIcon);
    row->addWidget(m_modeName);
    row->addSpacing(2);
    row->addWidget(m_mode);
    row->addSpacing(4);
    row->addWidget(line);
    row->addWidget(m_pause);
}

void OperationsPanel::fitHeader() { m_header->setFixedHeight(heightFor(headerHeight, FontRole::body) - metrics::line); }

void OperationsPanel::changeEvent(QEvent *event) {
    Surface::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fitHeader();
    }
}

QString OperationsPanel::nameOfMode(bool isStack) { return isStack ? tr("Multiple") : tr("Single"); }

QSize OperationsPanel::minimumSizeHint() const {
    const QFontMetrics letters(m_modeName->font());
    const int longer =
        std::max(letters.horizontalAdvance(nameOfMode(true)), letters.horizontalAdvance(nameOfMode(false)));
    const int shown = letters.horizontalAdvance(m_modeName->text());
    return {m_header->sizeHint().width() - shown + longer, Surface::minimumSizeHint().height()};
}

void OperationsPanel::showMode() {
    const bool isStack = m_state.stackOperationMode();
    const QString help =
        isStack ? tr("combine multiple transformations, as a stack") : tr("only one transformation at a time");
    m_modeIcon->setName(isStack ? "square.stack" : "1.square");
    m_modeName->setText(nameOfMode(isStack));
    {
        const QSignalBlocker blocker(m_mode);
        m_mode->setChecked(isStack);
    }
    m_mode->setAccessibleName(m_modeName->text());
    m_mode->setAccessibleDescription(help);
    m_modeIcon->setToolTip(help);
    m_modeName->setHelp(help);
    m_mode->setToolTip(help);
}

void OperationsPanel::showPause() {
    const bool isActive = m_state.operationsEnabled();
    const QString help =
        isActive ? tr("Operations active (click to pause)") : tr("Operations paused (click to resume)");
    {
        const QSignalBlocker blocker(m_pause);
        m_pause->setChecked(!isActive);
    }
    m_pause->setSymbol(isActive ? "pause" : "play");
    m_pause->setHelp(help);
}

void OperationsPanel::createRows() {
    const std::size_t count = m_manager.appliedOperations().size();
    while (m_items.size() > count) {
        DraggableOperationItem *item = m_items.back();
        m_items.pop_back();
        m_column->removeWidget(item);
        // Hidden with the focus, the last stop of Tab would pass it on to the first: a button that replaces the text.
        if (window()->focusWidget() == item) {
            QWidget *heir = m_pause;
            if (count > 0) {
                heir = m_items[count - 1];
            }
            heir->setFocus(Qt::OtherFocusReason);
        }
        item->hide();
        item->setObjectName({});
        item->deleteLater();
    }
    while (m_items.size() < count) {
        auto *item = new DraggableOperationItem(m_manager, m_state, m_rows);
        connect(item, &DraggableOperationItem::toggled, this, [this, item] { emit operationToggled(item->index()); });
        connect(item, &DraggableOperationItem::removed, this, [this, item] { remove(item->index()); });
        connect(item, &DraggableOperationItem::editRequested, this,
                [this, item] { emit editRequested(item->index()); });
        connect(item, &DraggableOperationItem::moved, this, &OperationsPanel::move);
        connect(item, &DraggableOperationItem::dropped, this, &OperationsPanel::drop);
        connect(item, &RowButton::focusChanged, this, [this, item](bool focused) {
            if (focused) {
                m_state.setSelectedOperationIndex(static_cast<int>(item->index()));
            }
        });
        m_rows->showWhenFocused(*item);
        m_column->insertWidget(static_cast<int>(m_items.size()), item);
        // The layout would show it only later, and until then it could not take the focus.
        item->show();
        m_items.push_back(item);
    }
    m_navigator->setRows({m_items.begin(), m_items.end()});
}

void OperationsPanel::move(std::size_t from, std::size_t to) {
    const bool hadFocus = from < m_items.size() && m_items[from]->hasFocus();
    emit operationMoved(from, to);
    if (hadFocus && to < m_items.size()) {
        m_items[to]->setFocus(Qt::TabFocusReason);
    }
}

void OperationsPanel::drop(std::size_t from, std::size_t to) {
    QHash<QUuid, int> before;
    for (const DraggableOperationItem *item : m_items) {
        before.insert(item->operation().id, item->y());
    }
    move(from, to);
    m_column->activate();
    std::vector<RowSlide::Start> starts;
    for (DraggableOperationItem *item : m_items) {
        starts.push_back({item, before.value(item->operation().id, item->y()) - item->y()});
    }
    m_slide->slide(starts);
}

void OperationsPanel::remove(std::size_t index) {
    const bool hadFocus = m_items[index]->hasFocus();
    emit operationRemoved(index);
    if (hadFocus && !m_items.empty()) {
        m_items[std::min(index, m_items.size() - 1)]->setFocus(Qt::TabFocusReason);
    }
}

void OperationsPanel::showOperations() {
    m_slide->finish();
    const std::vector<AppliedOperation> &operations = m_manager.appliedOperations();
    if (m_items.size() != operations.size()) {
        createRows();
    }
    for (std::size_t index = 0; index < operations.size(); ++index) {
        m_items[index]->setOperation(operations[index], index);
    }
    m_scroll->setVisible(!operations.empty());
    if (operations.empty()) {
        m_emptyState->show("list.bullet.rectangle", tr("No operations yet"));
    } else {
        m_emptyState->hide();
    }
}

} // namespace lexivore
