// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/services/updates/keys.h"

#include <memory>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

namespace lexivore::test {

namespace {

template<auto release> struct Release {
    template<typename Object> void operator()(Object *object) const { release(object); }
};
using Key = std::unique_ptr<EVP_PKEY, Release<EVP_PKEY_free>>;
using Bio = std::unique_ptr<BIO, Release<BIO_free_all>>;

constexpr std::size_t keySize = 32;
constexpr std::size_t signatureSize = 64;
constexpr long oneDay = 24L * 60 * 60; // seconds

uchar *bytesOf(QByteArray &bytes) { return reinterpret_cast<uchar *>(bytes.data()); }

QByteArray contentOf(BIO *bio) {
    const char *data = nullptr;
    const long size = BIO_get_mem_data(bio, &data);
    return {data, static_cast<qsizetype>(size)};
}

} // namespace

UpdateSigner::UpdateSigner() : m_privateKey(keySize, '\0'), m_publicKey(keySize, '\0') {
    const Key pair(EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519"));
    std::size_t size = keySize;
    EVP_PKEY_get_raw_private_key(pair.get(), bytesOf(m_privateKey), &size);
    EVP_PKEY_get_raw_public_key(pair.get(), bytesOf(m_publicKey), &size);
}

QByteArray UpdateSigner::sign(const QByteArray &file) const {
    QByteArray key = m_privateKey;
    QByteArray content = file;
    QByteArray signature(signatureSize, '\0');
    std::size_t size = signatureSize;
    const Key pair(EVP_PKEY_new_raw_private_key(EVP_PKEY_ED25519, nullptr, bytesOf(key), keySize));
    const std::unique_ptr<EVP_MD_CTX, Release<EVP_MD_CTX_free>> context(EVP_MD_CTX_new());
    EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, pair.get());
    EVP_DigestSign(context.get(), bytesOf(signature), &size, bytesOf(content),
                   static_cast<std::size_t>(content.size()));
    return signature;
}

ServerIdentity makeServerIdentity() {
    const Key pair(EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"));
    const std::unique_ptr<X509, Release<X509_free>> certificate(X509_new());
    X509_set_version(certificate.get(), 2);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -oneDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), oneDay);
    X509_set_pubkey(certificate.get(), pair.get());
    X509_NAME *name = X509_get_subject_name(certificate.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const uchar *>("127.0.0.1"), -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    X509V3_CTX context;
    X509V3_set_ctx(&context, certificate.get(), certificate.get(), nullptr, nullptr, 0);
    for (const auto &[kind, value] :
         {std::pair{NID_subject_alt_name, "IP:127.0.0.1"}, std::pair{NID_basic_constraints, "critical,CA:TRUE"}}) {
        X509_EXTENSION *extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value);
        X509_add_ext(certificate.get(), extension, -1);
        X509_EXTENSION_free(extension);
    }
    X509_sign(certificate.get(), pair.get(), EVP_sha256());

    const Bio certificateText(BIO_new(BIO_s_mem()));
    const Bio keyText(BIO_new(BIO_s_mem()));
    PEM_write_bio_X509(certificateText.get(), certificate.get());
    PEM_write_bio_PrivateKey(keyText.get(), pair.get(), nullptr, nullptr, 0, nullptr, nullptr);
    return {QSslCertificate(contentOf(certificateText.get())), QSslKey(contentOf(keyText.get()), QSsl::Ec)};
}

} // namespace lexivore::test
