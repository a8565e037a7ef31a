// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/version.h"
#include "tests/support/property.h"

#include <gtest/gtest.h>

#include <QString>

#include <string>

namespace lexivore {
namespace {

enum class Order { before, same };

struct Case {
    const char *rule;
    const char *left;
    Order order;
    const char *right;
};

const Case cases[] = {
    {"numbers are no texts", "1.9", Order::before, "1.10"},
    {"every part counts", "1.2.3", Order::before, "1.2.4"},
    {"the first difference decides", "1.9.9", Order::before, "2.0.0"},
    {"zeros at the end change nothing", "1.0", Order::same, "1.0.0"},
    {"zeros at the front change nothing", "1.02", Order::same, "1.2"},
    {"a longer version is newer", "1.0", Order::before, "1.0.1"},
    {"a preview comes before its release", "2.0rc1", Order::before, "2.0"},
    {"a preview with separators likewise", "2.0.0-rc.1", Order::before, "2.0.0"},
    {"a preview is newer than what came before", "1.9", Order::before, "2.0b1"},
    {"previews are numbered", "2.0b2", Order::before, "2.0b10"},
    {"previews have an order", "2.0-alpha.9", Order::before, "2.0-beta.1"},
    {"words have no case", "2.0RC1", Order::same, "2.0rc1"},
    {"the build says nothing", "1.2+5", Order::same, "1.2+7.beta"},
    {"numbers of any size", "1.18446744073709551616", Order::before, "1.18446744073709551617"},
    {"separators are all the same", "1-2_3", Order::same, "1.2.3"},
    {"nothing is zero", "", Order::same, "0"},
    {"a letter before the number", "v1.0", Order::before, "1.0"},
    {"characters beyond ASCII are words", "1.\u00B2", Order::before, "1.0"},
};

TEST(CompareVersions, OrdersThem) {
    for (const Case &each : cases) {
        const QString left = QString::fromUtf8(each.left);
        const QString right = QString::fromUtf8(each.right);
        const bool isSame = each.order == Order::same;
        EXPECT_EQ(compareVersions(left, right) == 0, isSame) << each.rule;
        EXPECT_EQ(compareVersions(left, right) < 0, !isSame) << each.rule;
        EXPECT_EQ(compareVersions(right, left) > 0, !isSame) << each.rule;
    }
}

/// Versions that are often close to each other.
rc::Gen<QString> version() {
    const auto letters = rc::gen::container<std::string>(rc::gen::elementOf(std::string("0129.-ab+")));
    return rc::gen::map(letters, [](const std::string &text) { return QString::fromStdString(text.substr(0, 6)); });
}

TEST(CompareVersions, IsAnOrder) {
    test::checkProperty(5000, [] {
        const QString a = *version();
        const QString b = *version();
        const QString c = *version();
        RC_ASSERT((compareVersions(a, a) == 0));
        RC_ASSERT((compareVersions(a, b) < 0) == (compareVersions(b, a) > 0));
        if (compareVersions(a, b) <= 0 && compareVersions(b, c) <= 0) {
            RC_ASSERT((compareVersions(a, c) <= 0));
        }
    });
}

} // namespace
} // namespace lexivore
