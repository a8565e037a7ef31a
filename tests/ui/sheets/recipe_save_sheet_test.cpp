// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/recipe_save_sheet.h"

#include "tests/ui/sheets/sheet_fixture.h"

namespace lexivore {
namespace {

class RecipeSaveSheetTest : public SheetTest {
protected:
    RecipeSaveSheet *open(const QString &name = {}) {
        return show(new RecipeSaveSheet(name, [this](const QString &saved) { names << saved; }));
    }

    QStringList names;
};

TEST_F(RecipeSaveSheetTest, HasATitleAFieldAndTwoButtons) {
    const RecipeSaveSheet *sheet = open();
    EXPECT_EQ(sheet->width(), 300);
    EXPECT_EQ(labelsIn(*sheet), QStringList{"Save Recipe"});
    EXPECT_EQ(find<Field>("recipeName")->placeholderText(), "Recipe Name");
    EXPECT_EQ(find("cancel")->text(), "Cancel");
    EXPECT_EQ(find("save")->text(), "Save");
}

TEST_F(RecipeSaveSheetTest, SaveIsDisabledWhileTheNameIsEmpty) {
    open();
    EXPECT_FALSE(find("save")->isEnabled());
    press(Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(names.isEmpty());
    type(" ");
    EXPECT_TRUE(find("save")->isEnabled());
    press(Qt::Key_Backspace);
    EXPECT_FALSE(find("save")->isEnabled());
}

TEST_F(RecipeSaveSheetTest, SaveHandsOverTheNameAndLeavesClosingToTheOwner) {
    open();
    type("Shout");
    click(find("save"));
    EXPECT_EQ(names, QStringList{"Shout"});
    EXPECT_TRUE(isOpen());
    press(Qt::Key_Return);
    EXPECT_EQ(names, (QStringList{"Shout", "Shout"}));
}

TEST_F(RecipeSaveSheetTest, CancelAndEscapeCloseWithoutSaving) {
    open("Shout");
    EXPECT_EQ(find<Field>("recipeName")->selectedText(), "Shout");
    click(find("cancel"));
    EXPECT_FALSE(isOpen());
    open("Shout");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(names.isEmpty());
}

TEST_F(RecipeSaveSheetTest, TheOwnerCanEmptyTheName) {
    RecipeSaveSheet *sheet = open("Shout");
    sheet->setRecipeName({});
    EXPECT_TRUE(find<Field>("recipeName")->text().isEmpty());
    EXPECT_FALSE(find("save")->isEnabled());
}

TEST_F(RecipeSaveSheetTest, TakesANameOfAnyLengthAndContent) {
    const QString name = QString(10'000, 'x') + QString::fromUtf8("\n\u05E9 \U0001F469\u200D\U0001F467");
    const RecipeSaveSheet *sheet = open(name);
    EXPECT_EQ(sheet->width(), 300);
    press(Qt::Key_Return);
    EXPECT_EQ(names, QStringList{name});
}

} // namespace
} // namespace lexivore
