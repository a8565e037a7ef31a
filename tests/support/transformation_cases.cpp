// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/support/transformation_cases.h"

#include "tests/support/escaped.h"
#include "tests/support/text_pool.h"

#include <algorithm>
#include <functional>
#include <ostream>

namespace lexivore::test {

namespace {

using reference::Parameters;
using Make = std::function<TransformationCase(Dice &, int)>;

std::string joined(const std::vector<std::string> &pieces) {
    std::string text;
    for (const std::string &piece : pieces) {
        text += piece;
    }
    return text;
}

rc::Seq<TransformationCase> smallerCases(const TransformationCase &failing) {
    const Parameters parameters = failing.parameters;
    return rc::seq::map(rc::shrink::removeChunks(failing.pieces), [parameters](std::vector<std::string> pieces) {
        return TransformationCase{std::move(pieces), parameters};
    });
}

rc::Gen<TransformationCase> generator(const Make &make) {
    return [make](const rc::Random &random, int size) {
        Dice dice(rc::Random(random).next());
        return rc::shrinkable::shrinkRecur(make(dice, size),
                                           [](const TransformationCase &failing) { return smallerCases(failing); });
    };
}

std::string countValue(Dice &dice) {
    constexpr std::string_view odd[] = {
        "",
        "0",
        "-0",
        "-1",
        "+",
        "-",
        "+1",
        "007",
        "+0003",
        " 3",
        "3 ",
        "3.0",
        "1e3",
        "0x10",
        "--1",
        "+-1",
        "1\n",
        "٣",
        "１",
        "abc",
        "1_000",
        "9223372036854775807",
        "9223372036854775808",
        "-9223372036854775808",
        "-9223372036854775809",
        "18446744073709551617",
        "99999999999999999999999",
        "+00000000000000000000000000005",
        "4294967297",
    };
    return dice.chance(35) ? std::string(dice.pick(odd)) : std::to_string(dice.between(1, 12));
}

std::string widthValue(Dice &dice) {
    return dice.chance(20) ? countValue(dice) : std::to_string(dice.between(1, dice.chance(50) ? 12 : 130));
}

/// A piece of the text itself, something that may well occur in it, or nothing.
std::string soughtValue(Dice &dice, const std::vector<std::string> &pieces) {
    if (dice.chance(5)) {
        return {};
    }
    if (!pieces.empty() && dice.chance(60)) {
        const std::size_t first = dice.below(pieces.size());
        const std::string whole =
            pieces[first] + (dice.chance(30) && first + 1 < pieces.size() ? pieces[first + 1] : "");
        const bool isAsciiFiller =
            whole.size() > 64 && std::all_of(whole.begin(), whole.end(), [](char byte) { return byte >= 0; });
        return isAsciiFiller ? whole.substr(0, 3) : whole;
    }
    return std::string(dice.pick(dice.pick(textPools()).pieces));
}

std::string insertedValue(Dice &dice) {
    constexpr std::string_view values[] = {
        "", "> ", ";", ", ", "\n", "$1", "\\", "é", "\u0301", "<b>", " | ", "xyz", "a much longer value"};
    return dice.chance(70) ? std::string(dice.pick(values)) : std::string(dice.pick(dice.pick(textPools()).pieces));
}

std::string templateValue(Dice &dice) {
    constexpr std::string_view parts[] = {"$0", "$1",  "$2",  "$3", "$9", "$", "$$",   "\\",  "\\$",     "\\\\",
                                          "x",  "é",   "$10", "\n", "[",  "]", "${a}", "\\1", "$\u0663", "\\\U0001F600",
                                          "&",  "<$1>"};
    std::string result;
    for (std::size_t left = dice.below(5); left > 0; --left) {
        result += dice.pick(parts);
    }
    return result;
}

/// Builds a pattern. It has few repetitions and repeats none of them: every further one multiplies the time.
class PatternMaker {
public:
    explicit PatternMaker(Dice &dice) : m_dice(dice) {}

    [[nodiscard]] std::string alternatives(int depth, bool mayRepeat);

private:
    [[nodiscard]] std::string term(int depth, bool mayRepeat);
    [[nodiscard]] std::string group(int depth, bool mayRepeat);
    [[nodiscard]] std::string atom();

