// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe_json.h"
#include "tests/support/files.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/sheets/recipe_row.h"
#include "ui/window/recipe_menu.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDir>
#include <QLabel>
#include <QTemporaryDir>
#include <QTimer>

namespace lexivore {
namespace {

class RecipeFiles : public WindowTest {
protected:
    void addRecipe(const std::string &name) {
        setText("a");
        manager().applyTransformation(*manager().findTransformation("uppercase"), {});
        manager().saveRecipe(name);
    }
    [[nodiscard]] QString path(const QString &name) const { return QDir(folder.path()).filePath(name); }
    [[nodiscard]] QStringList ownRecipes() { return namesOf(manager().userRecipes()); }
    [[nodiscard]] QStringList recipesIn(const QString &name) const {
        const auto recipes = RecipeJson::decode(test::bytesOf(path(name)));
        return recipes ? namesOf(*recipes) : QStringList("not readable");
    }
    [[nodiscard]] static QStringList namesOf(const std::vector<Recipe> &recipes) {
        QStringList names;
        for (const Recipe &recipe : recipes) {
            names << QString::fromStdString(recipe.name);
        }
        return names;
    }
    [[nodiscard]] QList<RecipeRow *> rows() { return window().findChildren<RecipeRow *>(); }
    [[nodiscard]] QString alertMessage() {
        auto *message = find<QLabel>("message");
        return message != nullptr && message->isVisible() ? message->text() : QString();
    }
    void dismissAlert() {
        click("confirm");
        ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("alert"); }));
    }
    /// Presses "Export..." and clicks the item of its menu.
    void exportItem(const QString &title) {
        QTimer::singleShot(0, &window(), [this, title] {
            auto *menu = find<QMenu>("exportMenu");
            for (QAction *action : menu->actions()) {
                if (action->text() == title) {
                    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(action).center());
                    return;
                }
            }
            menu->close();
            ADD_FAILURE() << "no item " << qPrintable(title);
        });
        click("export");
    }

    QTemporaryDir folder;
};

TEST_F(RecipeFiles, AllAreExportedFromTheMenuAndComeBackAsNewOnes) {
    addRecipe("One");
    addRecipe("Two");
    const std::vector<Recipe> exported = manager().userRecipes();
    chosenFile = path("mine.json");
    choose("ExportRecipes");
    EXPECT_EQ(ScriptedPanels::proposedName, "recipes.json");
    EXPECT_EQ(recipesIn("mine.json"), (QStringList{"One", "Two"})) << "the user's own, no built-in one";

    choose("ImportRecipes");
    EXPECT_EQ(ownRecipes(), (QStringList{"One", "Two", "One", "Two"}));
    const std::vector<Recipe> own = manager().userRecipes();
    for (const std::size_t i : {0U, 1U}) {
        EXPECT_NE(own[i + 2].id, exported[i].id);
        EXPECT_EQ(own[i + 2].operations, exported[i].operations);
        EXPECT_EQ(own[i + 2].createdAt, exported[i].createdAt);
    }
    EXPECT_TRUE(alertMessage().isEmpty());
}

TEST_F(RecipeFiles, AnImportFromTheMenuShowsWhatHasCome) {
    addRecipe("Old");
    chosenFile = path("new.json");
    test::writeBytes(path("new.json"), *RecipeJson::encode(makeRecipeTemplates()));
    choose("ImportRecipes");
    ASSERT_TRUE(isShown("manageRecipesSheet"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return rows().size() == 14; }));
    EXPECT_EQ(rows()[1]->accessibleName(), "Clean Code Comments");
    EXPECT_TRUE(rows()[1]->hasFocus()) << "the first new one";
    EXPECT_EQ(manager().userRecipes().size(), 14U) << "imported templates are the user's own";
    press(Qt::Key_Escape);
    EXPECT_FALSE(isShown("manageRecipesSheet"));
}

