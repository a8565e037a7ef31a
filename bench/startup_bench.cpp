// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// The least that a Qt program with a window does: what the start-up of the application is compared with.
#include <QApplication>
#include <QMainWindow>
#include <QPlainTextEdit>

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QPlainTextEdit(QStringLiteral("Nothing else"), &window));
    window.resize(1280, 800);
    window.show();
    return QApplication::exec();
}
