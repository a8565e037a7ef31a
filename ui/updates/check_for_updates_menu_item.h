// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/check_for_updates_view_model.h"

#include <QAction>

namespace lexivore {

class Updater;

/// The menu's command to look for updates. Disabled while the updater cannot check.
class CheckForUpdatesMenuItem : public QAction {
    Q_OBJECT

public:
    explicit CheckForUpdatesMenuItem(Updater &updater, QObject *parent = nullptr);

private:
    CheckForUpdatesViewModel m_viewModel;
};

} // namespace lexivore