TEST_F(RecipeFiles, TheSheetExportsOneRecipeOrAll) {
    addRecipe("One");
    addRecipe("R&D / notes");
    choose("ShowManageRecipes");
    chosenFile = path("one.json");
    exportItem("R&&D / notes");
    EXPECT_EQ(ScriptedPanels::proposedName, "R&D notes.json");
    EXPECT_EQ(recipesIn("one.json"), QStringList{"R&D / notes"});
    chosenFile = path("all.json");
    exportItem("All Recipes");
    EXPECT_EQ(recipesIn("all.json"), (QStringList{"One", "R&D / notes"}));
    EXPECT_TRUE(isShown("manageRecipesSheet"));
    EXPECT_EQ(ownRecipes().size(), 2);
}

TEST_F(RecipeFiles, TheSheetImportsAndGoesToTheFirstNewRow) {
    addRecipe("Old");
    test::writeBytes(path("new.json"), *RecipeJson::encode(manager().userRecipes()));
    choose("ShowManageRecipes");
    chosenFile = path("new.json");
    click("import");
    EXPECT_EQ(ownRecipes(), (QStringList{"Old", "Old"}));
    ASSERT_TRUE(QTest::qWaitFor([this] { return rows().size() == 2; }));
    EXPECT_TRUE(rows().last()->hasFocus());
    EXPECT_EQ(window().findChildren<QWidget *>("manageRecipesSheet").size(), 1);
}

TEST_F(RecipeFiles, AFileThatIsNoListOfRecipesChangesNothingAndSaysWhy) {
    addRecipe("Old");
    const std::vector<std::pair<QByteArray, QString>> bad = {
        {"", "not valid JSON"},
        {"{}", "It is not a list of recipes."},
        {"[]", "There are no recipes in"},
        {"[{\"id\": 1}]", "\"id\" of Recipe 1 is not a text."},
        {RecipeJson::encode(makeRecipeTemplates())->chopped(1), "not valid JSON"},
        {"\xFF\xFE[", "not valid JSON"},
        {QByteArray(5000, '['), "not valid JSON"},
    };
    chosenFile = path("bad.json");
    for (const char *way : {"menu", "sheet"}) {
        if (way == std::string("sheet")) {
            choose("ShowManageRecipes");
        }
        for (const auto &[bytes, why] : bad) {
            test::writeBytes(path("bad.json"), bytes);
            isShown("import") ? click("import") : choose("ImportRecipes");
            EXPECT_TRUE(alertMessage().contains(why)) << qPrintable(alertMessage());
            EXPECT_TRUE(alertMessage().contains(path("bad.json")));
            dismissAlert();
            EXPECT_FALSE(isShown("alert")) << "one alert is enough";
            EXPECT_EQ(ownRecipes(), QStringList{"Old"});
        }
    }
    chosenFile = path("no such file.json");
    click("import");
    EXPECT_TRUE(alertMessage().contains("No such file"));
}

TEST_F(RecipeFiles, AFailedExportIsToldAndLeavesNothingBehind) {
    addRecipe("One");
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder"));
    for (const char *name : {"folder", "no such folder/out.json"}) {
        chosenFile = path(name);
        choose("ExportRecipes");
        EXPECT_TRUE(alertMessage().startsWith("The recipes could not be written to “" + path(name)));
        dismissAlert();
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList("folder"));
    EXPECT_EQ(ownRecipes(), QStringList{"One"});
}

TEST_F(RecipeFiles, WithoutAnAnswerNothingHappens) {
    addRecipe("One");
    chosenFile.reset();
    choose("ExportRecipes");
    choose("ImportRecipes");
    EXPECT_EQ(ownRecipes(), QStringList{"One"});
    EXPECT_FALSE(isShown("manageRecipesSheet"));
    EXPECT_TRUE(alertMessage().isEmpty());
}

