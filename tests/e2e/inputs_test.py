"""The input is chosen anew while the program runs: what was not opened at the start is opened then."""
import statistics
import unittest

import from_outside
import outside
from from_outside import PROGRAMS, wait_for
from rotator import METER, saved_readings, stored_db, wait_for_published

METER_LEVEL, SOUND_LEVEL = 900, 200  # of an antenna that hears nearly the same all round


class ChoosingTheInput(from_outside.FromOutside):
    def meter_program(self):
        bench = self.stage.start(PROGRAMS / "lobegraph-bench", "--as", "program", "--antenna", "omni", "--peak", METER_LEVEL)
        self.addCleanup(outside.stop, bench)
        wait_for_published(self.stage)

    @staticmethod
    def choose(program, option):
        title = "Lobegraph - Choose Input"
        program.press("Choose Input")
        box = program.box(title)
        program.press(option, "radio button", within=box)
        program.press("OK", within=box)
        wait_for("the chooser to close", 10, lambda: program.open_box(title) is None)

    def check_turn(self, program, level):
        program.press("Collect Data")
        wait_for("the turn to begin", 15, lambda: not program.enabled("Collect Data"))
        readings = saved_readings(self, program)
        self.assertEqual(len(readings), 360)
        self.assertAlmostEqual(stored_db(statistics.median(readings)), stored_db(level), delta=1.5)

    def test_a_program_started_with_a_meter_can_listen_to_the_sound_card(self):
        self.meter_program()
        program = self.open_window(**METER, GaugeBridge="True", RotateTime=4)
        self.check_turn(program, METER_LEVEL)
        self.turn_antenna("--antenna", "omni", "--peak", SOUND_LEVEL)
        self.choose(program, "Line-in")
        self.check_turn(program, SOUND_LEVEL)
        self.leave(program)

    def test_a_program_started_with_the_sound_card_can_measure_with_a_meter(self):
        self.turn_antenna("--antenna", "omni", "--peak", SOUND_LEVEL)
        program = self.open_window(RotateTime=4)
        self.check_turn(program, SOUND_LEVEL)
        self.meter_program()
        self.choose(program, "LP-100-VCP or TarvenMeter or GaugeBridge")
        self.check_turn(program, METER_LEVEL)
        wait_for("the meter's window", 10, lambda: program.label("Meter status") == "The external power meter is active")
        self.leave(program)


if __name__ == "__main__":
    unittest.main(verbosity=2)
