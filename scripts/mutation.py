#!/usr/bin/python3
"""Changes operators and constants of the pure layers one at a time and counts how many the fast tests notice.

    scripts/mutation.py [--seed N] [--count 400] [--layers processing,render,acquisition] [--only 17,23]

All drawn changes are compiled into one copy of the tree: each place becomes a choice between what is written and the
change, made at run time by the environment variable LOBEGRAPH_MUTANT. So one build serves all of them. A place that
cannot be written so (a case label, the size of an array) is drawn again, and counted. The copy, its build and the
result, one line a change, stand in build/mutation. Exits with 1 when fewer than 90 % are noticed.
"""
import argparse
import collections
import json
import os
import pathlib
import random
import re
import subprocess
import sys
import time

import clang.cindex
from clang.cindex import CursorKind as Kind

ROOT = pathlib.Path(__file__).resolve().parents[1]
WORK = ROOT / "build" / "mutation"
TREE = WORK / "tree"
BUILD = WORK / "build"
# The layer's own tests first; what they miss is shown to the others.
PROGRAMS = ["test_processing", "test_render", "test_acquisition", "test_app"]
SECONDS = 60
ENOUGH = 0.9

CHOICE = """#pragma once
#ifdef __cplusplus
extern "C" char* getenv(const char*) noexcept;
inline int LobegraphActiveMutant() {
  static const int active = [] {
    const char* text = getenv("LOBEGRAPH_MUTANT");
    int number = 0;
    for (; text && *text; ++text) number = 10 * number + (*text - '0');
    return number;
  }();
  return active;
}
/// The change in force; never while the compiler itself evaluates.
constexpr bool LobegraphMutant(int number) {
  return !__builtin_is_constant_evaluated() && LobegraphActiveMutant() == number;
}
/// As above for a value that is then no constant any more.
inline bool LobegraphMutantNow(int number) { return LobegraphActiveMutant() == number; }
#endif
"""

OTHERS = {
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"], "&&": ["||"], "||": ["&&"], "&": ["|"], "|": ["&"],
    "<<": [">>"], ">>": ["<<"], "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "++": ["--"], "--": ["++"],
}
# What the language wants to know while it compiles.
FIXED = {Kind.CASE_STMT, Kind.STATIC_ASSERT, Kind.ENUM_CONSTANT_DECL, Kind.TEMPLATE_NON_TYPE_PARAMETER,
         Kind.TYPE_ALIAS_DECL}
# What stands in front of their names is their type, which it wants to know as well.
NAMED = {Kind.VAR_DECL, Kind.FIELD_DECL, Kind.PARM_DECL, Kind.FUNCTION_DECL, Kind.CXX_METHOD}

# A piece of source: the byte offsets [begin, end) of the whole and of its operands; `texts` writes the two choices.
Place = collections.namedtuple("Place", "file line begin end was now operands shape constant")


def literal_changed(text, chance):
    """The next whole number up or down; a fraction ten per cent up or down."""
    if text in ("true", "false"):
        return "false" if text == "true" else "true"
    body, suffix = re.fullmatch(r"(.*?)([fFuUlLzZ]*)", text).groups()
    if re.fullmatch(r"[0-9']+", body) or body.lower().startswith("0x"):
        value = int(body.replace("'", ""), 0)
        return f"{value + 1 if value == 0 or chance.random() < 0.5 else value - 1}{suffix}"
    value = float(body)
    changed = 1.0 if value == 0.0 else value * (1.1 if chance.random() < 0.5 else 0.9)
    return f"{changed!r}{suffix}"


