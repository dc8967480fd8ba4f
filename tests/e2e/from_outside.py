"""What the tests from outside share: the programs, a stage for each test class, a fresh home for each test."""
import os
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import outside  # noqa: E402
from outside import Atspi, wait_for  # noqa: E402,F401

PROGRAMS = pathlib.Path(os.environ["LOBEGRAPH_PROGRAMS"])
PICTURES = pathlib.Path(os.environ["LOBEGRAPH_PICTURES"])


def settings_text(**settings):
    return "[Settings]\n" + "".join(f"{key}={value}\n" for key, value in settings.items())


def read_settings(path):
    lines = path.read_text().splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line)


def maximum(slider):
    slider.clear_cache()
    return outside.Atspi.Value.get_maximum_value(slider)


class FromOutside(unittest.TestCase):
    """A display of its own; `sound` says whether a sound server stands on the stage as well."""

    sound = True
    display = "1280x1024"

    @classmethod
    def setUpClass(cls):
        cls.stage = outside.Stage()
        cls.addClassCleanup(cls.stage.close)
        cls.stage.virtual_display(cls.display)
        if cls.sound:
            cls.server = cls.stage.private_sound()
        else:
            cls.stage.environment["PULSE_SERVER"] = f"unix:{cls.stage.folder}/no-server"

    def setUp(self):
        self.stage.new_home()
        self.log = self.stage.home / "program.log"

    def tearDown(self):
        """Keeps what a failing test leaves on the screen."""
        result = self._outcome.result
        if all(test is not self for test, _ in [*result.errors, *result.failures]):
            return
        PICTURES.mkdir(parents=True, exist_ok=True)
        self.stage.picture(PICTURES / f"failed {self.id()}.png", title=None)
        if self.log.exists():
            print(self.log.read_text(errors="replace"), file=sys.stderr)

    def keep_settings(self, **settings):
        """As a former run has left them; a call sign is among them unless one is given."""
        self.stage.settings.parent.mkdir(parents=True, exist_ok=True)
        self.stage.settings.write_text(settings_text(**({"Username": "N0CALL"} | settings)))

    def begin(self, *wrapper, **options):
        """The program's process, its window not waited for."""
        process = self.stage.start(*wrapper, PROGRAMS / "lobegraph", log=self.log, cwd=self.stage.home, **options)
        self.addCleanup(outside.stop, process)
        return process

    def open_window(self, *wrapper, options=None, **settings):
        """A program past its first start, its window on the screen."""
        self.keep_settings(**settings)
        return self.open_as_kept(*wrapper, **(options or {}))

    def open_as_kept(self, *wrapper, **options):
        """The window of a program with the settings as they are."""
        program = outside.Program(self.begin(*wrapper, **options))
        program.find("Collect Data")
        program.learn()
        return program

    def turn_antenna(self, *options):
        """The bench plays into the private server; returns when it is heard."""
        bench = self.stage.start(PROGRAMS / "lobegraph-bench", "--sink", "rx", *options)
        self.addCleanup(outside.stop, bench)
        wait_for("the bench to play", 15, lambda: "lobegraph-bench" in self.stage.output("pactl", "list", "clients"))
        wait_for("its stream", 15, lambda: self.stage.output("pactl", "list", "short", "sink-inputs").strip())
        return bench

    def start_collecting(self, program, readings=1):
        """Presses Collect Data; returns when that many readings are shown."""
        program.press("Collect Data")
        wait_for("the turn to begin", 15, lambda: program.enabled("Halt Collection"))
        self.wait_for_readings(program, readings)

    def wait_for_readings(self, program, readings):
        wait_for(f"{readings} readings", 30, lambda: program.number("Current reading number") >= readings, 0.02)

    def close_box(self, program, title="Lobegraph"):
        """The words of the box, which is closed with OK."""
        box = program.box(title)
        words = " ".join(program.words(box))
        program.press("OK", within=box)
        wait_for("the box to close", 10, lambda: program.open_box(title) is None)
        return words

    def kept_turns(self):
        """The patterns that the program keeps unasked, the oldest first; beside each lies its log."""
        return sorted(self.stage.turns.glob("turn *.lbg"))

    def load(self, program, path):
        program.press("Get File")
        program.answer_file("Get File", path)
        wait_for("the file's name in the window", 10, lambda: program.text("File name") == path.name)

    def save(self, program, path):
        program.press("Save File")
        program.answer_file("Save File", path)

    def find_window(self, name):
        """The number of the visible window whose title matches."""
        def found():
            return self.stage.output("xdotool", "search", "--onlyvisible", "--name", name).split()

        return wait_for(f"a window named {name}", 10, found)[-1]

    def activate(self, name):
        """Brings the window whose title matches to the front, as a click on it would."""
        self.stage.output("xdotool", "windowactivate", "--sync", self.find_window(name))

    def box_in_front(self, program, title):
        """An open box that gets the keys from now on."""
        box = program.box(title)
        wait_for(f"{title!r} in front", 10, lambda: self.title_in_front() == title)
        return box

    def title_in_front(self):
        return self.stage.output("xdotool", "getactivewindow", "getwindowname").rstrip("\n")

    def keys(self, *names):
        """Presses keys, one after the other, in the window that has the focus."""
        self.stage.output("xdotool", "key", "--clearmodifiers", "--delay", "25", *names)

    def write(self, text):
        self.stage.output("xdotool", "type", "--delay", "8", text)

    def window_id(self):
        return self.find_window("^Lobegraph V")

    def window_size(self):
        geometry = self.stage.output("xdotool", "getwindowgeometry", "--shell", self.window_id())
        values = dict(line.split("=") for line in geometry.splitlines() if "=" in line)
        return int(values["WIDTH"]), int(values["HEIGHT"])

    def click(self, x, y, *click):
        """On the main window; `click` as xdotool wants it."""
        self.stage.output("xdotool", "mousemove", "--window", self.window_id(), str(x), str(y), "click", *click)

    def click_on(self, node):
        """With the mouse, in the middle of any control."""
        place = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
        self.stage.output("xdotool", "mousemove", place.x + place.width // 2, place.y + place.height // 2, "click", "1")

    def leave(self, program):
        program.press("Exit")
        self.assertEqual(program.process.wait(10), 0)


def main():
    unittest.main(verbosity=2)
