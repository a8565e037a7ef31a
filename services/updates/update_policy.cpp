// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/update_policy.h"

#include "services/updates/version.h"

#include <QSysInfo>

namespace lexivore {

namespace {

constexpr qint64 secondsBetweenChecks = qint64{24} * 60 * 60;

using Verdict = UpdateChoice::Verdict;

Verdict verdictOn(const AppcastItem &item, const UpdatePolicy &policy) {
    const std::weak_ordering order = compareVersions(item.version, policy.currentVersion);
    if (order < 0) {
        return Verdict::downgrade;
    }
    if (order == 0) {
        return Verdict::upToDate;
    }
    if (compareVersions(item.minimumSystemVersion, policy.systemVersion) > 0) {
        return Verdict::needsSystem;
    }
    const bool isSkipped =
        !policy.skippedVersion.isEmpty() && compareVersions(item.version, policy.skippedVersion) == 0;
    return isSkipped ? Verdict::skipped : Verdict::offered;
}

/// What the user is told when the feed holds several: an offer before a reason for having none.
int rank(Verdict verdict) {
    switch (verdict) {
    case Verdict::offered:
        return 4;
    case Verdict::skipped:
        return 3;
    case Verdict::needsSystem:
        return 2;
    case Verdict::upToDate:
        return 1;
    case Verdict::downgrade:
        break;
    }
    return 0;
}

} // namespace

UpdateChoice chooseUpdate(const Appcast &appcast, const UpdatePolicy &policy) {
    UpdateChoice best;
    bool hasAny = false;
    for (const AppcastItem &item : appcast.items) {
        if (!item.channel.isEmpty() && !policy.channels.contains(item.channel)) {
            continue;
        }
        const Verdict verdict = verdictOn(item, policy);
        const int difference = rank(verdict) - rank(best.verdict);
        const bool isNewer = difference == 0 && compareVersions(item.version, best.item.version) > 0;
        if (!hasAny || difference > 0 || isNewer) {
            best = {verdict, item};
            hasAny = true;
        }
    }
    return best;
}

bool isCheckDue(const std::optional<QDateTime> &lastCheck, const QDateTime &now) {
    if (!lastCheck || !lastCheck->isValid() || *lastCheck > now) {
        return true;
    }
    return lastCheck->secsTo(now) >= secondsBetweenChecks;
}

QString runningSystemVersion() {
    // "6.1.0-18-amd64": what follows the numbers is the distribution's own.
    return QSysInfo::kernelVersion().section(u'-', 0, 0);
}

} // namespace lexivore
