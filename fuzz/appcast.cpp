// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Feeds of updates: read whole or refused with a reason, the choice from them never a step back, versions in one order.
// Input: the feed.
#include "services/updates/appcast.h"

#include "fuzz/input.h"
#include "services/updates/update_policy.h"
#include "services/updates/version.h"

#include <algorithm>
#include <vector>

namespace lexivore::fuzz {
namespace {

void checkItem(const AppcastItem &item) {
    require(!item.version.isEmpty(), "an item has a version");
    require(item.length >= 0, "a length is no less than nothing");
}

void checkOrder(const std::vector<AppcastItem> &items) {
    const std::size_t count = std::min<std::size_t>(items.size(), 6);
    for (std::size_t one = 0; one < count; ++one) {
        for (std::size_t other = 0; other < count; ++other) {
            const auto order = compareVersions(items[one].version, items[other].version);
            require(0 <=> order == compareVersions(items[other].version, items[one].version),
                    "two versions compare alike from both sides");
            for (std::size_t third = 0; order <= 0 && third < count; ++third) {
                require(compareVersions(items[other].version, items[third].version) > 0 ||
                            compareVersions(items[one].version, items[third].version) <= 0,
                        "the order of versions goes on");
            }
        }
    }
}

void checkChoice(const Appcast &appcast, const QString &currentVersion) {
    const UpdateChoice choice = chooseUpdate(appcast, {.currentVersion = currentVersion,
                                                       .systemVersion = QStringLiteral("6.1.0"),
                                                       .skippedVersion = {},
                                                       .channels = {}});
    if (choice.verdict == UpdateChoice::Verdict::offered) {
        require(compareVersions(choice.item.version, currentVersion) > 0, "what is offered is newer");
        require(choice.item.channel.isEmpty(), "what is offered is for everybody");
    }
}

} // namespace
} // namespace lexivore::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace lexivore;
    const QByteArray feed(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const AppcastResult result = parseAppcast(feed);
    if (!result.isValid()) {
        fuzz::require(result.appcast.items.empty(), "of a feed that is refused nothing is taken");
        return 0;
    }
    std::ranges::for_each(result.appcast.items, fuzz::checkItem);
    fuzz::checkOrder(result.appcast.items);
    fuzz::checkChoice(result.appcast, QStringLiteral("0.1.0"));
    fuzz::checkChoice(result.appcast, QStringLiteral("1.10"));
    return 0;
}
