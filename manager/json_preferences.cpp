// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// QSettings reads, merges and replaces the file. Left to itself it would do five things that must not happen here
// (Qt 6.4):
// - It takes a file that it cannot read for an empty one and overwrites it. So that file is renamed first, or copied
//   when it is only later that it can be read.
// - Its lock is a file; when a copy of the program is killed between making and filling it, every other copy waits 30
//   seconds for it. So a lock of ours, which the kernel gives back, is around it, and a file that is there then is a
//   leftover and is removed.
// - It takes a file of the same size and the same time in milliseconds for the one it has read, and so forgets another
//   copy's change. So no two versions of the file are given the same time.
// - It writes when the event loop comes round to it or it is destroyed, outside of our lock. So the event is dropped,
//   and it is given a change only when it can write at once.
// - It waits without end for its lock. Ours gives up.
#include "manager/json_preferences.h"

#include "manager/folder_lock.h"
#include "manager/json_text.h"
#include "manager/preferences_json.h"

#include <QDateTime>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <optional>

namespace lexivore {

namespace {

// What QSettings holds for a key is the text that its value is in the file.

bool readJson(QIODevice &device, QSettings::SettingsMap &map) {
    const std::optional<PreferenceTexts> texts = splitPreferences(device.readAll());
    if (!texts) {
        return false;
    }
    for (auto text = texts->begin(); text != texts->end(); ++text) {
        map.insert(text.key(), *text);
    }
    return true;
}

bool writeJson(QIODevice &device, const QSettings::SettingsMap &map) {
    PreferenceTexts texts;
    for (auto text = map.begin(); text != map.end(); ++text) {
        texts.insert(text.key(), text->toByteArray());
    }
    const QByteArray json = joinPreferences(texts);
    return device.write(json) == json.size();
}

QSettings::Format jsonFormat() {
    static const QSettings::Format format =
        QSettings::registerFormat(QStringLiteral("json"), readJson, writeJson, Qt::CaseSensitive);
    return format;
}

/// Empty when it cannot be read.
QByteArray bytesOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

bool JsonPreferences::Settings::event(QEvent *event) {
    return event->type() == QEvent::UpdateRequest || QSettings::event(event);
}

JsonPreferences::JsonPreferences(const QString &path, std::chrono::milliseconds longestWait)
    : m_path(QFileInfo(path).absoluteFilePath()), m_longestWait(longestWait), m_settings(m_path, jsonFormat()) {
    QFile file(m_path);
    const QByteArray json = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    m_isUnread = file.isOpen() ? file.error() != QFileDevice::NoError : file.exists();
    if (m_settings.status() == QSettings::NoError) {
        m_sound = json;
    }
}

QString JsonPreferences::defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/lexivore/preferences.json");
}

QVariant JsonPreferences::value(const QString &key) const {
    const QByteArray text = m_waiting.contains(key) ? m_waiting.value(key) : m_settings.value(key).toByteArray();
    return text.isEmpty() ? QVariant() : decodePreference(text);
}

void JsonPreferences::setValue(const QString &key, const QVariant &value) {
    m_waiting.insert(key, encodePreference(value));
    save();
}

void JsonPreferences::save() { m_isStored = write(); }

/// False when the file is as it was before.
bool JsonPreferences::write() {
    const QFileInfo file(m_path);
    if (!QDir().mkpath(file.absolutePath())) {
        return false;
    }
    const FolderLock lock(file.absolutePath(), m_longestWait);
    if (lock.state() == FolderLock::State::busy) {
        return false;
    }
    const QDateTime before = QFileInfo(m_path).lastModified();
    if (!setCorruptFileAside()) {
        return false;
    }
    if (lock.state() == FolderLock::State::held) {
        QFile::remove(m_path + QStringLiteral(".lock"));
    }
    for (auto change = m_waiting.constBegin(); change != m_waiting.constEnd(); ++change) {
        m_settings.setValue(change.key(), *change);
    }
    m_settings.sync();
    makeNewerThan(before);
    const QByteArray written = bytesOf(m_path);
    if (!hasChanges(written)) {
        return false;
    }
    m_sound = written;
    m_waiting.clear();
    return true;
}

/// Whether the file has every change. QSettings does not tell: its status stays an error for ever once there was one.
bool JsonPreferences::hasChanges(const QByteArray &json) const {
    const PreferenceTexts texts = memberTexts(json).value_or(PreferenceTexts());
    for (auto change = m_waiting.constBegin(); change != m_waiting.constEnd(); ++change) {
        if (texts.value(change.key()) != *change) {
            return false;
        }
    }
    return true;
}

/// False when there is a corrupt file that cannot be renamed, or one that cannot be read to the end. One that could not
/// be read at first, so that the values in use are not its own, is copied before they replace those.
bool JsonPreferences::setCorruptFileAside() {
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        return true;
    }
    const QByteArray json = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        return false;
    }
    const bool isCorrupt = !json.isEmpty() && json != m_sound && !splitPreferences(json);
    if (!isCorrupt && (!m_isUnread || json.isEmpty())) {
        return true;
    }
    file.close();
    QString aside = m_path + QStringLiteral(".corrupt");
    for (int number = 2; QFileInfo(aside).exists() || QFileInfo(aside).isSymLink(); ++number) {
        aside = QStringLiteral("%1.corrupt-%2").arg(m_path).arg(number);
    }
    const bool isKept = isCorrupt ? file.rename(aside) : file.copy(aside);
    m_isUnread = m_isUnread && !isKept;
    return isKept;
}

/// Moves the file's time of change forward when it is not later than that of the version before it.
void JsonPreferences::makeNewerThan(const QDateTime &before) const {
    QFile file(m_path);
    if (before.isValid() && file.exists() && QFileInfo(file).lastModified() <= before &&
        file.open(QIODevice::ReadWrite)) {
        file.setFileTime(before.addMSecs(1), QFileDevice::FileModificationTime);
    }
}

} // namespace lexivore
