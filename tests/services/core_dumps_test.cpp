// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/core_dumps.h"

#include "tests/support/files.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <string>

namespace lexivore {
namespace {

std::string filter() {
    std::string mappings;
    std::ifstream("/proc/self/coredump_filter") >> mappings;
    return mappings;
}

TEST(CoreDumps, HoldNoMemory) {
    EXPECT_EQ(test::inChild([] {
                  if (filter() == "00000000") {
                      return 1; // then the test could not fail
                  }
                  keepMemoryOutOfCoreDumps();
                  rlimit limit{};
                  ::getrlimit(RLIMIT_CORE, &limit);
                  return limit.rlim_cur == 0 && limit.rlim_max == 0 && filter() == "00000000" ? 0 : 2;
              }),
              0);
}

TEST(CoreDumps, AreNotWrittenByACrash) {
    const QTemporaryDir folder;
    EXPECT_EQ(test::inChild([&] {
                  QDir::setCurrent(folder.path());
                  const rlimit any{RLIM_INFINITY, RLIM_INFINITY};
                  ::setrlimit(RLIMIT_CORE, &any);
                  keepMemoryOutOfCoreDumps();
                  ::signal(SIGSEGV, SIG_DFL);
                  ::raise(SIGSEGV);
                  return 0;
              }),
              -SIGSEGV);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

} // namespace
} // namespace lexivore
