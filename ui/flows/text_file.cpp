// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/text_file.h"

#include "engine/primitives/text_buffer.h"
#include "engine/primitives/utf8.h"
#include "manager/file_replacement.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <new>
#include <utility>

namespace lexivore::textFile {

namespace {

constexpr std::size_t chunkSize = std::size_t{1} << 20;

struct Words {
    Q_DECLARE_TR_FUNCTIONS(TextFile)
};

QString shownPath(const QString &path) { return QDir::toNativeSeparators(path); }

Failure cannotOpen(const QString &path, const QString &reason) {
    return {Words::tr("“%1” could not be opened: %2").arg(shownPath(path), reason)};
}

QString cannotSave(const QString &path, const QString &reason) {
    return Words::tr("“%1” could not be saved: %2").arg(shownPath(path), reason);
}

/// Not by the size that the system tells: for some files it tells none, and a file can grow meanwhile.
std::variant<TextBuffer, Failure> readAll(QFile &file, std::size_t maximum) {
    const auto expected = static_cast<std::size_t>(std::max<qint64>(file.size(), 0));
    TextBuffer bytes = TextBuffer::withCapacity(std::min(expected, maximum) + 1);
    while (true) {
        char *const room = bytes.room(chunkSize);
        const qint64 count = file.read(room, static_cast<qint64>(chunkSize));
        if (count < 0) {
            return cannotOpen(file.fileName(), file.errorString());
        }
        if (count == 0) {
            return bytes;
        }
        bytes.commit(room + count);
        if (bytes.size() > maximum) {
            return cannotOpen(file.fileName(), Words::tr("the file is too large"));
        }
    }
}

std::variant<Text, NotUtf8, Failure> readFile(const QString &path, std::size_t maximum) {
    const QFileInfo info(path);
    if (info.isDir()) {
        return cannotOpen(path, Words::tr("it is a folder"));
    }
    // Opening a pipe would wait for its other end.
    if (info.exists() && !info.isFile()) {
        return cannotOpen(path, Words::tr("it is not a regular file"));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return cannotOpen(path, file.errorString());
    }
    std::variant<TextBuffer, Failure> bytes = readAll(file, maximum);
    if (auto *failure = std::get_if<Failure>(&bytes)) {
        return std::move(*failure);
    }
    auto &buffer = std::get<TextBuffer>(bytes);
    if (!isValidUtf8(buffer)) {
        return NotUtf8{cannotOpen(path, Words::tr("it is not a text in UTF-8")).message};
    }
    return Text(std::move(buffer));
}

} // namespace

std::variant<Text, NotUtf8, Failure> read(const QString &path, std::size_t maximum) {
    try {
        return readFile(path, maximum);
    } catch (const std::bad_alloc &) {
        return cannotOpen(path, Words::tr("there is not enough memory"));
    }
}

QString write(const QString &path, const Text &text) {
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) {
        return cannotSave(path, info.isDir() ? Words::tr("it is a folder") : Words::tr("it is not a regular file"));
    }
    FileReplacement file(path);
    bool isWritten = file.open();
    text.forEachRun(0, text.size(), [&](std::string_view run) { isWritten = isWritten && file.write(run); });
    if (!isWritten || !file.commit()) {
        return cannotSave(path, file.errorString());
    }
    return {};
}

} // namespace lexivore::textFile