class Reader:
    """The places of one file."""

    def __init__(self, path, chance):
        self.path = path
        self.source = path.read_bytes()
        self.chance = chance
        self.places = {}
        self.constants = {}

    def read(self):
        unit = clang.cindex.Index.create().parse(
            str(self.path), ["-x", "c++", "-std=c++20", f"-I{ROOT}/src", "-I/usr/include/utf8cpp"])
        wrong = [d for d in unit.diagnostics if d.severity >= clang.cindex.Diagnostic.Error]
        if wrong:
            raise RuntimeError(f"{self.path}: {wrong[0]}")
        for child in unit.cursor.get_children():
            if child.location.file and child.location.file.name == str(self.path):
                self.visit(child, None)
        return list(self.places.values())

    def text(self, begin, end):
        return self.source[begin:end].decode()

    def visit(self, node, constant):
        if node.kind in FIXED:
            return
        if node.kind == Kind.VAR_DECL:
            constant = self.constant_of(node) or constant
        begin, end = node.extent.start.offset, node.extent.end.offset
        if node.extent.start.file and node.extent.start.file.name == str(self.path):
            self.consider(node, begin, end, constant)
        for child in node.get_children():
            in_type = node.kind in NAMED and child.extent.end.offset <= node.location.offset
            if not in_type:
                self.visit(child, constant)

    def constant_of(self, node):
        """Where the word constexpr of a variable stands, and what takes its place."""
        begin = node.extent.start.offset
        head = self.text(begin, node.location.offset)
        found = re.search(r"\b(inline\s+|static\s+)*constexpr\b", head)
        if not found:
            return None
        parent = node.semantic_parent.kind
        words = "static inline const" if parent in (Kind.CLASS_DECL, Kind.STRUCT_DECL) else (
            "inline const" if "inline" in found.group() else "static const")
        return begin + found.start(), begin + found.end(), words

    def consider(self, node, begin, end, constant):
        kind = node.kind
        children = list(node.get_children())
        if kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CXX_BOOL_LITERAL_EXPR):
            text = self.text(begin, end)
            if re.fullmatch(r"[0-9.][0-9a-fA-FxXuUlLeE.'+-]*|true|false", text):
                self.add(node, text, literal_changed(text, self.chance), [], "literal", begin, end, constant)
        elif kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            self.infix(node, children[0].extent, children[1].extent, begin, end, constant)
        elif kind == Kind.CALL_EXPR and node.spelling.startswith("operator") and len(children) in (2, 3):
            operands = [c for c in children if c.extent.start.offset != c.extent.end.offset
                        and not c.spelling.startswith("operator")]
            if len(operands) == 2:
                self.infix(node, operands[0].extent, operands[1].extent, begin, end, constant)
        elif kind == Kind.UNARY_OPERATOR and len(children) == 1:
            self.unary(node, children[0].extent, begin, end, constant)

    def infix(self, node, left, right, begin, end, constant):
        a, b, c, d = left.start.offset, left.end.offset, right.start.offset, right.end.offset
        sign = self.text(b, c).strip() if a == begin and b <= c and d == end else ""
        if sign in OTHERS and sign not in ("++", "--"):
            self.add(node, sign, self.chance.choice(OTHERS[sign]), [(a, b), (c, d)], "infix", begin, end, constant)

    def unary(self, node, inner, begin, end, constant):
        a, b = inner.start.offset, inner.end.offset
        before, after = self.text(begin, a).strip(), self.text(b, end).strip()
        if before in ("++", "--", "!", "-"):
            now = {"!": "!!", "-": ""}.get(before) if before in ("!", "-") else OTHERS[before][0]
            self.add(node, before, now, [(a, b)], "prefix", begin, end, constant)
        elif after in ("++", "--"):
            self.add(node, after, OTHERS[after][0], [(a, b)], "postfix", begin, end, constant)

    def add(self, node, was, now, operands, shape, begin, end, constant):
        self.places[begin, end] = Place(str(self.path.relative_to(ROOT)), node.extent.start.line, begin, end, was, now,
                                        operands, shape, constant)


def written(source, drawn, begin, end):
    """source[begin:end] with the drawn changes (number, place) inside it as choices."""
    result, at = "", begin
    inside = [(number, p) for number, p in drawn if begin <= p.begin and p.end <= end]
    inside.sort(key=lambda item: (item[1].begin, -item[1].end))
    for number, place in inside:
        if place.begin < at:
            continue
        rest = [(n, p) for n, p in inside if n != number]
        parts = [f"({written(source, rest, a, b)})" for a, b in place.operands]
        result += source[at:place.begin].decode() + choice(number, place, parts)
        at = place.end
    return result + source[at:end].decode()


def choice(number, place, parts):
    def side(sign):
        if place.shape == "literal":
            return sign
        if place.shape == "infix":
            return f"{parts[0]} {sign} {parts[1]}"
        return f"{sign}{parts[0]}" if place.shape == "prefix" else f"{parts[0]}{sign}"
    asked = "LobegraphMutantNow" if place.constant else "LobegraphMutant"
    return f"({asked}({number}) ? ({side(place.now)}) : ({side(place.was)}))"


def with_choices(source, drawn):
    """The whole file; a constant that holds a change becomes a plain value."""
    constants = sorted({p.constant for _, p in drawn if p.constant}, reverse=True)
    text = written(source, drawn, 0, len(source)).encode()
    if not constants:
        return text
    # The words before a value hold no change, so their order among themselves is kept: the n-th stays the n-th.
    marks = [m.span() for m in re.finditer(rb"\b(?:inline\s+|static\s+)*constexpr\b", source)]
    kept = [m.span() for m in re.finditer(rb"\b(?:inline\s+|static\s+)*constexpr\b", text)]
    for begin, end, words in constants:
        first, last = kept[marks.index((begin, end))]
        text = text[:first] + words.encode() + text[last:]
    return text


def put(path, content):
    """Writes only what differs, so that only that is built again."""
    if not path.exists() or path.read_bytes() != content:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)


def copy_tree(changed_later):
    """Everything but the files that will hold changes."""
    names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True, text=True, check=True).stdout
    for name in filter(None, names.split("\0")):
        if ROOT / name not in changed_later:
            put(TREE / name, (ROOT / name).read_bytes())
    put(WORK / "choice.h", CHOICE.encode())


