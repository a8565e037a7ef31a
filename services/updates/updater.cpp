// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/updater.h"

#include "manager/preferences.h"
#include "services/updates/secure_transfer.h"
#include "services/updates/signature.h"
#include "services/updates/update_download.h"

#include <QNetworkAccessManager>

#include <utility>

namespace lexivore {

namespace {

/// A stored number of seconds. Nothing when it is no number of this age of the world.
std::optional<QDateTime> timeIn(const QVariant &stored) {
    constexpr double latest = 1e11;
    bool isNumber = false;
    const double seconds = stored.toDouble(&isNumber);
    if (!isNumber || !(seconds >= 0 && seconds <= latest)) {
        return std::nullopt;
    }
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(seconds));
}

/// What forbids to offer the item, whoever asks.
std::optional<UpdateError> objectionTo(const AppcastItem &item) {
    if (item.file.scheme() != QLatin1String("https")) {
        return UpdateError{UpdateError::Kind::insecureAddress, {}};
    }
    if (item.signature.size() != ed25519SignatureSize) {
        return UpdateError{UpdateError::Kind::noSignature, {}};
    }
    if (item.length <= 0 || item.length > largestUpdate) {
        return UpdateError{UpdateError::Kind::noLength, {}};
    }
    return std::nullopt;
}

/// Deletes it from the event loop: it may be what is speaking.
template<typename Object> void dismiss(std::unique_ptr<Object> &object) {
    if (object) {
        object->disconnect();
        object.release()->deleteLater();
    }
}

} // namespace

Updater::Updater(Settings settings, Preferences &preferences, QObject *parent)
    : QObject(parent), m_settings(std::move(settings)), m_preferences(preferences) {
    m_look.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &Updater::lookWhetherDue);
}

Updater::~Updater() = default;

void Updater::start() {
    if (m_settings.feed.isEmpty()) {
        return;
    }
    UpdateDownload::removeLeftovers(m_settings.folder);
    m_look.start(m_settings.firstLook);
}

void Updater::lookWhetherDue() {
    m_look.start(m_settings.laterLooks);
    const std::optional<QDateTime> lastCheck = timeIn(m_preferences.value(preference::lastUpdateCheck));
    if (m_state == State::idle && isCheckDue(lastCheck, m_settings.now())) {
        check(Origin::scheduled);
    }
}

void Updater::checkForUpdates() {
    if (m_state != State::idle) {
        return;
    }
    if (m_settings.feed.isEmpty()) {
        emit noFeed();
        return;
    }
    check(Origin::byHand);
}

void Updater::check(Origin origin) {
    m_origin = origin;
    enter(State::checking);
    if (origin == Origin::byHand) {
        emit checkStarted();
    }
    // Before its end is known: a server that fails is left alone for a day too.
    m_preferences.setValue(preference::lastUpdateCheck, m_settings.now().toSecsSinceEpoch());
    if (m_settings.publicKey.size() != ed25519KeySize) {
        fail({UpdateError::Kind::unusableKey, {}});
        return;
    }
    m_feed.clear();
    m_feedTransfer = std::make_unique<SecureTransfer>(
        network(), m_settings.feed,
        SecureTransfer::Limits{longestAppcast, m_settings.silence, m_settings.longestCheck});
    connect(m_feedTransfer.get(), &SecureTransfer::received, this,
            [this](const QByteArray &bytes) { m_feed += bytes; });
    connect(m_feedTransfer.get(), &SecureTransfer::finished, this, &Updater::readFeed);
    connect(m_feedTransfer.get(), &SecureTransfer::failed, this, &Updater::fail);
}

void Updater::readFeed() {
    dismiss(m_feedTransfer);
    const AppcastResult result = parseAppcast(std::exchange(m_feed, {}));
    if (!result.isValid()) {
        fail({UpdateError::Kind::damagedFeed, result.error});
        return;
    }
    const UpdateChoice choice = chooseUpdate(result.appcast, policy());
    if (choice.verdict == UpdateChoice::Verdict::offered) {
        offer(choice.item);
        return;
    }
    enter(State::idle);
    if (m_origin == Origin::byHand) {
        emit noUpdateFound(choice);
    }
}

void Updater::offer(const AppcastItem &item) {
    if (const std::optional<UpdateError> objection = objectionTo(item)) {
        fail(*objection);
        return;
    }
    m_item = item;
    enter(State::deciding);
    emit updateFound(item, m_origin);
}

void Updater::install() {
    if (m_state == State::deciding) {
        download();
    }
}

void Updater::remindLater() {
    if (m_state == State::deciding) {
        enter(State::idle);
    }
}

void Updater::skipVersion() {
    if (m_state == State::deciding) {
        m_preferences.setValue(preference::skippedUpdateVersion, m_item.version);
        enter(State::idle);
    }
}

void Updater::cancel() {
    if (m_state == State::checking || m_state == State::downloading) {
        dismiss(m_feedTransfer);
        m_download.reset();
        enter(State::idle);
    }
}

void Updater::download() {
    enter(State::downloading);
    m_download = std::make_unique<UpdateDownload>(network(), m_item, m_settings.publicKey, m_settings.folder,
                                                  m_settings.silence);
    connect(m_download.get(), &UpdateDownload::progressed, this, &Updater::downloadProgressed);
    connect(m_download.get(), &UpdateDownload::verified, this, &Updater::handOver);
    connect(m_download.get(), &UpdateDownload::failed, this, &Updater::fail);
    emit downloadStarted(m_item);
}

void Updater::handOver() {
    QString problem;
    const QString path = m_download->keepFile(problem);
    dismiss(m_download);
    if (path.isEmpty()) {
        fail({UpdateError::Kind::cannotSave, problem});
        return;
    }
    if (!m_settings.open(QUrl::fromLocalFile(path))) {
        QFile::remove(path);
        fail({UpdateError::Kind::cannotOpen, {}});
        return;
    }
    enter(State::idle);
    emit handedOver(m_item);
}

void Updater::fail(const UpdateError &error) {
    const bool isTold = m_state == State::downloading || m_origin == Origin::byHand;
    dismiss(m_feedTransfer);
    dismiss(m_download);
    enter(State::idle);
    if (isTold) {
        emit failed(error);
    }
}

void Updater::enter(State state) {
    const bool couldCheck = canCheckForUpdates();
    m_state = state;
    if (canCheckForUpdates() != couldCheck) {
        emit canCheckForUpdatesChanged(canCheckForUpdates());
    }
}

QNetworkAccessManager &Updater::network() {
    if (m_network == nullptr) {
        m_network = new QNetworkAccessManager(this);
    }
    return *m_network;
}

UpdatePolicy Updater::policy() const {
    const bool asksForAll = m_origin == Origin::byHand;
    const QString skipped = m_preferences.value(preference::skippedUpdateVersion).toString();
    return {m_settings.currentVersion, m_settings.systemVersion, asksForAll ? QString() : skipped, m_settings.channels};
}

} // namespace lexivore
