// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/editor/text_mime_data.h"

#include "manager/text_conversion.h"

#include <new>
#include <utility>

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
    // Who asks is most often the toolkit, for another program, and no exception may pass through its event handling.
    try {
        const std::string_view bytes = m_text.view();
        if (mimeType == plainUtf8 || type.id() == QMetaType::QByteArray) {
            return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
        }
        return toQString(bytes);
    } catch (const std::bad_alloc &) {
        if (!std::exchange(m_fellShort, true)) {
            emit fellShort();
        }
        return {};
    }
}

Text textOf(const QMimeData &mimeData) {
    if (const auto *const own = qobject_cast<const TextMimeData *>(&mimeData)) {
        return own->exactText();
    }
    return Text(toUtf8(mimeData.text()));
}

} // namespace lexivore
