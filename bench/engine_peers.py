# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""What each operation is measured with, and the alternatives beside it, each in its fastest form.

A peer is (name, kind, code, corpora). Kinds:
  py    a Python function of the text as str (decoded beforehand)
  pyb   the same of the text as bytes
  perl  Perl code that reads $t and leaves its result in $r; "perlu" gets characters instead of bytes
  node  a JavaScript expression of t, a string ("nodeb": a Buffer)
  sh    a command that reads the text from standard input, run under LC_ALL=C; what cat takes for it is subtracted
  part  the same of a command that reads only what it needs: its start alone is subtracted
Peers that know bytes or code points only are left out where that would give another result, hence the corpora.
"""

import base64
import binascii
import collections
import html
import json
import random
import re
import urllib.parse

ASCII = "AC"
ALL = "ABC"

LETTERS_DIGITS_SPACES = bytes(c for c in range(128) if chr(c).isalnum() or chr(c).isspace())
NOT_LETTERS_DIGITS_SPACES = bytes(set(range(256)) - set(LETTERS_DIGITS_SPACES))
PUNCTUATION = b"!\"#%&'()*,-./:;?@[\\]_{}"
NOT_NUMBERS_SPACES = bytes(c for c in range(256) if not (chr(c) in "0123456789 \t\n\v\f\r"))
WORDS_LOWER = bytes(ord(chr(c).lower()) if c < 128 and chr(c).isalnum() else 32 for c in range(256))
SWAP = bytes(ord(chr(c).swapcase()) if c < 128 else c for c in range(256))

WORD = re.compile(r"[^\W_]+")
SPACES = re.compile(rb"[ \t]+")
SENTENCES = re.compile(r"[.!?]")
SENTENCES_BYTES = re.compile(rb"[.!?]")
DIGITS_BYTES = re.compile(rb"[0-9]+")
THE_BYTES = re.compile(rb"the")
NOT_ALPHANUMERIC = re.compile(r"[^\w\s]|_")
GROUPS_BYTES = re.compile(rb"([a-z]+) ([0-9]+)")
WORD_PAIRS = re.compile(r"(\w+) (\w+)")
WORD_PAIRS_BYTES = re.compile(rb"(\w+) (\w+)")


def capitalized_sentences(t):
    return ". ".join([s.strip(" \t").capitalize() for s in SENTENCES.split(t)])


def camel_bytes(t):
    words = t.translate(WORDS_LOWER).split()
    return words[0] + b"".join([w.capitalize() for w in words[1:]])


def camel(t):
    words = WORD.findall(t.lower())
    return words[0] + "".join([w.capitalize() for w in words[1:]])


def shuffled(t):
    lines = t.split(b"\n")
    random.shuffle(lines)
    return b"\n".join(lines)


def counts(t):
    return (len(t), len(t.split()), t.count("\n"), t.count("."), t.count("!"), t.count("?"), t.count("\n\n"))


def stack(t):
    lines = [SPACES.sub(b" ", l.strip(b" \t")) for l in t.split(b"\n")]
    t = b"\n".join([l for l in lines if l]).replace(b"the", b"a").lower().translate(None, PUNCTUATION)
    lines = dict.fromkeys(sorted(t.split(b"\n")))
    return b"\n".join([b"%d. %s;" % row for row in enumerate(lines, 1)])


class Row:
    """An operation with its parameters; `reads` is added to the name of the corpus, for what is decoded."""

    def __init__(self, operation, peers, label=None, reads="", **parameters):
        self.operation = operation
        self.label = label or operation
        self.peers = peers
        self.reads = reads
        self.parameters = parameters


def rows():
    """Every row. HALF, in a parameter or a command, stands for half the number of lines of the corpus."""
    return [
        Row("uppercase", [
            ("python3 str.upper", "py", str.upper, ALL), ("python3 bytes.upper", "pyb", bytes.upper, ASCII),
            ("tr a-z A-Z", "sh", "tr a-z A-Z", ASCII), ("node", "node", "t.toUpperCase()", ALL)]),
        Row("lowercase", [
            ("python3 str.lower", "py", str.lower, ALL), ("python3 bytes.lower", "pyb", bytes.lower, ASCII),
            ("tr A-Z a-z", "sh", "tr A-Z a-z", ASCII), ("node", "node", "t.toLowerCase()", ALL)]),
        Row("titlecase", [
            ("python3 str.title", "py", str.title, ALL), ("python3 bytes.title", "pyb", bytes.title, ASCII),
            ("perl", "perl", r"($r = $t) =~ s/(\w+)/\u\L$1/g", ASCII)]),
        Row("sentencecase", [
            ("python3 split, capitalize", "py", capitalized_sentences, ALL),
            ("perl", "perl", r"$r = join('. ', map { s/^[ \t]+|[ \t]+$//gr =~ s/(.*)/\u\L$1/sr } split(/[.!?]/, $t, -1))",
             ASCII)]),
        Row("camelcase", [
            ("python3 translate, split", "pyb", camel_bytes, ASCII), ("python3 re", "py", camel, "B"),
            ("perl", "perl", r"($r = $t) =~ s/[^a-zA-Z0-9]*([a-zA-Z0-9]+)[^a-zA-Z0-9]*/\u\L$1/g", ASCII)]),
        Row("pascalcase", [
            ("python3 translate, split", "pyb", camel_bytes, ASCII), ("python3 re", "py", camel, "B"),
            ("perl", "perl", r"($r = $t) =~ s/[^a-zA-Z0-9]*([a-zA-Z0-9]+)[^a-zA-Z0-9]*/\u\L$1/g", ASCII)]),
        Row("snakecase", [
            ("perl lc, tr", "perl", "($r = lc $t) =~ tr/a-z0-9/_/cs", ASCII),
            ("python3 translate, split", "pyb", lambda t: b"_".join(t.translate(WORDS_LOWER).split()), ASCII),
            ("python3 re", "py", lambda t: "_".join(WORD.findall(t.lower())), "B")]),
        Row("kebabcase", [
            ("perl lc, tr", "perl", "($r = lc $t) =~ tr/a-z0-9/-/cs", ASCII),
            ("python3 translate, split", "pyb", lambda t: b"-".join(t.translate(WORDS_LOWER).split()), ASCII),
            ("python3 re", "py", lambda t: "-".join(WORD.findall(t.lower())), "B")]),
        Row("alternatingcase", [
            ("perl", "perl", r"($r = lc $t) =~ s/([a-z])([^a-z]*[a-z]?)/\U$1\E$2/g", ASCII),
            ("perl", "perlu", r"($r = lc $t) =~ s/(\p{L})(\P{L}*\p{L}?)/\U$1\E$2/g", "B")]),
        Row("invertcase", [
            ("python3 str.swapcase", "py", str.swapcase, ALL),
            ("python3 bytes.translate", "pyb", lambda t: t.translate(SWAP), ASCII),
            ("tr A-Za-z a-zA-Z", "sh", "tr A-Za-z a-zA-Z", ASCII)]),
        Row("add-prefix", [
            ("python3 replace", "pyb", lambda t: b"> " + t.replace(b"\n", b"\n> "), ALL),
            ("sed", "sh", "sed 's/^/> /'", ALL), ("perl", "perl", r"($r = $t) =~ s/^/> /mg", ALL)], prefix="> "),
        Row("add-suffix", [
            ("python3 replace", "pyb", lambda t: t.replace(b"\n", b";\n") + b";", ALL),
            ("sed", "sh", "sed 's/$/;/'", ALL), ("perl", "perl", r"($r = $t) =~ s/\n/;\n/g", ALL)], suffix=";"),
        Row("remove-whitespace", [
            ("tr -s", "sh", r"tr -s ' \t' ' '", ALL), ("python3 re", "pyb", lambda t: SPACES.sub(b" ", t), ALL),
            ("perl tr", "perl", r"($r = $t) =~ tr/ \t/ /s", ALL)]),
        Row("remove-all-spaces", [
            ("python3 replace", "pyb", lambda t: t.replace(b" ", b""), ALL), ("tr -d", "sh", "tr -d ' '", ALL),
            ("python3 translate", "pyb", lambda t: t.translate(None, b" "), ALL)]),
        Row("remove-tabs", [
            ("python3 replace", "pyb", lambda t: t.replace(b"\t", b""), ALL), ("tr -d", "sh", r"tr -d '\t'", ALL)]),
        Row("remove-empty-lines", [
            ("grep -v", "sh", "grep -v '^[[:blank:]]*$'", ALL), ("sed", "sh", r"sed '/^[ \t]*$/d'", ALL),
            ("python3 split, strip", "pyb", lambda t: b"\n".join([l for l in t.split(b"\n") if l.strip(b" \t")]), ALL),
            ("ripgrep", "sh", r"rg --no-unicode -v '^[ \t]*$'", ALL)]),
        Row("remove-line-breaks", [
            ("python3 split, strip", "pyb", lambda t: b" ".join([l.strip(b" \t") for l in t.split(b"\n")]), ALL),
            ("perl", "perl", r"($r = $t) =~ s/[ \t]*\n[ \t]*/ /g", ALL)]),
        Row("remove-duplicates", [
            ("python3 dict.fromkeys", "pyb", lambda t: b"\n".join(dict.fromkeys(t.split(b"\n"))), ALL),
            ("mawk", "sh", "mawk '!seen[$0]++'", ALL)]),
        Row("remove-duplicate-words", [
            ("python3 dict.fromkeys", "pyb", lambda t: b" ".join(dict.fromkeys(t.split())), ALL),
            ("perl", "perl", "my %s; $r = join(' ', grep { !$s{$_}++ } split(' ', $t))", ALL)]),
        *[Row(operation, [
            ("python3 translate", "pyb", lambda t: t.translate(None, NOT_LETTERS_DIGITS_SPACES), ASCII),
            ("tr -cd", "sh", r"tr -cd 'a-zA-Z0-9 \t-\r'", ASCII),
            ("perl tr", "perl", r"($r = $t) =~ tr/a-zA-Z0-9 \t-\r//cd", ASCII),
            ("python3 re", "py", lambda t: NOT_ALPHANUMERIC.sub("", t), "B"),
            ("perl", "perlu", r"($r = $t) =~ s/[^\p{L}\p{M}\p{N}\s]+//g", "B")])
          for operation in ("delete-non-alphanumeric", "remove-special-chars")],
        Row("delete-numeric", [
            ("python3 translate", "pyb", lambda t: t.translate(None, b"0123456789"), ASCII),
            ("tr -d", "sh", "tr -d 0-9", ASCII), ("perl", "perlu", r"($r = $t) =~ s/\p{N}+//g", "B")]),
        Row("keep-only-numeric", [
            ("python3 translate", "pyb", lambda t: t.translate(None, NOT_NUMBERS_SPACES), ASCII),
            ("tr -cd", "sh", r"tr -cd '0-9 \t-\r'", ASCII), ("perl", "perlu", r"($r = $t) =~ s/[^\p{N}\s]+//g", "B")]),
        Row("remove-punctuation", [
            ("python3 translate", "pyb", lambda t: t.translate(None, PUNCTUATION), ASCII),
            ("tr -d", "sh", r"tr -d '!\"#%&'\''()*,./:;?@[\\]_{}-'", ASCII),
            ("perl", "perlu", r"($r = $t) =~ s/\p{P}+//g", "B")]),
        Row("wrap-lines", [("fold -s (bytes)", "sh", "fold -s -w 80", ALL), ("fmt (bytes)", "sh", "fmt -w 80", ALL)],
            width="80"),
        Row("trim-lines", [
            ("sed", "sh", r"sed 's/^[ \t]*//;s/[ \t]*$//'", ALL),
            ("python3 split, strip", "pyb", lambda t: b"\n".join([l.strip(b" \t") for l in t.split(b"\n")]), ALL),
            ("perl", "perl", r"($r = $t) =~ s/^[ \t]+|[ \t]+$//mg", ALL)]),
        Row("number-lines", [
            ("cat -n", "sh", "cat -n", ALL), ("mawk", "sh", r"""mawk '{print NR". "$0}'""", ALL),
            ("python3", "pyb", lambda t: b"\n".join([b"%d. %s" % row for row in enumerate(t.split(b"\n"), 1)]), ALL)]),
        Row("break-after-word", [
            ("tr -s", "sh", r"tr -s ' \t\n' '\n'", ALL), ("perl tr", "perl", r"($r = $t) =~ tr/ \t\n/\n/s", ALL),
            ("python3 split", "pyb", lambda t: b"\n".join(t.split()), ALL)]),
        Row("break-after-sentence", [
            ("python3 re", "pyb", lambda t: b"\n".join(
                [s for s in [s.strip(b" \t") for s in SENTENCES_BYTES.split(t)] if s]), ALL),
            ("perl", "perl", r"$r = join(qq{\n}, grep { length } map { s/^[ \t]+|[ \t]+$//gr } split(/[.!?]/, $t))", ALL)]),
        *[Row(operation, [
            ("grep -F", "sh", f"grep {flag} -F ation", ALL), ("ripgrep", "sh", f"rg {flag} -F ation", ALL),
            ("python3", "pyb", test, ALL)], text="ation")
          for operation, flag, test in (
              ("delete-lines-containing", "-v",
               lambda t: b"\n".join([l for l in t.split(b"\n") if b"ation" not in l])),
              ("keep-lines-containing", "", lambda t: b"\n".join([l for l in t.split(b"\n") if b"ation" in l])))],
        *[Row(operation, [
            ("grep", "sh", f"grep {flag} '^the'", ALL), ("ripgrep", "sh", f"rg --no-unicode {flag} '^the'", ALL),
            ("python3", "pyb", test, ALL)], text="the")
          for operation, flag, test in (
              ("delete-lines-starting", "-v",
               lambda t: b"\n".join([l for l in t.split(b"\n") if not l.startswith(b"the")])),
              ("keep-lines-starting", "", lambda t: b"\n".join([l for l in t.split(b"\n") if l.startswith(b"the")])))],
        Row("reverse-lines", [
            ("tac", "sh", "tac", ALL), ("python3", "pyb", lambda t: b"\n".join(t.split(b"\n")[::-1]), ALL)]),
        Row("delete-first-n-lines", [
            ("tail", "part", "tail -n +HALF", ALL), ("sed", "part", "sed 1,HALFd", ALL)], count="HALF"),
        Row("delete-last-n-lines", [("head", "part", "head -n -HALF", ALL)], count="HALF"),
        Row("keep-first-n-lines", [("head", "part", "head -n HALF", ALL)], count="HALF"),
        Row("keep-last-n-lines", [("tail", "part", "tail -n HALF", ALL)], count="HALF"),
        Row("extract-lines-range", [("sed", "part", "sed -n '100,HALFp;HALFq'", ALL)], start="100", end="HALF"),
        Row("join-lines", [
            ("python3 replace", "pyb", lambda t: t.replace(b"\n", b", "), ALL),
            ("paste -s", "sh", "paste -sd,", ALL), ("perl", "perl", r"($r = $t) =~ s/\n/, /g", ALL)], separator=", "),
        Row("sort-lines", [
            ("sort", "sh", "sort --parallel=1", ALL), ("perl", "perl", r"$r = join(qq{\n}, sort(split(/\n/, $t)))", ALL),
            ("python3", "pyb", lambda t: b"\n".join(sorted(t.split(b"\n"))), ALL)]),
        Row("sort-lines-reverse", [
            ("sort -r", "sh", "sort -r --parallel=1", ALL),
            ("perl", "perl", r"$r = join(qq{\n}, reverse(sort(split(/\n/, $t))))", ALL),
            ("python3", "pyb", lambda t: b"\n".join(sorted(t.split(b"\n"), reverse=True)), ALL)]),
        Row("sort-lines-length", [
            ("python3 str", "py", lambda t: "\n".join(sorted(t.split("\n"), key=len)), ALL),
            ("python3 bytes", "pyb", lambda t: b"\n".join(sorted(t.split(b"\n"), key=len)), ASCII)]),
        Row("shuffle-lines", [("shuf", "sh", "shuf", ALL), ("python3", "pyb", shuffled, ALL)]),
        Row("sort-words", [
            ("python3", "pyb", lambda t: b" ".join(sorted(t.split())), ALL),
            ("perl", "perl", "$r = join(' ', sort(split(' ', $t)))", ALL)]),
        Row("reverse-words-in-line", [
            ("python3", "pyb", lambda t: b"\n".join([b" ".join(l.split()[::-1]) for l in t.split(b"\n")]), ALL),
            ("perl", "perl", r"$r = join(qq{\n}, map { join(' ', reverse(split(' ', $_))) } split(/\n/, $t, -1))", ALL)]),
        Row("replace-text", [
            ("python3 bytes.replace", "pyb", lambda t: t.replace(b"the", b"THAT"), ALL),
            ("node", "node", "t.replaceAll('the', 'THAT')", ALL), ("sd", "sh", "sd -s the THAT", ALL),
            ("perl", "perl", "($r = $t) =~ s/the/THAT/g", ALL), ("sed", "sh", "sed s/the/THAT/g", ALL)],
            find="the", replace="THAT"),
        Row("replace-regex", [
            ("python3 re", "pyb", lambda t: DIGITS_BYTES.sub(b"#", t), ALL),
            ("node", "node", "t.replace(/[0-9]+/g, '#')", ALL), ("perl", "perl", "($r = $t) =~ s/[0-9]+/#/g", ALL),
            ("sd", "sh", "sd '[0-9]+' '#'", ALL), ("ripgrep", "sh", "rg --no-unicode --passthru -N '[0-9]+' -r '#'", ALL)],
            label="replace-regex [0-9]+", pattern="[0-9]+", replace="#"),
        Row("replace-regex", [
            ("python3 re", "pyb", lambda t: THE_BYTES.sub(b"THAT", t), ALL),
            ("node", "node", "t.replace(/the/g, 'THAT')", ALL), ("perl", "perl", "($r = $t) =~ s/the/THAT/g", ALL),
            ("sd", "sh", "sd the THAT", ALL)],
            label="replace-regex the", pattern="the", replace="THAT"),
        Row("replace-regex", [
            ("python3 re", "pyb", lambda t: GROUPS_BYTES.sub(rb"\2 \1", t), ALL),
            ("node", "node", "t.replace(/([a-z]+) ([0-9]+)/g, '$2 $1')", ALL),
            ("perl", "perl", r"($r = $t) =~ s/([a-z]+) ([0-9]+)/$2 $1/g", ALL),
            ("sd", "sh", "sd '([a-z]+) ([0-9]+)' '$2 $1'", ALL)],
            label="replace-regex, groups", pattern="([a-z]+) ([0-9]+)", replace="$2 $1"),
        Row("replace-regex", [
            ("python3 re", "py", lambda t: WORD_PAIRS.sub(r"\2 \1", t), ALL),
            ("python3 re bytes", "pyb", lambda t: WORD_PAIRS_BYTES.sub(rb"\2 \1", t), ASCII),
            ("perl", "perl", r"($r = $t) =~ s/(\w+) (\w+)/$2 $1/g", ASCII),
            ("perl", "perlu", r"($r = $t) =~ s/(\w+) (\w+)/$2 $1/g", "B"),
            ("node", "node", r"t.replace(/(\w+) (\w+)/g, '$2 $1')", ASCII),
            ("sd", "sh", r"sd '(\w+) (\w+)' '$2 $1'", ALL)],
            label=r"replace-regex (\w+) (\w+)", pattern=r"(\w+) (\w+)", replace="$2 $1"),
        Row("reverse", [
            ("python3 bytes[::-1]", "pyb", lambda t: t[::-1], ASCII), ("perl", "perl", "$r = reverse($t)", ASCII),
            (r"perl \X", "perlu", r"$r = join('', reverse($t =~ /\X/g))", "B")]),
        Row("base64-encode", [
            ("node Buffer", "nodeb", "t.toString('base64')", ALL), ("python3 binascii", "pyb", base64.b64encode, ALL),
            ("base64", "sh", "base64 -w 0", ALL)]),
        Row("base64-decode", [
            ("node Buffer", "node", "Buffer.from(t, 'base64').toString()", ALL),
            ("python3 binascii", "pyb", lambda t: binascii.a2b_base64(t).decode(), ALL),
            ("base64 -d", "sh", "base64 -d", ALL)], reads=".base64"),
        Row("url-encode", [
            ("node", "node", "encodeURIComponent(t)", ALL), ("python3 urllib", "pyb", urllib.parse.quote, ALL),
            ("perl", "perl", r"($r = $t) =~ s/([^A-Za-z0-9._~-])/sprintf('%%%02X', ord($1))/ge", ALL)]),
        Row("url-decode", [
            ("node", "node", "decodeURIComponent(t)", ALL), ("python3 urllib", "py", urllib.parse.unquote, ALL),
            ("perl", "perl", r"($r = $t) =~ s/%([0-9A-Fa-f]{2})/chr(hex($1))/ge", ALL)], reads=".url"),
        Row("html-encode", [
            ("python3 html.escape", "py", html.escape, ALL),
            ("sed", "sh", r"""sed 's/&/\&amp;/g;s/</\&lt;/g;s/>/\&gt;/g;s/"/\&quot;/g;s/'\''/\&#39;/g'""", ALL),
            ("node", "node", r"""t.replaceAll('&','&amp;').replaceAll('<','&lt;').replaceAll('>','&gt;')"""
             r""".replaceAll('"','&quot;').replaceAll("'",'&#39;')""", ALL)]),
        Row("html-decode", [
            ("python3 html.unescape", "py", html.unescape, ALL),
            ("node", "node", r"""t.replaceAll('&amp;','&').replaceAll('&lt;','<').replaceAll('&gt;','>')"""
             r""".replaceAll('&quot;','"').replaceAll('&#39;',"'")""", ALL)], reads=".html"),
        Row("json-escape", [
            ("python3 json", "py", lambda t: json.dumps(t, ensure_ascii=False), ALL),
            ("node", "node", "JSON.stringify(t)", ALL)]),
        Row("hex-encode", [
            ("python3 bytes.hex", "pyb", bytes.hex, ALL), ("node Buffer", "nodeb", "t.toString('hex')", ALL),
            ("xxd -p", "sh", "xxd -p", ALL)]),
        Row("hex-decode", [
            ("python3 fromhex", "py", lambda t: bytes.fromhex(t).decode(), ALL),
            ("node Buffer", "node", "Buffer.from(t, 'hex').toString()", ALL)], reads=".hex"),
        Row("count-characters", [(r"perl \X", "perlu", r"$r = () = $t =~ /\X/g", ALL)]),
        Row("statistics", [
            ("python3 str", "py", counts, ALL), ("wc -lwm", "sh", "env LC_ALL=C.UTF-8 wc -lwm", ALL)]),
        Row("character-frequency", [
            ("python3 Counter", "py", lambda t: collections.Counter(t).most_common(), ASCII),
            (r"perl \X", "perlu", r"my %c; $c{$_}++ for $t =~ /\X/g; $r = %c", ALL)]),
        Row("ten-step-stack", [("python3 bytes", "pyb", stack, ALL)]),
    ]
