// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// A program without windows that starts, comes forward and ends as the real one does. Usage: desktop_probe FOLDER LOG
// [FILE...]. Its lock and socket are in FOLDER; what happens it writes to LOG, a line each. A file named "hang" keeps
// it busy for good.

#include "services/desktop_activation.h"
#include "services/single_instance.h"
#include "services/termination_signals.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>
#include <QTimer>

namespace {

void log(const QString &line) {
    QFile file(QCoreApplication::arguments().value(2));
    if (file.open(QIODevice::Append)) {
        file.write(line.toUtf8() + '\n'); // one write, so that two processes do not mix their lines
    }
}

} // namespace

int main(int argc, char **argv) {
    using namespace lexivore;
    QCoreApplication application(argc, argv);
    QTimer::singleShot(std::chrono::minutes(1), &application, &QCoreApplication::quit); // when its test is gone
    log("started");
    const QStringList arguments = QCoreApplication::arguments();
    const SingleInstance::Request request{arguments.mid(3), "start", DesktopActivation::sessionBusAddress()};
    SingleInstance instance(arguments.value(1));
    if (instance.start(request) == SingleInstance::Role::secondary) {
        log("secondary");
        return 0;
    }
    const TerminationSignals endings;
    DesktopActivation activation;
    const auto report = [](const SingleInstance::Request &later) {
        log(QString("requested [%1] %2").arg(later.files.join('|'), later.activationToken));
        while (later.files.contains("hang")) {
            QThread::sleep(1);
        }
    };
    QObject::connect(&instance, &SingleInstance::requested, report);
    QObject::connect(&instance, &SingleInstance::requested, &activation,
                     [&activation](const SingleInstance::Request &later) { activation.join(later.busAddress); });
    QObject::connect(&activation, &DesktopActivation::requested, report);
    activation.join(request.busAddress);
    log("primary");
    const int result = QCoreApplication::exec();
    log("ended");
    return result;
}
