// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/json_preferences.h"
#include "ui/icon.h"
#include "ui/shell/lexivore_app.h"
#include "ui/theme/style.h"

#include <QApplication>

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("lexivore");
    QApplication::setApplicationDisplayName("Lexivore");
    lexivore::Style::install(application);
    QApplication::setWindowIcon(lexivore::applicationIcon());

    lexivore::JsonPreferences preferences;
    lexivore::LexivoreApp app(preferences);
    app.window().show();
    return QApplication::exec();
}
