// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/preferences_json.h"

#include <QByteArray>
#include <QVariantMap>

#include <optional>

namespace lexivore::test {

/// The file of these preferences.
inline QByteArray encodePreferences(const QVariantMap &preferences) {
    PreferenceTexts texts;
    for (auto entry = preferences.begin(); entry != preferences.end(); ++entry) {
        texts.insert(entry.key(), encodePreference(*entry));
    }
    return joinPreferences(texts);
}

/// All preferences of the file, or nothing when it is not one JSON object.
inline std::optional<QVariantMap> decodePreferences(const QByteArray &json) {
    const std::optional<PreferenceTexts> texts = splitPreferences(json);
    if (!texts) {
        return std::nullopt;
    }
    QVariantMap preferences;
    for (auto text = texts->begin(); text != texts->end(); ++text) {
        preferences.insert(text.key(), decodePreference(*text));
    }
    return preferences;
}

} // namespace lexivore::test
