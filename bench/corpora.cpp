// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "bench/corpora.h"

#include <cmath>
#include <random>
#include <string_view>
#include <vector>

namespace lexivore::bench {

namespace {

/// Numbers that the standard fixes to the bit, unlike its distributions.
class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}
    std::size_t below(std::size_t limit) { return m_engine() % limit; }
    bool isOnceIn(std::size_t times) { return below(times) == 0; }
    /// The lower, the likelier: about as the words of a language by their rank.
    std::size_t rankBelow(std::size_t limit) {
        const double unit = static_cast<double>(m_engine()) / 4294967296.0;
        return static_cast<std::size_t>(std::exp(unit * std::log1p(static_cast<double>(limit)))) - 1;
    }

private:
    std::mt19937 m_engine;
};

using Words = std::vector<std::string>;

constexpr std::string_view commonWords[] = {
    "the",   "of",    "and",   "to",     "a",       "in",     "that",  "is",      "was",    "he",    "for",  "it",
    "with",  "as",    "his",   "on",     "be",      "at",     "by",    "I",       "this",   "had",   "not",  "are",
    "but",   "from",  "or",    "have",   "an",      "they",   "which", "one",     "you",    "were",  "her",  "all",
    "she",   "there", "would", "their",  "we",      "him",    "been",  "has",     "when",   "who",   "will", "more",
    "no",    "if",    "out",   "so",     "said",    "what",   "up",    "its",     "about",  "into",  "than", "them",
    "can",   "only",  "other", "new",    "some",    "could",  "time",  "these",   "two",    "may",   "then", "do",
    "first", "any",   "my",    "now",    "such",    "like",   "our",   "over",    "man",    "me",    "even", "most",
    "made",  "after", "also",  "did",    "many",    "before", "must",  "through", "years",  "where", "much", "your",
    "way",   "well",  "down",  "should", "because", "each",   "just",  "those",   "people", "don't",
};

Words makeWords(Random &random, const std::vector<std::string_view> &parts, std::size_t count, std::size_t fewest,
                std::size_t most) {
    Words words;
    while (words.size() < count) {
        std::string word;
        for (std::size_t left = fewest + random.below(most - fewest + 1); left > 0; --left) {
            word += parts[random.below(parts.size())];
        }
        words.push_back(word);
    }
    return words;
}

Words englishWords(Random &random, std::size_t count) {
    Words words(std::begin(commonWords), std::end(commonWords));
    const Words made = makeWords(random, {"re", "con", "ta",  "ti",  "on",  "in",  "ma", "er",  "st",  "le",
                                          "na", "al",  "pro", "ing", "de",  "ver", "ly", "com", "per", "un",
                                          "so", "mo",  "che", "th",  "our", "igh", "s",  "d",   "ed",  "ment"},
                                 count - words.size(), 2, 4);
    words.insert(words.end(), made.begin(), made.end());
    return words;
}

} // namespace

