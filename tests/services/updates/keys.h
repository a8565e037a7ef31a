// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSslCertificate>
#include <QSslKey>

namespace lexivore::test {

/// What the owner of a key pair of updates can do.
class UpdateSigner {
public:
    /// A pair of its own for each; nothing about it is fixed.
    UpdateSigner();

    [[nodiscard]] QByteArray publicKey() const { return m_publicKey; }
    [[nodiscard]] QByteArray sign(const QByteArray &file) const;

private:
    QByteArray m_privateKey;
    QByteArray m_publicKey;
};

/// A certificate that its own key signed, for 127.0.0.1.
struct ServerIdentity {
    QSslCertificate certificate;
    QSslKey key;
};

[[nodiscard]] ServerIdentity makeServerIdentity();

} // namespace lexivore::test
