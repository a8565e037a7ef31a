// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/primitives/characters.h"
#include "engine/primitives/text_counts.h"
#include "tools/character_frequency_tool.h"
#include "tools/readability_tool.h"
#include "tools/reading_time_tool.h"
#include "tools/statistics_tool.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

// The tools on texts of several kinds, in bytes a second, beside a copy of the same bytes in memory.
namespace lexivore {
namespace {

constexpr std::size_t textSize = 20'000'000;

/// `textSize` bytes of words drawn from `words` with `space` between them, a sentence end here and there, a line feed
/// after about `lineLength` bytes and now and then a second one.
std::string makeText(const std::vector<std::string_view> &words, std::string_view space, std::size_t lineLength) {
    std::mt19937 random(1);
    std::string text;
    std::size_t lineBegin = 0;
    while (text.size() < textSize) {
        text += words[random() % words.size()];
        text += random() % 12 == 0 ? "." : "";
        if (text.size() - lineBegin >= lineLength) {
            text += random() % 6 == 0 ? "\n\n" : "\n";
            lineBegin = text.size();
        } else {
            text += space;
        }
    }
    return text;
}

const std::vector<std::string_view> english = {"the",     "quick",   "brown", "fox",       "jumps", "over",
                                               "lazy",    "dog",     "while", "reading",   "a",     "book",
                                               "because", "nothing", "else",  "occupies",  "it,",   "really",
                                               "of",      "and",     "to",    "wonderful", "make",  "rhythm"};
const std::vector<std::string_view> multilingual = {
    "the",      "Größe",           "été",  "naïve",      "привет", "мир",    "γειά",   "κόσμε",
    "नमस्ते",     "क्षत्रिय",          "漢字", "かな交じり", "文。",   "مرحبا",  "العالم", "👨‍👩‍👧",
    "👍🏽", "e\u0301te\u0301", "and",  "plain",      "words",  "한국어", "ไทย",    "Việt"};

const std::string &text(std::int64_t kind) {
    static const std::string texts[] = {
        makeText(english, " ", 80),
        makeText(multilingual, " ", 60),
        makeText(english, " ", 12),
        makeText({"привет", "мир", "и", "война"}, " ", 120),
        makeText({"漢字", "かな交じり", "文。"}, "", 90),
        std::string(textSize, 'a'),
        std::string(textSize, '\n'),
    };
    return texts[kind];
}

constexpr const char *kindNames[] = {"English lines", "multilingual lines", "short lines", "Cyrillic",
                                     "Japanese",      "one letter",         "line feeds"};

template<typename Work> void measure(benchmark::State &state, Work work) {
    const std::string &given = text(state.range(0));
    for (auto step : state) {
        work(given);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(given.size()));
    state.SetLabel(kindNames[state.range(0)]);
}

void copyOfTheBytes(benchmark::State &state) {
    std::string copy(textSize + 100, ' ');
    measure(state, [&](const std::string &given) {
        std::memcpy(copy.data(), given.data(), given.size());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    });
}
BENCHMARK(copyOfTheBytes)->Arg(0);

void countingCharacters(benchmark::State &state) {
    measure(state, [](const std::string &given) { benchmark::DoNotOptimize(characterCount(given)); });
}
BENCHMARK(countingCharacters)->DenseRange(0, 6);

void countingEverythingElse(benchmark::State &state) {
    measure(state, [](const std::string &given) { benchmark::DoNotOptimize(countText(given)); });
}
BENCHMARK(countingEverythingElse)->DenseRange(0, 6);

void statistics(benchmark::State &state) {
    measure(state, [](const std::string &given) { benchmark::DoNotOptimize(textStatistics(given)); });
}
BENCHMARK(statistics)->DenseRange(0, 6);

void characterFrequency(benchmark::State &state) {
    measure(state, [](const std::string &given) { benchmark::DoNotOptimize(characterFrequencies(given)); });
}
BENCHMARK(characterFrequency)->DenseRange(0, 6);

void readingTimes(benchmark::State &state) {
    measure(state, [](const std::string &given) { benchmark::DoNotOptimize(readingTime(given)); });
}
BENCHMARK(readingTimes)->DenseRange(0, 6);

void readabilities(benchmark::State &state) {
    measure(state, [](const std::string &given) { benchmark::DoNotOptimize(readability(given)); });
}
BENCHMARK(readabilities)->DenseRange(0, 6);

} // namespace
} // namespace lexivore
