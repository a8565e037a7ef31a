# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""The engine against plain Python: python3 engine_check.py <driver> [seed].

Each transformation that Python's standard library can express exactly is written a third time here, in a few lines, and
compared with the engine on generated texts. Characters of which Python's and ICU's Unicode versions could think
differently are left out of the texts, and so are transformations that need grapheme clusters.
"""

import base64
import html
import json
import random
import re
import sys
import unicodedata
import unittest
import urllib.parse

from engine_driver import EngineDriver

DRIVER = ""
SEED = 20240229
TEXTS_PER_TRANSFORMATION = 250

NEWLINES = "\n\x0b\x0c\r\x85\u2028\u2029"
SPACES = "\t" + "".join(chr(c) for c in range(0x10000) if unicodedata.category(chr(c)) == "Zs")
BOTH = NEWLINES + SPACES


# The plain implementations. Each takes the text and the parameters and returns a text or raises Failure.


class Failure(Exception):
    pass


def cut(text, separators):
    return re.split("[" + re.escape(separators) + "]", text)


def lines(text):
    return cut(text, NEWLINES)


def words(text, separators=BOTH):
    return [piece for piece in cut(text, separators) if piece]


def once(pieces):
    return list(dict.fromkeys(pieces))


def composed(text):
    return unicodedata.normalize("NFC", text)


def by_composed_form(pieces, descending=False):
    return sorted(pieces, key=composed, reverse=descending)  # stable in both directions


def required(parameters, key, may_be_empty=True):
    if key not in parameters or not (parameters[key] or may_be_empty):
        raise Failure("Missing parameter: " + key)
    return parameters[key]


def number(parameters, key, lowest, message):
    value = parameters.get(key, "")
    if not re.fullmatch(r"[+-]?[0-9]+", value) or not -(2**63) <= int(value) < 2**63 or int(value) < lowest:
        raise Failure("Invalid input: " + message)
    return int(value)


def count(parameters):
    return number(parameters, "count", 1, "Count must be a positive number")


def extract(text, parameters):
    start = number(parameters, "start", 1, "Start must be a positive number")
    end = number(parameters, "end", start, "End must be >= start")
    return "\n".join(lines(text)[start - 1:end])


def selected(keep, test):
    def apply(text, parameters):
        sought = required(parameters, "text", may_be_empty=False)
        return "\n".join(line for line in lines(text) if test(line, sought) == keep)
    return apply


def contains(line, sought):
    return sought in line


def decoded(data, message):
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        raise Failure(message) from None


def base64_decode(text, _):
    message = "Invalid input: Invalid Base64 string"
    if not re.fullmatch(r"(?:[A-Za-z0-9+/]{4})*(?:[A-Za-z0-9+/]{2}==|[A-Za-z0-9+/]{3}=)?", text):
        raise Failure(message)
    return decoded(base64.b64decode(text), message)


def url_decode(text, _):
    message = "Invalid input: Invalid URL-encoded string"
    if re.search(r"%(?![0-9A-Fa-f]{2})", text):
        raise Failure(message)
    return decoded(urllib.parse.unquote_to_bytes(text), message)


def hex_decode(text, _):
    digits = text.replace(" ", "")
    if not re.fullmatch(r"(?:[0-9a-fA-F]{2})*", digits):
        raise Failure("Invalid input: Invalid hexadecimal string")
    return decoded(bytes.fromhex(digits), "Invalid input: Cannot decode hexadecimal to UTF-8")


def replaced(text, *passes):
    for find, replacement in passes:
        text = text.replace(find, replacement)
    return text


def replace_text(text, parameters):
    find = required(parameters, "find")
    return text.replace(find, parameters.get("replace", "")) if find else text


def invert(text, _):
    return text.swapcase()  # of ASCII


def alternate(text, _):
    result, is_upper_turn = [], True
    for character in text:
        result.append(character.upper() if is_upper_turn else character.lower())
        is_upper_turn ^= character.isalpha()
    return "".join(result)


def sentence_case(text, _):
    return ". ".join(piece.strip(SPACES).capitalize() for piece in re.split("[.!?]", text))


def title_case(text, _):
    def word(match):
        return re.sub("[A-Za-z].*", lambda rest: rest[0].capitalize(), match[0])
    return re.sub("[A-Za-z0-9]+(?:'[A-Za-z0-9]+)*", word, text)


def programmer_words(text):
    return re.findall("[A-Za-z0-9]+", text)


def capitalised(word):
    return title_case(word, None)


def camel_case(text, _):
    found = programmer_words(text)
    return found[0].lower() + "".join(map(capitalised, found[1:])) if found else text


def wrap(text, parameters):
    width = number(parameters, "width", 1, "Width must be a positive number")
    result, current = "", ""
    for piece in cut(text, SPACES):
        if not current:
            current = piece
        elif len(current) + len(piece) + 1 > width:
            result, current = result + current + "\n", piece
        else:
            current += " " + piece
    return result + current


# Of every text.
ANY = {
    "add-prefix": lambda text, p: "\n".join(p["prefix"] + line for line in lines(text))
                  if required(p, "prefix") else text,
    "add-suffix": lambda text, p: "\n".join(line + p["suffix"] for line in lines(text))
                  if required(p, "suffix") else text,
    "remove-whitespace": lambda text, _: " ".join(words(text, SPACES)),
    "remove-all-spaces": lambda text, _: text.replace(" ", ""),
    "remove-tabs": lambda text, _: text.replace("\t", ""),
    "remove-empty-lines": lambda text, _: "\n".join(line for line in lines(text) if line.strip(SPACES)),
    "remove-line-breaks": lambda text, _: " ".join(line.strip(SPACES) for line in lines(text)),
    "remove-duplicates": lambda text, _: "\n".join(once(lines(text))),
    "remove-duplicate-words": lambda text, _: " ".join(once(words(text))),
    "trim-lines": lambda text, _: "\n".join(line.strip(SPACES) for line in lines(text)),
    "number-lines": lambda text, _: "\n".join(f"{n}. {line}" for n, line in enumerate(lines(text), 1)),
    "break-after-word": lambda text, _: "\n".join(words(text)),
    "break-after-sentence": lambda text, _: "\n".join(
        filter(None, (piece.strip(SPACES) for piece in re.split("[.!?]", text)))),
    "delete-lines-containing": selected(False, contains),
    "delete-lines-starting": selected(False, str.startswith),
    "keep-lines-containing": selected(True, contains),
    "keep-lines-starting": selected(True, str.startswith),
    "reverse-lines": lambda text, _: "\n".join(reversed(lines(text))),
    "delete-first-n-lines": lambda text, p: "\n".join(lines(text)[count(p):]),
    "delete-last-n-lines": lambda text, p: "\n".join(lines(text)[:max(len(lines(text)) - count(p), 0)]),
    "keep-first-n-lines": lambda text, p: "\n".join(lines(text)[:count(p)]),
    "keep-last-n-lines": lambda text, p: "\n".join(lines(text)[max(len(lines(text)) - count(p), 0):]),
    "extract-lines-range": extract,
    "join-lines": lambda text, p: required(p, "separator").join(lines(text)),
    "sort-lines": lambda text, _: "\n".join(by_composed_form(lines(text))),
    "sort-lines-reverse": lambda text, _: "\n".join(by_composed_form(lines(text), descending=True)),
    "sort-words": lambda text, _: " ".join(by_composed_form(words(text))),
    "reverse-words-in-line": lambda text, _: "\n".join(
        " ".join(reversed(words(line, SPACES))) for line in lines(text)),
    "replace-text": replace_text,
    "base64-encode": lambda text, _: base64.b64encode(text.encode()).decode(),
    "base64-decode": base64_decode,
    "url-encode": lambda text, _: urllib.parse.quote(text, safe="-._~!$&'()*+,;=:@/?"),
    "url-decode": url_decode,
    "html-encode": lambda text, _: html.escape(text, quote=False).replace('"', "&quot;").replace("'", "&#39;"),
    "html-decode": lambda text, _: replaced(text, ("&amp;", "&"), ("&lt;", "<"), ("&gt;", ">"), ("&quot;", '"'),
                                            ("&#39;", "'"), ("&apos;", "'")),
    "json-escape": lambda text, _: replaced(text, ("\\", "\\\\"), ('"', '\\"'), ("\n", "\\n"), ("\r", "\\r"),
                                            ("\t", "\\t")),
    "hex-encode": lambda text, _: text.encode().hex(),
    "hex-decode": hex_decode,
}

# Of ASCII without carriage returns, where every code point is a character and case is simple.
ASCII = {
    "uppercase": lambda text, _: text.upper(),
    "lowercase": lambda text, _: text.lower(),
    "titlecase": title_case,
    "sentencecase": sentence_case,
    "camelcase": camel_case,
    "pascalcase": lambda text, _: "".join(map(capitalised, programmer_words(text))),
    "snakecase": lambda text, _: "_".join(programmer_words(text)).lower(),
    "kebabcase": lambda text, _: "-".join(programmer_words(text)).lower(),
    "alternatingcase": alternate,
    "invertcase": invert,
    "delete-non-alphanumeric": lambda text, _: re.sub(r"[^A-Za-z0-9\s]|[\x1c-\x1f]", "", text),
    "remove-special-chars": lambda text, _: re.sub(r"[^A-Za-z0-9\s]|[\x1c-\x1f]", "", text),
    "delete-numeric": lambda text, _: re.sub("[0-9]", "", text),
    "keep-only-numeric": lambda text, _: re.sub(r"[^0-9 \t\n\x0b\x0c]", "", text),
    "remove-punctuation": lambda text, _: "".join(c for c in text if not unicodedata.category(c).startswith("P")),
    "wrap-lines": wrap,
    "sort-lines-length": lambda text, _: "\n".join(sorted(lines(text), key=len)),
    "reverse": lambda text, _: text[::-1],
    "replace-regex": lambda text, p: re.sub(p["pattern"], p["replace"].replace("$", "\\").replace("\\0", r"\g<0>"), text),
}

# Rules that have one well-known example: transformation, text, parameters, result or error.
EXAMPLES = (
    ("uppercase", "stra\u00dfe", {}, "STRASSE"),
    ("titlecase", "hello WORLD", {}, "Hello World"),
    ("titlecase", "don't foo-bar_baz 3rd mp3PLAYER \u01c6", {}, "Don't Foo-Bar_Baz 3Rd Mp3player \u01c5"),
    ("sentencecase", "Really? yes!", {}, "Really. Yes. "),
    ("sentencecase", "hello WORLD", {}, "Hello world"),
    ("sentencecase", "a.b", {}, "A. B"),
    ("sentencecase", "end.", {}, "End. "),
    ("camelcase", "hello big-world", {}, "helloBigWorld"),
    ("camelcase", "helloWorld foo", {}, "helloworldFoo"),
    ("camelcase", "--", {}, "--"),
    ("camelcase", "HELLO WORLD", {}, "helloWorld"),
    ("pascalcase", "hello big-world", {}, "HelloBigWorld"),
    ("pascalcase", "iPhone app", {}, "IphoneApp"),
    ("pascalcase", "--", {}, ""),
    ("snakecase", "Hello Big-World", {}, "hello_big_world"),
    ("snakecase", "--", {}, ""),
    ("kebabcase", "Hello Big-World", {}, "hello-big-world"),
    ("kebabcase", "--", {}, ""),
    ("invertcase", "Hello World", {}, "hELLO wORLD"),
    ("alternatingcase", "hello world", {}, "HeLlO wOrLd"),
    ("alternatingcase", "ab cd", {}, "Ab Cd"),
    ("add-prefix", "", {"prefix": "> "}, "> "),
    ("add-prefix", "a", {}, Failure("Missing parameter: prefix")),
    ("add-suffix", "a", {}, Failure("Missing parameter: suffix")),
    ("add-suffix", "a\r\nb", {"suffix": ""}, "a\r\nb"),
    ("remove-whitespace", "  a \t b  ", {}, "a b"),
    ("remove-whitespace", "a\n    b", {}, "a\n b"),
    ("remove-empty-lines", "a\n \n\t\nb", {}, "a\nb"),
    ("remove-line-breaks", "a \n b\n\nc", {}, "a b  c"),
    ("remove-duplicates", "x\n\ny\n\nx", {}, "x\n\ny"),
    ("remove-duplicate-words", "a b\nb c", {}, "a b c"),
    ("remove-all-spaces", "a \u00a0b", {}, "a\u00a0b"),
    ("keep-only-numeric", "a1 b2\nc3", {}, "1 2\n3"),
    ("keep-last-n-lines", "a\nb", {"count": "3"}, "a\nb"),
    ("keep-last-n-lines", "a\nb", {"count": "0"}, Failure("Invalid input: Count must be a positive number")),
    ("keep-last-n-lines", "a\nb", {}, Failure("Invalid input: Count must be a positive number")),
    ("delete-first-n-lines", "a\nb\nc", {"count": "+2"}, "c"),
    ("extract-lines-range", "a\nb", {"start": "2", "end": "1"}, Failure("Invalid input: End must be >= start")),
    ("number-lines", "x\n\ny", {}, "1. x\n2. \n3. y"),
    ("delete-lines-containing", "a", {"text": ""}, Failure("Missing parameter: text")),
    ("join-lines", "a\nb", {"separator": " | "}, "a | b"),
    ("break-after-sentence", "Hi. How are you? Fine!", {}, "Hi\nHow are you\nFine"),
    ("wrap-lines", "the quick brown fox", {"width": "10"}, "the quick\nbrown fox"),
    ("wrap-lines", "abcdef gh", {"width": "3"}, "abcdef\ngh"),
    ("wrap-lines", "a", {"width": "abc"}, Failure("Invalid input: Width must be a positive number")),
    ("sort-lines", "b\nA\na\n", {}, "\nA\na\nb"),
    ("sort-lines-length", "ccc\na\nbb\nd", {}, "a\nd\nbb\nccc"),
    ("sort-words", "b a\nc", {}, "a b c"),
    ("reverse-words-in-line", "one two\nthree four", {}, "two one\nfour three"),
    ("replace-text", "banana", {"find": "a"}, "bnn"),
    ("replace-regex", "key=x", {"pattern": r"(\w+)=", "replace": "[$1]"}, "[key]x"),
    ("replace-regex", "a", {"pattern": ""}, Failure("Missing parameter: pattern")),
    ("reverse", "e\u0301\U0001f468\u200d\U0001f469\r\na", {}, "a\r\n\U0001f468\u200d\U0001f469e\u0301"),
    ("html-decode", "&amp;amp;", {}, "&amp;"),
    ("html-decode", "&amp;lt;", {}, "<"),
    ("html-decode", "&nbsp;&#60;", {}, "&nbsp;&#60;"),
    ("json-escape", "\\n\n", {}, "\\\\n\\n"),
    ("base64-decode", "SGVsbG8=", {}, "Hello"),
    ("base64-decode", "SGVsbG8", {}, Failure("Invalid input: Invalid Base64 string")),
    ("url-encode", "a b&c", {}, "a%20b&c"),
    ("url-decode", "100%", {}, Failure("Invalid input: Invalid URL-encoded string")),
    ("hex-encode", "Hi\u00e9", {}, "4869c3a9"),
    ("hex-decode", "48 65 6C 6C 6F", {}, "Hello"),
    ("hex-decode", "", {}, ""),
)

PIECES = (
    "a b the Zebra apple WORLD don't x1 42 foo_bar e 7 I'm ' '' 3rd mp3PLAYER".split()
    + list(".,!?-_\"()[];:/\\&<>#%$+=@~^|`") + list(" \t \t  ") + ["\n"] * 12
    + ["&amp;", "&lt;", "&amp;lt;", "&#39;", "&apos;", "&quot;", "&nbsp;", "%41", "%C3%A9", "%", "\x00", "\x1f", "\x7f", "\x0b", "\x0c"]
)
WIDE_PIECES = PIECES + (
    ["\r\n", "\r", "\x85", "\u2028", "\u2029", "\u00a0", "\u3000", "\u2003", "\u200b", "\ufeff"]
    + "é e\u0301 a\u0323\u0308 a\u0308\u0323 q\u0307\u0323 ß İ ı Σας 漢字 한글 \u1112\u1161\u11ab नमस्ते שלום مرحبا".split()
    + ["\u212b", "\u00c5", "\u0344", "\u0301", "\uf900", "\U0001f468\u200d\U0001f469", "\U0001f1e9\U0001f1ea", "½", "\ue000",
       "\uffff", "\U0010ffff", "\U0002f800", "\u2126", "\ufb03"]
)


def text_of(dice, pieces):
    shape = dice.random()
    if shape < 0.04:
        return ""
    if shape < 0.2:  # a few different lines, often
        some = ["".join(dice.choices(pieces, k=dice.randrange(4))) for _ in range(dice.randint(1, 5))]
        return "\n".join(dice.choices(some, k=dice.randrange(60)))
    if shape < 0.35:  # around the ends of blocks
        filler = "".join(dice.choices("abc XYZ.\n12'", k=dice.choice((16, 32, 64, 128, 256, 4096)) + dice.randint(-3, 3)))
        return filler + "".join(dice.choices(pieces, k=dice.randrange(8))) + filler
    return "".join(dice.choices(pieces, k=dice.choice((3, 10, 60))))


def count_value(dice):
    if dice.random() < 0.7:
        return str(dice.randint(1, 9))
    return dice.choice(("0", "-1", "+2", "007", "", "+", " 1", "1 ", "1.0", "x", "٣", "9223372036854775807",
                        "9223372036854775808", "-9223372036854775808", "99999999999999999999999", "1e2"))


def parameters_for(dice, identifier, pieces):
    sought = "".join(dice.choices(pieces, k=dice.choice((0, 1, 1, 1, 2))))
    values = {
        "prefix": dice.choice(("> ", "", "é", "\n")), "suffix": dice.choice((";", "", "é", "\n")),
        "separator": dice.choice((", ", "", " | ", "\n")), "text": sought, "find": sought,
        "replace": dice.choice(("", "x", "$1", "\\", "é")),
        "count": count_value(dice), "start": count_value(dice), "end": count_value(dice), "width": count_value(dice),
    }
    keys = [key for key in values if dice.random() > 0.04]
    parameters = {key: values[key] for key in keys}
    if identifier == "replace-regex":
        parameters = {"pattern": dice.choice(("[a-c]+", r"(\w)(\d)", "(a)|(b)", "[ \t\n]+", "x*", r"(\w)\1", "b{2,3}|e")),
                      "replace": dice.choice(("", "-", "<$0>"))}
    return parameters


def encoded_text(dice, identifier, text):
    """Input for what decodes: mostly encoded, sometimes damaged."""
    encoders = {
        "base64-decode": lambda: base64.b64encode(text.encode()).decode(),
        "url-decode": lambda: urllib.parse.quote(text),
        "hex-decode": lambda: dice.choice(("", " ")).join(f"{byte:02x}" for byte in text.encode()),
    }
    if identifier not in encoders or dice.random() < 0.1:
        return text
    encoded = encoders[identifier]()
    if encoded and dice.random() < 0.3:
        place = dice.randrange(len(encoded))
        encoded = encoded[:place] + dice.choice("=%g A0\n+é") + encoded[place + dice.randrange(2):]
    return encoded


class EngineCheck(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.driver = EngineDriver(DRIVER)

    @classmethod
    def tearDownClass(cls):
        cls.driver.close()

    def compare(self, identifier, implementation, pieces):
        dice = random.Random(f"{SEED} {identifier}")
        for _ in range(TEXTS_PER_TRANSFORMATION):
            parameters = parameters_for(dice, identifier, pieces)
            text = encoded_text(dice, identifier, text_of(dice, pieces))
            try:
                expected = {"result": implementation(text, parameters)}
            except Failure as failure:
                expected = {"error": str(failure)}
            answer = self.driver.ask({"id": identifier, "text": text, "parameters": parameters})
            self.assertEqual(answer, expected, f"{identifier} of {text!a} with {parameters!a}")

    def test_examples(self):
        for identifier, text, parameters, expected in EXAMPLES:
            with self.subTest(identifier, text=text):
                answer = self.driver.ask({"id": identifier, "text": text, "parameters": parameters})
                failed = isinstance(expected, Failure)
                self.assertEqual(answer, {"error": str(expected)} if failed else {"result": expected})

    def test_a_malformed_pattern_is_described(self):
        answer = self.driver.apply("replace-regex", "a", pattern="(")
        self.assertRegex(answer["error"], "^Invalid input: Invalid regular expression: .")

    def test_transformations_of_any_text(self):
        for identifier, implementation in ANY.items():
            with self.subTest(identifier):
                self.compare(identifier, implementation, WIDE_PIECES)

    def test_transformations_of_ascii(self):
        for identifier, implementation in ASCII.items():
            with self.subTest(identifier):
                self.compare(identifier, implementation, PIECES)

    def test_what_is_escaped_is_json(self):
        dice = random.Random(SEED)
        for _ in range(TEXTS_PER_TRANSFORMATION):
            text = text_of(dice, WIDE_PIECES)
            escaped = self.driver.apply("json-escape", text)["result"]
            self.assertEqual(json.loads('"' + escaped + '"', strict=False), text)

    def test_stacks(self):
        dice = random.Random(SEED)
        for _ in range(TEXTS_PER_TRANSFORMATION):
            text = original = text_of(dice, WIDE_PIECES)
            operations = []
            for identifier in dice.choices(sorted(ANY), k=dice.randrange(6)):
                operation = {"transformation": identifier, "isEnabled": dice.random() < 0.8,
                             "parameters": parameters_for(dice, identifier, WIDE_PIECES)}
                operations.append(operation)
                if operation["isEnabled"] and len(text) < 20_000:
                    try:
                        text = ANY[identifier](text, operation["parameters"])
                    except Failure:
                        pass
                else:
                    operation["isEnabled"] = False
            answer = self.driver.ask({"id": "stack", "text": original, "operations": operations})
            self.assertEqual(answer, {"result": text}, f"{original!a} {operations!a}")


if __name__ == "__main__":
    DRIVER = sys.argv.pop(1)
    if len(sys.argv) > 1 and sys.argv[1].isdigit():
        SEED = int(sys.argv.pop(1))
    print("seed", SEED)
    unittest.main()
