// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/termination_signals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace lexivore {

namespace {

constexpr std::array endingSignals = {SIGTERM, SIGINT, SIGHUP};
constexpr unsigned longestEnd = 2; // seconds

// What a signal handler can reach.
volatile std::sig_atomic_t writingEnd = -1;

/// Calls only what POSIX allows in a handler.
void receive(int) {
    const int error = errno;
    ::alarm(longestEnd);
    const char byte = 0;
    // A full pipe already says it all.
    [[maybe_unused]] const ssize_t written = ::write(writingEnd, &byte, 1);
    errno = error;
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent) : QObject(parent) {
    ::signal(SIGPIPE, SIG_IGN); // then writing fails, which nobody minds
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals then end the program as they always do
    }
    writingEnd = ends[1];
    m_notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::end);
    struct sigaction action {};
    action.sa_handler = receive;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int signal : endingSignals) {
        struct sigaction before {};
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) {
            ::sigaction(signal, &action, nullptr);
        }
    }
}

TerminationSignals::~TerminationSignals() {
    if (m_notifier == nullptr) {
        return;
    }
    for (const int signal : endingSignals) {
        struct sigaction current {};
        ::sigaction(signal, nullptr, &current);
        if (current.sa_handler == receive) {
            ::signal(signal, SIG_DFL);
        }
    }
    ::close(static_cast<int>(m_notifier->socket()));
    ::close(writingEnd);
    writingEnd = -1;
}

void TerminationSignals::end() {
    m_notifier->setEnabled(false);
    QCoreApplication::exit();
}

} // namespace lexivore
