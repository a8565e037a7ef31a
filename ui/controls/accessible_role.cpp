// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace lexivore {

namespace {

constexpr char roleProperty[] = "lexivoreRole";
constexpr char selectedProperty[] = "lexivoreSelected";
constexpr char modalProperty[] = "lexivoreModal";

class AccessibleRole final : public QAccessibleWidget {
public:
    AccessibleRole(QWidget *widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const QVariant selected = object()->property(selectedProperty);
        state.selectable = selected.isValid();
        state.selected = selected.toBool();
        state.modal = object()->property(modalProperty).toBool();
        return state;
    }
};

/// The toolkit asks for every class up to QWidget; a widget with a role of its own is answered at the first question.
QAccessibleInterface *makeInterface(const QString &, QObject *object) {
    auto *widget = qobject_cast<QWidget *>(object);
    const QVariant role = widget != nullptr ? widget->property(roleProperty) : QVariant();
    return role.isValid() ? new AccessibleRole(widget, static_cast<QAccessible::Role>(role.toInt())) : nullptr;
}

} // namespace

void setAccessibleRole(QWidget &widget, QAccessible::Role role) {
    QAccessible::installFactory(makeInterface); // more than once it does nothing
    widget.setProperty(roleProperty, static_cast<int>(role));
}

void setAccessibleSelected(QWidget &widget, bool isSelected) {
    const QVariant before = widget.property(selectedProperty);
    widget.setProperty(selectedProperty, isSelected);
    if (before.isValid() && before.toBool() != isSelected) {
        QAccessible::State changed;
        changed.selected = true;
        QAccessibleStateChangeEvent event(&widget, changed);
        QAccessible::updateAccessibility(&event);
    }
}

void setAccessibleModal(QWidget &widget) { widget.setProperty(modalProperty, true); }

} // namespace lexivore
