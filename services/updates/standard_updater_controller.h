// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/updater.h"

#include <QObject>
#include <QVariantMap>

#include <functional>

namespace lexivore {

class Preferences;

/// The updater with the settings that the program was built with, started at once. Nothing intervenes in what it does.
class StandardUpdaterController : public QObject {
    Q_OBJECT

public:
    /// `information` is that of the bundle; `preferences` must outlive this. `open` opens a file as the desktop does.
    StandardUpdaterController(const QVariantMap &information, Preferences &preferences,
                              std::function<bool(const QUrl &file)> open, QObject *parent = nullptr);

    [[nodiscard]] Updater &updater() { return m_updater; }

private:
    Updater m_updater;
};

} // namespace lexivore
