// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/signature.h"

#include "tests/services/updates/keys.h"
#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace lexivore {
namespace {

TEST(Signature, IsOfTheWholeFileByTheWholeKey) {
    const QTemporaryDir folder;
    const auto isSigned = [&](const QByteArray &key, const QByteArray &signature, const QByteArray &bytes) {
        test::writeBytes(folder.filePath("file"), bytes);
        QFile file(folder.filePath("file"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return isSignedBy(key, signature, file);
    };
    const test::UpdateSigner signer;
    const QByteArray key = signer.publicKey();
    const QByteArray signature = signer.sign("bytes");
    EXPECT_TRUE(isSigned(key, signature, "bytes"));
    EXPECT_FALSE(isSigned(key, signature, "byte"));
    EXPECT_FALSE(isSigned(key, signature, "bytes."));
    EXPECT_FALSE(isSigned(key, signature, ""));
    EXPECT_FALSE(isSigned(key, signer.sign(""), "")) << "no update is empty";
    EXPECT_FALSE(isSigned(key, signature.chopped(1), "bytes"));
    EXPECT_FALSE(isSigned(key, signature + '\0', "bytes"));
    EXPECT_FALSE(isSigned(key, "", "bytes"));
    EXPECT_FALSE(isSigned(key.chopped(1), signature, "bytes"));
    EXPECT_FALSE(isSigned(key + '\0', signature, "bytes"));
    EXPECT_FALSE(isSigned("", signature, "bytes"));
    EXPECT_FALSE(isSigned(test::UpdateSigner().publicKey(), signature, "bytes"));
}

} // namespace
} // namespace lexivore
