// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
