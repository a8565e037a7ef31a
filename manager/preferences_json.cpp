// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/preferences_json.h"

#include "manager/json_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

namespace lexivore {

namespace {

constexpr QLatin1String jsonKey("json");
constexpr QLatin1String base64Key("base64");

QByteArray compact(const QJsonValue &value) {
    const QJsonDocument document = value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    return writtenJson(document, QJsonDocument::Compact);
}

QJsonValue valueOf(const QByteArray &text) { return readJson('[' + text + ']').array().first(); }

QByteArray quoted(const QString &text) { return compact(QJsonArray{text}).chopped(1).sliced(1); }

QJsonValue encodedData(const QByteArray &data) {
    const QJsonDocument document = readJson(data);
    if (!document.isNull() && writtenJson(document, QJsonDocument::Compact) == data) {
        const QJsonValue value = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
        return QJsonObject{{jsonKey, value}};
    }
    return QJsonObject{{base64Key, QString::fromLatin1(data.toBase64())}};
}

/// The data that the text stands for, if it stands for data.
std::optional<QByteArray> decodedData(const QByteArray &text) {
    const std::optional<QMap<QString, QByteArray>> members = memberTexts(text);
    if (!members || members->size() != 1) {
        return std::nullopt;
    }
    const QByteArray json = members->value(jsonKey);
    if (json.startsWith('[') || json.startsWith('{')) {
        return withoutSpace(json);
    }
    const QJsonValue base64 = valueOf(members->value(base64Key));
    if (base64.isString()) {
        auto bytes =
            QByteArray::fromBase64Encoding(base64.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        if (bytes) {
            return *bytes;
        }
    }
    return std::nullopt;
}

QJsonValue encoded(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::QByteArray:
        return encodedData(value.toByteArray());
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        QJsonArray array;
        for (const QVariant &element : value.toList()) {
            array.append(encoded(element));
        }
        return array;
    }
    case QMetaType::QVariantMap: {
        QJsonObject object;
        const QVariantMap map = value.toMap();
        for (auto entry = map.begin(); entry != map.end(); ++entry) {
            object.insert(entry.key(), encoded(entry.value()));
        }
        return object;
    }
    default:
        return QJsonValue::fromVariant(value);
    }
}

QVariant decoded(const QJsonValue &value) {
    if (value.isArray()) {
        QVariantList list;
        for (const QJsonValue element : value.toArray()) {
            list.append(decoded(element));
        }
        return list;
    }
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        if (const std::optional<QByteArray> data = decodedData(compact(object))) {
            return *data;
        }
        QVariantMap map;
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            map.insert(entry.key(), decoded(entry.value()));
        }
        return map;
    }
    return value.toVariant();
}

} // namespace

QByteArray encodePreference(const QVariant &value) {
    // As the only member of an object, for its place in the lines of the file.
    const QByteArray object =
        writtenJson(QJsonDocument(QJsonObject{{QString(), encoded(value)}}), QJsonDocument::Indented);
    return memberTexts(object)->value(QString());
}

QVariant decodePreference(const QByteArray &text) {
    if (const std::optional<QByteArray> data = decodedData(text)) {
        return *data;
    }
    return decoded(valueOf(text));
}

QByteArray joinPreferences(const PreferenceTexts &texts) {
    QByteArray json;
    for (auto entry = texts.begin(); entry != texts.end(); ++entry) {
        json += json.isEmpty() ? "{\n    " : ",\n    ";
        json += quoted(entry.key()) + ": " + *entry;
    }
    return json.isEmpty() ? "{\n}\n" : json + "\n}\n";
}

std::optional<PreferenceTexts> splitPreferences(const QByteArray &json) {
    return readJson(json).isObject() ? memberTexts(json) : std::nullopt;
}

} // namespace lexivore
