// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe_file.h"

#include "manager/file_replacement.h"
#include "manager/recipe_json.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

namespace lexivore {

namespace {

/// Far more than any list of recipes takes; a larger file was chosen by mistake.
constexpr qint64 mostBytes = 64LL * 1024 * 1024;

/// The bytes of a regular file, or nothing and the reason.
std::optional<QByteArray> bytesOf(const QString &path, QString &reason) {
    QFile file(path);
    if (QFileInfo(path).exists() && !QFileInfo(path).isFile()) {
        reason = RecipeFile::tr("It is not a file.");
        return std::nullopt;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        reason = file.errorString();
        return std::nullopt;
    }
    if (file.size() > mostBytes) {
        reason = RecipeFile::tr("It is too large to be a list of recipes.");
        return std::nullopt;
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        reason = file.errorString();
        return std::nullopt;
    }
    return bytes;
}

} // namespace

bool RecipeFile::write(const QString &path, const std::vector<Recipe> &recipes, QString &problem) {
    const QString message = tr("The recipes could not be written to “%1”: %2");
    const std::optional<QByteArray> json = RecipeJson::encode(recipes, QJsonDocument::Indented);
    if (!json) {
        problem = message.arg(path, tr("One of them has no valid time."));
        return false;
    }
    if (QFileInfo(path).exists() && !QFileInfo(path).isFile()) {
        problem = message.arg(path, tr("It is not a file."));
        return false;
    }
    FileReplacement file(path);
    if (!file.open() || !file.write({json->constData(), static_cast<std::size_t>(json->size())}) || !file.commit()) {
        problem = message.arg(path, file.errorString());
        return false;
    }
    return true;
}

std::optional<std::vector<Recipe>> RecipeFile::read(const QString &path, QString &problem) {
    const QString message = tr("No recipes could be read from “%1”: %2");
    QString reason;
    std::optional<QByteArray> bytes = bytesOf(path, reason);
    if (!bytes) {
        problem = message.arg(path, reason);
        return std::nullopt;
    }
    if (bytes->startsWith("\xEF\xBB\xBF")) {
        bytes->remove(0, 3); // the byte order mark that some editors put in front
    }
    std::optional<std::vector<Recipe>> recipes = RecipeJson::decode(*bytes, &reason);
    if (!recipes) {
        problem = message.arg(path, reason);
    }
    return recipes;
}

} // namespace lexivore