TEST_F(RecipeFiles, OnlyWithRecipesOfTheUserThereIsSomethingToExport) {
    chosenFile = path("none.json");
    EXPECT_FALSE(command("ExportRecipes")->isEnabled());
    EXPECT_TRUE(command("ImportRecipes")->isEnabled());
    center().post(notification::exportRecipes);
    EXPECT_FALSE(QFile::exists(path("none.json")));
    choose("ShowManageRecipes");
    EXPECT_FALSE(find("export")->isEnabled());
    EXPECT_TRUE(find("import")->isEnabled());
    addRecipe("One");
    EXPECT_TRUE(find("export")->isEnabled());
    EXPECT_TRUE(command("ExportRecipes")->isEnabled());
    manager().deleteRecipe(manager().userRecipes().front());
    EXPECT_FALSE(find("export")->isEnabled());
    EXPECT_FALSE(command("ExportRecipes")->isEnabled());
    press(Qt::Key_Escape);
    setText("");
    EXPECT_TRUE(command("ImportRecipes")->isEnabled()) << "needs no text";
}

TEST_F(RecipeFiles, TheProposedNameFitsAnyFolder) {
    const std::vector<std::pair<std::string, QString>> names = {
        {"Shout", "Shout.json"},
        {"a/b\nc\\d", "a b c\\d.json"},
        {"../../.hidden", "hidden.json"},
        {"", "recipe.json"},
        {"  ", "recipe.json"},
        {std::string("x\0y", 3), "x y.json"},
        {std::string(10'000, 'x'), QString(60, 'x') + ".json"},
        {std::string(59, 'x') + "\xF0\x9F\x98\x80", QString(59, 'x') + ".json"},
    };
    for (const auto &[name, proposed] : names) {
        addRecipe(name);
        choose("ExportRecipes");
        EXPECT_EQ(ScriptedPanels::proposedName, proposed);
        manager().deleteRecipe(manager().userRecipes().front());
    }
}

TEST_F(RecipeFiles, TheCommandsStandApartUnderTheFixedItemsAndHaveNoShortcut) {
    QStringList items;
    for (const QAction *action : find<QMenu>("menu.recipes")->actions().mid(20)) {
        items << (action->isSeparator() ? "-" : action->text());
    }
    EXPECT_EQ(items, (QStringList{"-", "Save Current as Recipe...", "Manage Recipes...", "-", "Import Recipes...",
                                  "Export Recipes..."}));
    EXPECT_TRUE(command("ImportRecipes")->shortcuts().isEmpty());
    EXPECT_TRUE(command("ExportRecipes")->shortcuts().isEmpty());
    for (const QMenu *menu : window().findChildren<RecipeMenu *>()) {
        if (menu->objectName() != "menu.recipes") {
            for (const QAction *action : menu->actions()) {
                EXPECT_FALSE(action->text().endsWith("...")) << "the toolbar's menu has recipes alone";
            }
        }
    }
}

TEST_F(RecipeFiles, TheButtonsAreReachedByTabAndNamed) {
    addRecipe("One");
    choose("ShowManageRecipes");
    QStringList stops;
    for (int presses = 0; presses < 5; ++presses) {
        press(Qt::Key_Tab);
        stops << QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(stops, (QStringList{"rename", "delete", "import", "export", "done"}));
    const QAccessibleInterface *importing = QAccessible::queryAccessibleInterface(find("import"));
    const QAccessibleInterface *exporting = QAccessible::queryAccessibleInterface(find("export"));
    EXPECT_EQ(importing->text(QAccessible::Name), "Import...");
    EXPECT_EQ(importing->text(QAccessible::Description), "Add the recipes of a file");
    EXPECT_EQ(exporting->text(QAccessible::Name), "Export...");
    EXPECT_EQ(exporting->role(), QAccessible::ButtonMenu);
    EXPECT_TRUE(exporting->state().hasPopup);
}

} // namespace
} // namespace lexivore
