// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVariant>
#include <QVariantMap>

#include <optional>

namespace lexivore {

/// Preferences as one JSON object, indented to be read and mended by hand.
///
/// Texts, Booleans, numbers and lists are themselves. Data is an object with one key: `{"json": ...}` holds data that
/// is compact JSON as the value that it is, `{"base64": "..."}` holds all other bytes.
[[nodiscard]] QByteArray encodePreferences(const QVariantMap &preferences);

/// The preferences, or nothing when the bytes are not one JSON object. Lists read as QVariantList, whole numbers as
/// qlonglong, other numbers as double, data as QByteArray.
[[nodiscard]] std::optional<QVariantMap> decodePreferences(const QByteArray &json);

/// The value with the type that it has when it was written and read again.
[[nodiscard]] QVariant asStored(const QVariant &value);

} // namespace lexivore
