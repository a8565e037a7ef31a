// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/standard_updater_controller.h"

#include <QObject>
#include <QPointer>
#include <QVariantMap>

#include <functional>

namespace lexivore {

/// The application's delegate: adopts the main window, which closing hides instead of destroying, so that it comes back
/// with its text as it was. When the application is to quit it does so without asking the window, which would only hide
/// and so hold up the end of the session.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// `information` is that of the bundle; `preferences` must outlive this. `openFile` opens a file as the desktop
    /// does.
    AppDelegate(const QVariantMap &information, Preferences &preferences, std::function<bool(const QUrl &)> openFile,
                QObject *parent = nullptr);

    /// Started when the delegate was made.
    [[nodiscard]] StandardUpdaterController &updaterController() { return m_updaterController; }

    /// The adopted window, or null.
    [[nodiscard]] QObject *window() const { return m_window; }

    /// Takes the window; `hideApplication` hides all that the application shows.
    void adoptWindow(QObject *window, std::function<void()> hideApplication);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    StandardUpdaterController m_updaterController;
    QPointer<QObject> m_window;
    std::function<void()> m_hideApplication;
};

} // namespace lexivore
