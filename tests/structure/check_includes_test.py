"""The include check itself: each kind of wrong arrow is found, each allowed one passes."""
import pathlib
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import check_includes

WRONG = [
    ("src/data/A.cpp", "<QString>"),
    ("src/data/A.cpp", '"settings/Store.h"'),
    ("src/processing/A.cpp", '"render/PlotPoint.h"'),
    ("src/render/A.cpp", '"processing/PreparePlot.h"'),
    ("src/render/A.cpp", '"render/qt/ImageSurface.h"'),
    ("src/render/qt/A.cpp", '"acquisition/qt/PulseCapture.h"'),
    ("src/acquisition/A.cpp", "<pulse/pulseaudio.h>"),
    ("src/acquisition/run/A.cpp", "<pulse/pulseaudio.h>"),
    ("src/acquisition/A.cpp", '"app/Globals.h"'),
    ("src/data/A.cpp", '"Sibling.h"'),
    ("bench/A.cpp", '"render/PlotPoint.h"'),
    ("rotator/A.cpp", "<hamlib/rotator.h>"),
    ("src/acquisition/qt/A.cpp", "<hamlib/rotator.h>"),
    ("rotator/hamlib/A.cpp", "<QString>"),
    ("rotator/A.cpp", '"settings/Store.h"'),
    ("collect/qt/A.cpp", '"render/qt/ImageSurface.h"'),
    ("collect/A.cpp", '"app/main/Form1.h"'),
    ("src/acquisition/levels/A.cpp", "<fftw3.h>"),
    ("src/processing/A.cpp", "<fftw3.h>"),
]
RIGHT = [
    ("src/data/A.cpp", "<vector>"),
    ("src/settings/A.cpp", '"data/base/Numbers.h"'),
    ("src/render/A.cpp", '"processing/PlotResult.h"'),
    ("src/render/qt/A.cpp", "<QPainter>"),
    ("src/render/qt/A.cpp", '"render/DrawingSurface.h"'),
    ("src/app/qt/main/A.cpp", '"acquisition/qt/PulseCapture.h"'),
    ("bench/qt/A.cpp", "<pulse/pulseaudio.h>"),
    ("bench/qt/A.cpp", '"bench/Antenna.h"'),
    ("rotator/hamlib/A.cpp", "<hamlib/rotator.h>"),
    ("rotator/hamlib/A.cpp", '"rotator/Session.h"'),
    ("rotator/A.cpp", '"acquisition/rotator/RotatorLines.h"'),
    ("collect/qt/A.cpp", '"acquisition/qt/PulseCapture.h"'),
    ("collect/qt/A.cpp", "<QCoreApplication>"),
    ("src/acquisition/spectrum/A.cpp", "<fftw3.h>"),
]


def written(root, name, text):
    path = pathlib.Path(root, name)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)


def found(name, include):
    """What is wrong with one include, in a room whose README names it."""
    with tempfile.TemporaryDirectory() as root:
        written(root, name, f"#include {include}\n")
        target = include.strip('<>"')
        room = target.rsplit("/", 1)[0]
        own = pathlib.Path(name).parent.as_posix().removeprefix("src/")
        named = room if include[0] == '"' and "/" in target and room != own else "nothing"
        written(root, str(pathlib.Path(name).parent / "README.md"), f"**Uses.** {named}.\n")
        return list(check_includes.violations(root))


def found_in_rooms(*rooms):
    """What is wrong with rooms given as (folder, included header or none, text of the README)."""
    with tempfile.TemporaryDirectory() as root:
        for folder, header, readme in rooms:
            written(root, f"{folder}/A.h", f'#include "{header}"\n' if header else "")
            if header is None:
                written(root, f"{folder}/B.h", "#include <vector>\n")
            if readme:
                written(root, f"{folder}/README.md", readme)
        return list(check_includes.violations(root))


NOTHING = ("src/data/base", None, "**Uses.** nothing.\n")
ROOMS = [
    (False, [NOTHING, ("src/data/record", "data/base/A.h", "**Uses.** data/base.\n")]),
    (True, [NOTHING, ("src/data/record", "data/base/A.h", "")]),
    (True, [NOTHING, ("src/data/record", "data/base/A.h", "**Uses.** nothing.\n")]),
    (True, [NOTHING, ("src/data/record", "data/base/A.h", "**Uses.** data/base, data/formats.\n")]),
    (True, [("src/data/base", "data/record/A.h", "**Uses.** data/record.\n"),
            ("src/data/record", "data/base/A.h", "**Uses.** data/base.\n")]),
]

failures = [case for case in WRONG if not found(*case)] + [(case, found(*case)) for case in RIGHT if found(*case)]
failures += [(rooms, found_in_rooms(*rooms)) for wrong, rooms in ROOMS if bool(found_in_rooms(*rooms)) != wrong]
print(failures or f"{len(WRONG)} wrong and {len(RIGHT)} right arrows and {len(ROOMS)} houses judged rightly")
sys.exit(1 if failures else 0)
