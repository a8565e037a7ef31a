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

QStringList recipeFileFilters() {
    return {
        QCoreApplication::translate("FilePanels", "Recipes (*.json)"),
        QCoreApplication::translate("FilePanels", "All files (*)"),
    };
}

QFileDialog *dialogToOpen(QWidget &window, const QString &title = {}) {
    auto *dialog = new QFileDialog(&window, title);
    dialog->setObjectName("openPanel");
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    return dialog;
}

QFileDialog *dialogToSave(QWidget &window, const QString &title, const QString &proposedName) {
    auto *dialog = new QFileDialog(&window, title);
    dialog->setObjectName("savePanel");
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->selectFile(proposedName);
    return dialog;
}

void ask(QFileDialog *dialog, const QStringList &filters, FilePanels::Answer answer) {
    dialog->setNameFilters(filters);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [answer = std::move(answer)](const QString &path) { answer(path); });
    dialog->open();
}

} // namespace

void FileDialogs::askForFileToOpen(Answer answer) { ask(dialogToOpen(m_window), textFileFilters(), std::move(answer)); }

void FileDialogs::askForFileToSave(Answer answer) {
    const QString title = QCoreApplication::translate("FilePanels", "Save Text");
    ask(dialogToSave(m_window, title, "text.txt"), textFileFilters(), std::move(answer));
}

void FileDialogs::askForRecipesToImport(Answer answer) {
    const QString title = QCoreApplication::translate("FilePanels", "Import Recipes");
    ask(dialogToOpen(m_window, title), recipeFileFilters(), std::move(answer));
}

void FileDialogs::askForRecipesToExport(const QString &proposedName, Answer answer) {
    const QString title = QCoreApplication::translate("FilePanels", "Export Recipes");
    ask(dialogToSave(m_window, title, proposedName), recipeFileFilters(), std::move(answer));
}

} // namespace lexivore
