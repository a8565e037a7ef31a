// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace lexivore {

class Alerts;
class FilePanels;
class TransformationManager;

/// Opening a text file into the editor and saving the text to a file.
class FileFlow : public QObject {
    Q_OBJECT

public:
    FileFlow(TransformationManager &manager, FilePanels &panels, Alerts &alerts, QObject *parent = nullptr);

    /// Asks for a file; its content becomes the current text, and nothing else changes. A chosen file that is not UTF-8
    /// is ignored; any other failure is told, and the text stays.
    void open();
    /// The same for a file that was handed over, by a drop or by the desktop; one that is not UTF-8 is told as well.
    void openGiven(const QString &path);
    /// The same for what a start was given. Of several files none is opened, as of several dropped ones; this is told.
    void openGivenFiles(const QStringList &paths);
    void saveAs();

private:
    enum class NotText { isIgnored, isTold };

    void openPath(const QString &path, NotText notText);
    void savePath(const QString &path, const Text &text);

    TransformationManager &m_manager;
    FilePanels &m_panels;
    Alerts &m_alerts;
};

} // namespace lexivore
