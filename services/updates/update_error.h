// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

namespace lexivore {

/// Why a check for updates or an update failed.
struct UpdateError {
    Q_DECLARE_TR_FUNCTIONS(UpdateError)

public:
    enum class Kind {
        insecureAddress,  ///< Not https, in the settings or in the feed.
        insecureRedirect, ///< A server led from https to somewhere else.
        unreachable,      ///< Detail: what the network says.
        serverError,      ///< Detail: the number of the HTTP status.
        untrustedServer,  ///< Its certificate is not valid for it.
        silentServer,
        tooLong,     ///< More bytes than were announced or are allowed.
        damagedFeed, ///< Detail: what is wrong with it.
        noSignature,
        noLength,
        wrongLength,
        wrongSignature,
        unusableKey,
        cannotSave, ///< Detail: what the system says.
        cannotOpen,
    };

    Kind kind = Kind::unreachable;
    QString detail;

    /// A sentence or two for the user.
    [[nodiscard]] QString message() const;
};

} // namespace lexivore