def configure():
    if not (BUILD / "build.ninja").exists():
        subprocess.run(
            ["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DLOBEGRAPH_BENCHMARKS=OFF", "-DCMAKE_BUILD_TYPE=None",
             f"-DCMAKE_CXX_FLAGS=-O0 -w -Wno-narrowing -fno-diagnostics-show-caret -include {WORK}/choice.h"],
            check=True, stdout=subprocess.DEVNULL)


def write_choices(sources, drawn):
    for name, source in sources.items():
        put(TREE / name, with_choices(source, [(n, p) for n, p in drawn.items() if p.file == name]))


def unwritable(drawn):
    """Numbers of the changes that the compiler refuses; an empty set when everything is built."""
    done = subprocess.run(["nice", "ninja", "-k", "0", "-C", BUILD, *PROGRAMS], capture_output=True, text=True, check=False)
    if done.returncode == 0:
        return set()
    (WORK / "errors").write_text(done.stdout)
    refused = set()
    for file, line in re.findall(re.escape(str(TREE)) + r"/(src/\S+?):(\d+)", done.stdout):
        lines = (TREE / file).read_text().splitlines()
        refused |= {int(n) for n in re.findall(r"LobegraphMutant(?:Now)?\((\d+)\)", lines[int(line) - 1])}
    if not refused:
        raise RuntimeError(f"the copy does not build, see {WORK}/errors")
    return refused & set(drawn)


def draw(arguments, chance):
    """The sources by their names, `count` changes that compile by their numbers, and how many were drawn again."""
    files = [f for layer in arguments.layers.split(",") for ending in ("cpp", "h")
             for f in sorted((ROOT / "src" / layer).glob(f"*.{ending}"))]
    copy_tree(set(files))
    sources = {str(file.relative_to(ROOT)): file.read_bytes() for file in files}
    places = [place for file in files for place in Reader(file, chance).read()]
    chance.shuffle(places)
    print(f"{len(places)} places in {len(files)} files", flush=True)
    queue = list(enumerate(places, start=1))
    drawn, again = {}, 0
    while True:
        while len(drawn) < min(arguments.count, len(places)) and queue:
            number, place = queue.pop(0)
            drawn[number] = place
        write_choices(sources, drawn)
        configure()
        refused = unwritable(drawn)
        if not refused:
            return sources, drawn, again
        again += len(refused)
        print(f"{len(refused)} cannot be written as a choice and are drawn again", flush=True)
        for number in refused:
            del drawn[number]


def caught_by(number, place):
    """The program that fails under the change; None when all pass."""
    own = "test_" + place.file.split("/")[1]
    environment = dict(os.environ, LOBEGRAPH_MUTANT=str(number))
    for program in [own] + [p for p in PROGRAMS if p != own]:
        try:
            done = subprocess.run([BUILD / "tests" / program, "--gtest_fail_fast", "--gtest_brief=1"], env=environment,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=SECONDS, check=False)
        except subprocess.TimeoutExpired:
            return program + " (stands still)"
        if done.returncode != 0:
            return program
    return None


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**6))
    parser.add_argument("--count", type=int, default=400)
    parser.add_argument("--layers", default="processing,render,acquisition")
    parser.add_argument("--only", help="numbers of an earlier run of this seed, tried again")
    arguments = parser.parse_args()
    print(f"seed {arguments.seed}", flush=True)
    os.nice(10)
    sources, drawn, again = draw(arguments, random.Random(arguments.seed))
    without = [p for p in PROGRAMS if subprocess.run([BUILD / "tests" / p, "--gtest_brief=1"], check=False,
                                                     stdout=subprocess.DEVNULL).returncode]
    if without:
        sys.exit(f"fails without any change: {without}")
    chosen = [int(n) for n in arguments.only.split(",")] if arguments.only else sorted(drawn)
    begun, results = time.monotonic(), []
    for number in chosen:
        place = drawn[number]
        results.append({"number": number, "where": f"{place.file}:{place.line}", "was": place.was, "now": place.now,
                        "text": sources[place.file].decode().splitlines()[place.line - 1].strip(),
                        "caught": caught_by(number, place)})
        if not results[-1]["caught"]:
            print("survives: {number} {where}: {was} -> {now}   {text}".format(**results[-1]), flush=True)
    (WORK / "result.json").write_text(json.dumps(results, indent=1))
    return report(results, again, time.monotonic() - begun)


def report(results, again, seconds):
    layers = collections.defaultdict(lambda: [0, 0])
    for result in results:
        layers[result["where"].split("/")[1]][0] += bool(result["caught"])
        layers[result["where"].split("/")[1]][1] += 1
    for layer, (caught, of) in sorted(layers.items()):
        print(f"{layer}: {caught} of {of} caught ({100 * caught / of:.1f} %)")
    caught = sum(bool(r["caught"]) for r in results)
    print(f"all: {caught} of {len(results)} caught ({100 * caught / len(results):.1f} %); {again} drawn again; {seconds:.0f} s")
    return 0 if caught >= ENOUGH * len(results) else 1


if __name__ == "__main__":
    sys.exit(main())
