"""Whole turns of the real program with parts that this machine does not have: pulses on a COM port's CTS line and on pin D0
of the USB module, both emulated below the program."""
import math
import unittest

from from_outside import PROGRAMS, outside, wait_for
from rotator import READINGS, MeanOfThree, Rotator, WithParts, saved_readings, stored_db, wait_for_published


def true_db(index):
    """A cardioid on a meter's scale, full scale 60 dB, in tenths."""
    voltage = 0.9 * (1 + math.cos(math.radians(index))) / 2
    return round(max(60 + 20 * math.log10(max(voltage, 1e-9)), 0), 1)


class Triggered(WithParts):
    def whole_turn(self, program, rotator):
        rotator.begin(true_db(0))
        for index in range(READINGS):
            rotator.step(true_db(index))
        readings = saved_readings(self, program)
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
        rotator.begin(true_db(0))
        for index in range(5):
            rotator.step(true_db(index))
        rotator.wait_ready()
        module.gone = True
        self.assertIn("FT_GetBitMode - ", self.close_box(program))
        wait_for("the end of the turn", 10, lambda: program.enabled("Collect Data"))
        self.assertEqual(program.text("Current reading number"), "5")

    def test_without_a_module_the_turn_ends_and_the_meter_window_says_why(self):
        lines, meter = self.machine.serial_port("ttyUSB0")
        program = self.open(GaugeBridgeTrigger="True")
        Rotator(program, lines, meter).begin(true_db(0))
        reason = "No FTDI devices found. Please connect the meter and re-try"
        wait_for("the reason", 10, lambda: program.label("Meter status") == reason)
        wait_for("the end of the turn", 10, lambda: program.enabled("Collect Data"))


class BenchPulses(WithParts):
    def test_the_bench_steps_its_rotator_with_rts_wired_to_cts(self):
        start, steps, step_seconds = 90, 40, 0.3
        lines, _ = self.machine.serial_port("ttyUSB0")
        outgoing, _ = self.machine.serial_port("ttyUSB1")
        outgoing.wire = lines
        program = self.open(GaugeBridge="True", Commtrigger="1")
        bench = self.stage.start(
            "umockdev-wrapper", PROGRAMS / "lobegraph-bench", "--as", "program", "--pulses-to", "/dev/ttyUSB1", "--antenna",
            "cardioid", "--start-bearing", start, "--peak", 900, "--seconds", step_seconds * READINGS,
            "--seconds-of-silence-before", 4, log=self.log)
        self.addCleanup(outside.stop, bench)
        wait_for_published(self.stage)
        program.press("Collect Data")
        self.wait_for_readings(program, steps)
        program.press("Halt Collection")
        readings = saved_readings(self, program)
        self.assertGreaterEqual(len(readings), steps)
        model = MeanOfThree()  # of silence, at first
        for index, level in enumerate(readings):
            expected = model.reading(true_db(start + index) - 60)
            self.assertAlmostEqual(stored_db(level), stored_db(expected), delta=0.5, msg=f"reading {index}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
