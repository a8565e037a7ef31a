// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSaveFile>
#include <QString>

#include <string_view>

namespace lexivore {

/// A file that is written anew beside the one at a path, or where links there lead, and takes its place when all of it
/// is on the disk. It gets the owner, the group and the access list of that one as far as the system lets: it is shared
/// with the same people, and with nobody else. Until it is committed, and when anything fails, the old file stays as it
/// was, with nothing left beside it. Each step is false when it fails, with the system's reason as `errorString`.
class FileReplacement {
public:
    explicit FileReplacement(const QString &path);

    [[nodiscard]] bool open();
    [[nodiscard]] bool write(std::string_view bytes);
    /// Call only when everything was written.
    [[nodiscard]] bool commit();
    [[nodiscard]] QString errorString() const { return m_errorString.isEmpty() ? m_file.errorString() : m_errorString; }

private:
    QString m_path;
    QString m_target; ///< What the file is renamed to when it is committed; empty when it has that name already.
    QSaveFile m_file;
    QString m_errorString; ///< Of what `m_file` does not do itself.
};

} // namespace lexivore
