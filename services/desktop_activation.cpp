// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/desktop_activation.h"

#include "services/application_object.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFileInfo>

namespace lexivore {

namespace {

constexpr uint doNotQueue = 4; // of RequestName: whoever has the name keeps it, and we do without

} // namespace

DesktopActivation::DesktopActivation(QObject *parent) : QObject(parent), m_object(new ApplicationObject(*this)) {}

DesktopActivation::~DesktopActivation() {
    for (const QString &address : std::as_const(m_addresses)) {
        QDBusConnection::disconnectFromBus(address);
    }
}

QString DesktopActivation::sessionBusAddress() {
    QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty()) {
        return address;
    }
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus";
    return QFileInfo::exists(socket) ? "unix:path=" + socket : QString();
}

void DesktopActivation::join(const QString &address) {
    if (address.isEmpty() || m_addresses.contains(address)) {
        return;
    }
    QDBusConnection bus = QDBusConnection::connectToBus(address, address);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(address);
        return;
    }
    m_addresses << address;
    // First the object: calls that started the program are delivered as soon as the name is there.
    bus.registerObject(objectPath, m_object, QDBusConnection::ExportAllSlots);
    QDBusMessage request = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                          "org.freedesktop.DBus", "RequestName");
    request << QString(serviceName) << doNotQueue;
    bus.asyncCall(request);
}

} // namespace lexivore
