// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <compare>

namespace lexivore {

/// Orders two version numbers such as "1.10", "2.0b3" or "1.2.0-rc.1": runs of digits as numbers of any size, words
/// without regard to case. A word stands before any number, and what one version leaves out counts as zero, so that
/// 1.0rc1 < 1.0 = 1.0.0 < 1.0.1. What follows a plus sign says nothing about the order.
[[nodiscard]] std::weak_ordering compareVersions(QStringView left, QStringView right);

} // namespace lexivore
