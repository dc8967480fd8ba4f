#!/usr/bin/env python3
"""Whether two builds of Lobegraph say, draw and write the same, to the byte.

Generated patterns of every readable format go through every transform, scale and option of lobegraph-cli's report, render (PNG
and SVG) and convert, and every window is looked at. What differs is printed and fails, unless a line of same_output_mends.txt
beside this script names it as meant:

    what it is, as printed, with * for any text | why the new build is right

usage: scripts/same_output.py OLD NEW [--patterns N] [--no-windows]    OLD and NEW: folders with the programs (build/release/bin)
"""
import argparse
import collections
import concurrent.futures
import fnmatch
import itertools
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import generated_patterns

HERE = pathlib.Path(__file__).resolve().parent
MENDS = HERE / "same_output_mends.txt"
SHOWN = 20  # differences printed for each command

TRANSFORMS = ("despike", "orient", "original", "reverse", "smooth")
ALONE = ([], *(["--apply", name] for name in TRANSFORMS))
APPLIED = (*ALONE, *(["--apply", ",".join(names)] for names in itertools.permutations(TRANSFORMS, 2)),
           ["--apply", "despike,smooth,smooth,orient"], ["--apply", "orient,reverse,smooth,original,despike"])
SCALES = (["--scale", "log"], ["--scale", "linear"], ["--scale", "db50"])
# Each option with values that are usual, at an edge and no number.
OPTIONS = ([], ["--calibrate"],
           *(["--peak-input-level", value] for value in ("1", "640", "32767.5")),
           *(["--spike-detect-level", value] for value in ("0", "200", "32767")),
           *(["--rotate", value] for value in ("90", "-45.5", "360", "1e2", "12,5", "north", "")),
           *(["--trim-front", value] for value in ("10", "400", "-1", "x")),
           *(["--trim-end", value] for value in ("7", "400", "-1", "2.5")),
           ["--trim-front", "12", "--trim-end", "9", "--rotate", "33"])
LOOKS = ([], ["--rectangular"], ["--size", "1002x1120"], ["--size", "64x64", "--rectangular"], ["--title", "3 elements, 144 MHz"],
         ["--colours", "colours.conf"], ["--overlay", "patterns/p001.csv", "patterns/p002.msi"],
         ["--rectangular", "--overlay", "patterns/p000.lbg", "--title", "two"])
WRITTEN = (".lbg", ".csv", ".msi", ".pln", ".az", ".ant", ".adf", ".nsma")
COLOURS = "PlotBackground=#202428\nPlotGrid=#405060\nPlotTrace=#f0a020\n"

Command = collections.namedtuple("Command", "title lines")  # lines: the arguments of one or several calls


def reports(files):
    for applied, scale, option in itertools.product(ALONE, SCALES, OPTIONS[1:]):
        words = [*scale, *applied, *option]
        yield Command(" ".join(["report", "--json", *words]), [["report", "--json", *words, *files]])
    for applied, scale in itertools.product(APPLIED, SCALES):
        words = ["--json", "--readings", "--trace", *scale, *applied]
        yield Command(" ".join(["report", *words]), [["report", *words, *files]])
        yield Command(" ".join(["report", *scale, *applied]), [["report", *scale, *applied, *files]])


def renders(files):
    styles = [[*scale, *applied, *look] for scale in SCALES for applied in ALONE for look in LOOKS[:2]]
    styles += [[*scale, *look] for scale in SCALES for look in LOOKS[2:]]
    styles += [[*option, *look] for option in OPTIONS[1:] for look in LOOKS[:2]]
    for words, kind in itertools.product(styles, ("svg", "png")):
        yield Command(" ".join(["render", kind, *words]), [["render", *files, "-o", "out/{}." + kind, *words]])


def conversions(files):
    for ending in WRITTEN:
        yield Command(f"convert to {ending}", [["convert", name, f"out/{pathlib.Path(name).name}{ending}"] for name in files])
    yield Command("convert to a table", [["convert", "--table", name, f"out/{pathlib.Path(name).name}.csv"]
                                         for name in files if not name.endswith(".csv")])
    yield Command("convert from a table", [["convert", "--table", name, f"out/{pathlib.Path(name).name}.lbg"]
                                           for name in files if name.endswith(".csv")])


def tables_as_patterns(build, files):
    """Pattern files made of the tables, since only convert is told what is a table: their names."""
    made = []
    for name in files:
        if name.endswith(".table.csv"):
            made.append(name.replace(".csv", "-made.lbg"))  # a picture is named by the stem
            build.call(["convert", "--table", name, made[-1]])
    return [name for name in made if (build.folder / name).exists()]


