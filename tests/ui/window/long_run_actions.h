// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/ui/window/window_fixture.h"

#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace lexivore {

/// The number in an environment variable, or what is ordinary without it.
[[nodiscard]] std::uint64_t wanted(const char *variable, std::uint64_t ordinarily);

/// A user who does anything at all, with mouse and keys, and as the seed says always the same.
class LongRunActions : public WindowTest {
protected:
    LongRunActions();

    /// Does one thing and answers all sheets that this opens. Gives the kind of thing.
    std::string act();
    /// A new text with nothing done to it.
    void startAnew();

    /// What was done last, in words.
    [[nodiscard]] const std::string &description() const { return m_description; }
    /// Whether something else than the stack may have made the text that is shown: a hand, a file, a step back.
    [[nodiscard]] bool textMayDifferFromStack() const { return m_textMayDiffer; }
    [[nodiscard]] std::uint64_t seed() const { return m_seed; }
    [[nodiscard]] std::size_t below(std::size_t limit) { return static_cast<std::size_t>(m_random() % limit); }

private:
    struct Kind {
        const char *name;
        void (LongRunActions::*act)();
        unsigned weight;
        bool runsStackAgain = false; ///< When it changes the stack at all.
    };
    static const Kind kinds[];

    template<typename List> [[nodiscard]] const auto &oneOf(const List &list) { return list[below(std::size(list))]; }
    [[nodiscard]] std::string someText();
    void say(const std::string &what) { m_description += (m_description.empty() ? "" : ", ") + what; }

    void applyFromList();
    void applyFromMenu();
    void typeInEditor();
    void selectWithMouse();
    void toggle();
    void move();
    void drag();
    void edit();
    void remove();
    void pause();
    void switchMode();
    void undo();
    void redo();
    void paste();
    void copy();
    void openOrSave();
    void clear();
    void applyRecipe();
    void saveRecipe();
    void manageRecipes();
    void runTool();
    void findInText();
    void search();
    void chooseCategory();
    void star();
    void zoom();
    void changeSettings();
    void showAndHide();
    void resizeWindow();

    [[nodiscard]] QWidget *someOperation();
    void pressOnOperation(const char *what, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void enter(const char *text);
    void clickIfShown(const QString &name);
    void answerSheets();
    void playWith(QWidget &sheet);

    std::uint64_t m_seed;
    std::mt19937_64 m_random;
    QTemporaryDir m_folder;
    std::string m_description;
    bool m_textMayDiffer = false;
};

} // namespace lexivore