std::string englishCorpus(std::size_t bytes) {
    Random random(1);
    const Words words = englishWords(random, 20'000);
    std::string text;
    text.reserve(bytes + 128);
    bool beginsSentence = true;
    for (std::size_t column = 0; text.size() < bytes;) {
        std::string word = words[random.rankBelow(words.size())];
        if (random.isOnceIn(60)) {
            word = std::to_string(random.below(10'000));
        } else if (beginsSentence && word[0] >= 'a') {
            word[0] = static_cast<char>(word[0] - 32);
        }
        beginsSentence = random.isOnceIn(14);
        if (beginsSentence) {
            word += ".....!?"[random.below(7)];
        } else if (random.isOnceIn(12)) {
            word += ",,,;:"[random.below(5)];
        } else if (random.isOnceIn(50)) {
            word.insert(0, 1, '"') += '"';
        }
        text += word;
        column += word.size() + 1;
        const bool endsLine = column >= 76;
        text += endsLine ? '\n' : ' ';
        column = endsLine ? 0 : column;
        if (endsLine && random.isOnceIn(20)) {
            text += random.isOnceIn(2) ? "\t" : "    ";
        }
        if (endsLine && random.isOnceIn(25)) {
            text += '\n'; // a paragraph ends
        }
    }
    text.resize(bytes);
    return text;
}

std::string multilingualCorpus(std::size_t bytes) {
    Random random(2);
    constexpr std::size_t wordCount = 5'000;
    struct Script {
        Words words;
        std::size_t wordsALine;
        std::string_view space;
        std::string_view fullStop;
    };
    const std::vector<Script> scripts = {
        {makeWords(random, {"é", "è", "ê", "ü", "ö", "ä", "ß", "ñ", "ç", "å", "a", "e",  "i",  "o",  "u", "n",
                            "r", "s", "t", "l", "d", "m", "c", "p", "b", "É", "Ö", "ch", "st", "en", "er"},
                   wordCount, 2, 7),
         10, " ", "."},
        {makeWords(random, {"а", "б", "в", "г", "д", "е", "ж", "з", "и", "к", "л",  "м",  "н",  "о",
                            "п", "р", "с", "т", "у", "ы", "я", "П", "М", "С", "ст", "но", "то", "ра"},
                   wordCount, 2, 8),
         9, " ", "."},
        {makeWords(random, {"α", "β", "γ", "δ", "ε", "η", "ι", "κ", "λ", "μ", "ν", "ο",  "π", "ρ",
                            "σ", "τ", "ά", "έ", "ή", "ί", "ό", "Α", "Σ", "Τ", "Κ", "ου", "ος"},
                   wordCount, 2, 8),
         9, " ", "."},
        {makeWords(random, {"क", "ख", "ग", "च", "ज",  "ट",  "त",  "द", "न", "प", "ब",  "म",  "य",
                            "र", "ल", "स", "ह", "का", "कि", "नी", "ने", "में", "से", "क्ष", "स्त", "प्र"},
                   wordCount, 1, 5),
         12, " ", "।"},
        {makeWords(random,
                   {"的", "一", "是", "不", "了", "人", "我", "在", "有", "他", "这", "中", "大", "来", "上", "国",
                    "个", "到", "说", "们", "为", "子", "和", "你", "地", "出", "道", "也", "时", "年", "漢", "語"},
                   wordCount, 2, 8),
         9, "，", "。"},
        {makeWords(random, {"ا", "ب", "ت", "ج", "ح", "د", "ر", "س", "ش",  "ع", "ف",
                            "ق", "ك", "ل", "م", "ن", "ه", "و", "ي", "ال", "في"},
                   wordCount, 2, 6),
         11, " ", "."},
    };
    constexpr std::string_view emoji[] = {
        "😀", "🎉", "👍🏽", "❤️", "👩‍👩‍👧‍👦", "👨‍👩‍👧", "🇩🇪", "🏳️‍🌈", "⚡"};
    const Words ascii = englishWords(random, 1'000);
    std::string text;
    text.reserve(bytes + 1024);
    while (text.size() < bytes) {
        const Script &script = scripts[random.below(scripts.size())];
        if (random.isOnceIn(20)) {
            text += '\t';
        }
        for (std::size_t left = script.wordsALine; left > 0; --left) {
            if (random.isOnceIn(15)) {
                text += ascii[random.rankBelow(ascii.size())];
            } else if (random.isOnceIn(40)) {
                text += std::to_string(random.below(10'000));
            } else if (random.isOnceIn(40)) {
                text += emoji[random.below(std::size(emoji))];
            } else {
                text += script.words[random.rankBelow(script.words.size())];
            }
            if (left > 1) {
                text += random.isOnceIn(12) ? std::string(script.fullStop) + " " : std::string(script.space);
            }
        }
        text += script.fullStop;
        text += '\n';
    }
    text.resize(text.rfind('\n', bytes - 1) + 1); // no character is cut
    return text;
}

std::string shortLinesCorpus(std::size_t bytes) {
    Random random(3);
    const Words words = englishWords(random, 20'000);
    Words lines;
    std::string text;
    text.reserve(bytes + 128);
    while (text.size() < bytes) {
        if (!lines.empty() && random.below(10) < 3) {
            text += lines[random.below(lines.size())];
        } else {
            std::string line = words[random.below(words.size())];
            line += (random.isOnceIn(20) ? '\t' : ' ') + words[random.below(words.size())] + ' ' +
                    std::to_string(random.below(10'000));
            text += line;
            lines.push_back(std::move(line));
        }
        text += '\n';
    }
    text.resize(bytes);
    return text;
}

} // namespace lexivore::bench
