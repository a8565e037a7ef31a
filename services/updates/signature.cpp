// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/signature.h"

#include <QFile>

#include <memory>
#include <openssl/evp.h>

namespace lexivore {

namespace {

const uchar *bytesOf(const QByteArray &bytes) { return reinterpret_cast<const uchar *>(bytes.constData()); }

} // namespace

bool isSignedBy(const QByteArray &publicKey, const QByteArray &signature, QFile &file) {
    if (publicKey.size() != ed25519KeySize || signature.size() != ed25519SignatureSize || file.size() == 0) {
        return false;
    }
    // The algorithm wants all bytes at once: the system pages them in and out.
    const uchar *content = file.map(0, file.size());
    if (content == nullptr) {
        return false;
    }
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(
        EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, bytesOf(publicKey), ed25519KeySize), &EVP_PKEY_free);
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    const bool isValid = key != nullptr && context != nullptr &&
                         EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key.get()) == 1 &&
                         EVP_DigestVerify(context.get(), bytesOf(signature), ed25519SignatureSize, content,
                                          static_cast<std::size_t>(file.size())) == 1;
    file.unmap(const_cast<uchar *>(content));
    return isValid;
}

} // namespace lexivore
