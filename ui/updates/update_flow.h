// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/updater.h"

#include <QObject>
#include <QPointer>

#include <chrono>
#include <functional>

class QUrl;
class QWidget;

namespace lexivore {

class ProgressSheet;

/// Shows over the window what the updater says, and tells it what the user decides.
class UpdateFlow : public QObject {
    Q_OBJECT

public:
    /// `updater` and `window` must outlive it. `openLink` gets the https addresses that the user chose in release
    /// notes. What was found unasked is shown when nobody touched the program for `quiet`.
    UpdateFlow(Updater &updater, QWidget &window, std::function<void(const QUrl &)> openLink,
               std::chrono::milliseconds quiet = std::chrono::seconds(3), QObject *parent = nullptr);

private:
    void showCheck();
    void showFound(const AppcastItem &item, Updater::Origin origin);
    void showDownload(const AppcastItem &item);
    void showNoUpdate(const UpdateChoice &choice);
    void showNoFeed();
    void showHandedOver(const AppcastItem &item);
    void showFailure(const UpdateError &error);
    void showProgress(ProgressSheet *sheet);
    void showMessage(const QString &title, const QString &message);
    void closeProgress();

    Updater &m_updater;
    QWidget &m_window;
    std::function<void(const QUrl &)> m_openLink;
    std::chrono::milliseconds m_quiet;
    QPointer<ProgressSheet> m_progress;
};

} // namespace lexivore
