"""What whole turns with a meter share: the program on a computer with emulated ports, and a rotator whose pulses keep step
with what the program has seen."""
import math
import os

import emulated
import from_outside
from from_outside import wait_for
import pattern_file

READINGS = 360
METER = {"InputDeviceIsLineIn": "False", "InputDeviceIsdBMeter": "True", "Commport": "1", "StartupDelay": "0"}


def stored_db(level):
    return 60 + 20 * math.log10(max(level, 1) / 1000)


def published(stage):
    """What an external meter program says."""
    path = stage.settings.parent / "GaugeBridge.conf"
    return from_outside.read_settings(path) if path.exists() else {}


def wait_for_published(stage):
    wait_for("a published value", 20, lambda: published(stage).get("Active") == "Y")


def saved_readings(test, program):
    """Of the turn that ends now, through a file."""
    wait_for("the end of the turn", 20, lambda: program.enabled("Collect Data"))
    path = test.stage.home / "turn.lbg"
    path.unlink(missing_ok=True)
    test.save(program, path)
    wait_for("the file", 10, path.exists)
    return pattern_file.read(path)["Readings"]


class Rotator:
    """Steps of the rotator, each with its level and a pulse, in step with what the program has seen."""

    def __init__(self, program, line, meter=None):
        self.program, self.line, self.meter = program, line, meter
        self.steps = 0
        self.lows = line.given[False]  # answers "low" up to the end of the last pulse

    def wait_given(self, high, count):
        wait_for(f"the program to see the line {'high' if high else 'low'}", 20,
                 lambda: self.line.given[high] >= count, 0.0005)

    def wait_ready(self):
        """The first low after the one that fired: the samples are taken, the program waits for the next pulse."""
        self.wait_given(False, self.lows + 1)

    def begin(self, db):
        """The meter has said enough for a mean before the turn begins."""
        wait_for("the meter's port", 20, lambda: self.program.label("Meter status").endswith(" is open."))
        self.show_level(db)
        self.program.press("Collect Data")

    def show_level(self, db):
        """Three values fill the meter's mean. The last has leading zeros, another number of them than the one before:
        what the meter's window shows then tells it from all others."""
        value, self.steps = round(db * 10), self.steps + 1
        last = f"{value:0{4 + self.steps % 2}d}"
        os.write(self.meter, f"\r{value} \r{value} \r{last} ".encode())
        wait_for(f"the meter's value {last}", 20, lambda: self.program.label("Meter reading") == last, 0.0005)

    def pulse(self):
        """One pulse, as long as the program needs to see it."""
        before = self.line.given[True]
        self.line.high = True
        self.wait_given(True, before + 1)
        # While the line is high nothing is answered "low", and the first low fires.
        self.lows = self.line.given[False] + 1
        self.line.high = False
        self.wait_given(False, self.lows)

    def step(self, db):
        self.wait_ready()
        self.show_level(db)
        self.pulse()


class MeanOfThree:
    """What the program makes of published values."""

    def __init__(self):
        self.raw = [0, 0, 0]

    def take(self, dbm):
        self.raw = [round(max(dbm + 60, 0) * 10, 1), *self.raw[:2]]
        return 1000 * 10 ** ((min(sum(self.raw) / 3, 600) / 10 - 60) / 20)

    def reading(self, dbm, samples=5):
        return sum(self.take(dbm) for _ in range(samples)) / samples


class WithParts(from_outside.FromOutside):
    """A computer with emulated ports, and the program whose readings are paced by pulses."""

    sound = False

    def setUp(self):
        super().setUp()
        self.machine = emulated.Machine()
        self.addCleanup(self.machine.close)
        self.stage.environment.update(self.machine.environment())

    def open(self, **settings):
        return self.open_window("umockdev-wrapper", **(METER | settings), Trigger="1")
