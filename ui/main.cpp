// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/bundle_information.h"
#include "services/core_dumps.h"
#include "services/memory_limit.h"
#include "ui/shell/program.h"

#include <QApplication>

int main(int argc, char *argv[]) {
    lexivore::keepMemoryOutOfCoreDumps();
    lexivore::limitMemory();
    QApplication application(argc, argv);
    return lexivore::runProgram(application, lexivore::mainBundleInformation());
}
