// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// What would take more memory or time than there is ends in the error alert: the window lives, the text is as before.
#include "tests/ui/window/window_fixture.h"
#include "ui/editor/text_editor.h"
#include "ui/editor/text_mime_data.h"

#include <QAbstractScrollArea>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>

#include <fstream>
#include <malloc.h>
#include <string>
#include <sys/resource.h>

namespace lexivore {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20U;

class Shortage : public WindowTest {
public:
    ~Shortage() override { allowAllMemory(); }

protected:
    static void allowAllMemory() {
        const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
        ::setrlimit(RLIMIT_DATA, &none);
    }
    /// From now on the program gets no more than this beside what it has.
    static void limitMemoryTo(std::size_t bytes) {
        ::malloc_trim(0); // What earlier tests left free would be given out all the same.
        std::ifstream status("/proc/self/status");
        std::size_t kilobytes = 0;
        for (std::string word; status >> word;) {
            if (word == "VmData:") {
                status >> kilobytes;
                break;
            }
        }
        ASSERT_GT(kilobytes, 0U);
        const rlimit limit{kilobytes * 1024 + bytes, RLIM_INFINITY};
        ASSERT_EQ(::setrlimit(RLIMIT_DATA, &limit), 0);
    }

    /// A drop on the editor for which there is too little memory.
    void expectRefusedDropOf(const QMimeData &data) {
        QWidget *target = find<QAbstractScrollArea>("editor")->viewport();
        QDragEnterEvent enter({30, 20}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        QDropEvent drop({30, 20}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        limitMemoryTo(16 * megabyte);
        QApplication::sendEvent(target, &drop);
        EXPECT_FALSE(drop.isAccepted());
    }

    void expectError(const QString &message) {
        ASSERT_TRUE(QTest::qWaitFor([this] { return isShown("alert"); }));
        EXPECT_EQ(find<QLabel>("message")->text(), message);
        click("confirm");
        ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("alert"); }));
        // The window still does what it is told.
        const std::string before = text();
        click("transformation.invertcase");
        EXPECT_FALSE(text() == before);
    }

    void copyAll(bool byButton = false) {
        if (byButton) {
            click("copy");
            return;
        }
        focusEditor();
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_C, Qt::ControlModifier);
    }

    void apply(const char *id, const ParameterMap &parameters) {
        manager().applyTransformation(*manager().findTransformation(id), parameters);
    }
};

#ifndef __SANITIZE_ADDRESS__ // which takes terabytes of addresses itself

constexpr char shortage[] = "There is not enough memory for the result.";

TEST_F(Shortage, OfMemoryForAResultIsAnError) {
    const std::string before(2 * megabyte, 'a');
    setText(before);
    limitMemoryTo(64 * megabyte);
    center().post(notification::applyTransformation, QString("replace-text"));
    ASSERT_TRUE(isShown("parameter.find"));
    find<QLineEdit>("parameter.find")->setText("a");
    find<QLineEdit>("parameter.replace")->setText(QString(200, 'b'));
    click("apply");
    EXPECT_TRUE(text() == before);
    EXPECT_TRUE(manager().appliedOperations().empty());
    expectError(shortage);
}

TEST_F(Shortage, OfMemoryWhileTheStackIsRunAgainLeavesItAsItWas) {
    const std::string before(2 * megabyte, 'a');
    setText(before);
    useStackMode();
    apply("replace-text", {{"find", "a"}, {"replace", std::string(200, 'b')}});
    manager().toggleOperation(0);
    apply("uppercase", {});
    ASSERT_TRUE(text() == std::string(2 * megabyte, 'A'));
    limitMemoryTo(64 * megabyte);
    find("operation.0")->setFocus();
    press(Qt::Key_Space);
    EXPECT_TRUE(text() == std::string(2 * megabyte, 'A'));
    EXPECT_FALSE(manager().appliedOperations().front().isEnabled);
    expectError(shortage);
}

TEST_F(Shortage, OfMemoryForAPastedTextIsAnError) {
    setText("before\nand after");
    QGuiApplication::clipboard()->setText(QString(qsizetype{40} * 1024 * 1024, 'x'));
    limitMemoryTo(16 * megabyte);
    click("paste");
    EXPECT_EQ(text(), "before\nand after");
    QGuiApplication::clipboard()->clear();
    expectError(shortage);
}

TEST_F(Shortage, OfMemoryForATextPastedByKeyIsAnError) {
    setText("before\nand after");
    focusEditor();
    QGuiApplication::clipboard()->setText(QString(qsizetype{40} * 1024 * 1024, 'x'));
    limitMemoryTo(16 * megabyte);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(), "before\nand after");
    QGuiApplication::clipboard()->clear();
    expectError(shortage);
}

