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
    ("src/acquisition/A.cpp", '"app/Globals.h"'),
    ("src/data/A.cpp", '"Sibling.h"'),
    ("bench/A.cpp", '"render/PlotPoint.h"'),
]
RIGHT = [
    ("src/data/A.cpp", "<vector>"),
    ("src/settings/A.cpp", '"data/Numbers.h"'),
    ("src/render/A.cpp", '"processing/PlotResult.h"'),
    ("src/render/qt/A.cpp", "<QPainter>"),
    ("src/render/qt/A.cpp", '"render/DrawingSurface.h"'),
    ("src/app/qt/A.cpp", '"acquisition/qt/PulseCapture.h"'),
    ("bench/qt/A.cpp", "<pulse/pulseaudio.h>"),
    ("bench/qt/A.cpp", '"bench/Antenna.h"'),
]


def found(name, include):
    with tempfile.TemporaryDirectory() as root:
        path = pathlib.Path(root, name)
        path.parent.mkdir(parents=True)
        path.write_text(f"#include {include}\n")
        return list(check_includes.violations(root))


failures = [case for case in WRONG if not found(*case)] + [case for case in RIGHT if found(*case)]
print(failures or f"{len(WRONG)} wrong and {len(RIGHT)} right arrows judged rightly")
sys.exit(1 if failures else 0)
