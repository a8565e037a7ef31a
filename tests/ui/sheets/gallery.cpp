// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
// Draws every sheet, alert, result view and control state into one PNG each, to look at:
// lexivore_gallery <folder> [--dark] [--points <size>]
#include "manager/transformation_manager.h"
#include "tests/support/memory_preferences.h"
#include "tools/tools_manager.h"
#include "ui/controls/field.h"
#include "ui/controls/focus_ring.h"
#include "ui/controls/label.h"
#include "ui/controls/push_button.h"
#include "ui/controls/switch.h"
#include "ui/controls/tool_button.h"
#include "ui/icon.h"
#include "ui/results/result_view_factory.h"
#include "ui/results/tool_view.h"
#include "ui/sheets/alert_sheet.h"
#include "ui/sheets/editor_settings_sheet.h"
#include "ui/sheets/manage_recipes_sheet.h"
#include "ui/sheets/parameter_input_sheet.h"
#include "ui/sheets/recipe_row.h"
#include "ui/sheets/recipe_save_sheet.h"
#include "ui/sheets/sheet_layer.h"
#include "ui/shell/lexivore_app.h"
#include "ui/theme/style.h"
#include "ui/theme/theme.h"
#include "ui/updates/progress_sheet.h"
#include "ui/updates/update_sheet.h"

#include <QApplication>
#include <QCheckBox>
#include <QCommandLineParser>
#include <QDir>
#include <QGridLayout>
#include <QMainWindow>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>

using namespace lexivore;

namespace {

QString folder;

void save(QWidget &window, const QRect &area, const QString &name) {
    QCoreApplication::processEvents();
    window.grab(area).save(QDir(folder).filePath(name + ".png"));
}

void show(const QString &name, Sheet *sheet, const std::function<void(Sheet &)> &prepare = {}) {
    QMainWindow window;
    window.setCentralWidget(new QWidget);
    window.resize(1000, 640);
    window.show();
    QApplication::setActiveWindow(&window);
    SheetLayer::show(window, sheet);
    QCoreApplication::processEvents();
    if (prepare) {
        prepare(*sheet);
    }
    QCoreApplication::processEvents();
    const QRect place(sheet->mapTo(&window, QPoint()), sheet->size());
    save(window, place.adjusted(-8, -8, 8, 8), name);
}

void hover(QWidget &widget) {
    QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), widget.mapToGlobal(QPointF(2, 2)));
    QApplication::sendEvent(&widget, &enter);
    widget.setAttribute(Qt::WA_UnderMouse);
    widget.update();
}

const char sample[] =
    "The lighthouse keeper walked down to the shore. He looked at the sea! Was it going to rain?\n"
    "Nobody knew. The wind came up from the west and the gulls went quiet.\n\nSo he went in and lit the lamp.";

void showParameters() {
    test::MemoryPreferences preferences;
    TransformationManager manager(preferences);
    const TransformationPointer regex = manager.findTransformation("replace-regex");
    show("parameters", new ParameterInputSheet(regex, {}, {}, {}), [](Sheet &sheet) {
        auto *field = qobject_cast<Field *>(QApplication::focusWidget());
        if (field != nullptr) {
            QTest::keyClicks(field, "(\\w+), (\\w+)");
        }
        Q_UNUSED(sheet)
    });
    const QString wild =
        QString("a\nb \u202Eright to left\u202C \U0001F468\u200D\U0001F469\u200D\U0001F467 ").repeated(300);
    ParameterMap values;
    for (const TransformationParameter &parameter : regex->parameters()) {
        values[parameter.id] = wild.toStdString();
    }
    show("parameters-wild", new ParameterInputSheet(regex, values, {}, {}));
}

void showRecipes() {
    test::MemoryPreferences preferences;
    TransformationManager manager(preferences);
    manager.ensureTemplates();
    show("save-empty", new RecipeSaveSheet({}, {}));
    show("save-named", new RecipeSaveSheet("Names, first before last", {}),
         [](Sheet &sheet) { sheet.findChild<Field *>()->deselect(); });
    show("manage-empty", new ManageRecipesSheet(manager));

    manager.setCurrentText(Text(std::string_view(sample)));
    const auto add = [&](const std::string &name, int operations) {
        manager.clearOperations();
        for (int i = 0; i < operations; ++i) {
            manager.applyTransformation(*manager.findTransformation("uppercase"), {});
        }
        manager.saveRecipe(name);
    };
    add("Names, first before last", 3);
    add("Mailing list", 2);
    add("Quarterly report headings", 5);
    add("Shout", 1);
    show("manage", new ManageRecipesSheet(manager), [](Sheet &sheet) {
        const auto rows = sheet.findChildren<RecipeRow *>();
        QTest::mouseClick(rows[1]->findChild<QWidget *>("rename"), Qt::LeftButton);
        auto *field = sheet.findChild<Field *>();
        field->setText("Mailing list cleanup");
        hover(*sheet.findChildren<RecipeRow *>()[2]);
    });
    add("line\nbreak\r\nand more", 1);
    add("\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD", 1);
    add(std::string(10000, 'x'), 1);
    add("\U0001F469\u200D\U0001F469\u200D\U0001F467 <b>family</b> & friends", 1);
    show("manage-wild", new ManageRecipesSheet(manager),
         [](Sheet &sheet) { QTest::keyClick(sheet.findChildren<RecipeRow *>().first(), Qt::Key_End); });
}