TEST_F(Shortage, OfMemoryForAnEditTakesItOutOfTheEditorAgain) {
    const std::string before(40 * megabyte, 'b');
    for (const bool replacesAll : {true, false}) {
        SCOPED_TRACE(replacesAll);
        setText(std::string(40 * megabyte, 'a'));
        copyAll();
        setText(before);
        focusEditor();
        if (replacesAll) {
            press(Qt::Key_A, Qt::ControlModifier);
        } else {
            press(Qt::Key_Home, Qt::ControlModifier);
        }
        limitMemoryTo(16 * megabyte);
        press(Qt::Key_V, Qt::ControlModifier);
        allowAllMemory();
        EXPECT_TRUE(text() == before);
        EXPECT_TRUE(find<TextEditor>("editor")->text() == manager().currentText());
        QGuiApplication::clipboard()->clear();
        expectError(shortage);
        EXPECT_TRUE(find<TextEditor>("editor")->text() == manager().currentText());
    }
}

TEST_F(Shortage, OfMemoryForCopiedTextThatIsAskedForIsAnErrorToldOnce) {
    for (const bool byButton : {false, true}) {
        SCOPED_TRACE(byButton);
        setText("before" + std::string(40 * megabyte, 'a'));
        copyAll(byButton);
        limitMemoryTo(16 * megabyte);
        for (const char *format : {"text/plain", "text/plain;charset=utf-8"}) {
            EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->data(format).size(), 0) << format;
        }
        allowAllMemory();
        EXPECT_TRUE(text().starts_with("before"));
        expectError(shortage);
        QGuiApplication::clipboard()->clear();
    }
}

TEST_F(Shortage, OfMemoryIsNoReasonNotToCopyAndPasteWithinTheProgram) {
    const std::string copied(40 * megabyte, 'a');
    for (const bool byButton : {false, true}) {
        SCOPED_TRACE(byButton);
        setText(copied);
        limitMemoryTo(16 * megabyte);
        copyAll(byButton);
        setText("before");
        click("paste");
        allowAllMemory();
        EXPECT_TRUE(text() == copied);
        QGuiApplication::clipboard()->clear();
    }
}

TEST_F(Shortage, OfMemoryForADroppedTextIsAnErrorAndTheTextStaysWhereItCameFrom) {
    setText("before\nand after");
    QMimeData data;
    data.setText(QString(qsizetype{40} * 1024 * 1024, 'x'));
    expectRefusedDropOf(data);
    EXPECT_EQ(text(), "before\nand after");
    expectError(shortage);
}

TEST_F(Shortage, OfMemoryForTheEditThatADropMakesLeavesTheTextWhereItCameFrom) {
    setText("before\nand after");
    TextMimeData data{Text(std::string_view(std::string(40 * megabyte, 'x')))};
    expectRefusedDropOf(data);
    EXPECT_EQ(text(), "before\nand after");
    EXPECT_TRUE(find<TextEditor>("editor")->text() == manager().currentText());
    expectError(shortage);
}

TEST_F(Shortage, OfMemoryForAToolIsAnError) {
    for (const char *tool : {"statistics", "character-frequency", "reading-time", "readability"}) {
        SCOPED_TRACE(tool);
        setText(std::string(40 * megabyte, 'a'));
        manager().editCurrentText(20 * megabyte, 0, "b"); // which leaves it in pieces that the tool needs in one
        limitMemoryTo(16 * megabyte);
        choose(QString("RunTool.") + tool);
        EXPECT_FALSE(isShown(QString("toolResult.") + tool));
        allowAllMemory();
        expectError(shortage);
    }
}

TEST_F(Shortage, OfMemoryForAFileIsAnError) {
    setText("before\nand after");
    const QTemporaryDir folder;
    QFile file(folder.filePath("large.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64{400} * 1024 * 1024));
    file.close();
    chosenFile = file.fileName();
    limitMemoryTo(64 * megabyte);
    choose("OpenFile");
    EXPECT_EQ(text(), "before\nand after");
    expectError(QString("“%1” could not be opened: there is not enough memory").arg(file.fileName()));
}

#endif

TEST_F(Shortage, OfTimeForARegularExpressionIsAnError) {
    const std::string before = std::string(40, 'a') + "b\n";
    setText(before);
    center().post(notification::applyTransformation, QString("replace-regex"));
    ASSERT_TRUE(isShown("parameter.pattern"));
    find<QLineEdit>("parameter.pattern")->setText("(a+)+$");
    click("apply");
    EXPECT_TRUE(text() == before);
    expectError("Invalid input: Invalid regular expression: U_REGEX_TIME_OUT");
}

} // namespace
} // namespace lexivore
