// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/update_policy.h"

#include <gtest/gtest.h>

namespace lexivore {
namespace {

using Verdict = UpdateChoice::Verdict;

AppcastItem item(const QString &version, const QString &minimumSystemVersion = {}, const QString &channel = {}) {
    AppcastItem item;
    item.version = version;
    item.minimumSystemVersion = minimumSystemVersion;
    item.channel = channel;
    return item;
}

struct Case {
    const char *rule;
    std::vector<AppcastItem> items;
    UpdatePolicy policy;
    Verdict verdict;
    const char *version;
};

const UpdatePolicy policy{"1.5", "6.1.0", {}, {}};
const UpdatePolicy skipping{"1.5", "6.1.0", "2.0", {}};
const UpdatePolicy onBeta{"1.5", "6.1.0", {}, {"beta"}};

const Case cases[] = {
    {"an empty feed offers nothing", {}, policy, Verdict::upToDate, ""},
    {"the running version is no update", {item("1.5")}, policy, Verdict::upToDate, "1.5"},
    {"a newer one is", {item("1.5"), item("1.6")}, policy, Verdict::offered, "1.6"},
    {"the newest counts, wherever it stands", {item("2.0"), item("3.0"), item("1.6")}, policy, Verdict::offered, "3.0"},
    {"an older one never is an update", {item("1.4"), item("0.9")}, policy, Verdict::downgrade, "1.4"},
    {"older ones beside the running one are no news", {item("1.4"), item("1.5")}, policy, Verdict::upToDate, "1.5"},
    {"what was skipped is not offered", {item("2.0")}, skipping, Verdict::skipped, "2.0"},
    {"what is newer than the skipped one is", {item("2.0"), item("2.1")}, skipping, Verdict::offered, "2.1"},
    {"what is older than the skipped one is still new", {item("2.0"), item("1.9")}, skipping, Verdict::offered, "1.9"},
    {"a system that is new enough", {item("2.0", "6.1")}, policy, Verdict::offered, "2.0"},
    {"a system that is too old", {item("2.0", "6.10")}, policy, Verdict::needsSystem, "2.0"},
    {"what runs here goes before what does not", {item("2.0", "7"), item("1.6", "6")}, policy, Verdict::offered, "1.6"},
    {"other channels are for others", {item("2.0", {}, "beta")}, policy, Verdict::upToDate, ""},
    {"what is for others hides nothing", {item("2.0", {}, "beta"), item("1.9")}, policy, Verdict::offered, "1.9"},
    {"a channel of one's own", {item("2.0", {}, "beta"), item("1.9")}, onBeta, Verdict::offered, "2.0"},
};

TEST(UpdatePolicy, ChoosesWhatIsOffered) {
    for (const Case &each : cases) {
        const UpdateChoice choice = chooseUpdate({each.items}, each.policy);
        EXPECT_EQ(choice.verdict, each.verdict) << each.rule;
        EXPECT_EQ(choice.item.version, each.version) << each.rule;
    }
}

TEST(UpdatePolicy, ChecksOnceADayWhateverTheClockDoes) {
    const QDateTime now = QDateTime::fromSecsSinceEpoch(1'700'000'000);
    EXPECT_TRUE(isCheckDue(std::nullopt, now));
    EXPECT_TRUE(isCheckDue(QDateTime(), now));
    EXPECT_FALSE(isCheckDue(now, now));
    EXPECT_FALSE(isCheckDue(now.addSecs(-86'399), now));
    EXPECT_TRUE(isCheckDue(now.addSecs(-86'400), now));
    EXPECT_TRUE(isCheckDue(now.addYears(-50), now));
    EXPECT_TRUE(isCheckDue(now.addSecs(1), now));
    EXPECT_TRUE(isCheckDue(now.addYears(50), now));
}

TEST(UpdatePolicy, KnowsTheVersionOfTheRunningSystem) {
    EXPECT_TRUE(runningSystemVersion().contains('.'));
    EXPECT_TRUE(runningSystemVersion().front().isDigit());
    EXPECT_FALSE(runningSystemVersion().contains('-'));
}

} // namespace
} // namespace lexivore
