// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/operations/draggable_operation_item.h"

#include "manager/transformation_manager.h"
#include "ui/controls/badge.h"
#include "ui/controls/focus_ring.h"
#include "ui/controls/label.h"
#include "ui/controls/menu_pointer.h"
#include "ui/controls/tool_button.h"
#include "ui/icon.h"
#include "ui/operations/operation_description.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/translation.h"
#include "ui/window/row_accessibility.h"
#include "ui/window/window_state.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include <utility>

namespace lexivore {

namespace {

constexpr int gapToNextRow = 4;
constexpr int markThickness = 2;
constexpr int padding = 8;
constexpr int gap = 8;
constexpr int handleSize = 12;
constexpr int badgeSize = 20;
constexpr int warningSize = 14;
constexpr int removeSize = 20;
constexpr int textLeft = padding + handleSize + gap + badgeSize + gap;

QFont nameFont(bool isEnabled) {
    QFont font = fontFor(FontRole::captionMedium);
    font.setStrikeOut(!isEnabled);
    return font;
}

QFont parameterFont(bool isEnabled) {
    QFont font = fontFor(FontRole::smallCaption);
    font.setStrikeOut(!isEnabled);
    return font;
}

int nameHeight() { return std::max(badgeSize, QFontMetrics(nameFont(true)).height()); }
int parameterHeight() { return QFontMetrics(parameterFont(true)).height() + 2; }

} // namespace

DraggableOperationItem::DraggableOperationItem(const TransformationManager &manager, WindowState &state,
                                               QWidget *parent)
    : RowButton(parent), m_manager(manager), m_state(state),
      m_remove(new ToolButton("xmark.circle.fill", tr("Remove"), ToolButton::small, this)) {
    // The gap belongs to the insertion mark, which the ring must not hide.
    setFocusShape(*this,
                  {.placement = FocusShape::Placement::inside, .radius = metrics::radius, .inset = gapToNextRow / 2});
    m_remove->setObjectName("remove");
    m_remove->setFocusPolicy(Qt::NoFocus);
    connect(m_remove, &ToolButton::clicked, this, &DraggableOperationItem::removed);
    connect(&m_state, &WindowState::draggedOperationChanged, this, &DraggableOperationItem::showOpacity);
    connect(&m_state, &WindowState::operationsEnabledChanged, this, QOverload<>::of(&QWidget::update));
    connect(&m_manager, &TransformationManager::operationProblemsChanged, this, &DraggableOperationItem::describe);
    connect(&m_manager, &TransformationManager::operationMeasuresChanged, this, &DraggableOperationItem::describe);
    connect(&m_state, &WindowState::selectedOperationIndexChanged, this, &DraggableOperationItem::showSelection);
    connect(this, &RowButton::focusChanged, this, QOverload<>::of(&QWidget::update));
}

void DraggableOperationItem::setOperation(const AppliedOperation &operation, std::size_t index) {
    const bool isToggled = m_operation.isEnabled != operation.isEnabled;
    m_operation = operation;
    m_index = index;
    setObjectName(QString("operation.%1").arg(index));
    setText(translated(operation.transformationName));
    m_remove->setAccessibleName(tr("Remove %1").arg(text()));
    describe();
    showSelection();
    showOpacity();
    updateGeometry();
    if (isToggled) {
        announceChecked(*this);
    }
}

double DraggableOperationItem::opacity() const {
    if (isDragged()) {
        return 0.5;
    }
    return m_operation.isEnabled ? 1.0 : 0.6;
}

void DraggableOperationItem::showOpacity() {
    m_remove->setOpacity(opacity());
    update();
}

void DraggableOperationItem::describe() {
    QStringList parts = {m_operation.isEnabled ? tr("Enabled") : tr("Disabled")};
    for (const QString &line : parameterLines(m_operation)) {
        parts << line;
    }
    if (!problem().isEmpty()) {
        parts << problem();
    }
    setAccessibleDescription(parts.join(", "));
    update();
}

QString DraggableOperationItem::description() const {
    QStringList parts = {accessibleDescription()};
    for (const QString &line : measureLines(measures())) {
        parts << line;
    }
    return parts.join(", ");
}

void DraggableOperationItem::addState(QAccessible::State &state) const {
    state.checkable = true;
    state.checked = m_operation.isEnabled;
    state.selectable = true;
    state.selected = m_isSelected;
}

void DraggableOperationItem::showSelection() {
    const bool isSelected = m_state.selectedOperationIndex() == static_cast<int>(m_index);
    if (std::exchange(m_isSelected, isSelected) != isSelected) {
        announceSelection(*this);
    }
}

QString DraggableOperationItem::problem() const { return problemOf(m_operation, m_manager.operationProblems()); }

// Large texts take a moment to measure, so it is done only for a row that somebody looks at.
std::optional<OperationMeasures> DraggableOperationItem::measures() const {
    return m_manager.operationMeasures(m_operation.id);
}

QString DraggableOperationItem::toolTipAt(QPoint position) const {
    if (badge().contains(position)) {
        return m_operation.isEnabled ? tr("Click to disable") : tr("Click to enable");
    }
    if (!problem().isEmpty()) {
        return problem();
    }
    QStringList lines = {text()};
    for (const QString &line : parameterLines(m_operation)) {
        lines << line;
    }
    for (const QString &line : measureLines(measures())) {
        lines << line;
    }
    return lines.join('\n');
}

bool DraggableOperationItem::event(QEvent *event) {
    if (event->type() == QEvent::ToolTip) {
        setToolTip(plainToolTip(toolTipAt(static_cast<QHelpEvent *>(event)->pos())));
    }
    return RowButton::event(event);
}

QRect DraggableOperationItem::body() const { return rect().adjusted(0, gapToNextRow / 2, 0, -gapToNextRow / 2); }

QRect DraggableOperationItem::nameLine() const {
    return {padding, body().top() + padding, width() - 2 * padding, nameHeight()};
}

QRect DraggableOperationItem::badge() const {
    const QRect line = nameLine();
    return {line.left() + handleSize + gap, line.top() + (line.height() - badgeSize) / 2, badgeSize, badgeSize};
}

QSize DraggableOperationItem::sizeHint() const {
    const int lines = static_cast<int>(m_operation.parameters.size());
    return {280, gapToNextRow + 2 * padding + nameHeight() + lines * parameterHeight()};
}

QSize DraggableOperationItem::minimumSizeHint() const { return {0, sizeHint().height()}; }

bool DraggableOperationItem::isDragged() const { return m_state.draggedOperation() == m_operation; }

void DraggableOperationItem::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isHovered() || isDragged()) {
        fillRounded(painter, body(), metrics::radius, theme().operationRowHover);
    }
    painter.setOpacity(opacity());
    const QRect line = nameLine();
    painter.drawPixmap(line.left(), line.center().y() - handleSize / 2 + 1,
                       symbolPixmap("line.3.horizontal", handleSize, theme().text2, devicePixelRatioF()));
    paintTexts(painter, line);
    paintBadge(painter);
    painter.setOpacity(1);
    paintMarks(painter);
}

