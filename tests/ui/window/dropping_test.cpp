// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"

#include <QAbstractScrollArea>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

namespace lexivore {
namespace {

/// Files and texts of other programs, dropped on the editor by the events that the toolkit makes of them.
class Dropping : public WindowTest {
protected:
    [[nodiscard]] QUrl write(const QString &name, const QByteArray &bytes) const {
        QFile file(QDir(folder.path()).filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return QUrl::fromLocalFile(file.fileName());
    }

    /// Whether the drop was accepted.
    bool drop(const QMimeData &data, Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction) {
        QWidget *target = find<QAbstractScrollArea>("editor")->viewport();
        QDragEnterEvent enter({30, 20}, offered, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        QDragMoveEvent move({30, 20}, offered, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &move);
        EXPECT_EQ(enter.isAccepted(), move.isAccepted());
        if (!enter.isAccepted()) {
            return false;
        }
        QDropEvent drop({30, 20}, offered, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &drop);
        EXPECT_TRUE(!data.hasUrls() || drop.dropAction() == Qt::CopyAction) << "the file stays where it is";
        return drop.isAccepted();
    }
    bool dropFiles(const QList<QUrl> &urls) {
        QMimeData data;
        data.setUrls(urls);
        return drop(data);
    }
    bool dropText(const QString &text) {
        QMimeData data;
        data.setText(text);
        return drop(data);
    }

    [[nodiscard]] QString alertMessage() {
        const auto *message = find<QLabel>("message");
        return message != nullptr && message->isVisible() ? message->text() : QString();
    }

    QTemporaryDir folder;
};

TEST_F(Dropping, AFileIsOpenedExactly) {
    setText("before");
    const QByteArray bytes("\xEF\xBB\xBFone\r\ntwo\0three", 17);
    EXPECT_TRUE(dropFiles({write("in.txt", bytes)}));
    EXPECT_EQ(text(), bytes.toStdString());
    EXPECT_TRUE(alertMessage().isEmpty());
}

TEST_F(Dropping, OpeningByADropChangesTheCurrentTextAloneAndCanBeTakenBack) {
    setText("base");
    click("transformation.uppercase");
    EXPECT_TRUE(dropFiles({write("in.txt", "dropped")}));
    EXPECT_EQ(text(), "dropped");
    EXPECT_EQ(manager().originalText().view(), "base");
    EXPECT_EQ(manager().appliedOperations().size(), 1U);
    focusEditor();
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), "BASE");
}

TEST_F(Dropping, WhatIsNoTextIsToldAndTheTextStays) {
    setText("kept");
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder"));
    const std::pair<QUrl, QString> refused[] = {
        {QUrl::fromLocalFile(folder.filePath("folder")), "it is a folder"},
        {write("picture.png", "\x89PNG\r\n\x1A\n\xFF"), "it is not a text in UTF-8"},
        {QUrl::fromLocalFile(folder.filePath("gone.txt")), "gone.txt"},
    };
    for (const auto &[url, why] : refused) {
        EXPECT_TRUE(dropFiles({url}));
        EXPECT_TRUE(alertMessage().contains(why)) << qPrintable(alertMessage());
        EXPECT_TRUE(alertMessage().contains(url.fileName())) << qPrintable(alertMessage());
        EXPECT_EQ(text(), "kept");
        click("confirm");
        ASSERT_TRUE(QTest::qWaitFor([this] { return alertMessage().isEmpty(); }));
    }
}

TEST_F(Dropping, OfSeveralFilesNoneIsTakenAndTheUserIsTold) {
    setText("kept");
    EXPECT_TRUE(dropFiles({write("a.txt", "a"), write("b.txt", "b")}));
    EXPECT_EQ(alertMessage(), "Drop one file at a time.");
    EXPECT_EQ(text(), "kept");
}

TEST_F(Dropping, AFileThatCouldOnlyBeMovedIsNotTaken) {
    setText("kept");
    QMimeData data;
    data.setUrls({write("in.txt", "dropped")});
    EXPECT_FALSE(drop(data, Qt::MoveAction)) << "the other program would take it away";
    EXPECT_EQ(text(), "kept");
}

TEST_F(Dropping, ATextIsInsertedWhereItIsDropped) {
    setText("end");
    find("search")->setFocus();
    EXPECT_TRUE(dropText("drop"));
    EXPECT_EQ(text().size(), 7U);
    EXPECT_NE(text().find("drop"), std::string::npos);
    EXPECT_TRUE(find("editor")->hasFocus());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), "end");
}

TEST_F(Dropping, AnAddressElsewhereIsText) {
    QMimeData link;
    link.setUrls({QUrl("https://example.org/a.txt")});
    link.setText("https://example.org/a.txt");
    EXPECT_TRUE(drop(link, Qt::CopyAction));
    EXPECT_EQ(text(), "https://example.org/a.txt");
}

TEST_F(Dropping, WhatIsNeitherAFileNorTextIsNotTaken) {
    setText("kept");
    QMimeData picture;
    picture.setData("image/png", "x");
    EXPECT_FALSE(drop(picture));
    EXPECT_EQ(text(), "kept");
}

} // namespace
} // namespace lexivore
