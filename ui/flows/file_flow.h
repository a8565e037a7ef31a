// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace lexivore {

class Alerts;
class FilePanels;
class TransformationManager;

/// Opening a text file into the editor and saving the text to a file.
class FileFlow : public QObject {
    Q_OBJECT

public:
    FileFlow(TransformationManager &manager, FilePanels &panels, Alerts &alerts, QObject *parent = nullptr);

    void open();
    /// The file's content becomes the current text; nothing else changes. A file that is not UTF-8 is ignored; any
    /// other failure is told, and the text stays.
    void openPath(const QString &path);
    void saveAs();

private:
    void savePath(const QString &path);

    TransformationManager &m_manager;
    FilePanels &m_panels;
    Alerts &m_alerts;
};

} // namespace lexivore
