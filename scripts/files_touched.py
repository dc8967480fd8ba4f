#!/usr/bin/env python3
"""What a change costs: the files that commits touched, by what they are. The price of a new format, meter or command is the row of
the commit that brought the last one.

usage: scripts/files_touched.py COMMIT...    each commit a row; with A..B the whole stretch is one row
"""
import subprocess
import sys

# The first that fits counts; what is left is product code.
KINDS = (("tests", ("tests/", "fuzz/", "benchmarks/")), ("docs", ("docs/", "help/", "packaging/", "README.md", "CONTRIBUTING.md")),
         ("build", ("CMake", "cmake/", "scripts/", ".")))


def kind_of(name):
    if name.endswith(("README.md", "CMakeLists.txt")):
        return "docs" if name.endswith(".md") else "build"
    return next((kind for kind, beginnings in KINDS if name.startswith(beginnings)), "product")


def touched(commit):
    """[(status, path)], status being A, M, D or R..."""
    words = ["git", "diff", commit] if ".." in commit else ["git", "show", "--format=", commit]
    lines = subprocess.run([*words, "--name-status"], capture_output=True, text=True, check=True).stdout.splitlines()
    return [(line.split("\t")[0][0], line.split("\t")[-1]) for line in lines if line]


def row(commit):
    """'product 1 new 1 changed, tests ...' with the names of the product's files."""
    counts, names = {}, []
    for status, name in touched(commit):
        kind = kind_of(name)
        new, changed = counts.get(kind, (0, 0))
        counts[kind] = (new + 1, changed) if status == "A" else (new, changed + 1)
        if kind == "product":
            names.append(("+ " if status == "A" else "  ") + name)
    return ", ".join(f"{kind} {new} new {changed} changed" for kind, (new, changed) in sorted(counts.items())), names


def main(commits):
    for commit in commits:
        words, names = row(commit)
        title = subprocess.run(["git", "log", "-1", "--format=%h %s", commit.split("..")[-1]], capture_output=True, text=True, check=True)
        print(title.stdout.strip(), words, *names, sep="\n  ")


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    main(sys.argv[1:])
