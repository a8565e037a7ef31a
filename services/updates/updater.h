// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/update_error.h"
#include "services/updates/update_policy.h"

#include <QObject>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>

class QNetworkAccessManager;

namespace lexivore {

class Preferences;
class SecureTransfer;
class UpdateDownload;

/// Looks for updates, brings one to the disk when the user wants it, verifies it and hands it to the desktop. One thing
/// at a time. It shows nothing: it says what happens and is told what the user decides.
///
/// A check by hand always ends in an answer, a scheduled one only when there is something.
class Updater : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)

public:
    struct Settings {
        QUrl feed;            ///< Empty when updates come from elsewhere: then it contacts nobody, ever.
        QByteArray publicKey; ///< Of the makers; decoded.
        QString currentVersion;
        QString systemVersion;
        QStringList channels;
        QString folder; ///< For downloads; the program's own.
        /// Opens a verified file as the desktop does. False when it cannot.
        std::function<bool(const QUrl &file)> open;

        std::chrono::milliseconds firstLook = std::chrono::seconds(10); ///< After the start.
        std::chrono::milliseconds laterLooks = std::chrono::hours(1);   ///< How often it looks whether a check is due.
        std::chrono::milliseconds silence = std::chrono::seconds(30);   ///< What a server may take to say something.
        std::chrono::milliseconds longestCheck = std::chrono::minutes(1); ///< However much the server says.
        std::function<QDateTime()> now = [] { return QDateTime::currentDateTimeUtc(); };
    };

    enum class Origin { scheduled, byHand };

    /// `preferences` must outlive it.
    Updater(Settings settings, Preferences &preferences, QObject *parent = nullptr);
    ~Updater() override;

    /// From now on it checks once a day.
    void start();

    /// False while it is busy or waits for an answer.
    [[nodiscard]] bool canCheckForUpdates() const { return m_state == State::idle; }
    [[nodiscard]] QString currentVersion() const { return m_settings.currentVersion; }

    /// By hand. Does nothing while it cannot check.
    void checkForUpdates();

    // Answers to `updateFound`; at any other time they do nothing.
    void install();
    void remindLater();
    void skipVersion();

    /// Ends a check or a download without another word.
    void cancel();

signals:
    void canCheckForUpdatesChanged(bool canCheckForUpdates);
    /// By hand only: it may take as long as the server does.
    void checkStarted();
    /// By hand only. `offered` never comes this way.
    void noUpdateFound(const lexivore::UpdateChoice &choice);
    /// By hand only: there is no feed.
    void noFeed();
    void updateFound(const lexivore::AppcastItem &item, lexivore::Updater::Origin origin);
    void downloadStarted(const lexivore::AppcastItem &item);
    void downloadProgressed(qint64 receivedBytes);
    /// The desktop has the verified file.
    void handedOver(const lexivore::AppcastItem &item);
    /// By hand, or after the user wanted to install.
    void failed(const lexivore::UpdateError &error);

private:
    enum class State { idle, checking, deciding, downloading };

    void lookWhetherDue();
    void check(Origin origin);
    void readFeed();
    void offer(const AppcastItem &item);
    void download();
    void handOver();
    void fail(const UpdateError &error);
    void enter(State state);
    [[nodiscard]] QNetworkAccessManager &network();
    [[nodiscard]] UpdatePolicy policy() const;

    Settings m_settings;
    Preferences &m_preferences;
    State m_state = State::idle;
    Origin m_origin = Origin::scheduled;
    QTimer m_look;
    QNetworkAccessManager *m_network = nullptr;
    std::unique_ptr<SecureTransfer> m_feedTransfer;
    QByteArray m_feed;
    AppcastItem m_item; ///< What the user decides about.
    std::unique_ptr<UpdateDownload> m_download;
};

} // namespace lexivore
