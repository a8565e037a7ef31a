// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// What is computed and stored is the same wherever and whenever: with a comma in numbers, with the case rules of
// Turkish, and when the clock stands in 1970 or 2100.
#include "manager/json_preferences.h"
#include "manager/recipe_json.h"
#include "manager/transformation_manager.h"
#include "tests/support/files.h"
#include "tests/support/memory_preferences.h"
#include "tests/support/preferences_file.h"
#include "tests/support/shifted_clock.h"
#include "tools/character_frequency_tool.h"
#include "tools/readability_tool.h"
#include "tools/reading_time_tool.h"
#include "tools/statistics_tool.h"

#include <QDateTime>
#include <QDir>
#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <clocale>
#include <ctime>
#include <string>
#include <string_view>

namespace lexivore {
namespace {

constexpr std::string_view texts[] = {
    "",
    "Iıİi TITLE title Straße ǅ ΟΔΟΣ Ĳ ﬁ I\u0307",
    "b,10\na,9\nB,1.5\nä,1,5\nIş\nış\nz\n",
    "The quick brown fox jumps over 1234.5 lazy dogs. It did so 3,14 times!\r\n\tAnd again.",
    "SGVsbG8gV8O2cmxk",
    "48656c6c6f",
    "%48%C3%B6 &lt;b&gt; \\n \\u0130",
};

ParameterMap someParameters(const TextTransformation &transformation) {
    ParameterMap parameters;
    for (const TransformationParameter &parameter : transformation.parameters()) {
        const bool isNumber = !parameter.defaultValue.empty() &&
                              parameter.defaultValue.find_first_not_of("0123456789") == std::string::npos;
        parameters[parameter.id] = isNumber ? "2" : "i";
    }
    return parameters;
}

/// Everything that could depend on the surroundings, in one piece.
std::string everything() {
    std::string all;
    const auto add = [&all](std::string_view piece) { all += std::string(piece) + "\n---\n"; };
    for (const TransformationPointer &transformation : makeCatalog()) {
        for (const std::string_view text : texts) {
            add(transformation->id());
            try {
                // Shuffled lines are the same in every order.
                TextBuffer result = transformation->apply(text, someParameters(*transformation));
                add(transformation->isRandom() ? std::to_string(result.size()) : std::string(result.view()));
            } catch (const TransformationError &error) {
                add(error.description());
            }
        }
    }
    for (const std::string_view text : texts) {
        add(statisticsReport(textStatistics(text)));
        add(characterFrequencyReport(characterFrequencies(text)));
        add(readingTimeReport(readingTime(text)));
        add(readabilityReport(readability(text)));
    }
    add(test::encodePreferences({{"editorFontSize", 13.5}, {"columns", QVariantList{0.25, 1e-7, 123456.789}}})
            .toStdString());
    Recipe recipe;
    recipe.id = QUuid();
    recipe.name = "ıI";
    recipe.createdAt = {1234567.125};
    add(RecipeJson::encode({recipe})->toStdString());
    const auto read = RecipeJson::decode(R"([{"id": "7C9E6679-7425-40DE-944B-E07FC1F90AE7", "name": "x",
        "operations": [], "createdAt": 683726401.25, "category": "My Recipes"}])");
    add(read.has_value() ? std::to_string(static_cast<long>(read->front().createdAt.secondsSinceReferenceDate * 100))
                         : "unreadable");
    return all;
}

/// A folder with the locales that the tests need, made from the sources that every Debian has.
class Locales : public testing::Test {
protected:
    static void SetUpTestSuite() {
        for (const char *language : {"de_DE", "tr_TR"}) {
            QProcess::execute("localedef", {"--no-archive", "-i", language, "-f", "UTF-8",
                                            QString("%1/%2.UTF-8").arg(s_folder->path(), language)});
        }
    }
    static void TearDownTestSuite() { s_folder.reset(); }

    /// `everything()` of a process that lives in the locale.
    [[nodiscard]] std::string everythingIn(const char *locale, char decimalPoint) {
        const QString path = m_results.filePath(QString("%1.txt").arg(locale));
        EXPECT_EQ(test::inChild([&] {
                      qputenv("LOCPATH", s_folder->path().toLocal8Bit());
                      qputenv("LC_ALL", locale);
                      if (std::setlocale(LC_ALL, locale) == nullptr) {
                          return 1;
                      }
                      QLocale::setDefault(QLocale(QString::fromLatin1(locale).left(5)));
                      char number[8];
                      std::snprintf(number, sizeof number, "%.1f", 0.5);
                      if (number[1] != decimalPoint) {
                          return 2;
                      }
                      test::writeBytes(path, QByteArray::fromStdString(everything()));
                      return 0;
                  }),
                  0)
            << locale;
        return test::bytesOf(path).toStdString();
    }

private:
    static inline std::unique_ptr<QTemporaryDir> s_folder = std::make_unique<QTemporaryDir>();
    QTemporaryDir m_results;
};

TEST_F(Locales, WithACommaInNumbersOrTurkishCaseRulesChangeNothing) {
    const std::string plain = everythingIn("C", '.');
    ASSERT_GT(plain.size(), 10'000U);
    EXPECT_TRUE(everythingIn("de_DE.UTF-8", ',') == plain);
    EXPECT_TRUE(everythingIn("tr_TR.UTF-8", ',') == plain);
}

/// Whether preferences and recipes can be kept at this time of the clock. 0, or the number of what went wrong.
int keepThingsAt(std::time_t clock, const QString &path) {
    test::setClock(clock);
    if (std::abs(QDateTime::currentSecsSinceEpoch() - clock) > 5 || std::abs(std::time(nullptr) - clock) > 5) {
        return 1;
    }
    JsonPreferences preferences(path);
    TransformationManager manager(preferences);
    manager.ensureTemplates();
    manager.setCurrentText(Text("b\na"));
    for (const char *id : {"uppercase", "sort-lines"}) {
        manager.applyTransformation(*manager.findTransformation(id), {});
    }
    manager.saveRecipe("kept");
    manager.toggleFavorite("uppercase");
    manager.undo();
    manager.redo();
    if (manager.currentText().view() != "A\nB") {
        return 2;
    }
    JsonPreferences again(path);
    const TransformationManager other(again);
    if (other.userRecipes().size() != 1 || other.favorites().size() != 1) {
        return 3;
    }
    constexpr std::time_t referenceDate = 978'307'200; // 2001-01-01
    const double made = other.userRecipes().front().createdAt.secondsSinceReferenceDate;
    return std::abs(made - static_cast<double>(clock - referenceDate)) < 5 ? 0 : 4;
}

TEST(Clock, OfAnyYearKeepsRecipesAndPreferences) {
    const QTemporaryDir folder;
    for (const std::time_t clock : {std::time_t{10}, std::time_t{4'102'444'800}, std::time_t{1'700'000'000}}) {
        const QString own = folder.filePath(QString("%1/preferences.json").arg(clock));
        EXPECT_EQ(test::inChild([&] { return keepThingsAt(clock, own); }), 0) << clock;
    }
}

TEST(Clock, SetBackAndForthLosesNothing) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("preferences.json");
    int number = 0;
    for (const std::time_t clock : {4'102'444'800, 10L, 1'700'000'000L}) {
        EXPECT_EQ(test::inChild([&] {
                      test::setClock(clock);
                      JsonPreferences preferences(path);
                      preferences.setValue(QString("key%1").arg(number), number);
                      return 0;
                  }),
                  0);
        ++number;
        EXPECT_EQ(test::decodePreferences(test::bytesOf(path))->size(), number);
    }
}

} // namespace
} // namespace lexivore
