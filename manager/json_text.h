// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QMap>
#include <QString>

#include <optional>

namespace lexivore {

/// QJsonDocument reads a text that begins with U+FEFF without it, unless it is written `\ufeff`. These two read and
/// write every text as it is; otherwise they do what QJsonDocument does. One more pass over the bytes.

[[nodiscard]] QJsonDocument readJson(const QByteArray &json, QJsonParseError *error = nullptr);

/// U+FEFF is written `\ufeff` wherever it stands.
[[nodiscard]] QByteArray writtenJson(const QJsonDocument &document, QJsonDocument::JsonFormat format);

/// The text of each member's value, as it stands in the object, by the member's name. The values are passed over in one
/// quick walk and not checked. Nothing when the bytes are not one object around them.
[[nodiscard]] std::optional<QMap<QString, QByteArray>> memberTexts(const QByteArray &object);

/// The JSON without the white space between its parts, which are left as they are. One quick walk.
[[nodiscard]] QByteArray withoutSpace(const QByteArray &json);

} // namespace lexivore
