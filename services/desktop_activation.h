// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/single_instance.h"

#include <QObject>
#include <QString>

namespace lexivore {

class ApplicationObject;

/// Offers the running program on a session bus as `org.freedesktop.Application`, through which a desktop brings it
/// forward, gives it files to open, and starts it in the first place.
class DesktopActivation : public QObject {
    Q_OBJECT

public:
    static constexpr char serviceName[] = "org.lexivore.Lexivore";
    static constexpr char objectPath[] = "/org/lexivore/Lexivore";

    explicit DesktopActivation(QObject *parent = nullptr);
    ~DesktopActivation() override;

    /// Where the environment says that the user's session bus is; empty when there is none.
    [[nodiscard]] static QString sessionBusAddress();

    /// Appears on the bus at `address`. The name arrives some time later, or never: nothing depends on a bus. An empty
    /// address and a bus that was joined before change nothing.
    void join(const QString &address);

signals:
    /// The desktop wants the window to come forward.
    void requested(const lexivore::SingleInstance::Request &request);

private:
    ApplicationObject *m_object;
    QStringList m_addresses;
};

} // namespace lexivore
