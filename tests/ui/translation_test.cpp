// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/translation.h"

#include "engine/catalog.h"
#include "manager/operations_run.h"
#include "manager/recipe.h"
#include "manager/transformation_manager.h"
#include "services/updates/appcast.h"
#include "tests/support/memory_preferences.h"
#include "ui/shell/lexivore_app.h"

#include <QApplication>
#include <QKeySequence>
#include <QMenuBar>

#include <gtest/gtest.h>

namespace lexivore {
namespace {

/// The program as it starts for a user who speaks these languages, the best one first.
class TranslationTest : public testing::Test {
protected:
    void startWith(const QStringList &languages) { installTranslations(m_application, languages); }

private:
    int m_count = 1;
    char m_name[5] = "test";
    char *m_arguments[2] = {m_name, nullptr};
    QApplication m_application{m_count, m_arguments};
};

struct TooLarge final : TextTransformation {
    TooLarge() : TextTransformation("too-large", "", "", TransformationCategory::lines, "") {}
    [[nodiscard]] TextBuffer apply(std::string_view, const ParameterMap &) const override { throw TextTooLarge(); }
};

TEST_F(TranslationTest, EnglishIsTheLanguageOfTheSources) {
    startWith({"en-GB"});
    EXPECT_EQ(translated("Trim Lines"), "Trim Lines");
    EXPECT_EQ(translatedError("Invalid input: Count must be a positive number"),
              "Invalid input: Count must be a positive number");
}

TEST_F(TranslationTest, AGermanSystemGetsGerman) {
    startWith({"de-AT"});
    EXPECT_EQ(translated("Trim Lines"), "Zeilenränder kürzen");
    EXPECT_EQ(translated("Add & Remove"), "Hinzu und weg");
    EXPECT_EQ(QCoreApplication::translate("Menu", "Open..."), "Öffnen...");
}

TEST_F(TranslationTest, GermanAfterEnglishIsNotAskedFor) {
    startWith({"en-US", "de"});
    EXPECT_EQ(translated("Trim Lines"), "Trim Lines");
}

TEST_F(TranslationTest, ALanguageWithoutTranslationGivesWayToTheNextOne) {
    startWith({"fy-NL", "de", "en"});
    EXPECT_EQ(translated("Trim Lines"), "Zeilenränder kürzen");
}

TEST_F(TranslationTest, EveryTextOfTheCatalogHasATranslation) {
    startWith({"de-DE"});
    int same = 0;
    for (const TransformationPointer &transformation : makeCatalog()) {
        EXPECT_NE(translated(transformation->description()), QString::fromStdString(transformation->description()));
        same += translated(transformation->name()) == QString::fromStdString(transformation->name()) ? 1 : 0;
    }
    EXPECT_EQ(same, 4) << "camelCase, PascalCase, snake_case and kebab-case are called so in German";
}

TEST_F(TranslationTest, AnErrorIsTranslatedInItsParts) {
    startWith({"de-DE"});
    EXPECT_EQ(translatedError("Invalid input: Count must be a positive number"),
              "Ungültige Eingabe: Die Anzahl muss eine positive Zahl sein");
    EXPECT_EQ(translatedError("Invalid input: Invalid regular expression: U_REGEX_MISMATCHED_PAREN at 1"),
              "Ungültige Eingabe: Ungültiger regulärer Ausdruck: U_REGEX_MISMATCHED_PAREN at 1");
    EXPECT_EQ(translatedError("Missing parameter: prefix"), "Fehlender Parameter: prefix");
    EXPECT_EQ(translatedError(""), "");
}

TEST_F(TranslationTest, WhatTheManagerRefusesIsTranslatedToo) {
    startWith({"de-DE"});
    test::MemoryPreferences preferences;
    TransformationManager manager(preferences);
    const auto refusal = [](auto action) {
        try {
            action();
        } catch (const TransformationError &error) {
            return translatedError(error.description());
        }
        return QString("nothing");
    };
    EXPECT_EQ(refusal([&] { manager.applyTransformation(*manager.findTransformation("uppercase"), {}); }),
              "Ungültige Eingabe: Der Text ist leer");
    EXPECT_EQ(refusal([&] { manager.applyRecipe(Recipe()); }), "Ungültige Eingabe: Der Text ist leer");
    EXPECT_EQ(refusal([] { static_cast<void>(resultOf(TooLarge(), Text(), {})); }),
              "Misslungen: Das Ergebnis wäre größer als 2 GB");
}

TEST_F(TranslationTest, WhatIsWrongWithAListOfUpdatesIsTranslatedToo) {
    const struct {
        QByteArray feed;
        const char *english;
        const char *german;
    } refusals[] = {
        {QByteArray(longestAppcast + 1, ' '), "longer than 1048576 bytes", "länger als 1048576 Bytes"},
        {"<rss>\xff</rss>", "this is no UTF-8", "das ist kein UTF-8"},
        {"<!DOCTYPE rss><rss/>", "a document type is not allowed", "ein Dokumenttyp ist nicht erlaubt"},
        {"\n<html/>", "line 2: this is no RSS", "Zeile 2: das ist kein RSS"},
        {QByteArray("<rss>").repeated(40), "line 1: the elements are nested too deeply",
         "Zeile 1: die Elemente sind zu tief verschachtelt"},
    };
    for (const auto &refusal : refusals) {
        EXPECT_EQ(parseAppcast(refusal.feed).error, refusal.english);
    }
    startWith({"de-DE"});
    for (const auto &refusal : refusals) {
        EXPECT_EQ(parseAppcast(refusal.feed).error, refusal.german);
    }
}

TEST_F(TranslationTest, TheUsersOwnNameOfARecipeStaysAsItIs) {
    startWith({"de-DE"});
    Recipe recipe;
    recipe.name = "Clean Whitespace";
    EXPECT_EQ(translatedName(recipe), "Clean Whitespace");
    recipe.category = RecipeCategory::formatting;
    EXPECT_EQ(translatedName(recipe), "Leerraum aufräumen");
}

/// Each language that the program has, as its user's system names it.
class TranslatedMenuBarTest : public TranslationTest, public testing::WithParamInterface<const char *> {};

TEST_P(TranslatedMenuBarTest, EveryMenuHasALetterOfItsOwn) {
    startWith({GetParam()});
    test::MemoryPreferences preferences;
    LexivoreApp app(preferences);
    QMap<QString, QString> titles; // by their keys
    const QList<QAction *> menus = app.window().menuBar()->actions();
    for (const QAction *menu : menus) {
        const QString key = QKeySequence::mnemonic(menu->text()).toString();
        EXPECT_FALSE(key.isEmpty()) << menu->text().toStdString();
        EXPECT_FALSE(titles.contains(key)) << titles[key].toStdString() << " and " << menu->text().toStdString();
        titles[key] = menu->text();
    }
    EXPECT_EQ(menus.size(), 8);
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslatedMenuBarTest, testing::Values("en", "de"));

TEST_F(TranslationTest, WhatIsNoTextOfTheProgramsStaysAsItIs) {
    startWith({"de-DE"});
    EXPECT_EQ(translated(""), "");
    EXPECT_EQ(translated("\xEF\xBB\xBFmine"), QChar(QChar::ByteOrderMark) + QString("mine"));
    EXPECT_EQ(translated("\xFF"), QString(QChar(QChar::ReplacementCharacter)));
}

} // namespace
} // namespace lexivore