void DraggableOperationItem::paintBadge(QPainter &painter) const {
    painter.save();
    painter.setOpacity(painter.opacity() * (m_operation.isEnabled ? 1.0 : 0.3));
    const bool isActive = m_state.operationsEnabled() && m_operation.isEnabled;
    drawBadge(painter, badge(), static_cast<int>(m_index) + 1, isActive ? theme().accent : theme().badgeOff);
    painter.restore();
}

void DraggableOperationItem::paintTexts(QPainter &painter, const QRect &line) const {
    const bool isEnabled = m_operation.isEnabled;
    const int width = m_remove->geometry().left() - gap - textLeft;
    const QFont name = nameFont(isEnabled);
    painter.setFont(name);
    painter.setPen(isEnabled ? theme().text : theme().text2);
    painter.drawText(QRect(textLeft, line.top(), width, line.height()), Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(name).elidedText(text(), Qt::ElideRight, width));
    paintMeasure(painter, line);
    const QFont small = parameterFont(isEnabled);
    painter.setFont(small);
    painter.setPen(theme().text3);
    int top = line.bottom() + 1;
    for (const QString &parameter : parameterLines(m_operation)) {
        painter.drawText(QRect(textLeft, top, width, parameterHeight()), Qt::AlignLeft | Qt::AlignVCenter,
                         QFontMetrics(small).elidedText(parameter, Qt::ElideRight, width));
        top += parameterHeight();
    }
    if (!problem().isEmpty()) {
        const int left =
            std::min(textLeft + QFontMetrics(name).horizontalAdvance(text()) + gap / 2, textLeft + width - warningSize);
        painter.drawPixmap(left, line.center().y() - warningSize / 2 + 1,
                           symbolPixmap("exclamationmark.triangle", warningSize, theme().orange, devicePixelRatioF()));
    }
}

void DraggableOperationItem::paintMeasure(QPainter &painter, const QRect &line) const {
    if (!isHovered() && !hasFocus()) {
        return;
    }
    const QString measure = shortMeasure(measures());
    const QFont font = parameterFont(true);
    const int nameRight = textLeft + QFontMetrics(nameFont(true)).horizontalAdvance(text());
    const int right = m_remove->geometry().left() - gap;
    // The name never gives way to it.
    if (nameRight + 2 * gap + QFontMetrics(font).horizontalAdvance(measure) <= right) {
        painter.setFont(font);
        painter.setPen(theme().text3);
        painter.drawText(QRect(nameRight, line.top(), right - nameRight, line.height()),
                         Qt::AlignRight | Qt::AlignVCenter, measure);
    }
}

void DraggableOperationItem::paintMarks(QPainter &painter) const {
    if (m_marks.dropAbove) {
        painter.fillRect(0, 0, width(), markThickness, theme().accent);
    }
    if (m_marks.dropBelow) {
        painter.fillRect(0, height() - markThickness, width(), markThickness, theme().accent);
    }
}

