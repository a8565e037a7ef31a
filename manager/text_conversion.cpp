// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/text_conversion.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace lexivore {

QString toQString(std::string_view utf8) {
    // QString::fromUtf8 would swallow a byte-order mark at the beginning.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

std::string toUtf8(QStringView text) {
    QStringEncoder encoder(QStringEncoder::Utf8);
    const QByteArray bytes = encoder(text);
    return bytes.toStdString();
}

} // namespace lexivore
