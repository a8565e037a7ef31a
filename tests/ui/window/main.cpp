// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/style.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char *argv[]) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    lexivore::Style::install(application);
    return RUN_ALL_TESTS();
}
