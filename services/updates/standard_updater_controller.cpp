// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/standard_updater_controller.h"

#include "services/bundle_information.h"

#include <QStandardPaths>

#include <utility>

namespace lexivore {

namespace {

Updater::Settings settingsFrom(const QVariantMap &information, std::function<bool(const QUrl &)> open) {
    Updater::Settings settings;
    settings.feed = QUrl(information.value(bundle_key::feedAddress).toString());
    const auto key = QByteArray::fromBase64Encoding(information.value(bundle_key::publicKey).toByteArray(),
                                                    QByteArray::AbortOnBase64DecodingErrors);
    settings.publicKey = key ? *key : QByteArray();
    settings.currentVersion = information.value(bundle_key::version).toString();
    settings.systemVersion = runningSystemVersion();
    settings.folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + "/updates";
    settings.open = std::move(open);
    return settings;
}

} // namespace

StandardUpdaterController::StandardUpdaterController(const QVariantMap &information, Preferences &preferences,
                                                     std::function<bool(const QUrl &)> open, QObject *parent)
    : QObject(parent), m_updater(settingsFrom(information, std::move(open)), preferences) {
    m_updater.start();
}

} // namespace lexivore
