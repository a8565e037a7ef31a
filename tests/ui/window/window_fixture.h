// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/preferences.h"
#include "tests/support/memory_preferences.h"
#include "ui/shell/lexivore_app.h"
#include "ui/window/file_panels.h"
#include "ui/window/window_state.h"

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace lexivore {

/// Answers every question for a file at once with the path that the test set; without one the user cancels.
class ScriptedPanels : public FilePanels {
public:
    explicit ScriptedPanels(std::optional<QString> &path) : m_path(path) {}
    void askForFileToOpen(Answer answer) override { give(answer); }
    void askForFileToSave(Answer answer) override { give(answer); }
    void askForRecipesToImport(Answer answer) override { give(answer); }
    void askForRecipesToExport(const QString &name, Answer answer) override {
        proposedName = name;
        give(answer);
    }

    static inline QString proposedName; ///< The last one for a file of recipes.
    static inline Answer unanswered;    ///< To the last question that found no answer prepared.

private:
    void give(const Answer &answer) {
        if (m_path) {
            answer(*m_path);
        } else {
            unanswered = answer;
        }
    }
    std::optional<QString> &m_path;
};

/// The program with its window shown, driven by mouse and keyboard on widgets found by name.
class WindowTest : public testing::Test {
public:
    WindowTest();
    ~WindowTest() override;

protected:
    void restart();

    [[nodiscard]] TransformationManager &manager() { return m_app->transformationManager(); }
    [[nodiscard]] NotificationCenter &center() { return m_app->notificationCenter(); }
    [[nodiscard]] LexivoreApp &app() { return *m_app; }
    [[nodiscard]] ContentView &window() { return m_app->window(); }
    [[nodiscard]] WindowState &state() { return window().state(); }
    [[nodiscard]] std::string text() { return std::string(manager().currentText().view()); }

    /// The widget of this name; null when there is none.
    template<typename Widget = QWidget> [[nodiscard]] Widget *find(const QString &name) {
        return window().findChild<Widget *>(name);
    }
    /// Whether there is such a widget and it can be seen.
    [[nodiscard]] bool isShown(const QString &name);
    /// Scrolls to the widget if need be and clicks into its middle. Fails when it cannot be seen.
    void click(const QString &name);
    void clickAt(QWidget *widget, QPoint position);
    /// Chooses a menu command by its object name, as the mouse does: a disabled one does nothing.
    void choose(const QString &command);
    [[nodiscard]] QAction *command(const QString &name);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);
    /// The widget with its children, on nothing.
    [[nodiscard]] static QImage pictureOf(QWidget *widget);
    /// What the tooltip reads that shows when the mouse rests on the widget.
    [[nodiscard]] static QString toolTipOf(QWidget *widget);
    /// Puts the keyboard in the editor.
    void focusEditor();
    /// The text as if it had been opened.
    void setText(std::string_view text);
    void useStackMode();

    test::MemoryPreferences preferences;
    std::optional<QString> chosenFile;

private:
    std::unique_ptr<LexivoreApp> m_app;
};

} // namespace lexivore
