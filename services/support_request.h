// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace lexivore {

/// The mailto address (RFC 6068) of a request for support. `information` gives the application's name, "App" when it
/// holds none, and the mailbox. Without a subject it is the name and " Support Request".
[[nodiscard]] QString supportRequestAddress(const QVariantMap &information, const std::optional<QString> &subject = {});

/// Hands that address to `open`, which gives it to the user's mail program. Nothing happens when it is no URL.
void contactSupport(const QVariantMap &information, const std::function<void(const QUrl &)> &open,
                    const std::optional<QString> &subject = {});

} // namespace lexivore
