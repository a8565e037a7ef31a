// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class QFile;

namespace lexivore {

inline constexpr qsizetype ed25519KeySize = 32;       ///< Bytes of a public key.
inline constexpr qsizetype ed25519SignatureSize = 64; ///< Bytes.

/// Whether `signature` is that of the file's bytes by the owner of `publicKey` (Ed25519, RFC 8032). The file is open
/// for reading. One pass over it, at some 500 MB a second. False too when a size is wrong or the file cannot be read.
[[nodiscard]] bool isSignedBy(const QByteArray &publicKey, const QByteArray &signature, QFile &file);

} // namespace lexivore
