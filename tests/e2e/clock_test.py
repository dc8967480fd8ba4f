"""A whole turn of each source while the clocks do what clocks do: the millisecond clock leaves 31 bits, the date is set, the
computer is suspended."""
import re
import signal
import time

import clocks
import from_outside
import outside
from from_outside import PROGRAMS, wait_for
from rotator import METER, saved_readings, wait_for_published

TURN_SECONDS = 6  # 17 ms a reading
HINT = "What to do next"


class ShiftedClocks(from_outside.FromOutside):
    def bench(self, *options):
        bench = self.stage.start(PROGRAMS / "lobegraph-bench", "--antenna", "cardioid", "--seconds", TURN_SECONDS, *options)
        self.addCleanup(outside.stop, bench)

    def check_turn(self, bench, **settings):
        """`bench` starts what is measured, once the settings stand."""
        shifted = clocks.Clocks(self.stage.home / "clocks")
        self.keep_settings(RotateTime=TURN_SECONDS, **settings)
        bench()
        started = time.monotonic()
        program = self.open_as_kept(*shifted.wrapper())
        shifted.wrap_in(TURN_SECONDS / 3, started)
        began = time.monotonic()
        self.start_collecting(program, 240)
        shifted.set_date_on(-3600)
        before = int(program.number("Current reading number"))
        shifted.suspend(12)
        after = int(program.number("Current reading number"))
        wait_for("the end of the turn", 40, lambda: program.enabled("Collect Data"), 0.05)
        lasted = time.monotonic() - began
        self.assertEqual(program.messages(), [])
        hint = re.fullmatch(r"The computer slept for 12 s in reading No\. (\d+): .*", program.label(HINT))
        self.assertTrue(hint, program.label(HINT))
        self.assertLessEqual(before, int(hint.group(1)))
        self.assertLessEqual(int(hint.group(1)), after + 2)
        self.assertEqual(len(saved_readings(self, program)), 360)
        self.assertGreater(lasted, TURN_SECONDS)
        self.assertLess(lasted, TURN_SECONDS + 3)
        self.leave(program)

    def serial_meter(self, kind):
        self.bench("--as", kind, "--com", 1)
        wait_for("the meter's port", 10, lambda: "COM1=/" in self.stage.settings.read_text())

    def meter_program(self):
        self.bench("--as", "program")
        wait_for_published(self.stage)

    def test_a_turn_of_the_sound_input(self):
        self.check_turn(lambda: self.turn_antenna("--antenna", "beam", "--seconds", TURN_SECONDS))

    def test_a_turn_of_a_TARVEN_meter(self):
        self.check_turn(lambda: self.serial_meter("tarven"), **METER)

    def test_a_turn_of_a_ROSKA_meter(self):
        self.check_turn(lambda: self.serial_meter("roska"), **METER, ROSKAmeter="True")

    def test_a_turn_of_a_meter_program(self):
        self.check_turn(self.meter_program, **METER, GaugeBridge="True")

    def test_a_program_that_stood_still_across_the_wrap_hears_that_it_is_to_end(self):
        self.turn_antenna("--antenna", "beam", "--seconds", TURN_SECONDS)
        shifted = clocks.Clocks(self.stage.home / "clocks")
        started = time.monotonic()
        program = self.open_window(*shifted.wrapper(), RotateTime=120)
        shifted.wrap_in(3, started)
        self.start_collecting(program, 3)
        program.process.send_signal(signal.SIGSTOP)
        time.sleep(4)
        program.process.send_signal(signal.SIGCONT)
        program.process.terminate()
        self.assertEqual(program.process.wait(5), 0)


if __name__ == "__main__":
    from_outside.main()
