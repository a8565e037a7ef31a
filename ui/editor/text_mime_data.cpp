// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_mime_data.h"

#include "manager/text_conversion.h"

namespace lexivore {

namespace {
const QString plain = QStringLiteral("text/plain");
const QString plainUtf8 = QStringLiteral("text/plain;charset=utf-8");
} // namespace

QStringList TextMimeData::formats() const { return {plain, plainUtf8}; }

bool TextMimeData::hasFormat(const QString &mimeType) const { return formats().contains(mimeType); }

QVariant TextMimeData::retrieveData(const QString &mimeType, QMetaType type) const {
    if (!hasFormat(mimeType)) {
        return {};
    }
    const std::string_view bytes = m_text.view();
    if (mimeType == plainUtf8 || type.id() == QMetaType::QByteArray) {
        return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }
    return toQString(bytes);
}

Text textOf(const QMimeData &mimeData) {
    if (const auto *const own = qobject_cast<const TextMimeData *>(&mimeData)) {
        return own->exactText();
    }
    return Text(toUtf8(mimeData.text()));
}

} // namespace lexivore
