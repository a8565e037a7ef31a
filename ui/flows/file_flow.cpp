// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/file_flow.h"

#include "manager/transformation_manager.h"
#include "ui/flows/memory_shortage.h"
#include "ui/flows/text_file.h"
#include "ui/sheets/alerts.h"
#include "ui/window/file_panels.h"

#include <utility>

namespace lexivore {

FileFlow::FileFlow(TransformationManager &manager, FilePanels &panels, Alerts &alerts, QObject *parent)
    : QObject(parent), m_manager(manager), m_panels(panels), m_alerts(alerts) {}

void FileFlow::open() {
    m_panels.askForFileToOpen([this](const QString &path) { openPath(path, NotText::isIgnored); });
}

void FileFlow::openGiven(const QString &path) { openPath(path, NotText::isTold); }

void FileFlow::openGivenFiles(const QStringList &paths) {
    if (paths.size() == 1) {
        openGiven(paths.front());
    } else if (!paths.isEmpty()) {
        m_alerts.showError(tr("Open one file at a time."));
    }
}

void FileFlow::openPath(const QString &path, NotText notText) {
    std::variant<Text, textFile::NotUtf8, textFile::Failure> content = textFile::read(path);
    if (const auto *failure = std::get_if<textFile::Failure>(&content)) {
        m_alerts.showError(failure->message);
    } else if (const auto *other = std::get_if<textFile::NotUtf8>(&content)) {
        if (notText == NotText::isTold) {
            m_alerts.showError(other->message);
        }
    } else if (auto *text = std::get_if<Text>(&content)) {
        orReportShortage(m_alerts, [&] { m_manager.setCurrentText(std::move(*text)); });
    }
}

void FileFlow::saveAs() {
    // The text that is there now: while the user chooses, another one may be opened from outside.
    m_panels.askForFileToSave([this, text = m_manager.currentText()](const QString &path) { savePath(path, text); });
}

void FileFlow::savePath(const QString &path, const Text &text) {
    const QString failure = textFile::write(path, text);
    if (!failure.isEmpty()) {
        m_alerts.showError(failure);
    }
}

} // namespace lexivore
