// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/bundle_information.h"
#include "ui/shell/program.h"

#include <QApplication>

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    return lexivore::runProgram(application, lexivore::mainBundleInformation());
}
