// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/check_for_updates_view_model.h"

#include "services/updates/updater.h"

namespace lexivore {

CheckForUpdatesViewModel::CheckForUpdatesViewModel(Updater &updater, QObject *parent)
    : QObject(parent), m_canCheckForUpdates(updater.canCheckForUpdates()) {
    connect(&updater, &Updater::canCheckForUpdatesChanged, this, &CheckForUpdatesViewModel::setCanCheckForUpdates);
}

void CheckForUpdatesViewModel::setCanCheckForUpdates(bool canCheckForUpdates) {
    m_canCheckForUpdates = canCheckForUpdates;
    emit canCheckForUpdatesChanged(canCheckForUpdates);
}

} // namespace lexivore
