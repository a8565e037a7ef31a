// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

namespace lexivore {

/// Ends the program when SIGTERM, SIGINT or SIGHUP asks for it, by way of the event loop, so that everything is cleaned
/// up. A signal that was ignored when the program started (nohup) stays ignored. A program that is too busy to end in
/// two seconds, or gets the same signal again, is ended by the system. From then on a reader of what the program prints
/// may go without ending it. One object at a time.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

private:
    void end();

    QSocketNotifier *m_notifier = nullptr;
};

} // namespace lexivore