void showAlerts() {
    const auto alert = [](const QString &name, const AlertContents &contents) {
        show("alert-" + name, new AlertSheet(contents, {}), [](Sheet &sheet) {
            if (auto *box = sheet.findChild<QCheckBox *>()) {
                box->setChecked(true);
            }
        });
    };
    alert("clear", {"Clear Text", "Are you sure you want to clear all text?", "Clear", true});
    alert("clear-operations", {"Clear Operations", "Are you sure you want to clear all operations?", "Clear", true});
    alert("about", {.title = "Lexivore",
                    .message = "Version 1.0.0\n\nTransforms plain text.",
                    .confirmation = "OK",
                    .icon = applicationIcon()});
    alert("import",
          {"Error", "No recipes could be read from “/home/ada/Documents/recipes.json”: Recipe 3 has no \"category\".",
           "OK"});
    alert("error", {"Error", "Invalid input: Width must be a positive number", "OK"});
    alert("replace-operations",
          {"Replace Operations", "This will replace all current operations with the recipe. Continue?", "Replace", true,
           true});
    alert("replace-recipe",
          {"Replace Recipe", "A recipe with the name 'Shout' already exists. Do you want to replace it?", "Replace",
           true});
    alert("wild", {"Replace Recipe", "A recipe with the name '" + QString(10000, 'x') + "\n' already exists.",
                   "Replace", true});
}

void showUpdates() {
    AppcastItem item;
    item.version = item.shortVersion = "1.4";
    item.length = 12'345'678;
    item.releaseNotes =
        "<h2>What is new</h2><p>Sorting keeps <b>every</b> line break, and <i>Wrap Lines</i> is twice as "
        "fast.</p><ul><li>Recipes can be exported<li>The editor opens <tt>*.log</tt> files of any size"
        "</ul><p>See <a href='https://example.org/'>everything that changed</a>.</p>";
    item.releaseNotesLink = QUrl("https://example.org/notes");
    show("update", new UpdateSheet(item, "1.3", Updater::Origin::byHand));
    item.releaseNotes = item.releaseNotes.repeated(10);
    item.shortVersion = QString(300, 'x');
    show("update-wild", new UpdateSheet(item, "1.3", Updater::Origin::scheduled),
         [](Sheet &sheet) { sheet.findChild<QTextBrowser *>()->setFocus(Qt::TabFocusReason); });
    item.releaseNotes.clear();
    item.releaseNotesLink.clear();
    show("update-bare", new UpdateSheet(item, "1.3", Updater::Origin::byHand));
    show("update-checking", new ProgressSheet(QString::fromUtf8("Checking for Updates…")));
    show("update-progress", new ProgressSheet("Downloading Lexivore 1.4", item.length),
         [](Sheet &sheet) { dynamic_cast<ProgressSheet &>(sheet).setReceived(4'000'000); });
}

/// Every menu of the menu bar with its submenus, and that of the button that exports recipes.
void showMenus() {
    test::MemoryPreferences preferences;
    LexivoreApp app(preferences);
    app.window().show();
    TransformationManager &manager = app.transformationManager();
    manager.setCurrentText(Text(std::string_view(sample)));
    manager.applyTransformation(*manager.findTransformation("uppercase"), {});
    manager.saveRecipe("Names, first before last");
    manager.saveRecipe("Mailing list");
    const auto showMenu = [](QMenu &menu) {
        menu.popup(QPoint(0, 0));
        QTest::keyClick(&menu, Qt::Key_Down);
        QString name = menu.objectName().section('.', -1).toLower();
        save(menu, menu.rect(), "menu-" + name.replace(" & ", "-").replace(' ', '-'));
        menu.close();
    };
    for (QMenu *menu : app.window().findChildren<QMenu *>(QRegularExpression("^menu\\."))) {
        showMenu(*menu);
    }
    app.notificationCenter().post(notification::showManageRecipes);
    showMenu(*app.window().findChild<QMenu *>("exportMenu"));
}

void showResults() {
    ToolsManager tools;
    ResultViewFactory factory;
    const Text text(QByteArray(sample).repeated(6).toStdString());
    for (const TextToolPointer &tool : tools.tools()) {
        const QString id = QString::fromStdString(tool->id());
        show("result-" + id, tool->makeView(text, factory));
        show("result-" + id + "-empty", tool->makeView(Text(), factory));
    }
}

