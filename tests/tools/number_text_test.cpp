// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/tools/printing.h"
#include "tools/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <locale>
#include <random>
#include <string>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace lexivore {
namespace {

std::string printed(double number) {
    char text[400];
    const int length = std::snprintf(text, sizeof text, "%.1f", number);
    return {text, static_cast<std::size_t>(length)};
}

TEST(OneDecimalText, RoundsTheExactValueAndTiesToEven) {
    EXPECT_EQ(oneDecimalText(0.0), "0.0");
    EXPECT_EQ(oneDecimalText(5.0), "5.0");
    EXPECT_EQ(oneDecimalText(0.25), "0.2");
    EXPECT_EQ(oneDecimalText(0.75), "0.8");
    EXPECT_EQ(oneDecimalText(0.35), "0.3"); // the double is a little less
    EXPECT_EQ(oneDecimalText(77.905), "77.9");
    EXPECT_EQ(oneDecimalText(99.95), "100.0"); // the double is a little more
    EXPECT_EQ(oneDecimalText(1234567.89), "1234567.9");
}

TEST(OneDecimalText, PrintsAsTheStandardFormatDoes) {
    std::mt19937 random(20240613);
    for (int round = 0; round < 100'000; ++round) {
        const double number = static_cast<double>(random() % 1'000'000) / static_cast<double>(1 + random() % 5000);
        ASSERT_EQ(oneDecimalText(number), printed(number));
    }
    for (const double number : {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(),
                                std::numeric_limits<double>::min(), -0.04, 1e22}) {
        EXPECT_EQ(oneDecimalText(number), printed(number));
    }
}

/// The process in a locale that writes 1.234,5 for 1234.5, made for the test so that none needs to be installed.
class GermanLocale {
public:
    GermanLocale() {
#ifdef __SANITIZE_ADDRESS__
        const __lsan::ScopedDisabler theLibraryNeverFreesTheFolder;
#endif
        std::string folder = (std::filesystem::temp_directory_path() / "lexivore-locale-XXXXXX").string();
        if (mkdtemp(folder.data()) == nullptr) {
            return;
        }
        m_folder = folder;
        const std::string command = "localedef -i de_DE -f UTF-8 --no-archive '" + folder + "/de_DE.UTF-8'";
        isActive = std::system(command.c_str()) == 0 && setenv("LOCPATH", folder.c_str(), 1) == 0 &&
                   setenv("LC_ALL", "de_DE.UTF-8", 1) == 0 && std::setlocale(LC_ALL, "") != nullptr;
        if (isActive) {
            std::locale::global(std::locale("de_DE.UTF-8"));
        }
    }
    ~GermanLocale() {
        std::locale::global(std::locale::classic());
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
        unsetenv("LC_ALL");
        if (!m_folder.empty()) {
            std::filesystem::remove_all(m_folder);
        }
    }
    GermanLocale(const GermanLocale &) = delete;
    GermanLocale &operator=(const GermanLocale &) = delete;

    bool isActive = false;

private:
    std::filesystem::path m_folder;
};

TEST(Reports, DoNotFollowTheUsersLocale) {
    const GermanLocale locale;
    ASSERT_TRUE(locale.isActive) << "localedef, or its source of the locale de_DE, is missing";
    ASSERT_EQ(printed(1234.5), "1234,5") << "the locale has no decimal comma, so the test shows nothing";

    EXPECT_EQ(decimalText(1234567), "1234567");
    EXPECT_EQ(oneDecimalText(1234.5), "1234.5");
    EXPECT_EQ(statisticsReport({1234567, 1234, 2, 4, 5, 6, 7}),
              "Text Statistics\n\nCharacters: 1234567\nCharacters (no spaces): 1234\nWords: 2\nLines: 4\n"
              "Non-empty lines: 5\nSentences: 6\nParagraphs: 7\n\nAverages:\nCharacters per word: 617.0\n"
              "Words per line: 0.4\nWords per sentence: 0.3");
    EXPECT_EQ(characterFrequencyReport({{"a", 1234567}}), "Character Frequency Analysis\n\na: 1234567");
    EXPECT_EQ(readingTimeReport(readingTimeOfWords(1234567)),
              "Reading Time Estimate\n\nWord Count: 1234567\nReading Time: 6172m 50s (~200 wpm)\n"
              "Speaking Time: 8230m 26s (~150 wpm)");
    EXPECT_EQ(readabilityReport(readability("Hello world")),
              "Readability Analysis\n\nFlesch Reading Ease Score: 77.9\nLevel: Fairly Easy\nGrade Level: 7th grade\n\n"
              "Statistics:\nWords: 2\nSentences: 1\nSyllables: 3");
    EXPECT_EQ(textStatistics("Größe İI ß\n"), (TextStatistics{11, 8, 3, 2, 1, 1, 1}));
    EXPECT_EQ(syllableCount("IDE"), 1);
}

} // namespace
} // namespace lexivore
