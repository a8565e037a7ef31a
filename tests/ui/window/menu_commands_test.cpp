// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/bundle_information.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/theme/theme.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QUrl>

#include <algorithm>

namespace lexivore {

/// Takes the addresses that the program would give to the mail program.
class MailProgram : public QObject {
    Q_OBJECT

public:
    QList<QUrl> opened;

public slots:
    void open(const QUrl &address) { opened << address; }
};

namespace {

class MenuCommands : public WindowTest {
protected:
    [[nodiscard]] QMenu *menu(const QString &name) { return find<QMenu>("menu." + name); }

    /// The items from top to bottom: a separator is "-", and with a title "- title".
    [[nodiscard]] static QStringList items(const QMenu *menu) {
        QStringList texts;
        for (const QAction *action : menu->actions()) {
            const QString text = action->text();
            texts << (!action->isSeparator() ? text : text.isEmpty() ? QString("-") : "- " + text);
        }
        return texts;
    }

    /// What arrives under any of the names, in the order of arrival: "name" or "name object".
    void listen(const QStringList &names) {
        for (const QString &name : names) {
            center().subscribe(name, &m_listener, [this, name](const QVariant &object) {
                posts << (object.isValid() ? name + " " + object.toString() : name);
            });
        }
    }

    /// Opens the menu and clicks the item in it.
    void pick(QMenu *menu, QAction *item) {
        menu->popup(window().mapToGlobal(QPoint(100, 30)));
        ASSERT_TRUE(menu->isVisible());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
        EXPECT_FALSE(menu->isVisible());
        window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    QStringList posts;

private:
    QObject m_listener;
};

struct FixedCommand {
    const char *menu;
    const char *title;
    const char *notification;
    const char *shortcuts;
};
// clang-format off
const FixedCommand fixedCommands[] = {
    {"file",            "Open...",                   "OpenFile",                 "Ctrl+O"},
    {"file",            "Save As...",                "SaveFile",                 "Ctrl+S"},
    {"edit",            "Undo",                      "UndoTransformation",       "Ctrl+Z"},
    {"edit",            "Redo",                      "RedoTransformation",       "Ctrl+Shift+Z; Ctrl+Y"},
    {"edit",            "Find...",                   "Find",                     "Ctrl+F"},
    {"edit",            "Find Next",                 "FindNext",                 "F3; Ctrl+G"},
    {"edit",            "Find Previous",             "FindPrevious",             "Shift+F3; Ctrl+Shift+G"},
    {"view",            "Toggle Sidebar",            "ToggleSidebar",            "Ctrl+Alt+S"},
    {"view",            "Toggle Operations Stack",   "ToggleOperations",         "Ctrl+Alt+O"},
    {"view",            "Zoom In",                   "ZoomIn",                   "Ctrl++; Ctrl+="},
    {"view",            "Zoom Out",                  "ZoomOut",                  "Ctrl+-"},
    {"view",            "Actual Size",               "ResetZoom",                "Ctrl+0"},
    {"recipes",         "Import Recipes...",         "ImportRecipes",            ""},
    {"transformations", "Multiple Operation Mode",   "ToggleStackOperationMode", "Ctrl+Alt+1"},
    {"transformations", "Search Transformations",    "SearchTransformations",    "Ctrl+K; Ctrl+Shift+F"},
    // These open a sheet, and come last for it.
    {"recipes",         "Save Current as Recipe...", "ShowRecipeSheet",          "Ctrl+Shift+S"},
    {"recipes",         "Manage Recipes...",         "ShowManageRecipes",        "Ctrl+Shift+M"},
};
// clang-format on

TEST_F(MenuCommands, TheMenusStandInTheirOrder) {
    QStringList titles;
    for (const QAction *action : window().menuBar()->actions()) {
        titles << action->text().remove('&');
    }
    EXPECT_EQ(titles, (QStringList{"Lexivore", "File", "Edit", "View", "Recipes", "Transformations", "Tools", "Help"}));
    EXPECT_EQ(items(menu("application")).first(), "About Lexivore");
    EXPECT_EQ(items(menu("application")).last(), "Quit Lexivore");
    EXPECT_EQ(items(menu("file")), (QStringList{"Open...", "Save As..."}));
    EXPECT_EQ(items(menu("edit")), (QStringList{"Undo", "Redo", "-", "Cut", "Copy", "Paste", "Select All", "-",
                                                "Find...", "Find Next", "Find Previous"}));
    EXPECT_EQ(items(menu("view")), (QStringList{"Toggle Sidebar", "Toggle Operations Stack", "-", "Zoom In", "Zoom Out",
                                                "Actual Size", "-", "Full Screen"}));
    EXPECT_EQ(items(menu("transformations")),
              (QStringList{"Case Conversion", "Add && Remove", "Lines", "Sorting", "Find && Replace", "Encoding", "-",
                           "Multiple Operation Mode", "Search Transformations"}));
    EXPECT_EQ(items(menu("help")), QStringList{"Contact Support"});
}

TEST_F(MenuCommands, EachFixedItemPostsItsNotificationWithoutAnObject) {
    setText("text");
    for (const FixedCommand &fixed : fixedCommands) {
        SCOPED_TRACE(fixed.title);
        QAction *action = command(fixed.notification);
        ASSERT_NE(action, nullptr);
        EXPECT_EQ(action->text(), fixed.title);
        EXPECT_EQ(QKeySequence::listToString(action->shortcuts()), fixed.shortcuts);
        listen({fixed.notification});
        posts.clear();
        pick(menu(fixed.menu), action);
        EXPECT_EQ(posts, QStringList{fixed.notification});
        press(Qt::Key_Escape); // leaves the sheet that some of them open
    }
}

TEST_F(MenuCommands, TheShortcutsPostTheSame) {
    setText("text");
    find("category.Lines")->setFocus();
    for (const FixedCommand &fixed : fixedCommands) {
        listen({fixed.notification});
        for (const QKeySequence &shortcut : command(fixed.notification)->shortcuts()) {
            SCOPED_TRACE(fixed.notification);
            window().activateWindow();
            posts.clear();
            QTest::keySequence(&window(), shortcut);
            EXPECT_EQ(posts, QStringList{fixed.notification});
            press(Qt::Key_Escape);
        }
    }
}

TEST_F(MenuCommands, EachTransformationIsListedAndPostsItsId) {
    setText("text");
    listen({"ApplyTransformation"});
    std::size_t count = 0;
    for (const TransformationCategory category : allTransformationCategories) {
        if (category == TransformationCategory::favorites) {
            continue;
        }
        const QMenu *submenu = menu(QString::fromUtf8(rawValue(category)));
        const Catalog entries = manager().transformations(category);
        ASSERT_EQ(submenu->actions().size(), qsizetype(entries.size()));
        for (std::size_t index = 0; index < entries.size(); ++index) {
            QAction *action = submenu->actions()[qsizetype(index)];
            EXPECT_EQ(QString(action->text()).replace("&&", "&"), QString::fromStdString(entries[index]->name()));
            setText("a 1, b\nc"); // some of them leave nothing
            posts.clear();
            action->trigger();
            EXPECT_EQ(posts, QStringList{"ApplyTransformation " + QString::fromStdString(entries[index]->id())});
            while (isShown("parameterSheet") || isShown("alert")) {
                press(Qt::Key_Escape);
            }
            ++count;
        }
    }
    EXPECT_EQ(count, manager().transformations().size());
}

TEST_F(MenuCommands, EachToolPostsItsId) {
    setText("text");
    listen({"RunTool"});
    for (QAction *action : menu("tools")->actions()) {
        pick(menu("tools"), action);
        press(Qt::Key_Escape);
    }
    EXPECT_EQ(posts, (QStringList{"RunTool statistics", "RunTool character-frequency", "RunTool reading-time",
                                  "RunTool readability"}));
}

TEST_F(MenuCommands, EachRecipePostsItsIdInUpperCase) {
    setText("text");
    listen({"ApplyRecipe"});
    preferences.setValue(preference::dontShowReplaceOperationsAlert, true);
    for (const Recipe &recipe : manager().recipes()) {
        const QString title = QString::fromStdString(recipe.name).replace('&', "&&");
        const QList<QAction *> actions = menu("recipes")->actions();
        const auto action =
            std::find_if(actions.begin(), actions.end(), [&](QAction *a) { return a->text() == title; });
        ASSERT_NE(action, actions.end());
        setText("a 1, b\nc");
        posts.clear();
        (*action)->trigger();
        EXPECT_EQ(posts, QStringList{"ApplyRecipe " + recipe.id.toString(QUuid::WithoutBraces).toUpper()});
        while (isShown("alert")) {
            press(Qt::Key_Escape);
        }
    }
}

TEST_F(MenuCommands, TheRecipesStandInGroupsWithTitlesBetweenDividers) {
    const QStringList templates = {"- Coding",
                                   "Clean Code Comments",
                                   "JSON Keys to Array",
                                   "Create Enum Cases",
                                   "-",
                                   "- Formatting",
                                   "Normalize Text",
                                   "Clean Whitespace",
                                   "Unix Line Endings",
                                   "-",
                                   "- Writing",
                                   "Create Bullet List",
                                   "Create Numbered List",
                                   "Title Case Headings",
                                   "-",
                                   "- Data Processing",
                                   "Format SQL List",
                                   "Extract Unique Lines",
                                   "Quote && Comma Lines",
                                   "CSV to JSON Array",
                                   "-",
                                   "Save Current as Recipe...",
                                   "Manage Recipes..."};
    EXPECT_EQ(items(menu("recipes")).mid(0, templates.size()), templates) << "no group without recipes";
    setText("a");
    manager().applyTransformation(*manager().findTransformation("uppercase"), {});
    manager().saveRecipe("Mine & yours");
    manager().saveRecipe("Second");
    EXPECT_EQ(items(menu("recipes")).mid(0, 4 + templates.size()),
              (QStringList{"- My Recipes", "Mine && yours", "Second", "-"} + templates));
    manager().renameRecipe(manager().userRecipes().front(), "Renamed");
    EXPECT_EQ(items(menu("recipes")).mid(1, 2), (QStringList{"Renamed", "Second"}));
    for (const Recipe &recipe : manager().userRecipes()) {
        manager().deleteRecipe(recipe);
    }
    EXPECT_EQ(items(menu("recipes")).mid(0, templates.size()), templates);
}

TEST_F(MenuCommands, WithoutTextExactlyWhatActsOnTheTextIsDisabled) {
    setText("a");
    manager().applyTransformation(*manager().findTransformation("uppercase"), {});
    manager().saveRecipe("Mine");
    setText("");
    manager().renameRecipe(manager().userRecipes().front(), "Built anew without text");
    QSet<const QAction *> acting = {command("SaveFile")};
    for (const QAction *action : menu("tools")->actions()) {
        acting << action;
    }
    for (const TransformationPointer &transformation : manager().transformations()) {
        acting << command("ApplyTransformation." + QString::fromStdString(transformation->id()));
    }
    for (const QAction *action : menu("recipes")->actions()) {
        if (action->data().isValid()) {
            acting << action;
        }
    }
    EXPECT_EQ(acting.size(), 1 + 4 + qsizetype(manager().transformations().size()) + 14);
    for (const bool hasText : {false, true}) {
        setText(hasText ? "b" : "");
        for (const QMenu *each : window().findChildren<QMenu *>(QRegularExpression("^menu\\."))) {
            for (const QAction *action : each->actions()) {
                if (!action->isSeparator() && action->objectName() != "CheckForUpdates") {
                    EXPECT_EQ(action->isEnabled(), hasText || !acting.contains(action)) << qPrintable(action->text());
                }
            }
        }
    }
}

TEST_F(MenuCommands, NamesOfAnyKindAreOneLineInTheMenu) {
    setText("a");
    manager().applyTransformation(*manager().findTransformation("uppercase"), {});
    const std::string family = "\U0001F469\u200D\U0001F469\u200D\U0001F467";
    for (const std::string &name :
         {std::string("line\nbreak\ttab"), std::string(10'000, 'x'), std::string(" "),
          std::string(58, 'y') + family + "more", std::string("\u05E9\u05DC\u05D5\u05DD &")}) {
        manager().saveRecipe(name);
    }
    EXPECT_EQ(items(menu("recipes")).mid(1, 5),
              (QStringList{"line break tab", QString(60, 'x') + "…", "Untitled", QString(58, 'y') + "…",
                           QString::fromUtf8("\u05E9\u05DC\u05D5\u05DD &&")}));
    EXPECT_LT(menu("recipes")->sizeHint().width(), 700);
}

TEST_F(MenuCommands, AnObjectThatIsMissingOrOfAnotherTypeIsIgnored) {
    setText("text");
    for (const char *name : {"ApplyTransformation", "ApplyRecipe", "RunTool"}) {
        for (const QVariant &object :
             {QVariant(), QVariant(1), QVariant(true), QVariant(QByteArray("uppercase")),
              QVariant(QStringList{"uppercase"}), QVariant(QString()), QVariant(QString(100'000, 'x'))}) {
            center().post(name, object);
            EXPECT_TRUE(manager().appliedOperations().empty());
            EXPECT_TRUE(window().findChildren<QWidget *>(QRegularExpression("^toolResult")).isEmpty());
            EXPECT_FALSE(isShown("alert"));
        }
    }
    EXPECT_EQ(text(), "text");
    center().post("NoSuchName", 5);
}

TEST_F(MenuCommands, ARecipeIsFoundByItsIdInEitherCase) {
    setText("a");
    const QString id = manager().recipes()[7].id.toString(QUuid::WithoutBraces);
    center().post("ApplyRecipe", id.toLower());
    EXPECT_EQ(text(), "\u2022 a");
}

TEST_F(MenuCommands, EveryChangeOfTheTextIsAnnounced) {
    listen({"TextChanged"});
    focusEditor();
    type("ab");
    setText("");
    setText("opened");
    click("transformation.uppercase");
    center().post("UndoTransformation");
    EXPECT_EQ(posts, (QStringList{"TextChanged true", "TextChanged true", "TextChanged false", "TextChanged true",
                                  "TextChanged true", "TextChanged true"}));
}

TEST_F(MenuCommands, TheMirrorsStartFalseWhateverWasStored) {
    preferences.setValue(preference::hasText, true);
    const LexivoreApp started(preferences);
    EXPECT_FALSE(started.hasText());
    EXPECT_FALSE(started.stackOperationMode());
    EXPECT_FALSE(started.showOperations());
    EXPECT_FALSE(started.showSidebar());
}

TEST_F(MenuCommands, CutCopyPasteAndSelectAllActOnWhatHasTheKeyboard) {
    setText("one two");
    QGuiApplication::clipboard()->setText("old");
    focusEditor();
    pick(menu("edit"), command("selectAll"));
    pick(menu("edit"), command("copy"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "one two");
    pick(menu("edit"), command("cut"));
    EXPECT_EQ(text(), "");
    pick(menu("edit"), command("paste"));
    pick(menu("edit"), command("paste"));
    EXPECT_EQ(text(), "one twoone two");

    auto *search = find<QLineEdit>("search");
    ASSERT_NE(search, nullptr);
    search->setFocus();
    pick(menu("edit"), command("paste"));
    EXPECT_EQ(search->text(), "one two");
    pick(menu("edit"), command("selectAll"));
    pick(menu("edit"), command("cut"));
    EXPECT_EQ(search->text(), "");
    EXPECT_EQ(text(), "one twoone two");
    find("category.Lines")->setFocus();
    for (const char *name : {"cut", "copy", "paste", "selectAll"}) {
        choose(name); // nothing to act on
    }
    EXPECT_EQ(text(), "one twoone two");
}

TEST_F(MenuCommands, FullScreenIsLeftAsItWasEntered) {
    choose("FullScreen");
    EXPECT_TRUE(window().isFullScreen());
    choose("FullScreen");
    EXPECT_FALSE(window().isFullScreen());
    EXPECT_EQ(command("FullScreen")->shortcut(), QKeySequence("F11"));
    EXPECT_EQ(command("Quit")->shortcut(), QKeySequence("Ctrl+Q"));
}

TEST_F(MenuCommands, DividersAreSeen) {
    for (const char *name : {"edit", "view", "recipes", "transformations", "application"}) {
        QMenu *each = menu(name);
        each->popup(QPoint(0, 0));
        int dividers = 0;
        for (QAction *action : each->actions()) {
            if (action->isSeparator() && action->text().isEmpty()) {
                ++dividers;
                EXPECT_EQ(each->actionGeometry(action).height(), 9) << name;
                const QRect line = each->actionGeometry(action);
                EXPECT_EQ(each->grab().toImage().pixelColor(line.center()), theme().border) << name;
            }
        }
        EXPECT_GT(dividers, 0) << name;
        each->close();
    }
}

TEST_F(MenuCommands, TheMenusAreOpenedByTheirLetters) {
    focusEditor();
    const std::pair<Qt::Key, const char *> letters[] = {{Qt::Key_L, "application"}, {Qt::Key_F, "file"},
                                                        {Qt::Key_E, "edit"},        {Qt::Key_V, "view"},
                                                        {Qt::Key_R, "recipes"},     {Qt::Key_T, "transformations"},
                                                        {Qt::Key_O, "tools"},       {Qt::Key_H, "help"}};
    for (const auto &[letter, name] : letters) {
        press(letter, Qt::AltModifier);
        EXPECT_TRUE(menu(name)->isVisible()) << name;
        menu(name)->close();
    }
    EXPECT_EQ(text(), "");
}

TEST_F(MenuCommands, AboutNamesTheProgramAndItsVersion) {
    QCoreApplication::setApplicationVersion("1.2.3");
    choose("About");
    ASSERT_TRUE(isShown("alert"));
    EXPECT_EQ(find("alert")->accessibleName(), "Lexivore");
    EXPECT_EQ(find("alert")->accessibleDescription(), "Version 1.2.3\n\nTransforms plain text.");
    press(Qt::Key_Return);
    EXPECT_FALSE(isShown("alert"));
}

TEST_F(MenuCommands, ContactSupportWritesAMail) {
    MailProgram mail;
    QDesktopServices::setUrlHandler("mailto", &mail, "open");
    pick(menu("help"), command("ContactSupport"));
    QDesktopServices::unsetUrlHandler("mailto");
    ASSERT_EQ(mail.opened.size(), 1);
    EXPECT_EQ(mail.opened.front().scheme(), "mailto");
    EXPECT_TRUE(mail.opened.front().query().contains("subject=Lexivore"));
}

TEST_F(MenuCommands, ContactSupportGoesByTheInformationThatTheProgramWasGiven) {
    LexivoreApp other(preferences, nullptr, {{bundle_key::name, "Other"}, {bundle_key::supportAddress, "a@b.example"}});
    MailProgram mail;
    QDesktopServices::setUrlHandler("mailto", &mail, "open");
    other.window().findChild<QAction *>("ContactSupport")->trigger();
    QDesktopServices::unsetUrlHandler("mailto");
    ASSERT_EQ(mail.opened.size(), 1);
    EXPECT_EQ(mail.opened.front().path(), "a@b.example");
    EXPECT_TRUE(mail.opened.front().query().startsWith("subject=Other"));
}

} // namespace
} // namespace lexivore

#include "menu_commands_test.moc"
