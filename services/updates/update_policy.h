// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/appcast.h"

#include <QDateTime>
#include <QStringList>

#include <optional>

namespace lexivore {

/// What decides which update is offered.
struct UpdatePolicy {
    QString currentVersion;
    QString systemVersion;  ///< Of the kernel, such as "6.1.0": all that every distribution has in common.
    QString skippedVersion; ///< What the user wants to hear no more of; empty for nothing.
    QStringList channels;   ///< Beside the one that everybody is on.
};

/// What a feed holds for this program.
struct UpdateChoice {
    enum class Verdict {
        offered,
        upToDate,    ///< Nothing newer, or nothing at all.
        downgrade,   ///< All that there is is older.
        skipped,     ///< The user skipped the newest, and there is nothing else that is newer.
        needsSystem, ///< What is newer asks for a newer system.
    };

    Verdict verdict = Verdict::upToDate;
    AppcastItem item; ///< What the verdict is about. Empty when the feed holds nothing.
};

/// Picks the newest update of the feed that runs here, never one that is not newer than the running version.
[[nodiscard]] UpdateChoice chooseUpdate(const Appcast &appcast, const UpdatePolicy &policy);

/// Whether a scheduled check is due: once a day. A last check in the future means that the clock was set back, and is
/// no reason to wait.
[[nodiscard]] bool isCheckDue(const std::optional<QDateTime> &lastCheck, const QDateTime &now);

/// The version of the running system as `UpdatePolicy` wants it.
[[nodiscard]] QString runningSystemVersion();

} // namespace lexivore
