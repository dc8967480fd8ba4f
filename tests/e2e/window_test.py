"""The window among other programs: its shape, what is dropped on it, the desktop it keeps awake, and its ends."""
import os
import pathlib
import signal
import sys

import beam
import emulated
import from_outside
import outside
import pattern_file
from drag import Drag
from from_outside import read_settings, wait_for
from rotator import METER, Rotator

REFUSAL = "The screen cannot be shrunk when it is maximised"


class Shape(from_outside.FromOutside):
    sound = False

    def set_state(self, change, states):
        self.stage.output("wmctrl", "-i", "-r", self.window, "-b", f"{change},{states}")

    def assert_refused(self, program):
        program.press("<-Shrink")
        self.assertIn(REFUSAL, self.close_box(program))
        self.assertFalse(program.has(program.find("Grow->", "push button"), outside.Atspi.StateType.VISIBLE))

    def test_growing_and_shrinking(self):
        program = self.open_window()
        self.window = hex(int(self.window_id()))
        program.press("<-Shrink")
        wait_for("a shrunk window", 5, lambda: self.window_size() == (501, 560))
        program.press("Grow->")
        wait_for("a grown window", 5, lambda: self.window_size() == (758, 560))
        for states in ("maximized_vert,maximized_horz", "fullscreen"):
            with self.subTest(states):
                self.set_state("add", states)
                wait_for("a large window", 5, lambda: self.window_size()[0] > 1000)
                large = self.window_size()
                self.assert_refused(program)
                self.assertEqual(self.window_size(), large)
                self.set_state("remove", states)
                wait_for("the old size", 5, lambda: self.window_size() == (758, 560))
        self.stage.output("xdotool", "windowminimize", "--sync", str(int(self.window, 16)))
        self.assert_refused(program)
        self.leave(program)


class Dropping(from_outside.FromOutside):
    sound = False

    def drop(self, path):
        window = int(self.window_id())
        geometry = self.stage.output("xdotool", "getwindowgeometry", "--shell", str(window))
        corner = dict(line.split("=") for line in geometry.splitlines() if "=" in line)
        drag = Drag(self.stage.environment["DISPLAY"], path)
        self.addCleanup(drag.close)
        return drag.drop(window, int(corner["X"]) + 250, int(corner["Y"]) + 300)

    def test_a_pattern_file_is_loaded_and_another_file_is_not_taken(self):
        path = self.stage.home / "my beam.lbg"
        pattern_file.write(path, beam.turn(0))
        other = self.stage.home / "notes.txt"
        other.write_text("no pattern")
        program = self.open_window()
        self.assertFalse(self.drop(other))
        self.assertTrue(self.drop(path))
        wait_for("the pattern", 10, lambda: program.text("File name") == path.name)
        self.assertEqual(program.text("Number of readings"), "360")
        self.leave(program)


class InTheMiddleOfARun(from_outside.FromOutside):
    """Waiting for a signal that never comes is a run."""

    def begin_run(self, **settings):
        program = self.open_window(AutoStart="1", Scale="44", **settings)
        program.press("Collect Data")
        wait_for("the wait for a signal", 15, lambda: program.enabled("Halt Collection"))
        return program

    def test_each_way_out(self):
        ways = {"close box": lambda program: (self.activate("^Lobegraph V"), self.keys("alt+F4")),
                "SIGTERM": lambda program: program.process.send_signal(signal.SIGTERM),
                "SIGINT": lambda program: program.process.send_signal(signal.SIGINT),
                "SIGHUP": lambda program: program.process.send_signal(signal.SIGHUP)}
        for name, leave in ways.items():
            with self.subTest(name):
                program = self.begin_run()
                self.assertFalse(program.enabled("Exit"), "Exit waits for the end of the run")
                leave(program)
                self.assertEqual(program.process.wait(10), 0)
                self.assertEqual(read_settings(self.stage.settings)["Scale"], "44")

    def test_the_desktop_neither_locks_nor_sleeps_until_the_end(self):
        self.stage.environment["DBUS_SYSTEM_BUS_ADDRESS"] = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        self.addCleanup(self.stage.environment.pop, "DBUS_SYSTEM_BUS_ADDRESS")
        asked = self.stage.home / "asked"
        desktop = self.stage.start(sys.executable, pathlib.Path(__file__).with_name("fake_desktop.py"), log=asked)
        self.addCleanup(outside.stop, desktop)

        def lines():
            return sorted(line for line in asked.read_text().splitlines() if line != "ready")

        wait_for("the desktop", 10, lambda: asked.exists() and asked.read_text().count("ready") == 2)
        program = self.begin_run()
        why = "Lobegraph An antenna pattern is being taken"
        begun = [f"Inhibit {why}", f"Inhibit sleep:idle {why} block"]
        wait_for("both questions", 5, lambda: lines() == begun)
        program.press("Halt Collection")
        ended = sorted([*begun, "UnInhibit 4711", "sleep lock released"])
        wait_for("both to be taken back", 5, lambda: lines() == ended)
        self.leave(program)


