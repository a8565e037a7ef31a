// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantMap>

namespace lexivore {

/// Keys of the information that the program was built with.
namespace bundle_key {
inline constexpr char name[] = "name";                     ///< The application's name.
inline constexpr char version[] = "version";               ///< As in "1.2.0".
inline constexpr char feedAddress[] = "feedAddress";       ///< Where updates are announced; empty for none.
inline constexpr char publicKey[] = "publicKey";           ///< Ed25519 key of updates in Base64; empty for none.
inline constexpr char supportAddress[] = "supportAddress"; ///< The support mailbox.
} // namespace bundle_key

/// What the build settled: see bundle_information.json.in.
[[nodiscard]] QVariantMap mainBundleInformation();

} // namespace lexivore
