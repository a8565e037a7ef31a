// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// A program of one instance, for the tests to start, kill and start again. Prints "primary" or "secondary", and as the
// first one every request; ends when it is told to on standard input.

#include "services/single_instance.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>

int main(int argc, char **argv) {
    using lexivore::SingleInstance;
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    SingleInstance instance(arguments.value(1));
    QObject::connect(&instance, &SingleInstance::requested, [](const SingleInstance::Request &request) {
        std::printf("requested [%s] %s\n", qPrintable(request.files.join('|')), qPrintable(request.activationToken));
        std::fflush(stdout);
    });
    const bool isPrimary = instance.start({arguments.mid(2), "token", {}}) == SingleInstance::Role::primary;
    std::puts(isPrimary ? "primary" : "secondary");
    std::fflush(stdout);
    if (!isPrimary) {
        return 0;
    }
    QSocketNotifier told(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&told, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
