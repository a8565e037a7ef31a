// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/long_run_actions.h"

#include "manager/text_conversion.h"
#include "ui/operations/draggable_operation_item.h"
#include "ui/sheets/sheet.h"
#include "ui/sheets/sheet_layer.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSlider>

#include <cstdlib>
#include <string_view>

namespace lexivore {

namespace {

constexpr std::size_t longestText = 60'000;
constexpr std::size_t mostOperations = 30;
constexpr std::size_t mostRecipes = 30;

} // namespace

std::uint64_t wanted(const char *variable, std::uint64_t ordinarily) {
    const char *const asked = std::getenv(variable);
    return asked != nullptr ? std::strtoull(asked, nullptr, 10) : ordinarily;
}

const LongRunActions::Kind LongRunActions::kinds[] = {
    {"apply from the list", &LongRunActions::applyFromList, 14},
    {"apply from the menu", &LongRunActions::applyFromMenu, 8},
    {"type", &LongRunActions::typeInEditor, 14},
    {"select with the mouse", &LongRunActions::selectWithMouse, 4},
    {"toggle", &LongRunActions::toggle, 6, true},
    {"move", &LongRunActions::move, 4, true},
    {"drag", &LongRunActions::drag, 3, true},
    {"edit", &LongRunActions::edit, 5, true},
    {"remove", &LongRunActions::remove, 4, true},
    {"pause", &LongRunActions::pause, 4},
    {"switch mode", &LongRunActions::switchMode, 2},
    {"undo", &LongRunActions::undo, 6},
    {"redo", &LongRunActions::redo, 5},
    {"paste", &LongRunActions::paste, 3},
    {"copy", &LongRunActions::copy, 2},
    {"open or save", &LongRunActions::openOrSave, 2},
    {"clear", &LongRunActions::clear, 2},
    {"apply a recipe", &LongRunActions::applyRecipe, 3},
    {"save a recipe", &LongRunActions::saveRecipe, 2},
    {"manage recipes", &LongRunActions::manageRecipes, 2},
    {"run a tool", &LongRunActions::runTool, 3},
    {"find", &LongRunActions::findInText, 4},
    {"search", &LongRunActions::search, 3},
    {"choose a category", &LongRunActions::chooseCategory, 4},
    {"star", &LongRunActions::star, 2},
    {"zoom", &LongRunActions::zoom, 3},
    {"settings", &LongRunActions::changeSettings, 2},
    {"show and hide", &LongRunActions::showAndHide, 2},
    {"resize", &LongRunActions::resizeWindow, 1},
};

LongRunActions::LongRunActions() : m_seed(wanted("LEXIVORE_TEST_SEED", 20240229)), m_random(m_seed) {
    chosenFile = m_folder.filePath("text.txt");
    useStackMode();
}

std::string LongRunActions::act() {
    const std::size_t size = manager().currentText().size();
    const bool isFull = size > longestText || manager().appliedOperations().size() > mostOperations;
    if (isFull || (size == 0 && below(3) == 0)) {
        startAnew();
    }
    m_description.clear();
    unsigned all = 0;
    for (const Kind &kind : kinds) {
        all += kind.weight;
    }
    std::size_t chosen = below(all);
    const Kind *kind = kinds;
    for (; chosen >= kind->weight; ++kind) {
        chosen -= kind->weight;
    }
    say(kind->name);
    const std::vector<AppliedOperation> operations = manager().appliedOperations();
    const bool wasPaused = !state().operationsEnabled();
    (this->*kind->act)();
    answerSheets();
    const bool hasGoneOn = wasPaused && state().operationsEnabled();
    if (hasGoneOn || (kind->runsStackAgain && !haveSameFields(operations, manager().appliedOperations()))) {
        m_textMayDiffer = false;
    }
    QTest::qWait(0); // timers, deferred deletion, painting
    return kind->name;
}

void LongRunActions::startAnew() {
    state().setOperationsEnabled(true);
    manager().clearAll();
    setText(someText() + "x");
    m_textMayDiffer = false;
}

std::string LongRunActions::someText() {
    static constexpr std::string_view pieces[] = {"The quick brown fox ",
                                                  "jumps over ",
                                                  "a lazy dog. ",
                                                  "\n",
                                                  "\n\n",
                                                  "\r\n",
                                                  "\t",
                                                  "Żółć ",
                                                  "don't ",
                                                  "x",
                                                  "e\u0301",
                                                  "👨‍👩‍👧 ",
                                                  "नमस्ते ",
                                                  "\u2028",
                                                  "12,5 ",
                                                  "# ",
                                                  "שלום ",
                                                  "<b>&amp;",
                                                  "%C3 ",
                                                  "SGVsbG8=\n"};
    std::string text;
    for (std::size_t left = below(60); left > 0; --left) {
        text += oneOf(pieces);
    }
    return text;
}

void LongRunActions::clickIfShown(const QString &name) {
    const QWidget *const widget = find(name);
    if (widget != nullptr && widget->isVisible() && widget->isEnabled()) {
        say(name.toStdString());
        click(name);
    }
}

/// As an input method does it: not every letter has a key.
void LongRunActions::enter(const char *text) {
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(QApplication::focusWidget(), &event);
}

/// What the list shows is clicked; what it does not show is not there for this user.
void LongRunActions::applyFromList() {
    const Catalog &catalog = manager().transformations();
    for (int tries = 0; tries < 10; ++tries) {
        const QString name = "transformation." + toQString(catalog[below(catalog.size())]->id());
        if (isShown(name)) {
            return clickIfShown(name);
        }
    }
}

void LongRunActions::applyFromMenu() {
    const Catalog &catalog = manager().transformations();
    const TransformationPointer &chosen = catalog[below(catalog.size())];
    say(chosen->id());
    center().post(notification::applyTransformation, toQString(chosen->id()));
}

void LongRunActions::typeInEditor() {
    focusEditor();
    for (std::size_t left = below(10) + 1; left > 0; --left) {
        static constexpr Qt::Key keys[] = {Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,
                                           Qt::Key_Home,  Qt::Key_End,    Qt::Key_Delete, Qt::Key_Backspace,
                                           Qt::Key_Tab,   Qt::Key_Return, Qt::Key_Insert, Qt::Key_PageDown,
                                           Qt::Key_PageUp};
        static constexpr Qt::KeyboardModifier modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                             Qt::ControlModifier};
        static constexpr Qt::Key commands[] = {Qt::Key_A, Qt::Key_C, Qt::Key_V, Qt::Key_X, Qt::Key_Z, Qt::Key_Y};
        static constexpr const char *words[] = {"typed word ", "É", "a", " ", "שלום"};
        m_textMayDiffer = true;
        switch (below(4)) {
        case 0:
        case 1:
            press(oneOf(keys), oneOf(modifiers));
            break;
        case 2:
            enter(oneOf(words));
            break;
        default:
            press(oneOf(commands), Qt::ControlModifier);
            break;
        }
    }
}

