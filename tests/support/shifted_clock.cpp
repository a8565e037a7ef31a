// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/shifted_clock.h"

#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

std::time_t shift = 0;

timespec systemTime(clockid_t clock) {
    timespec time{};
    ::syscall(SYS_clock_gettime, clock, &time);
    return time;
}

timespec wallTime() {
    timespec time = systemTime(CLOCK_REALTIME);
    time.tv_sec += shift;
    return time;
}

} // namespace

// The whole program's clocks, libraries included.
extern "C" {
int clock_gettime(clockid_t clock, timespec *time) noexcept {
    const bool isWallClock = clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE;
    *time = isWallClock ? wallTime() : systemTime(clock);
    return 0;
}

int gettimeofday(timeval *time, void *) noexcept {
    const timespec now = wallTime();
    *time = {now.tv_sec, now.tv_nsec / 1000};
    return 0;
}

std::time_t time(std::time_t *result) noexcept {
    const std::time_t now = wallTime().tv_sec;
    if (result != nullptr) {
        *result = now;
    }
    return now;
}
}

namespace lexivore::test {

void setClock(std::time_t seconds) { shift = seconds - systemTime(CLOCK_REALTIME).tv_sec; }

} // namespace lexivore::test
