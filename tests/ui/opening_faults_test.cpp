// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Every allocation of opening a file fails in turn: the file is told to be too much, or read as if nothing had
// happened.
#include "tests/support/failing_allocations.h"
#include "tests/support/files.h"
#include "ui/flows/text_file.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <variant>

namespace lexivore {
namespace {

using test::FailingAllocations;

TEST(OpeningFaults, AreToldAndTheFileCanBeOpenedAfterwards) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("text.txt");
    const std::string bytes(3'000'000, 'x'); // larger than what is read at once
    test::writeBytes(path, QByteArray::fromStdString(bytes));
    std::size_t failures = 0;
    for (std::size_t successful = 0; successful < 1000; ++successful) {
        const auto content = [&path, successful] {
            const FailingAllocations failing(successful);
            return textFile::read(path);
        }();
        if (const auto *const failure = std::get_if<textFile::Failure>(&content)) {
            EXPECT_TRUE(failure->message.endsWith("there is not enough memory")) << qPrintable(failure->message);
            ++failures;
        } else {
            ASSERT_TRUE(std::holds_alternative<Text>(content)) << "behind allocation " << successful;
            EXPECT_EQ(std::get<Text>(content).view(), bytes) << "behind allocation " << successful;
        }
        if (!FailingAllocations::hasFailed()) {
            EXPECT_GT(failures, 0U) << "opening takes no memory";
            return;
        }
    }
    FAIL() << "it never came to an end";
}

} // namespace
} // namespace lexivore
