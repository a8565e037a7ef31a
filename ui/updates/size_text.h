// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

namespace lexivore {

/// The size of a file in the user's words, for example "1.2 MB".
[[nodiscard]] inline QString sizeText(qint64 bytes) {
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace lexivore
