// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/preferences.h"
#include "manager/preferences_json.h"

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QVariant>

#include <chrono>

namespace lexivore {

/// The preferences in one JSON file, as `preferences_json.h` describes it.
///
/// Each change is written at once: the file is read again, changed and replaced as a whole under a lock that every
/// running copy of the program takes, so that none loses another's change of another key. When it cannot be written the
/// file stays as it was, the program goes on with the new value, and the next change that can be written takes it
/// along. A file that is no JSON object counts as absent; before the first change is written it is renamed to
/// "NAME.corrupt". One that cannot be read at first, but later, is copied there before it is changed.
class JsonPreferences : public Preferences {
public:
    /// The file and its folder need not exist. `longestWait` is how long a change may wait for another copy's.
    explicit JsonPreferences(const QString &path = defaultPath(),
                             std::chrono::milliseconds longestWait = std::chrono::seconds(2));

    /// "lexivore/preferences.json" in the user's configuration folder.
    [[nodiscard]] static QString defaultPath();

    [[nodiscard]] QVariant value(const QString &key) const override;
    void setValue(const QString &key, const QVariant &value) override;
    [[nodiscard]] bool isStored() const override { return m_isStored; }

private:
    /// QSettings, except that it writes when it is told to and at no other time.
    class Settings : public QSettings {
    public:
        using QSettings::QSettings;

    protected:
        bool event(QEvent *event) override;
    };

    void save();
    [[nodiscard]] bool write();
    [[nodiscard]] bool hasChanges(const QByteArray &json) const;
    [[nodiscard]] bool setCorruptFileAside();
    void makeNewerThan(const QDateTime &before) const;

    QString m_path;
    std::chrono::milliseconds m_longestWait;
    Settings m_settings;
    PreferenceTexts m_waiting; ///< Changes that are not on disk yet.
    QByteArray m_sound;        ///< The file as it was read at first or written last: not corrupt.
    bool m_isUnread = false;   ///< The file could not be read, and has not been copied since.
    bool m_isStored = true;
};

} // namespace lexivore
