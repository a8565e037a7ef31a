// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonParseError>

namespace lexivore {

/// QJsonDocument reads a text that begins with U+FEFF without it, unless it is written `\ufeff`. These two read and
/// write every text as it is; otherwise they do what QJsonDocument does. One more pass over the bytes.

[[nodiscard]] QJsonDocument readJson(const QByteArray &json, QJsonParseError *error = nullptr);

/// U+FEFF is written `\ufeff` wherever it stands.
[[nodiscard]] QByteArray writtenJson(const QJsonDocument &document, QJsonDocument::JsonFormat format);

} // namespace lexivore
