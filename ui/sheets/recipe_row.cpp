// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/recipe_row.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/field.h"
#include "ui/controls/focus_ring.h"
#include "ui/controls/label.h"
#include "ui/controls/push_button.h"
#include "ui/controls/tool_button.h"
#include "ui/menu_text.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/translation.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

namespace lexivore {

namespace {

constexpr int rowHeight = 56;
constexpr int leftPadding = 12;
constexpr int rightPadding = 8;
constexpr int editingLeftPadding = 4;

QString operationCount(std::size_t count) {
    return count == 1 ? RecipeRow::tr("%1 operation").arg(count) : RecipeRow::tr("%1 operations").arg(count);
}

bool isArrowUpOrDown(const QKeyEvent &event) { return event.key() == Qt::Key_Up || event.key() == Qt::Key_Down; }

} // namespace

RecipeRow::RecipeRow(const Recipe &recipe, QWidget *parent) : QWidget(parent), m_recipe(recipe) {
    setAccessibleRole(*this, QAccessible::ListItem);
    setAccessibleName(shownName(translatedName(recipe)));
    setAccessibleDescription(operationCount(recipe.operations.size()));
    setAccessibleSelected(*this, false);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::ClickFocus);
    setFocusShape(*this, {FocusShape::Placement::inside, metrics::radius});
    setFixedHeight(heightFor(rowHeight, FontRole::body, 2));
    showRecipe();
}

void RecipeRow::showRecipe() {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(leftPadding, 0, rightPadding, 0);
    row->setSpacing(2);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch();
    texts->addWidget(new Label(accessibleName(), FontRole::body));
    texts->addWidget(new Label(accessibleDescription(), FontRole::caption, &Theme::text2));
    texts->addStretch();
    auto *rename = new ToolButton(QStringLiteral("pencil"), tr("Rename"), ToolButton::row);
    rename->setObjectName(QStringLiteral("rename"));
    rename->setAccessibleName(tr("Rename %1").arg(accessibleName()));
    auto *remove = new ToolButton(QStringLiteral("trash"), tr("Delete"), ToolButton::row);
    remove->setObjectName(QStringLiteral("delete"));
    remove->setAccessibleName(tr("Delete %1").arg(accessibleName()));
    row->addLayout(texts, 1);
    row->addSpacing(8);
    row->addWidget(rename);
    row->addWidget(remove);
    m_buttons = {rename, remove};
    for (QWidget *button : std::as_const(m_buttons)) {
        button->setFocusPolicy(Qt::NoFocus);
        button->installEventFilter(this);
    }
    connect(rename, &ToolButton::clicked, this, &RecipeRow::renameRequested);
    connect(remove, &ToolButton::clicked, this, &RecipeRow::deletionRequested);
}

void RecipeRow::startEditing(const QString &name) {
    qDeleteAll(findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
    delete layout();
    m_buttons.clear();

    m_field = new Field(tr("Recipe name"));
    m_field->setObjectName(QStringLiteral("editedName"));
    m_field->setPlaceholderText(tr("Recipe name"));
    m_field->setText(name);
    m_confirmButton = new PushButton({}, PushButton::Kind::primary);
    m_confirmButton->setObjectName(QStringLiteral("confirmRename"));
    m_confirmButton->setSymbol(QStringLiteral("checkmark"));
    m_confirmButton->setToolTip(tr("Rename"));
    m_confirmButton->setAccessibleName(tr("Rename"));
    m_confirmButton->setFixedWidth(m_confirmButton->sizeHint().height());
    m_confirmButton->setEnabled(!name.isEmpty());
    auto *cancelButton = new PushButton(tr("Cancel"));
    cancelButton->setObjectName(QStringLiteral("cancelRename"));
    cancelButton->setLeastWidth(0);
    cancelButton->installEventFilter(this);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(editingLeftPadding, 0, rightPadding, 0);
    row->setSpacing(metrics::buttonGap);
    row->addWidget(m_field, 1);
    row->addWidget(m_confirmButton);
    row->addWidget(cancelButton);
    connect(m_field, &Field::textChanged, this, &RecipeRow::nameEdited);
    connect(m_field, &Field::textChanged, m_confirmButton,
            [button = m_confirmButton](const QString &text) { button->setEnabled(!text.isEmpty()); });
    connect(m_confirmButton, &PushButton::clicked, this, &RecipeRow::confirmRename);
    connect(cancelButton, &PushButton::clicked, this, &RecipeRow::renameCancelled);

    m_field->show();
    m_field->setFocus(Qt::TabFocusReason);
    m_field->selectAll();
    update();
}

void RecipeRow::setCurrent(bool isCurrent) {
    if (isEditing()) {
        return;
    }
    setFocusPolicy(isCurrent ? Qt::StrongFocus : Qt::ClickFocus);
    for (QWidget *button : std::as_const(m_buttons)) {
        button->setFocusPolicy(isCurrent ? Qt::TabFocus : Qt::NoFocus);
    }
    setAccessibleSelected(*this, isCurrent);
}

void RecipeRow::confirmRename() {
    if (!m_field->text().isEmpty()) {
        emit renameConfirmed();
    }
}

bool RecipeRow::eventFilter(QObject *watched, QEvent *event) {
    // A click puts another button under the pointer, the next row's or one to rename this one or to leave that: the
    // second half of a double click must not press it.
    if (event->type() == QEvent::MouseButtonDblClick) {
        return true;
    }
    // The toolkit would go on to the next button, as Tab does.
    if (event->type() == QEvent::KeyPress && !isEditing() && isArrowUpOrDown(*static_cast<QKeyEvent *>(event))) {
        emit moveRequested(static_cast<QKeyEvent *>(event)->key());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void RecipeRow::focusInEvent(QFocusEvent *event) {
    QWidget::focusInEvent(event);
    emit entered();
}

void RecipeRow::keyPressEvent(QKeyEvent *event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEditing() && isReturn && m_field->hasFocus()) {
        confirmRename();
    } else if (isEditing() && event->key() == Qt::Key_Escape) {
        emit renameCancelled();
    } else if (isEditing()) {
        QWidget::keyPressEvent(event);
    } else {
        switch (event->key()) {
        case Qt::Key_F2:
            emit renameRequested();
            break;
        case Qt::Key_Delete:
            emit deletionRequested();
            break;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            emit moveRequested(event->key());
            break;
        default:
            QWidget::keyPressEvent(event);
        }
    }
}

void RecipeRow::leaveEvent(QEvent *event) {
    QWidget::leaveEvent(event);
    update(); // of its own accord the toolkit does not draw it anew while a menu is open
}

void RecipeRow::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    if (isEditing()) {
        fillRounded(painter, rect(), metrics::radius, theme().operationRowHover);
    } else if (underMouse()) {
        fillRounded(painter, rect(), metrics::radius, theme().rowHover);
    }
}

} // namespace lexivore
