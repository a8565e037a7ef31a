// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/json_text.h"

namespace lexivore {

namespace {

const QByteArray byteOrderMark("\xEF\xBB\xBF");

QByteArray withMarksEscaped(QByteArray json) { return json.replace(byteOrderMark, "\\ufeff"); }

} // namespace

QJsonDocument readJson(const QByteArray &json, QJsonParseError *error) {
    // The mark before everything else is no part of a text.
    const QByteArray front = json.startsWith(byteOrderMark) ? byteOrderMark : QByteArray();
    if (json.indexOf(byteOrderMark, front.size()) >= 0) {
        QJsonDocument document = QJsonDocument::fromJson(withMarksEscaped(json.mid(front.size())));
        if (!document.isNull()) {
            if (error != nullptr) {
                *error = QJsonParseError();
            }
            return document;
        }
    }
    return QJsonDocument::fromJson(json, error); // as it stands, so that an error has its own place
}

QByteArray writtenJson(const QJsonDocument &document, QJsonDocument::JsonFormat format) {
    return withMarksEscaped(document.toJson(format));
}

} // namespace lexivore