QWidget *makeButtons() {
    auto *board = new QWidget;
    auto *grid = new QGridLayout(board);
    using Kind = PushButton::Kind;
    const QList<std::pair<QString, Kind>> kinds = {
        {"Cancel", Kind::plain}, {"Apply", Kind::primary}, {"Clear", Kind::destructive}};
    int column = 0;
    for (const auto &[text, kind] : kinds) {
        auto *rest = new PushButton(text, kind);
        auto *hovered = new PushButton(text, kind);
        hovered->setAttribute(Qt::WA_UnderMouse);
        auto *pressed = new PushButton(text, kind);
        pressed->setDown(true);
        auto *disabled = new PushButton(text, kind);
        disabled->setEnabled(false);
        int row = 0;
        for (PushButton *button : {rest, hovered, pressed, disabled}) {
            grid->addWidget(button, row++, column);
        }
        ++column;
    }
    return board;
}

QWidget *makeTools() {
    auto *board = new QWidget;
    auto *row = new QHBoxLayout(board);
    const auto add = [&](const std::function<void(ToolButton &)> &prepare) {
        auto *button = new ToolButton("doc.on.doc", "Copy");
        button->setCheckable(true);
        prepare(*button);
        row->addWidget(button);
    };
    add([](ToolButton &) {});
    add([](ToolButton &button) { button.setAttribute(Qt::WA_UnderMouse); });
    add([](ToolButton &button) { button.setDown(true); });
    add([](ToolButton &button) { button.setChecked(true); });
    add([](ToolButton &button) { button.setEnabled(false); });
    auto *recipes = new ToolButton("book.closed", "Load a saved recipe");
    recipes->setMenu(new QMenu(recipes));
    recipes->setPopupMode(QToolButton::InstantPopup);
    row->addWidget(recipes);
    for (const bool isOn : {false, true}) {
        for (const bool isEnabled : {true, false}) {
            auto *toggle = new Switch("Multiple");
            toggle->setChecked(isOn);
            toggle->setEnabled(isEnabled);
            row->addWidget(toggle);
        }
    }
    return board;
}

void showControls() {
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    column->addWidget(makeButtons());
    column->addWidget(makeTools());
    auto *empty = new Field("Prefix");
    empty->setPlaceholderText("Enter prefix text...");
    auto *disabled = new Field("Prefix");
    disabled->setText("disabled");
    disabled->setEnabled(false);
    auto *focused = new Field("Prefix");
    focused->setText("> selected");
    for (QWidget *field : {empty, disabled, focused}) {
        column->addWidget(field);
    }
    auto *box = new QCheckBox("Don't ask again");
    column->addWidget(box);
    window.show();
    QApplication::setActiveWindow(&window);
    focused->setFocus();
    focused->selectAll();
    save(window, window.rect(), "controls");
    for (QWidget *target : {static_cast<QWidget *>(window.findChild<PushButton *>()),
                            static_cast<QWidget *>(window.findChild<ToolButton *>()),
                            static_cast<QWidget *>(window.findChild<Switch *>())}) {
        target->setFocus(Qt::TabFocusReason);
        save(window, window.rect(), "controls-focus-" + QString(target->metaObject()->className()).section(":", -1));
    }

    QMenu menu;
    menu.addSection("My Recipes");
    menu.addAction("Names, first before last");
    menu.addSection("Writing");
    QAction *marked = menu.addAction("Create Bullet List");
    menu.addAction("Create Numbered List")->setShortcut(QKeySequence("Ctrl+Shift+S"));
    menu.addAction("Off")->setEnabled(false);
    QAction *checked = menu.addAction("Multiple Operation Mode");
    checked->setCheckable(true);
    checked->setChecked(true);
    menu.addMenu("More")->addAction("Inside");
    menu.popup(QPoint(0, 0));
    menu.setActiveAction(marked);
    save(menu, menu.rect(), "menu");
}

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QCommandLineParser options;
    options.addPositionalArgument("folder", "Where the pictures go");
    options.addOption({"dark", "In dark colours"});
    options.addOption({"points", "The system font's size", "size", "10"});
    options.process(application);
    folder = options.positionalArguments().value(0, ".");
    QDir().mkpath(folder);

    QFont font = QApplication::font();
    font.setPointSizeF(options.value("points").toDouble());
    QApplication::setFont(font);
    Style::install(application);
    if (options.isSet("dark")) {
        QApplication::setPalette(paletteOf(darkTheme()));
    }
    showParameters();
    showRecipes();
    show("settings", new EditorSettingsSheet(15, {}));
    showAlerts();
    showUpdates();
    showMenus();
    showResults();
    showControls();
    return 0;
}
