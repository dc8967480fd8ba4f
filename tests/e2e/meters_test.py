"""Whole turns of the real program with parts that this machine does not have: pulses on a COM port's CTS line, pulses on
pin D0 of the USB module (both emulated below the program), and a radio behind its daemon."""
import math
import os
import socket
import time
import unittest

import emulated
import from_outside
import outside
import pattern_file
from from_outside import PROGRAMS, wait_for

READINGS = 360
METER = {"InputDeviceIsLineIn": "False", "InputDeviceIsdBMeter": "True", "Commport": "1", "StartupDelay": "0"}


def true_db(index):
    """A cardioid on a meter's scale, full scale 60 dB, in tenths."""
    voltage = 0.9 * (1 + math.cos(math.radians(index))) / 2
    return round(max(60 + 20 * math.log10(max(voltage, 1e-9)), 0), 1)


def stored_db(level):
    return 60 + 20 * math.log10(max(level, 1) / 1000)


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


class Triggered(from_outside.FromOutside):
    sound = False

    def setUp(self):
        super().setUp()
        self.machine = emulated.Machine()
        self.addCleanup(self.machine.close)
        self.stage.environment.update(self.machine.environment())

    def open(self, **settings):
        return self.open_window("umockdev-wrapper", **METER, Trigger="1", **settings)

    def whole_turn(self, program, rotator):
        program.press("Collect Data")
        for index in range(READINGS):
            rotator.step(true_db(index))
        wait_for("the end of the turn", 20, lambda: program.enabled("Collect Data"))
        path = self.stage.home / "turn.lbg"
        self.save(program, path)
        wait_for("the file", 10, path.exists)
        readings = pattern_file.read(path)["Readings"]
        self.assertEqual(len(readings), READINGS)
        for index, level in enumerate(readings):
            self.assertAlmostEqual(stored_db(level), true_db(index), delta=0.5, msg=f"reading {index}")

    def test_a_whole_turn_is_paced_by_the_handshake_line(self):
        lines, meter = self.machine.serial_port("ttyUSB0")
        program = self.open(Commtrigger="1")
        self.whole_turn(program, Rotator(program, lines, meter))

    def test_a_whole_turn_is_paced_by_the_usb_module(self):
        _, meter = self.machine.serial_port("ttyUSB0")
        module = self.machine.usb_module()
        program = self.open(GaugeBridgeTrigger="True")
        self.whole_turn(program, Rotator(program, module, meter))
        self.assertEqual(set(module.claimed), {1}, "channel A is left alone")
        self.assertIn((0x09, 16, 2), module.set_up, "latency of channel B")
        self.assertEqual(module.set_up[-2:], [(0x0B, 0x0000, 2), (0x0B, 0x0100, 2)], "reset, then bit-bang inputs")
        program.press("Exit")
        program.process.wait(10)

    def test_a_module_pulled_out_ends_the_turn_with_the_readings_so_far(self):
        _, meter = self.machine.serial_port("ttyUSB0")
        module = self.machine.usb_module()
        program = self.open(GaugeBridgeTrigger="True")
        rotator = Rotator(program, module, meter)
        program.press("Collect Data")
        for index in range(5):
            rotator.step(true_db(index))
        rotator.wait_ready()
        module.gone = True
        self.assertIn("FT_GetBitMode - ", self.close_box(program))
        wait_for("the end of the turn", 10, lambda: program.enabled("Collect Data"))
        self.assertEqual(program.text("Current reading number"), "5")

    def test_without_a_module_the_turn_ends_and_the_meter_window_says_why(self):
        self.machine.serial_port("ttyUSB0")
        program = self.open(GaugeBridgeTrigger="True")
        program.press("Collect Data")
        reason = "No FTDI devices found. Please connect the meter and re-try"
        wait_for("the reason", 10, lambda: program.label("Meter status") == reason)
        wait_for("the end of the turn", 10, lambda: program.enabled("Collect Data"))


class Radio(from_outside.FromOutside):
    sound = False

    @staticmethod
    def free_port():
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", 0))
            return probe.getsockname()[1]

    def test_published_and_stored_values_of_a_radio_agree(self):
        port = self.free_port()
        daemon = self.stage.start("rigctld", "-m", "1", "-t", port)
        self.addCleanup(outside.stop, daemon)
        log = self.stage.home / "meter.log"
        meter = self.stage.start(PROGRAMS / "lobegraph-meter", "--port", port, "--reference", "-20", log=log)
        self.addCleanup(outside.stop, meter)
        published = self.stage.settings.parent / "GaugeBridge.conf"
        wait_for("a published value", 15, lambda: published.exists() and "Active=Y" in published.read_text())
        program = self.open_window(**METER, GaugeBridge="True", RotateTime=4)
        values = []
        program.press("Collect Data")
        wait_for("the turn to begin", 10, lambda: program.enabled("Halt Collection"))
        while not program.enabled("Collect Data"):
            values.append(float(from_outside.read_settings(published)["Reading"]))
            time.sleep(0.02)
        path = self.stage.home / "radio.lbg"
        self.save(program, path)
        wait_for("the file", 10, path.exists)
        stored = [stored_db(level) - 60 for level in pattern_file.read(path)["Readings"]]
        self.assertEqual(len(stored), READINGS)
        # The radio's meter jiggles by some dB many times a second; not every value was seen here.
        self.assertGreaterEqual(min(stored), max(min(values), -60) - 4)
        self.assertLessEqual(max(stored), max(values) + 4)
        seen = [max(value, -60) for value in values]
        self.assertAlmostEqual(sum(stored) / len(stored), sum(seen) / len(seen), delta=1.5)
        outside.stop(meter)
        self.assertIn("Active=N", published.read_text())


if __name__ == "__main__":
    unittest.main(verbosity=2)
