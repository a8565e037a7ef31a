// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/shell/lexivore_app.h"

#include "manager/preferences.h"
#include "ui/shell/menu_bar_builder.h"
#include "ui/shell/open_address.h"
#include "ui/updates/update_flow.h"

#include <QApplication>

#include <utility>

namespace lexivore {

LexivoreApp::LexivoreApp(Preferences &preferences, std::unique_ptr<FilePanels> panels, const QVariantMap &information)
    : m_preferences(preferences), m_appDelegate(information, preferences, &openAddress),
      m_transformationManager(preferences),
      m_window(std::make_unique<ContentView>(m_transformationManager, m_toolsManager, preferences, m_center,
                                             std::move(panels))),
      m_menuBar(new MenuBarBuilder(*m_window, m_center, m_transformationManager, m_toolsManager,
                                   m_appDelegate.updaterController().updater(), information)),
      m_updateFlow(std::make_unique<UpdateFlow>(m_appDelegate.updaterController().updater(), *m_window, &openAddress)) {
    subscribe();
    m_appDelegate.adoptWindow(m_window.get(), [this] { m_window->hide(); });
}

void LexivoreApp::comeForward(const QStringList &files, const QString &activationToken) {
    if (!activationToken.isEmpty()) {
        // Where the toolkit takes it from when a window is activated.
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    }
    m_window->show();
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->raise();
    QWidget *dialog = QApplication::activeModalWidget(); // the only one that takes keys
    (dialog != nullptr ? dialog : m_window.get())->activateWindow();
    m_window->openFiles(files);
}

LexivoreApp::~LexivoreApp() = default;

void LexivoreApp::subscribe() {
    m_center.subscribe(notification::toggleStackOperationMode, this, [this](const QVariant &) {
        m_stackOperationMode = !m_stackOperationMode;
        m_menuBar->setStackOperationMode(m_stackOperationMode);
    });
    m_center.subscribe(notification::toggleOperations, this,
                       [this](const QVariant &) { m_showOperations = !m_showOperations; });
    m_center.subscribe(notification::toggleSidebar, this, [this](const QVariant &) { m_showSidebar = !m_showSidebar; });
    m_center.subscribe(notification::textChanged, this, [this](const QVariant &object) { setHasText(object); });
}

void LexivoreApp::setHasText(const QVariant &object) {
    if (object.typeId() != QMetaType::Bool) {
        return;
    }
    m_hasText = object.toBool();
    m_menuBar->setHasText(m_hasText);
    // Most changes of the text do not change this, and each write goes to the disk.
    const QVariant stored = m_preferences.value(preference::hasText);
    if (stored.typeId() != QMetaType::Bool || stored.toBool() != m_hasText) {
        m_preferences.setValue(preference::hasText, m_hasText);
    }
}

} // namespace lexivore
