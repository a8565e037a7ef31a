// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/json_preferences.h"
#include "tests/support/files.h"
#include "tests/support/preferences_file.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

namespace lexivore {

/// QSettings remembers files for the whole process. So what another start of the program would see is looked at in
/// another process, or the file is read without it.
class JsonPreferencesFixture : public testing::Test {
public:
    QString path(const char *name = "preferences.json") const {
        return folder.filePath(QStringLiteral("lexivore/") + QLatin1String(name));
    }
    QVariantMap onDisk() const { return test::decodePreferences(test::bytesOf(path())).value_or(QVariantMap()); }
    QStringList files() const { return QDir(folder.filePath(QStringLiteral("lexivore"))).entryList(QDir::Files); }
    void put(const QByteArray &bytes) const {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path()).absolutePath()));
        test::writeBytes(path(), bytes);
    }
    /// What another start of the program does and answers.
    int elsewhere(const std::function<int(JsonPreferences &)> &body) const {
        return test::inChild([&] {
            JsonPreferences preferences(path());
            return body(preferences);
        });
    }

    QTemporaryDir folder;
};

} // namespace lexivore
