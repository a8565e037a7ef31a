// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/application_object.h"

#include "services/desktop_activation.h"

#include <QDBusError>
#include <QUrl>

namespace lexivore {

namespace {

QString activationToken(const QVariantMap &platformData) {
    const QString token = platformData.value("activation-token").toString();
    return token.isEmpty() ? platformData.value("desktop-startup-id").toString() : token;
}

} // namespace

ApplicationObject::ApplicationObject(DesktopActivation &activation) : QObject(&activation), m_activation(activation) {}

void ApplicationObject::Activate(const QVariantMap &platformData) { Open({}, platformData); }

void ApplicationObject::Open(const QStringList &addresses, const QVariantMap &platformData) {
    SingleInstance::Request request;
    for (const QString &address : addresses) {
        const QUrl url(address, QUrl::StrictMode);
        request.files << (url.isLocalFile() ? url.toLocalFile() : address);
    }
    request.activationToken = activationToken(platformData);
    emit m_activation.requested(request);
}

void ApplicationObject::ActivateAction(const QString &name, const QVariantList &, const QVariantMap &) {
    sendErrorReply(QDBusError::InvalidArgs, "There is no action " + name);
}

} // namespace lexivore
