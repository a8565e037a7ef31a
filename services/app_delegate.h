// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

namespace lexivore {

/// The application's delegate: adopts the main window, which closing hides instead of destroying, so that it comes back
/// with its text as it was. When the application is to quit it does so without asking the window, which would only hide
/// and so hold up the end of the session.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    explicit AppDelegate(QObject *parent = nullptr);

    /// The adopted window, or null.
    [[nodiscard]] QObject *window() const { return m_window; }

    /// Takes the window; `hideApplication` hides all that the application shows.
    void adoptWindow(QObject *window, std::function<void()> hideApplication);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QObject> m_window;
    std::function<void()> m_hideApplication;
};

} // namespace lexivore
