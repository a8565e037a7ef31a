// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace lexivore {

class DesktopActivation;

/// The methods of `org.freedesktop.Application` as the Desktop Entry Specification has them, with its names.
class ApplicationObject : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationObject(DesktopActivation &activation);

public slots:
    void Activate(const QVariantMap &platformData);
    /// Asks for the files by their paths. What is on another machine has none and keeps its address: nothing can be
    /// opened by that, and the user is told so.
    void Open(const QStringList &addresses, const QVariantMap &platformData);
    /// There are no actions in the desktop entry, so this is always an error.
    void ActivateAction(const QString &name, const QVariantList &parameter, const QVariantMap &platformData);

private:
    DesktopActivation &m_activation;
};

} // namespace lexivore