class Build:
    """One of the two, with a working folder of its own in which every name is the same as in the other's."""

    def __init__(self, programs, folder, patterns):
        self.programs, self.folder = pathlib.Path(programs).resolve(), folder
        self.folder.mkdir()
        (self.folder / "patterns").symlink_to(patterns)
        (self.folder / "colours.conf").write_text(COLOURS)
        self.environment = dict(os.environ, LC_ALL="C.UTF-8", HOME=str(folder), QT_QPA_PLATFORM="offscreen")

    def call(self, line):
        return subprocess.run([self.programs / "lobegraph-cli", *line], cwd=self.folder, env=self.environment,
                              capture_output=True, check=False)

    def run(self, command):
        """What came of it: {what: bytes}. Lines are by themselves, so that a difference names its file."""
        out, results = self.folder / "out", {}
        shutil.rmtree(out, ignore_errors=True)
        out.mkdir()
        for line in command.lines:
            done = self.call(line)
            of = line[-1] if len(command.lines) > 1 else ""
            results[f"exit code {of}"] = b"%d" % done.returncode
            results |= by_file(f"output {of}", done.stdout) | by_file(f"errors {of}", done.stderr)
        return results | {path.name: path.read_bytes() for path in out.iterdir()}


def by_file(what, text):
    """Each line under the name of the pattern that it is about, and its place among the lines about it. The source line that
    a fault names is where the source stands, not what the program says."""
    text = re.sub(rb"in line \d+ of procedure", b"in line _ of procedure", text)
    found, counted = {}, collections.Counter()
    for line in text.splitlines(keepends=True):
        name = re.search(rb"p\d{3}(\.\w+)+", line)
        about = name.group().decode() if name else ""
        counted[about] += 1
        found[f"{what} {about} line {counted[about]}"] = line
    return found


class Differences:
    def __init__(self):
        lines = [line.strip() for line in MENDS.read_text().splitlines()]
        self.mends = [tuple(part.strip() for part in line.split("|", 1)) for line in lines if line and not line.startswith("#")]
        self.seen = collections.Counter()
        self.mended = collections.Counter()
        self.compared = 0

    def compare(self, title, old, new):
        for what in sorted(old.keys() | new.keys()):
            self.compared += 1
            if old.get(what) != new.get(what):
                self.note(title, f"{title}: {what}", old.get(what, b""), new.get(what, b""))

    def note(self, title, name, old, new):
        for pattern, _ in self.mends:
            if fnmatch.fnmatchcase(name, pattern):
                self.mended[pattern] += 1
                return
        self.seen[title] += 1
        if self.seen[title] <= SHOWN:
            print(f"DIFFERS {name}\n  old {short(old, new)}\n  new {short(new, old)}", flush=True)

    def summary(self):
        for pattern, reason in self.mends:
            print(f"meant, {self.mended[pattern]} times: {pattern}: {reason}")
        print(f"{self.compared} outputs compared, {sum(self.seen.values())} differ and are not meant to")
        for title, count in self.seen.items():
            print(f"  {count} of {title}")


def short(text, other):
    """The text around the first byte that differs."""
    start = next((index for index, (one, two) in enumerate(zip(text, other)) if one != two), min(len(text), len(other)))
    return f"{len(text)} bytes, from {start}: {text[max(0, start - 60):start + 60]!r}"


def compare_commands(builds, files, differences):
    for verb in (conversions, reports, renders):
        print(f"== {verb.__name__}", flush=True)
        with concurrent.futures.ThreadPoolExecutor(len(builds)) as pool:
            for command in verb(files):
                differences.compare(command.title, *pool.map(lambda build: build.run(command), builds))


DESKTOPS = ("light at 1", "dark at 1.5")  # of window_pictures.py


def pictures(build):
    """Of every window: {name: bytes}."""
    folder = build.folder / "windows"
    shutil.rmtree(folder, ignore_errors=True)
    for desktop in DESKTOPS:
        subprocess.run(["dbus-run-session", "--", "/usr/bin/python3", "-B", HERE / "window_pictures.py", build.programs, folder,
                        desktop], check=True, stderr=subprocess.PIPE)
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def compare_windows(builds, differences):
    """A window caught in the middle of its paint is no difference: only what differs twice in a row counts."""
    print("== windows", flush=True)
    old, new = map(pictures, builds)
    if old != new:
        again = pictures(builds[1])
        new = {name: picture if picture == old.get(name) else again.get(name, b"") for name, picture in new.items()}
        again = pictures(builds[0])
        old = {name: picture if picture == new.get(name) else again.get(name, b"") for name, picture in old.items()}
    differences.compare("window", old, new)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("old")
    parser.add_argument("new")
    parser.add_argument("--patterns", type=int, default=300)
    parser.add_argument("--no-windows", action="store_true")
    options = parser.parse_args()
    differences = Differences()
    with tempfile.TemporaryDirectory(prefix="lobegraph-same-") as folder:
        patterns = pathlib.Path(folder, "patterns")
        files = [f"patterns/{name}" for name in generated_patterns.write_all(patterns, options.patterns)]
        builds = [Build(programs, pathlib.Path(folder, name), patterns)
                  for programs, name in ((options.old, "old"), (options.new, "new"))]
        compare_commands(builds, files + tables_as_patterns(builds[0], files), differences)
        if not options.no_windows:
            compare_windows(builds, differences)
    differences.summary()
    return 1 if differences.seen else 0


if __name__ == "__main__":
    sys.exit(main())
