"""What the house promises of its folders and files: rooms that are not overcrowded, small files, no circle of includes; and how
many functions stand in interfaces."""
import collections
import pathlib
import re
import sys

import check_includes

PRODUCT = ("src", *check_includes.PROGRAMS)
MOST_FILES_IN_A_ROOM = 30
MOST_LINES_IN_A_FILE = 300
MOST_INTERFACE_FUNCTIONS = None  # printed only
# Rooms that may hold more, with the reason.
CROWDED: dict[str, str] = {}
PURE_VIRTUAL = re.compile(r"\bvirtual\b[^;{}]*=\s*0\s*;")


def sources(root, tops):
    for top in tops:
        yield from (path for path in sorted((root / top).rglob("*")) if path.suffix in (".h", ".cpp"))


def crowded_rooms(root):
    """Folders with too many files; the exceptions that have become untrue as well."""
    counts = collections.Counter(path.parent.relative_to(root).as_posix() for path in sources(root, (*PRODUCT, "tests")))
    for folder, count in sorted(counts.items()):
        if count > MOST_FILES_IN_A_ROOM and folder not in CROWDED:
            yield f"{folder}: {count} files, a full room has {MOST_FILES_IN_A_ROOM}"
        if count <= MOST_FILES_IN_A_ROOM and folder in CROWDED:
            yield f"{folder}: {count} files are no crowd; take the exception away"


def long_files(root):
    for path in sources(root, PRODUCT):
        lines = path.read_text(encoding="utf-8").count("\n")
        if lines > MOST_LINES_IN_A_FILE:
            yield f"{path.relative_to(root)}: {lines} lines, a file has at most {MOST_LINES_IN_A_FILE}"


def circles_of_files(root):
    """Files that include each other, directly or over others: each group once, in alphabetical order."""
    names = {relative.as_posix(): path for path, relative, *_ in check_includes.includes(root)}
    arrows = {name: set() for name in names}
    for _, relative, _, bracket, target in check_includes.includes(root):
        if bracket == '"':
            arrows[relative.as_posix()].add(target)
    reached = {name: reachable(arrows, name) for name in arrows}
    told = set()
    for name in sorted(reached):
        group = tuple(sorted(other for other in reached[name] if name in reached.get(other, ())))
        if group and group not in told:
            told.add(group)
            yield "a circle of files: " + ", ".join(group)


def reachable(arrows, start):
    seen, waiting = set(), [start]
    while waiting:
        for target in arrows.get(waiting.pop(), ()):
            if target not in seen:
                seen.add(target)
                waiting.append(target)
    return seen


def interface_functions(root):
    """(file, how many) of the files that declare functions without a body for others to fill in."""
    for path in sources(root, PRODUCT):
        count = len(PURE_VIRTUAL.findall(path.read_text(encoding="utf-8")))
        if count:
            yield path.relative_to(root).as_posix(), count


def too_many_interface_functions(root, most=None):
    most = most or MOST_INTERFACE_FUNCTIONS
    count = sum(count for _, count in interface_functions(root))
    if most and count >= most:
        yield f"{count} functions in interfaces; fewer than {most} are enough for device, screen, time and files"


def violations(root):
    root = pathlib.Path(root)
    for check in (crowded_rooms, long_files, circles_of_files, too_many_interface_functions):
        yield from check(root)


if __name__ == "__main__":
    counted = dict(interface_functions(pathlib.Path(sys.argv[1])))
    print(f"{sum(counted.values())} functions in {len(counted)} files with interfaces")
    found = list(violations(sys.argv[1]))
    print("\n".join(found) if found else "every room has space, no circle")
    sys.exit(1 if found else 0)
