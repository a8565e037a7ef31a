// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/bundle_information.h"
#include "services/support_request.h"

#include <gtest/gtest.h>

namespace lexivore {
namespace {

const QVariantMap lexivore{{"name", "Lexivore"}, {"supportAddress", "help@example.org"}};

TEST(SupportRequest, NamesTheApplicationInSubjectAndBody) {
    EXPECT_EQ(supportRequestAddress(lexivore),
              "mailto:help@example.org?subject=Lexivore%20Support%20Request"
              "&body=Hello%20Lexivore%20Team,%0A%0AI%20need%20assistance%20with%20the%20following:%0A%0A");
}

TEST(SupportRequest, SaysAppWithoutAName) {
    const QString expected = "mailto:?subject=App%20Support%20Request"
                             "&body=Hello%20App%20Team,%0A%0AI%20need%20assistance%20with%20the%20following:%0A%0A";
    EXPECT_EQ(supportRequestAddress({}), expected);
    EXPECT_EQ(supportRequestAddress({{"name", 7}}), expected);
}

TEST(SupportRequest, UsesTheGivenSubject) {
    EXPECT_TRUE(supportRequestAddress(lexivore, "Größe & mehr?")
                    .startsWith("mailto:help@example.org?subject=Gr%C3%B6%C3%9Fe%20&%20mehr?&body="));
    EXPECT_TRUE(supportRequestAddress(lexivore, "").contains("?subject=&body="));
}

TEST(SupportRequest, LeavesOutWhatCannotBeEncoded) {
    const QChar halfOfAPair(0xD83D);
    const QChar otherHalf(0xDC69);
    for (const QString &subject : {QString(halfOfAPair), QString(otherHalf), QString("a") + halfOfAPair,
                                   QString("a") + halfOfAPair + "b", QString(otherHalf) + halfOfAPair}) {
        EXPECT_TRUE(supportRequestAddress(lexivore, subject).contains("?subject=&body=Hello"))
            << supportRequestAddress(lexivore, subject).toStdString();
    }
}

TEST(SupportRequest, HandsTheAddressOver) {
    QUrl opened;
    contactSupport(lexivore, [&](const QUrl &address) { opened = address; });
    EXPECT_EQ(opened.toString(QUrl::FullyEncoded), supportRequestAddress(lexivore));
}

TEST(SupportRequest, DoesNothingWithAnAddressThatIsNoUrl) {
    bool isOpened = false;
    contactSupport({{"name", "Lexivore"}, {"supportAddress", "a b"}}, [&](const QUrl &) { isOpened = true; });
    EXPECT_FALSE(isOpened);
}

TEST(BundleInformation, HoldsWhatTheBuildSettled) {
    const QVariantMap information = mainBundleInformation();
    EXPECT_EQ(information.value(bundle_key::name).toString(), "Lexivore");
    EXPECT_FALSE(information.value(bundle_key::version).toString().isEmpty());
    EXPECT_TRUE(information.contains(bundle_key::feedAddress));
    EXPECT_TRUE(information.contains(bundle_key::publicKey));
    EXPECT_TRUE(information.value(bundle_key::supportAddress).toString().contains('@'));
}

} // namespace
} // namespace lexivore
