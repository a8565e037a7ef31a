// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>

namespace lexivore {

/// Keeps other processes that lock the same folder out while it lives. It leaves nothing in the folder, needs no right
/// to write there, and ends with the process however that ends.
class FolderLock {
public:
    enum class State {
        held,
        busy,        ///< Another process held it all the time, or there is no such folder.
        unsupported, ///< The file system, for example a network one, cannot lock folders.
    };

    /// Blocks for at most `longestWait`.
    FolderLock(const QString &folder, std::chrono::milliseconds longestWait);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    [[nodiscard]] State state() const { return m_state; }

private:
    int m_descriptor;
    State m_state;
};

} // namespace lexivore
