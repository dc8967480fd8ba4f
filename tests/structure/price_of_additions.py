"""What an addition costs: the table in docs/architecture.md names for each kind an example and the files of the product that
know of it. A file more than the table says fails: then the next addition of that kind would cost it as well."""
import pathlib
import re
import sys

FOLDERS = ("src", "cli")
ROW = re.compile(r"^\| (?P<kind>[^|]+) \| `(?P<example>[^`]+)` \| (?P<before>\d+) \| (?P<now>\d+) \|", re.M)


def rows(text):
    return [(m["kind"].strip(), m["example"], int(m["now"])) for m in ROW.finditer(text)]


def files_that_know(root, example):
    word = re.compile(example.replace("/", "|"))
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".h", ".cpp") and word.search(path.read_text(encoding="utf-8")):
                yield path.relative_to(root).as_posix()


def violations(root):
    table = rows((root / "docs/architecture.md").read_text(encoding="utf-8"))
    if len(table) < 5:
        yield "docs/architecture.md: the table of what an addition costs is not there"
    for kind, example, now in table:
        found = list(files_that_know(root, example))
        if len(found) != now:
            yield f"{kind}: {len(found)} files know of {example}, the table says {now}: {', '.join(found)}"


if __name__ == "__main__":
    wrong = list(violations(pathlib.Path(sys.argv[1])))
    print("\n".join(wrong) if wrong else "each addition costs what the table says")
    sys.exit(1 if wrong else 0)
