// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/memory_limit.h"

#include "engine/primitives/text_buffer.h"
#include "tests/support/files.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <sys/resource.h>
#include <unistd.h>

namespace lexivore {
namespace {

TEST(MemoryLimit, TheStrictestControlGroupCounts) {
    const QTemporaryDir root;
    const std::string path = root.path().toStdString();
    QDir(root.path()).mkpath("slice/app/part");
    test::writeBytes(root.filePath("slice/memory.max"), "4096000\n");
    test::writeBytes(root.filePath("slice/app/memory.max"), "max\n");
    test::writeBytes(root.filePath("slice/app/part/memory.max"), "8192000\n");
    EXPECT_EQ(memoryOfControlGroup("0::/slice/app/part", path), 4096000U);
    EXPECT_EQ(memoryOfControlGroup("0::/slice/app", path), 4096000U);
    const std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(memoryOfControlGroup("0::/", path), unlimited);
    EXPECT_EQ(memoryOfControlGroup("0::/gone", path), unlimited);
    EXPECT_EQ(memoryOfControlGroup("12:memory:/slice", path), unlimited);
    EXPECT_EQ(memoryOfControlGroup("", path), unlimited);
}

#ifndef __SANITIZE_ADDRESS__
TEST(MemoryLimit, MoreThanTheMachineHasIsRefusedInsteadOfGranted) {
    EXPECT_EQ(test::inChild([] {
                  limitMemory();
                  const auto physical = static_cast<std::size_t>(::sysconf(_SC_PHYS_PAGES)) *
                                        static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
                  try {
                      const TextBuffer most = TextBuffer::withCapacity(physical / 8 * 7);
                      return 1;
                  } catch (const std::bad_alloc &) {
                      return TextBuffer::withCapacity(std::size_t{64} << 20U).empty() ? 0 : 2;
                  }
              }),
              0);
}

TEST(MemoryLimit, ProgramsCanBeStartedWithoutIt) {
    EXPECT_EQ(test::inChild([] {
                  const auto limit = [] {
                      rlimit now{};
                      ::getrlimit(RLIMIT_DATA, &now);
                      return now.rlim_cur;
                  };
                  const rlim_t before = limit();
                  { const ChildrenWithoutMemoryLimit nothingToLift; }
                  if (limit() != before) {
                      return 1;
                  }
                  limitMemory();
                  const rlim_t limited = limit();
                  for (int times = 0; times < 2; ++times) {
                      {
                          const ChildrenWithoutMemoryLimit lifted;
                          if (limit() != before) {
                              return 2;
                          }
                      }
                      if (limit() != limited || limited == before) {
                          return 3;
                      }
                  }
                  return 0;
              }),
              0);
}

TEST(MemoryLimit, AStricterLimitStays) {
    EXPECT_EQ(test::inChild([] {
                  const rlimit strict{std::size_t{100} << 20U, RLIM_INFINITY};
                  ::setrlimit(RLIMIT_DATA, &strict);
                  limitMemory();
                  rlimit now{};
                  ::getrlimit(RLIMIT_DATA, &now);
                  return now.rlim_cur == strict.rlim_cur ? 0 : 1;
              }),
              0);
}
#endif

} // namespace
} // namespace lexivore
