"""Reads every #include below src/ and in the programs' own folders and fails on an arrow that the house does not allow: between
layers by the table below, between rooms by what each room's README says it uses. No room may lead back to itself."""
import pathlib
import re
import sys

# Who may include whom. A qt/ room: its own layer, what that layer may include, and the toolkit.
PURE = {
    "data": set(),
    "settings": {"data"},
    "processing": {"data"},
    "render": {"data", "processing"},
    "acquisition": {"data", "settings", "processing"},
    "app": {"data", "settings", "processing", "render", "acquisition"},
    "bench": {"data", "settings", "acquisition"},
    "meter": {"data", "settings", "acquisition"},
    "cli": {"data", "settings", "processing", "render", "acquisition"},
    "rotator": {"data", "acquisition"},
    "collect": {"data", "settings", "processing", "render", "acquisition"},
}
PROGRAMS = ("bench", "cli", "collect", "meter", "rotator")
# The drawing layer sees what a plot is, not how it is computed.
RESULT_TYPES = {"processing/PlotResult.h", "processing/PlotStyle.h"}
# The one room that assembles the others' toolkit parts, and the companion that renders and reads settings.
OTHER_QT = {"app": set(PURE) - {"app", *PROGRAMS}, "cli": {"render", "settings"},
            "collect": {"acquisition", "settings"}}
# A device library with a room of its own, which no other may include.
LIBRARY_ROOMS = {"hamlib": "rotator"}
# The transform's library computes and touches nothing outside, so a pure layer may link it: in one room.
TRANSFORM, TRANSFORM_ROOM = "fftw3.h", "acquisition/spectrum"
TOOLKIT = re.compile(r"^(Q[A-Z]|Qt|pulse/|ftdi|libusb|cups/|asoundlib)")
INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)')
USES = re.compile(r"^\*\*Uses\.\*\* (.*)\.$", re.M)


def layer_of(parts):
    """('render', True) for src/render/qt/X.h and what stands in a library's room; a program's folder counts as a layer."""
    return parts[0], len(parts) > 2 and (parts[1] == "qt" or LIBRARY_ROOMS.get(parts[1]) == parts[0])


def includes(root):
    """(file, its path below src/ or the root, line, bracket, target) of every include."""
    for top in ("src", *PROGRAMS):
        for path in sorted((root / top).rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            relative = path.relative_to(root / "src" if top == "src" else root)
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                found = INCLUDE.match(line)
                if found:
                    yield path.relative_to(root), relative, number, found.group(1), found.group(2)


def violations(root):
    root = pathlib.Path(root)
    used = {}
    for path, relative, number, bracket, target in includes(root):
        layer, in_qt = layer_of(relative.parts)
        problem = judge_library(relative.parts, target) or judge(layer, in_qt, bracket, target)
        if problem:
            yield f"{path}:{number}: {target}: {problem}"
        rooms = used.setdefault((relative.parent.as_posix(), path.parent.as_posix()), set())
        if bracket == '"' and "/" in target:
            rooms.add(target.rsplit("/", 1)[0])
    yield from room_violations(root, used)


def room_violations(root, used):
    arrows = {}
    for (room, folder), targets in sorted(used.items()):
        targets.discard(room)
        arrows[room] = targets
        readme = root / folder / "README.md"
        said = USES.search(readme.read_text(encoding="utf-8")) if readme.exists() else None
        if not said:
            yield f"{folder}/README.md: a room says what it holds and, in a line '**Uses.** a, b.', what it uses"
            continue
        named = set() if said.group(1) == "nothing" else set(said.group(1).split(", "))
        for target in sorted(targets - named):
            yield f"{folder}: includes {target}, which its README does not name"
        for target in sorted(named - targets):
            yield f"{folder}/README.md: names {target}, which nothing here includes"
    yield from circles(arrows)


def circles(arrows):
    """Each circle of rooms once, from the room whose name comes first."""
    for start in sorted(arrows):
        waiting, seen = [[start]], set()
        while waiting:
            way = waiting.pop()
            for target in sorted(arrows.get(way[-1], ())):
                if target == start:
                    if start == min(way):
                        yield "a circle of rooms: " + " -> ".join(way + [start])
                elif target not in seen:
                    seen.add(target)
                    waiting.append(way + [target])


def judge_library(parts, target):
    """A library's room holds that library only, and no other room holds it."""
    if target == TRANSFORM and "/".join(parts[:-1]) != TRANSFORM_ROOM:
        return f"{TRANSFORM} belongs into {TRANSFORM_ROOM}"
    room = parts[1] if len(parts) > 2 and parts[1] in LIBRARY_ROOMS else None
    library = target.split("/")[0] if target.split("/")[0] in LIBRARY_ROOMS else None
    if library and (room != library or LIBRARY_ROOMS[library] != parts[0]):
        return f"{library} belongs into {LIBRARY_ROOMS[library]}/{library}"
    return "this room is one library's own" if room and TOOLKIT.match(target) else None


def judge(layer, in_qt, bracket, target):
    if layer not in PURE:
        return f"unknown layer '{layer}'"
    if TOOLKIT.match(target):
        return None if in_qt else "toolkit and device libraries belong into a qt/ folder"
    if bracket == "<":
        return None
    parts = target.split("/")
    if len(parts) == 1 or parts[0] not in PURE:
        return "name the layer: \"layer/Header.h\""
    other, other_qt = layer_of(parts)
    if other_qt:
        if not in_qt:
            return "a pure layer never includes a qt/ folder"
        if other == layer or other in OTHER_QT.get(layer, set()):
            return None
        return f"{layer}/qt never includes {other}/qt"
    if other == layer or other in PURE[layer]:
        if layer == "render" and other == "processing" and target not in RESULT_TYPES:
            return "render includes the result types of processing only"
        return None
    return f"{layer} never includes {other}"


if __name__ == "__main__":
    found = list(violations(sys.argv[1]))
    print("\n".join(found) if found else "every include points the allowed way")
    sys.exit(1 if found else 0)
