// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/update_error.h"

namespace lexivore {

QString UpdateError::message() const {
    switch (kind) {
    case Kind::insecureAddress:
        return tr("The address of the update is not secure.");
    case Kind::insecureRedirect:
        return tr("The update server leads to an address that is not secure.");
    case Kind::unreachable:
        return tr("The update server could not be reached: %1").arg(detail);
    case Kind::serverError:
        return tr("The update server answered with error %1.").arg(detail);
    case Kind::untrustedServer:
        return tr("The update server could not prove its identity.");
    case Kind::silentServer:
        return tr("The update server did not answer in time.");
    case Kind::tooLong:
        return tr("The update server sent more than it may.");
    case Kind::damagedFeed:
        return tr("The list of updates is damaged (%1).").arg(detail);
    case Kind::noSignature:
        return tr("The update is not signed, so it cannot be trusted.");
    case Kind::noLength:
        return tr("The size of the update is missing or too large.");
    case Kind::wrongLength:
        return tr("The downloaded update does not have the announced size. It was deleted.");
    case Kind::wrongSignature:
        return tr("The downloaded update has a wrong signature, so it cannot be trusted. It was deleted.");
    case Kind::unusableKey:
        return tr("This program cannot verify updates: its key is missing or damaged.");
    case Kind::cannotSave:
        return tr("The update could not be saved: %1").arg(detail);
    case Kind::cannotOpen:
        return tr("The desktop has no program that opens the update.");
    }
    return {};
}

} // namespace lexivore
