// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/check_for_updates_menu_item.h"

#include "services/updates/updater.h"

namespace lexivore {

CheckForUpdatesMenuItem::CheckForUpdatesMenuItem(Updater &updater, QObject *parent)
    : QAction(tr("Check for Updates…"), parent), m_viewModel(updater) {
    setObjectName(QStringLiteral("CheckForUpdates"));
    setMenuRole(QAction::ApplicationSpecificRole);
    setEnabled(m_viewModel.canCheckForUpdates());
    connect(&m_viewModel, &CheckForUpdatesViewModel::canCheckForUpdatesChanged, this, &QAction::setEnabled);
    connect(this, &QAction::triggered, &updater, &Updater::checkForUpdates);
}

} // namespace lexivore
