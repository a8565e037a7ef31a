// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/json_preferences.h"
#include "services/bundle_information.h"
#include "services/single_instance.h"
#include "ui/icon.h"
#include "ui/shell/lexivore_app.h"
#include "ui/theme/style.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

/// What this start asks for: the files that it was given, and the token with which it may take the keyboard.
lexivore::SingleInstance::Request requestOfThisStart() {
    lexivore::SingleInstance::Request request;
    for (const QString &file : QCoreApplication::arguments().mid(1)) {
        request.files << QFileInfo(file).absoluteFilePath();
    }
    request.activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return request;
}

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("lexivore");
    QApplication::setApplicationDisplayName("Lexivore");
    QApplication::setApplicationVersion(
        lexivore::mainBundleInformation().value(lexivore::bundle_key::version).toString());
    // Closing the window hides the program; starting it again brings it back.
    QApplication::setQuitOnLastWindowClosed(false);

    const lexivore::SingleInstance::Request request = requestOfThisStart();
    lexivore::SingleInstance instance(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
    if (instance.start(request) == lexivore::SingleInstance::Role::secondary) {
        return 0;
    }

    lexivore::Style::install(application);
    QApplication::setWindowIcon(lexivore::applicationIcon());
    lexivore::JsonPreferences preferences;
    lexivore::LexivoreApp app(preferences);
    QObject::connect(&instance, &lexivore::SingleInstance::requested, &app,
                     [&app](const lexivore::SingleInstance::Request &later) { app.comeForward(later.files); });
    app.comeForward(request.files);
    return QApplication::exec();
}
