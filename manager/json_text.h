// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QString>

#include <string_view>

namespace lexivore {

/// The text as preferences and JSON hold it. Unlike QString::fromUtf8 it keeps U+FEFF at the front.
[[nodiscard]] QString storedText(std::string_view utf8);

/// QJsonDocument reads a text that begins with U+FEFF without it, unless it is written `\ufeff`. These two read and
/// write every text as it is; otherwise they do what QJsonDocument does. One more pass over the bytes.

[[nodiscard]] QJsonDocument readJson(const QByteArray &json, QJsonParseError *error = nullptr);

/// U+FEFF is written `\ufeff` wherever it stands.
[[nodiscard]] QByteArray writtenJson(const QJsonDocument &document, QJsonDocument::JsonFormat format);

} // namespace lexivore
