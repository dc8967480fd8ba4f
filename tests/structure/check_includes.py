"""Reads every #include below src/, cli/, bench/ and meter/ and fails on an arrow that the house does not allow."""
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
}
# The drawing layer sees what a plot is, not how it is computed.
RESULT_TYPES = {"processing/PlotResult.h"}
# The one room that assembles the others' toolkit parts, and the companion that renders and reads settings.
OTHER_QT = {"app": set(PURE) - {"app", "cli", "bench", "meter"}, "cli": {"render", "settings"}}
TOOLKIT = re.compile(r"^(Q[A-Z]|Qt|pulse/|ftdi|libusb|cups/|asoundlib)")


def room(parts):
    """('render', True) for src/render/qt/X.h; the folder below cli/, bench/ or meter/ counts as that layer."""
    return parts[0], len(parts) > 2 and parts[1] == "qt"


def violations(root):
    root = pathlib.Path(root)
    for top in ("src", "cli", "bench", "meter"):
        for path in sorted((root / top).rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            relative = path.relative_to(root / "src" if top == "src" else root)
            layer, in_qt = room(relative.parts)
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                found = re.match(r'\s*#\s*include\s*([<"])([^>"]+)', line)
                if not found:
                    continue
                target = found.group(2)
                problem = judge(layer, in_qt, found.group(1), target)
                if problem:
                    yield f"{path.relative_to(root)}:{number}: {target}: {problem}"


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
    other, other_qt = room(parts)
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