void LongRunActions::selectWithMouse() {
    QWidget *const place = find("editor")->findChild<QWidget *>("qt_scrollarea_viewport");
    const auto somewhere = [&] {
        return QPoint(static_cast<int>(below(static_cast<std::size_t>(place->width()))),
                      static_cast<int>(below(static_cast<std::size_t>(place->height()))));
    };
    QTest::mousePress(place, Qt::LeftButton, Qt::NoModifier, somewhere());
    QTest::mouseMove(place, somewhere());
    QTest::mouseRelease(place, Qt::LeftButton, Qt::NoModifier, somewhere());
    if (below(3) == 0) {
        QTest::mouseDClick(place, Qt::LeftButton, Qt::NoModifier, somewhere());
    }
    m_textMayDiffer = true; // a selection is dragged elsewhere now and then
}

/// Null when there is none, or the panel is hidden.
QWidget *LongRunActions::someOperation() {
    const std::size_t count = manager().appliedOperations().size();
    QWidget *const row = count > 0 ? find(QString("operation.%1").arg(below(count))) : nullptr;
    return row != nullptr && row->isVisible() && row->isEnabled() ? row : nullptr;
}

void LongRunActions::pressOnOperation(const char *what, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (QWidget *const row = someOperation()) {
        say(std::string(what) + " " + row->objectName().toStdString());
        row->setFocus(Qt::TabFocusReason);
        QTest::keyClick(row, key, modifiers);
    }
}

