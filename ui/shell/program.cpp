// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/shell/program.h"

#include "manager/json_preferences.h"
#include "services/bundle_information.h"
#include "services/desktop_activation.h"
#include "services/single_instance.h"
#include "services/termination_signals.h"
#include "ui/icon.h"
#include "ui/shell/lexivore_app.h"
#include "ui/shell/tray_icon.h"
#include "ui/theme/style.h"
#include "ui/theme/system_appearance.h"
#include "ui/translation.h"

#include <QApplication>
#include <QFileInfo>
#include <QLocale>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>
#include <QWindow>

namespace lexivore {

namespace {

void describe(const QVariantMap &information) {
    QApplication::setApplicationName("lexivore");
    QApplication::setApplicationDisplayName("Lexivore");
    QApplication::setApplicationVersion(information.value(bundle_key::version).toString());
    QApplication::setDesktopFileName(DesktopActivation::serviceName);
    // Closing the window hides the program; starting it again brings it back.
    QApplication::setQuitOnLastWindowClosed(false);
}

/// What this start asks for: the files that it was given, and the token with which it may take the keyboard.
SingleInstance::Request requestOfThisStart() {
    SingleInstance::Request request;
    for (const QString &file : QCoreApplication::arguments().mid(1)) {
        request.files << QFileInfo(file).absoluteFilePath();
    }
    request.activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    request.busAddress = DesktopActivation::sessionBusAddress();
    return request;
}

/// A launcher on X11 shows that it waits until a window of what it has started comes. The toolkit ends this with the
/// first one that is shown, so a start that hands over to the running program shows one that nobody sees.
void endStartupNotification() {
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        QWindow unseen;
        unseen.setFlags(Qt::BypassWindowManagerHint | Qt::WindowTransparentForInput);
        unseen.setGeometry(-1, -1, 1, 1);
        unseen.show();
        QGuiApplication::sync(); // the program ends at once
    }
}

/// What lies beyond the edge of the screen is out of reach: at first on a small one, later where a larger one is gone.
void fitOnScreen(QWidget &window) {
    QSize room;
    for (const QScreen *screen : QGuiApplication::screens()) {
        room = room.expandedTo(screen->availableSize());
    }
    room.rheight() -= window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    window.resize(window.size().boundedTo(room));
}

} // namespace

int runProgram(QApplication &application, const QVariantMap &information) {
    describe(information);
    const SingleInstance::Request request = requestOfThisStart();
    SingleInstance instance(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
    if (instance.start(request) == SingleInstance::Role::secondary) {
        endStartupNotification();
        return 0;
    }
    const TerminationSignals signalsOfTheSystem;
    DesktopActivation activation;
    activation.join(request.busAddress);

    installTranslations(application, QLocale().uiLanguages());
    Style::install(application);
    followSystemAppearance(application);
    QApplication::setWindowIcon(applicationIcon());
    JsonPreferences preferences;
    LexivoreApp app(preferences, nullptr, information);
    fitOnScreen(app.window());
    TrayIcon tray;
    const auto comeForward = [&app](const SingleInstance::Request &later) {
        app.comeForward(later.files, later.activationToken);
    };
    QObject::connect(&activation, &DesktopActivation::requested, &app, comeForward);
    QObject::connect(&instance, &SingleInstance::requested, &app, comeForward);
    // The bus may have started that instance, and waits for the name with what it is to tell us.
    QObject::connect(&instance, &SingleInstance::requested, &activation,
                     [&activation](const SingleInstance::Request &later) { activation.join(later.busAddress); });
    QObject::connect(&tray, &TrayIcon::showRequested, &app, [&app] { app.comeForward(); });
    app.comeForward(request.files);
    return QApplication::exec();
}

} // namespace lexivore
