// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/accessible_menu_button.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QVariant>

namespace lexivore {

namespace {

constexpr char menuButtonProperty[] = "lexivoreMenuButton";

/// The toolkit's own for a tool button tells of the menu, but neither opens it nor gives the button the focus. That for
/// a push button keeps who opened the menu waiting until it is closed.
class AccessibleMenuButton final : public QAccessibleWidget {
public:
    explicit AccessibleMenuButton(QAbstractButton *button) : QAccessibleWidget(button, QAccessible::ButtonMenu) {}

    QString text(QAccessible::Text which) const override {
        const QString own = QAccessibleWidget::text(which);
        return own.isEmpty() && which == QAccessible::Name ? static_cast<QAbstractButton *>(widget())->text() : own;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        return state;
    }

    QStringList actionNames() const override {
        return widget()->isEnabled() ? QStringList{showMenuAction(), setFocusAction()} : QStringList();
    }

    void doAction(const QString &name) override {
        if (name == showMenuAction() && widget()->isEnabled()) {
            // Later, as it returns only when the menu is closed, and who asked waits for an answer.
            QMetaObject::invokeMethod(widget(), "showMenu", Qt::QueuedConnection);
        } else {
            QAccessibleWidget::doAction(name);
        }
    }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object) {
    auto *button = qobject_cast<QAbstractButton *>(object);
    const bool isMenuButton = button != nullptr && button->property(menuButtonProperty).toBool();
    return isMenuButton ? new AccessibleMenuButton(button) : nullptr;
}

} // namespace

void setAccessibleMenuButton(QAbstractButton &button) {
    QAccessible::installFactory(makeInterface); // more than once it does nothing
    button.setProperty(menuButtonProperty, true);
}

} // namespace lexivore
