// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace lexivore {

class Updater;

/// Whether the user may ask for updates now, as the menu shows it.
class CheckForUpdatesViewModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)

public:
    explicit CheckForUpdatesViewModel(Updater &updater, QObject *parent = nullptr);

    [[nodiscard]] bool canCheckForUpdates() const { return m_canCheckForUpdates; }

signals:
    void canCheckForUpdatesChanged(bool canCheckForUpdates);

private:
    void setCanCheckForUpdates(bool canCheckForUpdates);

    bool m_canCheckForUpdates;
};

} // namespace lexivore
