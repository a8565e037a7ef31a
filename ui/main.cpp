// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/preferences.h"
#include "ui/icon.h"
#include "ui/shell/lexivore_app.h"
#include "ui/theme/style.h"

#include <QApplication>

namespace {

/// Preferences that last as long as the program runs.
class SessionPreferences : public lexivore::Preferences {
public:
    [[nodiscard]] QVariant value(const QString &key) const override { return m_values.value(key); }
    void setValue(const QString &key, const QVariant &value) override { m_values[key] = value; }
    void remove(const QString &key) override { m_values.remove(key); }

private:
    QVariantMap m_values;
};

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("lexivore");
    QApplication::setApplicationDisplayName("Lexivore");
    lexivore::Style::install(application);
    QApplication::setWindowIcon(lexivore::applicationIcon());

    SessionPreferences preferences;
    lexivore::LexivoreApp app(preferences);
    app.window().show();
    return QApplication::exec();
}
