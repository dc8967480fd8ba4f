"""Takes the pictures of the guide from the running program, in help/images.

usage: dbus-run-session -- /usr/bin/python3 scripts/help_pictures.py PROGRAMS [FOLDER]
Look at them before you commit them.
"""
import pathlib
import subprocess
import sys
import time

import outside
from outside import wait_for

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))
import beam  # noqa: E402
import pattern_file  # noqa: E402

PLOT_AREA = (26, 159, 494, 393)  # of the rectangular plot in the window: left, top, right, bottom


class Pictures:
    def __init__(self, stage, programs, folder):
        self.stage, self.programs, self.folder = stage, programs, folder
        folder.mkdir(parents=True, exist_ok=True)
        self.pattern = stage.home / "3-element beam.lbg"

    def settle(self, title, path):
        """Two pictures in a row are the same."""
        before = path.read_bytes() if path.exists() else b""
        self.stage.picture(path, title)
        return path.read_bytes() == before

    def take(self, name, title="Lobegraph V"):
        path = self.folder / f"{name}.png"
        path.unlink(missing_ok=True)
        time.sleep(0.3)
        wait_for(f"the paint of {title}", 10, lambda: self.settle(title, path), 0.2)
        # Few colours: the same to the eye, a fraction of the size.
        subprocess.run(["mogrify", "+dither", "-colors", "96", "-strip", "-define", "png:exclude-chunks=date,time", path], check=True)
        print(f"{path.name}: {path.stat().st_size} bytes", flush=True)

    def settings(self, **values):
        file = self.stage.settings
        file.parent.mkdir(parents=True, exist_ok=True)
        lines = "".join(f"{key}={value}\n" for key, value in ({"Username": "N0CALL"} | values).items())
        file.write_text("[Settings]\n" + lines)

    def open(self, **values):
        self.settings(**values)
        process = self.stage.start(self.programs / "lobegraph", cwd=self.stage.home)
        program = outside.Program(process)
        program.find("Collect Data")
        return program

    def leave(self, program):
        program.press("Exit")
        program.process.wait(10)

    def mouse(self, *command):
        self.stage.output("xdotool", *command)

    def main_window(self):
        program = self.open()
        program.press("Get File")
        program.answer_file("Get File", self.pattern)
        program.press("Rescale")
        if not program.ticked("Show -3dB"):
            program.tick("Show -3dB")
        wait_for("the figures", 10, lambda: program.number("Beamwidth in degrees") > 0)
        self.take("window")
        program.tick("Show editor")
        program.press("Get values from the plot")
        self.take("editor", "Lbg editor")
        program.tick("Show editor")
        self.rectangular(program)
        self.mouse("key", "ctrl+comma")
        box = program.box("Lobegraph Settings")
        self.take("settings", "Lobegraph Settings")
        program.press("Cancel", within=box)
        self.leave(program)

    def rectangular(self, program):
        program.press("Circ / Rect")
        program.press("Pattern Analysis")
        window = self.stage.output("xdotool", "search", "--onlyvisible", "--name", "^Lobegraph V").split()[-1]
        self.mouse("windowactivate", "--sync", window)
        time.sleep(1)  # coming back to the window draws it anew, without lines
        left, top, _, bottom = PLOT_AREA
        for button, height in ((1, top + 2), (3, bottom - 75)):
            self.mouse("mousemove", "--window", window, str(left + 250), str(height + 20), "mousedown", str(button))
            time.sleep(0.2)
            self.mouse("mousemove", "--window", window, str(left + 250), str(height))
            time.sleep(0.2)
            self.mouse("mouseup", str(button))
            time.sleep(0.2)
        self.take("rectangular")

    def meter(self):
        publisher = self.stage.start(self.programs / "lobegraph-bench", "--as", "program", "--antenna", "beam", "--seconds", "36")
        program = self.open(InputDeviceIsdBMeter="True", GaugeBridge="True")
        program.press("Choose Input")
        box = program.box("Lobegraph - Choose Input")
        program.press("TARVEN meter without using TarvenMeter program", "radio button", within=box)
        self.take("chooser", "Lobegraph - Choose Input")
        program.press("LP-100-VCP or TarvenMeter or GaugeBridge", "radio button", within=box)
        program.press("OK", within=box)
        program.tick("Calibrate Input")
        wait_for("a level", 10, lambda: program.number("Input level") > 0)
        program.tick("Calibrate Input")
        self.take("meter", "Lobegraph - dB Meter")
        outside.stop(publisher)
        self.leave(program)


def main(programs, folder=ROOT / "help" / "images"):
    with outside.Stage() as stage:
        stage.virtual_display()
        stage.private_sound()
        pictures = Pictures(stage, pathlib.Path(programs).resolve(), pathlib.Path(folder))
        pattern_file.write(pictures.pattern, beam.turn(180), description="3-element beam, 10 m above the roof")
        pictures.main_window()
        pictures.meter()


if __name__ == "__main__":
    main(*sys.argv[1:3])