    Dice &m_dice;
    int m_repetitionsLeft = 3;
};

std::string PatternMaker::atom() {
    constexpr std::string_view atoms[] = {
        "a",          "e",        "o",           "l",       "the",     "Hello",      "1",         " ",     ",",
        "-",          "é",        "ß",           "日",      "\\.",     "\\$",        ".",         "[a-c]", "[^a]",
        "[a-zA-Z]",   "[0-9a-f]", "\\d",         "\\D",     "\\w",     "\\W",        "\\s",       "\\S",   "\\p{L}",
        "\\p{Lu}",    "\\P{M}",   "[[:alpha:]]", "\\R",     "\\X",     "\\h",        "\\v",       "\\t",   "\\n",
        "\\r",        "[\\r\\n]", "\\x41",       "\\u00e9", "[^\\s,]", "[\\w--\\d]", "\\Qa.b\\E", "x",     "Σ",
        "\\x{1F600}", "(?i)a",    "\U0001F600",  "\\0101",
    };
    constexpr std::string_view anchors[] = {"^",      "$",        "\\b",   "\\B",   "\\A",   "\\z", "\\Z", "\\G",
                                            "(?<=a)", "(?<!\\s)", "(?m)^", "(?m)$", "(?s).", "\\1", "\\2"};
    return std::string(m_dice.chance(85) ? m_dice.pick(atoms) : m_dice.pick(anchors));
}

std::string PatternMaker::group(int depth, bool mayRepeat) {
    constexpr std::string_view openings[] = {"(", "(", "(", "(", "(?:", "(?:", "(?=", "(?!", "(?>", "(?i:", "(?<n>"};
    const std::string opening(m_dice.pick(openings));
    return opening + alternatives(depth - 1, mayRepeat) + ")";
}

std::string PatternMaker::term(int depth, bool mayRepeat) {
    constexpr std::string_view quantifiers[] = {"?",  "*",  "+",  "+",  "+",  "{2}", "{1,3}", "{2,}",
                                                "*?", "+?", "??", "*+", "++", "?+",  "{0}"};
    const bool isRepeated = mayRepeat && m_repetitionsLeft > 0 && m_dice.chance(30);
    m_repetitionsLeft -= isRepeated ? 1 : 0;
    const bool isGroup = depth > 0 && m_dice.chance(25);
    const std::string what = isGroup ? group(depth, mayRepeat && !isRepeated) : atom();
    return isRepeated ? "(?:" + what + ")" + std::string(m_dice.pick(quantifiers)) : what;
}

std::string PatternMaker::alternatives(int depth, bool mayRepeat) {
    std::string result;
    do {
        result += result.empty() ? "" : "|";
        for (std::size_t left = m_dice.between(1, 3); left > 0; --left) {
            result += term(depth, mayRepeat);
        }
    } while (m_dice.chance(20));
    return result;
}

/// `encoded` in pieces of `width` bytes, sometimes with one of them damaged.
std::vector<std::string> encodedPieces(Dice &dice, const std::string &encoded, std::size_t width) {
    constexpr std::string_view damage[] = {
        "=", "%", " ", "\n", "é", "A", "g", "0", "", "-", "_", "+f", std::string_view("\0", 1), "AA==", "ff", "%80"};
    std::vector<std::string> pieces;
    for (std::size_t position = 0; position < encoded.size(); position += width) {
        pieces.push_back(encoded.substr(position, width));
    }
    if (!pieces.empty() && dice.chance(40)) {
        pieces[dice.below(pieces.size())] = dice.pick(damage);
    }
    return pieces;
}

std::vector<std::string> fromAlphabet(Dice &dice, std::string_view alphabet, int size) {
    std::vector<std::string> pieces;
    for (std::size_t left = dice.below(static_cast<std::size_t>(size) + 1); left > 0; --left) {
        pieces.emplace_back(1, alphabet[dice.below(alphabet.size())]);
    }
    return pieces;
}

std::vector<std::string> base64Pieces(Dice &dice, int size) {
    if (dice.chance(15)) {
        return fromAlphabet(dice, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=", size);
    }
    return encodedPieces(dice, reference::apply("base64-encode", joined(textPieces(dice, size)), {}).text, 4);
}

std::vector<std::string> hexadecimalPieces(Dice &dice, int size) {
    if (dice.chance(15)) {
        return fromAlphabet(dice, "0123456789abcdefABCDEF ", size);
    }
    std::string encoded = reference::apply("hex-encode", joined(textPieces(dice, size)), {}).text;
    if (dice.chance(40)) {
        std::transform(encoded.begin(), encoded.end(), encoded.begin(),
                       [](char digit) { return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit; });
    }
    std::vector<std::string> pieces = encodedPieces(dice, encoded, 2);
    if (dice.chance(40)) {
        for (std::string &piece : pieces) {
            piece.insert(piece.size() == 2 && piece[0] >= 0 ? dice.below(3) : 0, dice.below(3), ' ');
        }
    }
    return pieces;
}

std::vector<std::string> percentPieces(Dice &dice, int size) {
    if (dice.chance(30)) {
        return textPieces(dice, size);
    }
    return encodedPieces(dice, reference::apply("url-encode", joined(textPieces(dice, size)), {}).text, 3);
}

void maybeGive(Dice &dice, Parameters &parameters, const std::string &key, const std::string &value) {
    if (!dice.chance(5)) {
        parameters[key] = value;
    }
}

TransformationCase plainCase(Dice &dice, int size) {
    Parameters parameters;
    if (dice.chance(5)) {
        parameters["of no transformation"] = "1";
    }
    return {textPieces(dice, size), parameters};
}

/// `plainCase` with a value for each of the keys.
Make withValues(std::vector<std::string> keys, std::function<std::string(Dice &)> value) {
    return [keys = std::move(keys), value = std::move(value)](Dice &dice, int size) {
        TransformationCase made = plainCase(dice, size);
        for (const std::string &key : keys) {
            maybeGive(dice, made.parameters, key, value(dice));
        }
        return made;
    };
}

TransformationCase lineSelection(Dice &dice, int size) {
    TransformationCase made = plainCase(dice, size);
    maybeGive(dice, made.parameters, "text", soughtValue(dice, made.pieces));
    return made;
}

TransformationCase replacement(Dice &dice, int size) {
    TransformationCase made = plainCase(dice, size);
    maybeGive(dice, made.parameters, "find", soughtValue(dice, made.pieces));
    maybeGive(dice, made.parameters, "replace", insertedValue(dice));
    return made;
}

TransformationCase regexReplacement(Dice &dice, int size) {
    TransformationCase made = plainCase(dice, size);
    maybeGive(dice, made.parameters, "pattern", regularExpression(dice));
    maybeGive(dice, made.parameters, "replace", templateValue(dice));
    return made;
}

Make decoderInput(std::vector<std::string> (*pieces)(Dice &, int)) {
    return [pieces](Dice &dice, int size) {
        return dice.chance(10) ? plainCase(dice, size) : TransformationCase{pieces(dice, size), {}};
    };
}

Make makerFor(const std::string &id) {
    static const std::map<std::string, Make> makers = {
        {"add-prefix", withValues({"prefix"}, insertedValue)},
        {"add-suffix", withValues({"suffix"}, insertedValue)},
        {"join-lines", withValues({"separator"}, insertedValue)},
        {"wrap-lines", withValues({"width"}, widthValue)},
        {"delete-first-n-lines", withValues({"count"}, countValue)},
        {"delete-last-n-lines", withValues({"count"}, countValue)},
        {"keep-first-n-lines", withValues({"count"}, countValue)},
        {"keep-last-n-lines", withValues({"count"}, countValue)},
        {"extract-lines-range", withValues({"start", "end"}, countValue)},
        {"delete-lines-containing", lineSelection},
        {"delete-lines-starting", lineSelection},
        {"keep-lines-containing", lineSelection},
        {"keep-lines-starting", lineSelection},
        {"replace-text", replacement},
        {"replace-regex", regexReplacement},
        {"base64-decode", decoderInput(base64Pieces)},
        {"hex-decode", decoderInput(hexadecimalPieces)},
        {"url-decode", decoderInput(percentPieces)},
    };
    const auto found = makers.find(id);
    return found == makers.end() ? Make(plainCase) : found->second;
}

} // namespace

std::string TransformationCase::text() const { return joined(pieces); }

void showValue(const TransformationCase &shown, std::ostream &out) {
    out << "text " << escaped(shown.text());
    for (const auto &[key, value] : shown.parameters) {
        out << ", " << key << " = " << escaped(value);
    }
}

rc::Gen<TransformationCase> texts() { return generator(plainCase); }

rc::Gen<TransformationCase> casesFor(const std::string &id) { return generator(makerFor(id)); }

std::string regularExpression(Dice &dice) {
    constexpr std::string_view malformed[] = {"(",     ")",  "[",           "[a",        "a{",     "*",
                                              "a**",   "\\", "(?<n",        "\\p{Nope}", "a{3,1}", "(?<=a*)b",
                                              "[z-a]", "(?", "\\x{110000}", "\\k<m>",    "a\n(",   "\\N{nope}"};
    return dice.chance(6) ? std::string(dice.pick(malformed)) : PatternMaker(dice).alternatives(2, true);
}

} // namespace lexivore::test
