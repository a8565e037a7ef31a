// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/file_writing.h"

#include <QFileDevice>

namespace lexivore {

bool writeAll(QFileDevice &file, std::string_view bytes) {
    while (!bytes.empty()) {
        const qint64 count = file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        if (count <= 0) {
            static_cast<void>(flushAll(file)); // what had been buffered may have been cut off in its middle
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool flushAll(QFileDevice &file) {
    if (file.flush()) {
        return true;
    }
    static_cast<void>(file.flush());
    return false;
}

} // namespace lexivore
