// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

namespace lexivore {

// The preferences are one JSON object, indented to be read and mended by hand. Texts, Booleans, numbers and lists are
// themselves. Data is an object with one key: `{"json": ...}` holds data that is compact JSON as the value that it is,
// `{"base64": "..."}` holds all other bytes.

/// Each preference as the text that it is in the file, by its key. So a change costs what is changed, not what is kept,
/// and what was mended by hand stays as it was written.
using PreferenceTexts = QMap<QString, QByteArray>;

[[nodiscard]] QByteArray encodePreference(const QVariant &value);

/// Lists read as QVariantList, whole numbers as qlonglong, other numbers as double, data as QByteArray.
[[nodiscard]] QVariant decodePreference(const QByteArray &text);

[[nodiscard]] QByteArray joinPreferences(const PreferenceTexts &texts);

/// Nothing when the bytes are not one JSON object.
[[nodiscard]] std::optional<PreferenceTexts> splitPreferences(const QByteArray &json);

} // namespace lexivore
