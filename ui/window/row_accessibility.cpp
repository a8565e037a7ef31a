// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/row_accessibility.h"

#include "ui/window/row_button.h"
#include "ui/window/row_column.h"

#include <QAccessibleWidget>

namespace lexivore {

namespace {

class AccessibleRow final : public QAccessibleWidget {
public:
    explicit AccessibleRow(RowButton *row)
        : QAccessibleWidget(row, row->isListItem() ? QAccessible::ListItem : QAccessible::Button) {}

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return row().text();
        case QAccessible::Description:
            return row().description();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        // Only one row of a list is a stop of the Tab key, but the focus can go to each.
        state.focusable = true;
        state.pressed = row().isDown();
        row().addState(state);
        return state;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }

    void doAction(const QString &name) override {
        if (name == pressAction()) {
            row().activate();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    [[nodiscard]] RowButton &row() const { return *static_cast<RowButton *>(widget()); }
};

/// The rows that are hidden count for nothing, so that the place of a row in the list is the one that is seen.
class AccessibleRows final : public QAccessibleWidget {
public:
    explicit AccessibleRows(RowColumn *column) : QAccessibleWidget(column, QAccessible::List) {}

    int childCount() const override { return static_cast<int>(rows().size()); }

    QAccessibleInterface *child(int index) const override {
        return QAccessible::queryAccessibleInterface(rows().value(index));
    }

    int indexOfChild(const QAccessibleInterface *child) const override {
        return static_cast<int>(rows().indexOf(qobject_cast<RowButton *>(child->object())));
    }

private:
    [[nodiscard]] QList<RowButton *> rows() const {
        QList<RowButton *> shown;
        for (RowButton *row : widget()->findChildren<RowButton *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!row->isHidden()) {
                shown.append(row);
            }
        }
        return shown;
    }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object) {
    if (auto *column = qobject_cast<RowColumn *>(object)) {
        return new AccessibleRows(column);
    }
    auto *row = qobject_cast<RowButton *>(object);
    return row != nullptr ? new AccessibleRow(row) : nullptr;
}

void announce(RowButton &row, QAccessible::State changed) {
    QAccessibleStateChangeEvent event(&row, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void installRowAccessibility() { QAccessible::installFactory(makeInterface); }

void announceSelection(RowButton &row) {
    QAccessible::State state;
    row.addState(state);
    // Not a change of state: of those the toolkit passes on only some.
    QAccessibleEvent event(&row, state.selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&event);
}

void announceChecked(RowButton &row) {
    QAccessible::State changed;
    changed.checked = true;
    announce(row, changed);
}

} // namespace lexivore
