# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Compares the reports of the four tools on whole books with a computation of its own.

Usage: python3 tool_reports_test.py <driver>

The books are the Debian Reference in English, German and Japanese, as its packages have them. The computation uses
nothing but Python's standard library, which has no grapheme clusters; so it accepts only texts in which every code
point is a character, CR LF excepted, and checks that each book is one.
"""

import gzip
import sys
import unicodedata

from engine_driver import EngineDriver

LANGUAGES = ("en", "de", "ja")
BOOK = "/usr/share/debian-reference/debian-reference.{0}.txt.gz"
PACKAGE = "debian-reference-{0}"

NEWLINES = set("\n\v\f\r\x85\u2028\u2029")
VOWELS = set("aeiouyAEIOUY")
BANDS = (
    (90, "Very Easy", "5th grade"),
    (80, "Easy", "6th grade"),
    (70, "Fairly Easy", "7th grade"),
    (60, "Standard", "8th-9th grade"),
    (50, "Fairly Difficult", "10th-12th grade"),
    (30, "Difficult", "College"),
)


def stands_alone(code_point):
    """True for code points that never join another one in a character, whatever stands beside them."""
    value = ord(code_point)
    if unicodedata.category(code_point)[0] in "MC":  # marks; joiners, prepended signs and the unassigned
        return code_point in NEWLINES or code_point == "\t"
    joins = (
        0x1100 <= value <= 0x11FF  # Hangul jamo
        or 0xA960 <= value <= 0xA97F
        or 0xAC00 <= value <= 0xD7FF  # and syllables
        or value in (0x0E33, 0x0EB3)  # vowels of Thai and Lao that count as marks
        or value in (0xFF9E, 0xFF9F)  # the same of half-width Japanese
        or 0x1F1E6 <= value <= 0x1F1FF  # letters of flags
        or 0x1F3FB <= value <= 0x1F3FF  # skin tones
        or 0x0900 <= value <= 0x0DFF  # scripts with conjuncts and prepended letters
        or value >= 0x11000 and value < 0x12000
    )
    return not joins


def is_blank(code_point):
    return code_point == "\t" or unicodedata.category(code_point) == "Zs"


def is_space(code_point):
    return is_blank(code_point) or code_point in NEWLINES


def pieces(text, is_separator):
    begin = 0
    for position, code_point in enumerate(text):
        if is_separator(code_point):
            yield text[begin:position]
            begin = position + 1
    yield text[begin:]


def count_not_blank(some_pieces):
    return sum(1 for piece in some_pieces if not all(map(is_blank, piece)))


def words_of(text):
    return [word for word in pieces(text, is_space) if word]


def count_sentences(text):
    return count_not_blank(pieces(text, lambda code_point: code_point in ".!?"))


def characters_of(text):
    characters = []
    for code_point in text:
        if code_point == "\n" and characters and characters[-1] == "\r":
            characters[-1] = "\r\n"
        else:
            characters.append(code_point)
    return characters


def average(numerator, denominator):
    return "%.1f" % (numerator / denominator) if denominator > 0 else "0"


def statistics(text):
    characters = characters_of(text)
    no_spaces = sum(1 for character in characters if not is_space(character[0]))
    words = len(words_of(text))
    lines = list(pieces(text, NEWLINES.__contains__))
    non_empty_lines = count_not_blank(lines)
    sentences = count_sentences(text)
    return "\n".join(
        [
            "Text Statistics",
            "",
            f"Characters: {len(characters)}",
            f"Characters (no spaces): {no_spaces}",
            f"Words: {words}",
            f"Lines: {len(lines)}",
            f"Non-empty lines: {non_empty_lines}",
            f"Sentences: {sentences}",
            f"Paragraphs: {count_not_blank(text.split(chr(10) * 2))}",
            "",
            "Averages:",
            f"Characters per word: {average(no_spaces, words)}",
            f"Words per line: {average(words, non_empty_lines)}",
            f"Words per sentence: {average(words, sentences)}",
        ]
    )


def character_frequency(text):
    counts = {}  # in the order of first appearance, in which sorting leaves equal counts
    for character in characters_of(text):
        counts[character] = counts.get(character, 0) + 1
    first = sorted(counts.items(), key=lambda entry: -entry[1])[:20]
    entries = [f"{'Space' if character == ' ' else character}: {count}" for character, count in first]
    return "Character Frequency Analysis\n\n" + "\n".join(entries)


def reading_time(text):
    words = len(words_of(text))

    def at(words_per_minute):
        minutes, seconds = divmod(words * 60 // words_per_minute, 60)
        return f"{minutes}m {seconds}s" if minutes else f"{seconds}s"

    return (
        f"Reading Time Estimate\n\nWord Count: {words}\n"
        f"Reading Time: {at(200)} (~200 wpm)\nSpeaking Time: {at(150)} (~150 wpm)"
    )


def syllables(word):
    runs = "".join("v" if code_point in VOWELS else " " for code_point in word).split()
    count = len(runs)
    if count >= 2 and word.lower().endswith("e"):
        count -= 1
    return max(count, 1)


def readability(text):
    words = words_of(text)
    sentences = max(count_sentences(text), 1)
    syllable_count = sum(map(syllables, words))
    score, level, grade = 0.0, "", ""
    if words:
        score = 206.835 - 1.015 * (len(words) / sentences) - 84.6 * (syllable_count / len(words))
        score = max(min(score, 100.0), 0.0)
        reached = [band for band in BANDS if score >= band[0]]
        _, level, grade = reached[0] if reached else (0, "Very Difficult", "College Graduate")
    return (
        f"Readability Analysis\n\nFlesch Reading Ease Score: {score:.1f}\nLevel: {level}\nGrade Level: {grade}\n\n"
        f"Statistics:\nWords: {len(words)}\nSentences: {sentences}\nSyllables: {syllable_count}"
    )


TOOLS = {
    "tool:statistics": statistics,
    "tool:character-frequency": character_frequency,
    "tool:reading-time": reading_time,
    "tool:readability": readability,
}


def books():
    """Pairs of a name and a text: each book, the same with CR LF at the ends of lines, and its paragraphs alone."""
    for language in LANGUAGES:
        path = BOOK.format(language)
        try:
            with gzip.open(path, "rt", encoding="utf-8", newline="") as file:
                text = file.read()
        except OSError as error:
            sys.exit(f"{path}: {error.strerror}; the package {PACKAGE.format(language)} has it")
        strangers = sorted({code_point for code_point in text if not stands_alone(code_point)})
        if strangers or len(text) < 300_000:
            sys.exit(f"{path} is no text to compare with: {len(text)} characters, {strangers}")
        yield path, text
        yield path + " with CR LF", text.replace("\n", "\r\n")
        yield path + " without line breaks", text.replace("\n", " ")
        yield path + ", its first page", text[:3000]


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    driver = EngineDriver(sys.argv[1])
    compared = failures = 0
    for name, text in books():
        for tool, report in TOOLS.items():
            expected = {"result": report(text)}
            answer = driver.apply(tool, text)
            compared += 1
            if answer != expected:
                failures += 1
                print(f"{tool} of {name}:\nexpected {expected!r}\nbut got  {answer!r}\n")
    driver.close()
    print(f"{compared - failures} of {compared} reports agree")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
