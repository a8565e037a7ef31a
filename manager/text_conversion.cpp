// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/text_conversion.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace lexivore {

QString toQString(std::string_view utf8) {
    // QString::fromUtf8 would swallow a byte-order mark at the beginning, and a decoder with a state what the text ends
    // in the middle of.
    using Flag = QStringDecoder::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::ConvertInitialBom | Flag::Stateless);
    return decoder(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

std::string toUtf8(QStringView text) {
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    const QByteArray bytes = encoder(text);
    return bytes.toStdString();
}

} // namespace lexivore
