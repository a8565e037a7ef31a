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

QJsonValue encodedData(const QByteArray &data) {
    const QJsonDocument document = readJson(data);
    if (!document.isNull() && writtenJson(document, QJsonDocument::Compact) == data) {
        const QJsonValue value = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
        return QJsonObject{{jsonKey, value}};
    }
    return QJsonObject{{base64Key, QString::fromLatin1(data.toBase64())}};
}

/// The data that the object stands for, if it stands for data.
std::optional<QByteArray> decodedData(const QJsonObject &object) {
    if (object.size() != 1) {
        return std::nullopt;
    }
    const QJsonValue json = object.value(jsonKey);
    if (json.isArray() || json.isObject()) {
        return compact(json);
    }
    if (object.value(base64Key).isString()) {
        auto bytes = QByteArray::fromBase64Encoding(object.value(base64Key).toString().toLatin1(),
                                                    QByteArray::AbortOnBase64DecodingErrors);
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
        if (const std::optional<QByteArray> data = decodedData(object)) {
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

QByteArray encodePreferences(const QVariantMap &preferences) {
    QJsonObject object;
    for (auto entry = preferences.begin(); entry != preferences.end(); ++entry) {
        object.insert(entry.key(), encoded(entry.value()));
    }
    return writtenJson(QJsonDocument(object), QJsonDocument::Indented);
}

std::optional<QVariantMap> decodePreferences(const QByteArray &json) {
    const QJsonDocument document = readJson(json);
    if (!document.isObject()) {
        return std::nullopt;
    }
    QVariantMap preferences;
    const QJsonObject object = document.object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        preferences.insert(entry.key(), decoded(entry.value()));
    }
    return preferences;
}

QVariant asStored(const QVariant &value) {
    return decodePreferences(encodePreferences({{QString(), value}}))->value(QString());
}

} // namespace lexivore
