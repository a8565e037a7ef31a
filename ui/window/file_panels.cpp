// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/file_panels.h"

#include <QCoreApplication>
#include <QFileDialog>

#include <utility>

namespace lexivore {

namespace {

QStringList textFileFilters() {
    return {
        QCoreApplication::translate("FilePanels", "Text files (*.txt *.text *.md *.csv *.tsv *.log *.json *.xml "
                                                  "*.html *.yaml *.yml *.ini *.conf)"),
        QCoreApplication::translate("FilePanels", "All files (*)"),
    };
}

void openDialog(QFileDialog *dialog, FilePanels::Answer answer) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [answer = std::move(answer)](const QString &path) { answer(path); });
    dialog->open();
}

} // namespace

void FileDialogs::askForFileToOpen(Answer answer) {
    auto *dialog = new QFileDialog(&m_window);
    dialog->setObjectName("openPanel");
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters(textFileFilters());
    openDialog(dialog, std::move(answer));
}

void FileDialogs::askForFileToSave(Answer answer) {
    auto *dialog = new QFileDialog(&m_window, QCoreApplication::translate("FilePanels", "Save Text"));
    dialog->setObjectName("savePanel");
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilters(textFileFilters());
    dialog->selectFile("text.txt");
    openDialog(dialog, std::move(answer));
}

} // namespace lexivore