void DraggableOperationItem::resizeEvent(QResizeEvent *event) {
    RowButton::resizeEvent(event);
    m_remove->move(width() - padding - removeSize, body().top() + padding + (nameHeight() - removeSize) / 2);
}

void DraggableOperationItem::keyPressEvent(QKeyEvent *event) {
    const bool movesIt = event->modifiers() == Qt::AltModifier;
    switch (event->key()) {
    case Qt::Key_Up:
        if (movesIt && m_index > 0) {
            emit moved(m_index, m_index - 1);
            return;
        }
        break;
    case Qt::Key_Down:
        if (movesIt && m_index + 1 < m_manager.appliedOperations().size()) {
            emit moved(m_index, m_index + 1);
            return;
        }
        break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit toggled();
        return;
    case Qt::Key_F2:
        emit editRequested();
        return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        emit removed();
        return;
    default:
        break;
    }
    event->ignore();
}

void DraggableOperationItem::contextMenuEvent(QContextMenuEvent *event) {
    auto *menu = new QMenu(this);
    menu->setObjectName("operationMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    leaveWhenClosedElsewhere(*menu, *this);
    // The keys only show in the menu; they work on the row itself.
    const auto add = [&](const QString &text, const QKeySequence &key, auto action) {
        QAction *item = menu->addAction(text);
        item->setShortcut(key);
        item->setShortcutContext(Qt::WidgetShortcut);
        connect(item, &QAction::triggered, this, action);
        return item;
    };
    add(m_operation.isEnabled ? tr("Disable") : tr("Enable"), Qt::Key_Space, [this] { emit toggled(); });
    add(tr("Remove"), Qt::Key_Delete, [this] { emit removed(); });
    menu->addSeparator();
    if (!m_operation.parameters.empty()) {
        add(tr("Edit Parameters..."), Qt::Key_F2, [this] { emit editRequested(); });
    }
    const std::size_t last = m_manager.appliedOperations().size() - 1;
    add(tr("Move Up"), Qt::ALT | Qt::Key_Up, [this] { emit moved(m_index, m_index - 1); })->setEnabled(m_index > 0);
    add(tr("Move Down"), Qt::ALT | Qt::Key_Down, [this] {
        emit moved(m_index, m_index + 1);
    })->setEnabled(m_index < last);
    menu->popup(event->reason() == QContextMenuEvent::Mouse ? event->globalPos()
                                                            : mapToGlobal(QPoint(textLeft, height() / 2)));
}

void DraggableOperationItem::mousePressEvent(QMouseEvent *event) {
    m_pressPosition = event->pos();
    m_state.setSelectedOperationIndex(static_cast<int>(m_index));
    RowButton::mousePressEvent(event);
}

void DraggableOperationItem::mouseMoveEvent(QMouseEvent *event) {
    const bool isFarEnough = (event->pos() - m_pressPosition).manhattanLength() >= QApplication::startDragDistance();
    if ((event->buttons() & Qt::LeftButton) != 0 && isFarEnough) {
        setDown(false);
        startDrag();
        return;
    }
    RowButton::mouseMoveEvent(event);
}

// A click anywhere else does nothing, so that the first one of a double click is harmless.
void DraggableOperationItem::mouseReleaseEvent(QMouseEvent *event) {
    const bool isClick = event->button() == Qt::LeftButton && isDown();
    RowButton::mouseReleaseEvent(event);
    if (isClick && badge().contains(m_pressPosition) && badge().contains(event->pos())) {
        emit toggled();
    }
}

void DraggableOperationItem::mouseDoubleClickEvent(QMouseEvent *event) {
    if (badge().contains(event->pos())) {
        mousePressEvent(event); // two quick clicks
    } else if (event->button() == Qt::LeftButton) {
        emit editRequested();
    }
}

void DraggableOperationItem::startDrag() {
    m_state.setDraggedOperation(m_operation);
    auto *payload = new QMimeData;
    payload->setData(mimeType, m_operation.id.toString(QUuid::WithoutBraces).toUpper().toUtf8());
    // The row may be gone when the drag ends, so the drag belongs to the column that the rows stand in.
    auto *drag = new QDrag(parentWidget());
    drag->setMimeData(payload);
    drag->setPixmap(grab(body()));
    drag->setHotSpot(m_pressPosition - body().topLeft());
    drag->exec(Qt::MoveAction);
}

OperationDropDelegate DraggableOperationItem::dropDelegate() {
    return {m_index, m_manager, m_state, [this](std::size_t from, std::size_t to) { emit dropped(from, to); }, m_marks};
}

void DraggableOperationItem::dropEntered() {
    dropDelegate().dropEntered();
    update();
}

void DraggableOperationItem::dropExited() {
    dropDelegate().dropExited();
    update();
}

bool DraggableOperationItem::performDrop() {
    const bool isAccepted = dropDelegate().performDrop();
    update();
    return isAccepted;
}

} // namespace lexivore
