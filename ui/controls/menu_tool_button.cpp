// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/menu_tool_button.h"

#include <QAccessibleWidget>

namespace lexivore {

namespace {

/// The toolkit's own tells of the menu of such a button, but neither opens it nor gives the button the focus.
class AccessibleMenuButton final : public QAccessibleWidget {
public:
    explicit AccessibleMenuButton(MenuToolButton *button) : QAccessibleWidget(button, QAccessible::ButtonMenu) {}

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
            auto *button = static_cast<MenuToolButton *>(widget());
            QMetaObject::invokeMethod(button, &MenuToolButton::showMenu, Qt::QueuedConnection);
        } else {
            QAccessibleWidget::doAction(name);
        }
    }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object) {
    auto *button = qobject_cast<MenuToolButton *>(object);
    return button != nullptr ? new AccessibleMenuButton(button) : nullptr;
}

} // namespace

MenuToolButton::MenuToolButton(const QString &symbol, const QString &help, Size size, QWidget *parent)
    : ToolButton(symbol, help, size, parent) {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
    setPopupMode(InstantPopup);
}

} // namespace lexivore
