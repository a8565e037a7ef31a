// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMainWindow>

int main(int argc, char *argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.show();
    return QApplication::exec();
}
