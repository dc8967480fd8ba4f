"""The settings dialog, used as a person uses it: keys, mouse, and every way in and out."""
import fcntl
import subprocess
import time

import from_outside
from from_outside import read_settings, wait_for

TITLE = "Lobegraph Settings"
STOPS_TO_OK = 10  # default values, six colours and their default, text on/off


class SettingsDialog(from_outside.FromOutside):
    sound = False

    def open_dialog(self, program):
        self.activate("^Lobegraph V")
        self.keys("ctrl+comma")
        return self.box_in_front(program, TITLE)

    def wait_closed(self, program):
        wait_for("the dialog to close", 10, lambda: program.open_box(TITLE) is None)

    def fill(self, *texts):
        """From box to box; each entry replaces what the box holds, which is selected by coming with Tab."""
        for text in texts:
            self.keys("ctrl+a")
            self.write(text)
            self.keys("Tab")

    def slowest_turn(self, program):
        return from_outside.maximum(program.find("Rotation time in seconds", "slider"))

    def background(self):
        """The colour at the window's left edge, which the dialog does not cover."""
        path = self.stage.home / "window.png"
        self.stage.picture(path)
        return subprocess.run(["convert", str(path), "-depth", "8", "-format", "%[hex:p{3,300}]", "info:"], capture_output=True,
                              text=True, check=True).stdout[:6]

    def test_every_box_by_keyboard(self):
        program = self.open_window()
        self.open_dialog(program)
        self.fill("40.9", "0.5", "8", "6")
        self.keys("Tab")
        self.fill("900")
        self.keys("Tab")
        self.fill("20.9")
        self.keys("ctrl+a")
        self.write("60")
        self.keys("Return", "KP_Enter")
        self.assertIsNotNone(program.open_box(TITLE), "Enter is inert")
        self.keys(*["Tab"] * STOPS_TO_OK, "space")
        self.wait_closed(program)
        saved = read_settings(self.stage.settings)
        wanted = {"DetectStartLevel": "40.9", "StartupDelay": "0.5", "DetectStopLevel": "8", "DetectStopNumberOfReadings": "6",
                  "PeakInputLevel": "900", "MaxRotationTime": "20", "SpikeDetectLevel": "60", "PlotLineColour": "128"}
        self.assertEqual({key: saved[key] for key in wanted}, wanted)
        self.assertEqual(self.slowest_turn(program), 1200)
        self.leave(program)

    def test_a_value_out_of_range_is_refused_and_escape_validates_nothing(self):
        program = self.open_window()
        self.open_dialog(program)
        self.fill("41")
        box = self.box_in_front(program, "Lobegraph")
        self.assertIn("LBG024 Detect Start Level must be in the range 1 to 40", program.words(box))
        self.keys("Return")
        self.box_in_front(program, TITLE)
        self.fill("9", "1.01")
        self.assertIn("LBG023 Startup delay must be in the range 0.00 to 1.00", self.close_box(program))
        self.box_in_front(program, TITLE)
        self.keys("Escape")
        self.wait_closed(program)
        self.assertIsNone(program.open_box("Lobegraph"), "leaving validates nothing")
        self.assertNotIn("DetectStartLevel", read_settings(self.stage.settings))
        self.leave(program)

    def test_a_default_reaches_the_store_at_ok(self):
        program = self.open_window(MaxRotationTime=5)
        self.assertEqual(self.slowest_turn(program), 300)
        box = self.open_dialog(program)
        program.press("Set default values of rotation and spikes", within=box)
        program.press("OK", within=box)
        self.wait_closed(program)
        self.assertEqual(read_settings(self.stage.settings)["MaxRotationTime"], "2")
        self.assertEqual(self.slowest_turn(program), 120)
        self.leave(program)

    def test_every_way_in_and_every_way_out(self):
        program = self.open_window(PlotBackground=16777215)
        before = self.stage.settings.read_text()
        for way_in, way_out in ((lambda: self.keys("ctrl+comma"), lambda _: self.keys("Escape")),
                                (self.double_click, lambda _: self.keys("alt+F4")),
                                (self.use_menu, lambda box: program.press("Cancel", within=box))):
            self.activate("^Lobegraph V")
            self.assertEqual(self.background(), "FFFFFF")
            way_in()
            box = self.box_in_front(program, TITLE)
            program.press("Set default colours", within=box)
            wait_for("the colours to show", 5, lambda: self.background() == "E0E0E0")
            way_out(box)
            self.wait_closed(program)
            wait_for("the colours to come back", 5, lambda: self.background() == "FFFFFF")
        self.assertEqual(self.stage.settings.read_text(), before)
        self.leave(program)

    def test_settings_that_another_program_holds_are_told_and_saved_later(self):
        program = self.open_window(MaxRotationTime=5)
        lock = open(self.stage.settings.with_name("Lobegraph.conf.lock"), "w", encoding="utf-8")
        fcntl.flock(lock, fcntl.LOCK_EX)
        box = self.open_dialog(program)
        program.press("Set default values of rotation and spikes", within=box)
        pressed = time.monotonic()
        program.press("OK", within=box)
        self.wait_closed(program)
        self.assertLess(time.monotonic() - pressed, 3)
        wait_for("the line", 10, lambda: program.label("What to do next").startswith("The settings are not saved yet: "))
        self.assertEqual(self.slowest_turn(program), 120, "they hold all the same")
        lock.close()
        wait_for("the line", 10, lambda: program.label("What to do next") == "The settings are saved now.")
        self.assertEqual(read_settings(self.stage.settings)["MaxRotationTime"], "2")
        self.leave(program)

    def test_a_program_that_is_to_end_does_not_wait_for_settings_that_another_holds(self):
        program = self.open_window()
        with open(self.stage.settings.with_name("Lobegraph.conf.lock"), "w", encoding="utf-8") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            asked = time.monotonic()
            program.process.terminate()
            self.assertEqual(program.process.wait(10), 0)
            self.assertLess(time.monotonic() - asked, 2)
        self.assertIn("not saved", self.log.read_text())

    def double_click(self):
        self.click(250, 300, "--repeat", "2", "--delay", "60", "1")

    def use_menu(self):
        self.click(250, 300, "3")
        self.keys("Down", "Return")


if __name__ == "__main__":
    from_outside.main()
