"""What befalls a turn from outside: a clock set back, a suspended program, a sound server that pauses or comes back."""
import glob
import os
import re
import signal
import time

import from_outside
import outside
import pattern_file
from from_outside import wait_for

TURN_SECONDS = 6  # 17 ms a reading
FAKE_CLOCK = glob.glob("/usr/lib/*/faketime/libfaketime.so.1")[0]
HINT = "What to do next"


class TurnFaults(from_outside.FromOutside):
    sound = False

    def setUp(self):
        super().setUp()
        self.start_sound()

    def start_sound(self):
        self.server = self.stage.private_sound()
        self.addCleanup(outside.stop, self.server)
        self.turn_antenna("--antenna", "beam", "--seconds", TURN_SECONDS)

    def begin_turn(self, program, readings=40):
        """Returns when the turn began, by the monotonic clock, give or take a moment."""
        pressed = time.monotonic()
        self.start_collecting(program, readings)
        return pressed

    def end_of_turn(self, program):
        wait_for("the end of the turn", 40, lambda: program.enabled("Collect Data"), 0.05)
        return time.monotonic()

    def check_whole_turn(self, program, began):
        """All readings, on the schedule that began with the turn."""
        lasted = self.end_of_turn(program) - began
        self.assertEqual(program.number("Number of readings"), 360)
        self.assertGreater(lasted, TURN_SECONDS)
        self.assertLess(lasted, TURN_SECONDS + 3)
        self.assertEqual([len(pattern_file.read(copy)["Readings"]) for copy in self.kept_turns()], [360])

    def test_a_clock_set_back_an_hour_changes_no_reading(self):
        shift = self.stage.home / "clock"
        shift.write_text("+0\n")
        wrapper = ("env", f"LD_PRELOAD={FAKE_CLOCK}", "FAKETIME_DONT_FAKE_MONOTONIC=1", "FAKETIME_NO_CACHE=1",
                   f"FAKETIME_TIMESTAMP_FILE={shift}", "TZ=UTC")
        program = self.open_window(*wrapper, RotateTime=TURN_SECONDS)
        began = self.begin_turn(program)
        shift.write_text("-1h\n")
        self.check_whole_turn(program, began)
        program.press("Rescale")
        hour = (time.gmtime().tm_hour - 1) % 24
        wait_for("the clock of the program to be an hour behind", 10,
                 lambda: re.search(rf"\b0?{hour}:|\b{(hour - 1) % 12 + 1}:", program.label("Date and time")))
        self.leave(program)

    def test_a_suspended_program_names_the_late_readings(self):
        program = self.open_window(RotateTime=TURN_SECONDS)
        began = self.begin_turn(program)
        first = int(program.number("Current reading number"))
        program.process.send_signal(signal.SIGSTOP)
        time.sleep(1)
        program.process.send_signal(signal.SIGCONT)
        self.check_whole_turn(program, began)
        hint = program.label(HINT)
        late = re.match(r"(\d+) readings came late, the first is No\. (\d+)\. 360 readings\. ", hint)
        self.assertTrue(late, hint)
        self.assertGreaterEqual(int(late.group(1)), 50, hint)
        self.assertLess(int(late.group(1)), 200, hint)
        if int(late.group(1)) < 70:  # else the machine itself was late before
            self.assertGreaterEqual(int(late.group(2)), first, hint)
        self.leave(program)

    def test_a_sound_server_that_pauses_for_a_moment_costs_no_turn(self):
        program = self.open_window(RotateTime=TURN_SECONDS)
        began = self.begin_turn(program)
        self.server.send_signal(signal.SIGSTOP)
        time.sleep(0.6)
        self.server.send_signal(signal.SIGCONT)
        self.check_whole_turn(program, began)
        self.leave(program)

    def test_a_sound_server_that_stands_still_ends_the_turn_with_a_message(self):
        program = self.open_window(RotateTime=TURN_SECONDS)
        self.begin_turn(program)
        self.server.send_signal(signal.SIGSTOP)
        self.addCleanup(lambda: self.server.poll() is None and os.kill(self.server.pid, signal.SIGCONT))
        program.box("DirectSound Error", TURN_SECONDS - 2)
        self.assertTrue(program.enabled("Collect Data"))
        self.server.send_signal(signal.SIGCONT)
        self.close_box(program, "DirectSound Error")
        self.assertGreaterEqual(program.number("Number of readings"), 40)
        self.leave(program)

    def second_input(self):
        """Of which people think as well."""
        self.stage.output("pactl", "load-module", "module-null-sink", "sink_name=other", "rate=44100", "channels=2",
                          "norewinds=1", "sink_properties=device.description=Other")

    def test_a_sound_input_that_is_pulled_out_ends_the_turn_though_there_is_another(self):
        self.second_input()
        program = self.open_window(RotateTime=TURN_SECONDS)
        self.begin_turn(program)
        sink = next(line.split()[0] for line in self.stage.output("pactl", "list", "short", "modules").splitlines()
                    if "sink_name=rx" in line)
        self.stage.output("pactl", "unload-module", sink)
        self.assertIn("The sound input has gone.", self.close_box(program, "DirectSound Error"))
        self.assertLess(program.number("Number of readings"), 360)
        self.assertGreaterEqual(program.number("Number of readings"), 40)
        self.leave(program)

    def test_while_calibrating_another_input_is_followed_and_named(self):
        self.second_input()
        program = self.open_window(RotateTime=TURN_SECONDS)
        program.tick("Calibrate Input")
        wait_for("the source's name", 10, lambda: program.label("Input source") == "Monitor of Receiver")
        stream = self.stage.output("pactl", "list", "short", "source-outputs").split()[0]
        self.stage.output("pactl", "move-source-output", stream, "other.monitor")
        wait_for("the other's name", 10, lambda: program.label("Input source") == "Monitor of Other")
        program.tick("Calibrate Input")
        wait_for("the end of the sweep", 10, lambda: program.enabled("Get File"))
        self.assertEqual(program.messages(), [])
        self.leave(program)

    def test_a_sound_server_that_comes_back_serves_the_next_turn(self):
        program = self.open_window(RotateTime=TURN_SECONDS)
        self.begin_turn(program, 10)
        outside.stop(self.server)
        self.close_box(program, "DirectSound Error")
        self.start_sound()
        for copy in self.stage.turns.iterdir():
            copy.unlink()
        self.check_whole_turn(program, self.begin_turn(program))
        self.leave(program)


if __name__ == "__main__":
    from_outside.main()
