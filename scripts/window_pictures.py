"""Takes a picture of every window of a build, the same to the pixel as long as the program draws the same.

usage: dbus-run-session -- /usr/bin/python3 scripts/window_pictures.py PROGRAMS FOLDER DESKTOP
No cursor blinks, the time of day is painted over, and each picture is the second of two that are alike.
"""
import pathlib
import subprocess
import sys


import outside
from outside import Atspi, wait_for

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))
import beam  # noqa: E402
import pattern_file  # noqa: E402

MAIN = "Lobegraph V"
# By name: scale of the screen and colours of the desktop.
DESKTOPS = {"light at 1": ("1", ""), "dark at 1.5": ("1.5", "".join(
    f"[Colors:{group}]\nBackgroundNormal=35,38,41\nBackgroundAlternate=35,38,41\nForegroundNormal=252,252,252\n"
    for group in ("Window", "View", "Button", "Tooltip")))}
SETTINGS = {"Username": "N0CALL", "InputDeviceIsLineIn": "False", "InputDeviceIsdBMeter": "True", "GaugeBridge": "True",
            "Commport": "1"}


class Pictures:
    def __init__(self, stage, programs, folder, desktop):
        self.stage, self.programs, self.folder, self.desktop = stage, programs, folder, desktop
        self.scale = float(DESKTOPS[desktop][0])

    def take(self, name, title=MAIN):
        path = self.folder / f"{name}, {self.desktop}.ppm"
        wait_for(f"the window {title}", 10, lambda: not title or f'"{title}' in self.stage.output("xwininfo", "-root", "-tree"))
        # Away from every control, so that none is lit.
        self.stage.output("xdotool", "mousemove", "1599", "1199")
        wait_for(f"the paint of {title}", 20, lambda: self.settled(title, path), 0.3)

    def settled(self, title, path):
        before = path.read_bytes() if path.exists() else b""
        self.stage.picture(path, title)
        if title in (MAIN, None):
            self.paint_over_the_time(path, whole_screen=title is None)
        return path.read_bytes() == before

    def paint_over_the_time(self, path, whole_screen):
        clock = self.program.now("Date and time", "label")
        if not clock:
            return
        # The toolkit tells places on the screen, in units of the desktop's scale.
        place = Atspi.Component.get_extents(clock, Atspi.CoordType.SCREEN)
        window = None if whole_screen else Atspi.Component.get_extents(self.main_window(clock), Atspi.CoordType.SCREEN)
        left, top = (place.x - window.x, place.y - window.y) if window else (place.x, place.y)
        corners = [round(at * self.scale) for at in (left, top, left + place.width, top + place.height)]
        subprocess.run(["mogrify", "-fill", "black", "-draw", "rectangle {},{} {},{}".format(*corners), path], check=True)

    @staticmethod
    def main_window(node):
        while node.get_parent().get_role_name() != "application":
            node = node.get_parent()
        return node

    def keys(self, *names):
        self.stage.output("xdotool", "key", "--clearmodifiers", "--delay", "25", *names)

    def visible(self, name):
        return self.stage.output("xdotool", "search", "--onlyvisible", "--name", name).split()

    def activate(self, name):
        self.stage.output("xdotool", "windowactivate", "--sync", self.visible(name)[-1])

    def open(self, **settings):
        self.settings = self.stage.settings.parent
        self.settings.mkdir(parents=True, exist_ok=True)
        self.publish()
        self.stage.settings.write_text("[Settings]\n" + "".join(f"{key}={value}\n" for key, value in settings.items()))
        self.program = outside.Program(self.stage.start(self.programs / "lobegraph", cwd=self.stage.home))
        return self.program

    def publish(self):
        """A meter program whose level stands still."""
        (self.settings / "GaugeBridge.conf").write_text("[Settings]\nActive=Y\nReading=-12.5\n")

    def load(self, program, path, button="Get File"):
        program.press(button)
        program.answer_file("Get File", path)
        wait_for("the file's name", 10, lambda: program.text("File name") == path.name)

    def first_start(self):
        program = self.open()
        wait_for("the question for the call sign", 20, lambda: self.visible("^ $"))
        self.activate("^ $")
        self.take("first start, whole screen", title=None)
        self.stage.output("xdotool", "type", "N0CALL")
        self.keys("Return")
        program.find("Collect Data")
        self.take("empty")
        program.press("Exit")
        program.process.wait(10)

    def patterns(self, files):
        program = self.open(**SETTINGS)
        program.find("Collect Data")
        for path in files:
            program.press("Grow->")
            self.load(program, path)
            self.take(f"{path.name} as loaded")
            program.press("Rescale")
            self.take(f"{path.name} rescaled")
            self.every_look(program, path.name)
            self.every_transform(program, path.name)
        self.overlay(program, *files[:2])
        self.analysis(program)
        self.other_windows(program)

    def every_look(self, program, name):
        program.press("<-Shrink")
        self.take(f"{name} shrunk")
        program.press("Grow->")
        for look in ("rectangular", "circular"):
            program.press("Circ / Rect")
            for scale in ("linear", "log"):
                program.press("Lin / Log")
                self.take(f"{name} {look} {scale}")
        program.tick("Plot in dB")
        self.take(f"{name} not in dB")
        program.tick("Plot in dB")
        program.slide("Scale of the log display", 50)
        self.take(f"{name} on another scale")

    def every_transform(self, program, name):
        for button in ("Smooth", "De-Spike", "Reverse", "Directivity", "Original", "Horizontal", "Vertical"):
            program.press(button)
            self.take(f"{name} after {button}")

    def overlay(self, program, under, over):
        self.load(program, under)
        self.load(program, over, button="Overlay")
        self.take("overlay")

    def analysis(self, program):
        program.press("Circ / Rect")
        program.press("Pattern Analysis")
        self.take("pattern analysis")
        program.press("Pattern Analysis")
        program.press("Circ / Rect")

    def other_windows(self, program):
        program.tick("Show editor")
        program.press("Get values from the plot")
        self.take("editor", "Lbg editor")
        program.tick("Show editor")
        self.activate(f"^{MAIN}")
        self.keys("ctrl+comma")
        box = program.box("Lobegraph Settings")
        self.take("settings", "Lobegraph Settings")
        program.press("Cancel", within=box)
        program.press("Choose Input")
        box = program.box("Lobegraph - Choose Input")
        self.take("chooser", "Lobegraph - Choose Input")
        meter = program.find("ROSKA Wattscan meter", "radio button", within=box)
        program.press("ROSKA Wattscan meter", "radio button", within=box)
        wait_for("the choice", 10, lambda: program.has(meter, Atspi.StateType.CHECKED))
        program.press("OK", within=box)
        answer = program.box("Lobegraph")
        self.take("message, whole screen", title=None)
        program.press("OK", within=answer)
        self.take("meter", "Lobegraph - dB Meter")
        self.guide(program)
        program.press("Exit")
        program.process.wait(10)

    def guide(self, program):
        wait_for("the box to close", 10, lambda: program.open_box("Lobegraph") is None)
        self.activate(f"^{MAIN}")
        self.keys("F1")
        self.take("guide", "The main window - Lobegraph Help")
        self.keys("Escape")


