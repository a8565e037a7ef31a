// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/toolbar_size_configurator.h"

#include <QTimer>
#include <QToolBar>
#include <QToolButton>

namespace lexivore {

ToolbarSizeConfigurator::ToolbarSizeConfigurator(ToolbarSizeMode sizeMode, QWidget *parent)
    : QWidget(parent), m_sizeMode(sizeMode) {
    setFixedSize(0, 0);
    QTimer::singleShot(0, this, &ToolbarSizeConfigurator::configure);
}

void ToolbarSizeConfigurator::configure() {
    const bool isSmall = m_sizeMode == ToolbarSizeMode::small;
    const int icon = isSmall ? 16 : 20;
    const int height = isSmall ? 28 : 32;
    for (QToolBar *bar : window()->findChildren<QToolBar *>()) {
        bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
        bar->setIconSize({icon, icon});
        for (QToolButton *button : bar->findChildren<QToolButton *>()) {
            button->setToolButtonStyle(Qt::ToolButtonIconOnly);
            button->setIconSize({icon, icon});
            button->setFixedHeight(height);
        }
    }
}

} // namespace lexivore