void LongRunActions::toggle() { pressOnOperation("toggle", Qt::Key_Space); }

void LongRunActions::move() { pressOnOperation("move", below(2) == 0 ? Qt::Key_Up : Qt::Key_Down, Qt::AltModifier); }

void LongRunActions::drag() {
    QWidget *const to = someOperation();
    if (to == nullptr) {
        return;
    }
    const std::vector<AppliedOperation> &operations = manager().appliedOperations();
    QMimeData payload;
    payload.setData(DraggableOperationItem::mimeType, "token");
    state().setDraggedOperation(operations[below(operations.size())]);
    QDragEnterEvent enter({20, 10}, Qt::MoveAction, &payload, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(to, &enter);
    QDropEvent drop(QPointF(20, 10), Qt::MoveAction, &payload, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(to, &drop);
}

void LongRunActions::edit() { pressOnOperation("edit", Qt::Key_F2); }

void LongRunActions::remove() { pressOnOperation("remove", Qt::Key_Delete); }

void LongRunActions::pause() { clickIfShown("pause"); }

void LongRunActions::switchMode() { clickIfShown("modeSwitch"); }

void LongRunActions::undo() {
    m_textMayDiffer = true;
    for (std::size_t left = below(4) + 1; left > 0; --left) {
        press(Qt::Key_Z, Qt::ControlModifier);
    }
}

void LongRunActions::redo() {
    m_textMayDiffer = true;
    for (std::size_t left = below(4) + 1; left > 0; --left) {
        press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }
}

void LongRunActions::paste() {
    m_textMayDiffer = true;
    QGuiApplication::clipboard()->setText(toQString(someText()));
    click("paste");
}

void LongRunActions::copy() { clickIfShown("copy"); }

void LongRunActions::openOrSave() {
    m_textMayDiffer = true;
    const bool opens = below(2) == 0 && QFile::exists(*chosenFile);
    say(opens ? "open" : "save");
    chosenFile = m_folder.filePath("text.txt");
    center().post(opens ? notification::openFile : notification::saveFile);
}

void LongRunActions::clear() { clickIfShown(below(3) == 0 ? "clearText" : "clearOperations"); }

void LongRunActions::applyRecipe() {
    const std::vector<Recipe> &recipes = manager().recipes();
    const Recipe &recipe = recipes[below(recipes.size())];
    say(recipe.name);
    center().post(notification::applyRecipe, recipe.id.toString(QUuid::WithoutBraces).toUpper());
}

void LongRunActions::saveRecipe() { clickIfShown("saveRecipe"); }

void LongRunActions::manageRecipes() {
    chosenFile = m_folder.filePath("recipes.json");
    if (manager().recipes().size() > mostRecipes) { // importing its own exports would double them each time
        manager().deleteRecipe(manager().recipes().back());
    }
    center().post(notification::showManageRecipes);
}

void LongRunActions::runTool() {
    static constexpr const char *tools[] = {"statistics", "character-frequency", "reading-time", "readability"};
    const QString chosen(oneOf(tools));
    say(chosen.toStdString());
    center().post(notification::runTool, chosen);
}

void LongRunActions::findInText() {
    center().post(notification::find);
    static constexpr const char *needles[] = {"o", "fox", "é", "zzz", " "};
    enter(oneOf(needles));
    for (std::size_t left = below(4); left > 0; --left) {
        press(Qt::Key_Return, below(2) == 0 ? Qt::NoModifier : Qt::ShiftModifier);
    }
    if (below(2) == 0) {
        press(Qt::Key_Escape);
    }
}

void LongRunActions::search() {
    center().post(notification::searchTransformations);
    if (auto *const field = find<QLineEdit>("search"); field != nullptr && field->isVisible()) {
        field->setFocus();
        static constexpr const char *words[] = {"case", "line", "a", "zzz", "encode"};
        enter(oneOf(words));
        if (below(3) > 0) {
            press(Qt::Key_Escape);
        }
    }
}

void LongRunActions::chooseCategory() {
    clickIfShown("category." + toQString(rawValue(oneOf(allTransformationCategories))));
}

void LongRunActions::star() {
    const QList<QAbstractButton *> stars = window().findChildren<QAbstractButton *>("star");
    if (!stars.isEmpty()) {
        QAbstractButton *const chosen = stars[static_cast<int>(below(static_cast<std::size_t>(stars.size())))];
        if (chosen->isVisible() && chosen->isEnabled()) {
            clickAt(chosen, chosen->rect().center());
        }
    }
}

void LongRunActions::zoom() {
    static constexpr const char *commands[] = {notification::zoomIn, notification::zoomOut, notification::resetZoom};
    center().post(oneOf(commands));
}

void LongRunActions::changeSettings() { clickIfShown("editorSettings"); }

/// Each is shown again by the next action that needs it.
void LongRunActions::showAndHide() {
    const char *const chosen = below(2) == 0 ? notification::toggleOperations : notification::toggleSidebar;
    center().post(chosen);
    if (below(4) > 0) {
        center().post(chosen);
    }
}

void LongRunActions::resizeWindow() {
    window().resize(900 + static_cast<int>(below(700)), 500 + static_cast<int>(below(500)));
}

/// Fills in whatever there is, clicks around, and leaves at last.
void LongRunActions::answerSheets() {
    for (int rounds = 0; rounds < 12 && SheetLayer::isOver(window()); ++rounds) {
        const QList<Sheet *> sheets = window().findChildren<Sheet *>();
        if (rounds < 8) {
            playWith(*sheets.back());
        } else {
            QTest::keyClick(sheets.back(), Qt::Key_Escape);
        }
        QTest::qWait(0);
    }
    ASSERT_FALSE(SheetLayer::isOver(window())) << "a sheet cannot be left";
}

void LongRunActions::playWith(QWidget &sheet) {
    for (auto *const field : sheet.findChildren<QLineEdit *>()) {
        if (field->isVisible() && below(3) > 0) {
            static constexpr const char *values[] = {"2", "o", "> ", "", "abc", "(\\w)o", "é", "7", "x: ", "10"};
            field->setText(oneOf(values));
        }
    }
    for (auto *const slider : sheet.findChildren<QSlider *>()) {
        slider->setValue(slider->minimum() +
                         static_cast<int>(below(static_cast<std::size_t>(slider->maximum() - slider->minimum()))));
    }
    QList<QAbstractButton *> buttons;
    for (auto *const button : sheet.findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->isEnabled() && button->objectName() != "dontAskAgain") {
            buttons << button;
        }
    }
    if (buttons.isEmpty()) {
        QTest::keyClick(&sheet, Qt::Key_Escape);
        return;
    }
    QAbstractButton *const chosen = buttons[static_cast<int>(below(static_cast<std::size_t>(buttons.size())))];
    say("in the sheet " + chosen->objectName().toStdString() + " " + chosen->text().toStdString());
    if (auto *const menu = chosen->findChild<QMenu *>()) { // opened, it would wait for an answer of its own
        emit menu->aboutToShow();
        const QList<QAction *> actions = menu->actions();
        ASSERT_FALSE(actions.empty());
        actions[static_cast<int>(below(static_cast<std::size_t>(actions.size())))]->trigger();
    } else {
        clickAt(chosen, chosen->rect().center());
    }
}

} // namespace lexivore