def no_viewer(stage):
    """A desktop that knows no viewer of guides, so that the program shows its own window."""
    folder = stage.folder / "bin"
    folder.mkdir()
    (folder / "xdg-mime").write_text("#!/bin/sh\n")
    (folder / "xdg-mime").chmod(0o755)
    stage.environment["PATH"] = f"{folder}:{stage.environment['PATH']}"


def made_patterns(folder):
    """Two whole turns, half a turn and a short set: their names, in this order."""
    turn = beam.turn(180)
    shapes = {"beam": turn, "spikes": [900 if index % 50 == 7 else level / 2 for index, level in enumerate(turn)],
              "trimmed": turn[:200]}
    for name, readings in shapes.items():
        pattern_file.write(folder / f"{name}.lbg", readings, description=f"{name}, 10 m above the roof")
    return [folder / f"{name}.lbg" for name in shapes]


def main(programs, folder, desktop):
    folder, (scale, colours) = pathlib.Path(folder), DESKTOPS[desktop]
    folder.mkdir(parents=True, exist_ok=True)
    with outside.Stage() as stage:
        stage.virtual_display("1600x1200")
        no_viewer(stage)
        stage.environment.update(QT_SCALE_FACTOR=scale, XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5",
                                 PULSE_SERVER=f"unix:{stage.folder}/no-server")
        (stage.home / ".config").mkdir()
        (stage.home / ".config" / "kdeglobals").write_text(
            "[General]\nfont=Liberation Sans,10,-1,5,50,0,0,0,0,0\n[KDE]\nCursorBlinkRate=0\n" + colours)
        pictures = Pictures(stage, pathlib.Path(programs).resolve(), folder, desktop)
        pictures.first_start()
        pictures.patterns(made_patterns(stage.home))


if __name__ == "__main__":
    main(*sys.argv[1:4])