class DamagedSettings(from_outside.FromOutside):
    sound = False

    def answer(self, program, answer):
        """The message, closed with OK; then the offer of the default, answered."""
        def offer():
            box = program.open_box("Lobegraph")
            return box if box and "Use the default" in " ".join(program.words(box)) else None

        box = program.box("Lobegraph")
        words = " ".join(program.words(box)).strip()
        program.press("OK", within=box)
        box = wait_for("the offer", 10, offer)
        offered = " ".join(program.words(box))
        program.press(answer, within=box)
        return words, offered

    def test_a_declined_default_ends_it_and_standard_error_says_where_to_mend(self):
        for key, value, error in (("LinearMode", "perhaps", "Error 13 (Type mismatch) in line "),
                                  ("SpikeDetectLevel", "99999", "Error 6 (Overflow) in line ")):
            with self.subTest(key):
                self.keep_settings(**{key: value})
                program = outside.Program(self.begin())
                words, offered = self.answer(program, "No")
                self.assertTrue(words.startswith(error), words)
                self.assertTrue(words.endswith(" of procedure Form_Load of Form Form1"), words)
                self.assertEqual(program.process.wait(10), 1)
                said = self.log.read_text()
                for part in (key, value, str(self.stage.settings)):
                    self.assertIn(part, said)
                    self.assertIn(part, offered)

    def test_an_accepted_default_is_stored_and_the_program_starts(self):
        self.keep_settings(Commport="70000")
        program = outside.Program(self.begin())
        self.answer(program, "Yes")
        program.find("Collect Data")
        wait_for("the default", 10, lambda: read_settings(self.stage.settings)["Commport"] == "0")
        program.learn()
        self.leave(program)


class AModuleThatDoesNotClose(from_outside.FromOutside):
    """Its trigger run was halted; closing it fails when the program ends."""

    sound = False

    def begin_with_open_module(self):
        machine = emulated.Machine()
        self.addCleanup(machine.close)
        self.stage.environment.update(machine.environment())
        _, meter = machine.serial_port("ttyUSB0")
        module = machine.usb_module()
        program = self.open_window("umockdev-wrapper", **METER, Trigger="1", GaugeBridgeTrigger="True")
        Rotator(program, module, meter).begin(30)
        wait_for("the trigger to be watched", 15, lambda: len(module.set_up) >= 3)
        program.press("Halt Collection")
        wait_for("the end of the run", 15, lambda: program.enabled("Collect Data"))
        program.slide("Scale of the log display", 99)
        module.fail_release = True
        return program

    def refuse_to_close(self, program):
        self.assertIn("FT_Close", self.close_box(program))

    def test_the_close_box_leaves_the_meter_window_with_the_reason(self):
        program = self.begin_with_open_module()
        self.activate("^Lobegraph V")
        self.keys("alt+F4")
        self.refuse_to_close(program)
        self.assertEqual(program.label("Meter status"), "Attempt to close DLP2232M failed.")
        self.assertIsNone(program.process.poll())
        self.assertNotEqual(read_settings(self.stage.settings).get("Scale"), "99", "the settings of this run are unsaved")
        self.activate("^Lobegraph - dB Meter")
        self.keys("alt+F4")
        program.process.wait(10)

    def test_exit_ends_it_all_the_same(self):
        program = self.begin_with_open_module()
        program.press("Exit")
        self.refuse_to_close(program)
        program.process.wait(10)


if __name__ == "__main__":
    from_outside.main()
