// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/file_panels.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace lexivore {
namespace {

/// The toolkit's dialogs as the window opens them.
class FilePanelsTest : public testing::Test {
protected:
    FilePanelsTest() { m_window.show(); }
    QFileDialog *shown(const char *name) {
        auto *dialog = m_window.findChild<QFileDialog *>(name);
        EXPECT_NE(dialog, nullptr);
        EXPECT_TRUE(dialog != nullptr && dialog->isVisible());
        return dialog;
    }
    static QString filterOf(const QFileDialog &dialog) { return dialog.nameFilters().value(0); }

    QString answered;
    FilePanels::Answer answer = [this](const QString &path) { answered = path; };

private:
    QWidget m_window;

protected:
    FileDialogs panels{m_window};
};

TEST_F(FilePanelsTest, OneExistingTextFileIsOpened) {
    panels.askForFileToOpen(answer);
    const QFileDialog *dialog = shown("openPanel");
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFile) << "neither several nor a folder";
    EXPECT_TRUE(filterOf(*dialog).contains("*.txt"));
    EXPECT_TRUE(filterOf(*dialog).contains("*.md"));
    EXPECT_FALSE(filterOf(*dialog).contains("(*)"));
}

TEST_F(FilePanelsTest, TheTextIsSavedUnderAProposedName) {
    QTemporaryDir folder;
    panels.askForFileToSave(answer);
    QFileDialog *dialog = shown("savePanel");
    EXPECT_EQ(dialog->windowTitle(), "Save Text");
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog->findChild<QLineEdit *>("fileNameEdit")->text(), "text.txt");
    dialog->setDirectory(folder.path());
    QTest::keyClick(dialog->findChild<QLineEdit *>("fileNameEdit"), Qt::Key_Return);
    EXPECT_EQ(answered, folder.filePath("text.txt"));
}

TEST_F(FilePanelsTest, ACancelledDialogGivesNoAnswer) {
    panels.askForFileToSave(answer);
    QTest::keyClick(shown("savePanel"), Qt::Key_Escape);
    EXPECT_EQ(answered, QString());
}

TEST_F(FilePanelsTest, RecipesGoThroughFilesOfTheirOwnKind) {
    panels.askForRecipesToImport(answer);
    EXPECT_EQ(shown("openPanel")->windowTitle(), "Import Recipes");
    EXPECT_EQ(filterOf(*shown("openPanel")), "Recipes (*.json)");
    panels.askForRecipesToExport("mine.json", answer);
    EXPECT_EQ(shown("savePanel")->windowTitle(), "Export Recipes");
    EXPECT_EQ(shown("savePanel")->findChild<QLineEdit *>("fileNameEdit")->text(), "mine.json");
}

} // namespace
} // namespace lexivore
