"""Which level source is chosen is asked in one table: the flags of the store that say so are named where they are kept,
where they are stored, and in that table. So a new serial meter costs its protocol, its row and its flag."""
import pathlib
import re
import sys

KEPT_IN = {"settings/InputChoice.h", "settings/SettingsTable.h", "acquisition/meters/LevelSource.cpp"}


def flags(root):
    """The flags of the table of sources."""
    table = (root / "src/acquisition/meters/LevelSource.cpp").read_text(encoding="utf-8")
    return set(re.findall(r"&InputChoice::(\w+)", table))


def violations(root):
    named = re.compile(r"\b(" + "|".join(sorted(flags(root))) + r")\b")
    for path in sorted((root / "src").rglob("*")):
        relative = path.relative_to(root / "src").as_posix()
        if path.suffix not in (".h", ".cpp") or relative in KEPT_IN:
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            found = named.search(line)
            if found:
                yield f"src/{relative}:{number}: asks for {found.group(1)}; the table of level sources knows"


if __name__ == "__main__":
    top = pathlib.Path(sys.argv[1])
    found = list(violations(top))
    print("\n".join(found) if found else f"{len(flags(top))} flags of level sources, in {len(KEPT_IN)} files each")
    sys.exit(1 if found else 0)
