// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/bundle_information.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace lexivore {

QVariantMap mainBundleInformation() {
    QFile file(":/lexivore/bundle_information.json");
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QJsonDocument::fromJson(file.readAll()).object().toVariantMap();
}

} // namespace lexivore
