"""The first start, the next one, and every way in which the program is asked to end."""
import signal
import time

import beam
import from_outside
import outside
import pattern_file
from from_outside import read_settings, wait_for


class StartAndEnd(from_outside.FromOutside):
    sound = False

    def caption(self):
        tree = self.stage.output("xwininfo", "-root", "-tree")
        return next((line.split('"')[1] for line in tree.splitlines() if '"Lobegraph V' in line), None)

    def ends_at_once(self, process, number=signal.SIGTERM):
        started = time.monotonic()
        process.send_signal(number)
        self.assertEqual(process.wait(10), 0)
        self.assertLess(time.monotonic() - started, 3)

    def test_call_sign_is_asked_for_once(self):
        program = outside.Program(self.begin())
        self.assertIn("Enter your call sign:", program.words(program.box(" ")))
        program.answer_input(" ", "DL1XYZ")
        wait_for("the caption", 10, self.caption)
        self.assertRegex(self.caption(), r"^Lobegraph V\d+\.\d+\.\d+     User = DL1XYZ$")
        self.leave(program)
        again = outside.Program(self.begin())
        again.find("Collect Data")
        wait_for("the caption", 10, self.caption)
        self.assertTrue(self.caption().endswith("User = DL1XYZ"))
        self.assertIsNone(again.open_box(" "))
        self.leave(again)

    def test_being_ended_at_the_call_sign_prompt_saves_nothing(self):
        program = outside.Program(self.begin())
        program.box(" ")
        self.ends_at_once(program.process)
        self.assertFalse(self.stage.settings.exists(), "the next start asks again, with untouched settings")

    def test_sigterm_when_idle_saves_the_settings(self):
        program = self.open_window()
        program.slide("Scale of the log display", 50)
        program.slide("Rotation time in seconds", 90)
        program.tick("Auto Stop")
        self.ends_at_once(program.process)
        saved = read_settings(self.stage.settings)
        self.assertEqual((saved["Scale"], saved["RotateTime"], saved["AutoStop"]), ("50", "90", "1"))
        self.assertEqual(saved["Username"], "N0CALL")

    def test_signals_end_it_while_a_box_is_open(self):
        for number, button, title in ((signal.SIGTERM, "Save File", "Lobegraph"), (signal.SIGHUP, "Get File", "Get File"),
                                      (signal.SIGINT, "Overlay", "Get File")):
            with self.subTest(title=title, signal=number.name):
                program = self.open_window(Scale=44)
                program.press(button)
                program.box(title)
                self.ends_at_once(program.process, number)
                self.assertEqual(read_settings(self.stage.settings)["Scale"], "44")

    def test_the_close_box_ends_it(self):
        program = self.open_window()
        self.activate("^Lobegraph V")
        self.stage.output("xdotool", "key", "alt+F4")
        self.assertEqual(program.process.wait(10), 0)
        self.assertIn("Scale", read_settings(self.stage.settings))

    def test_two_programs_at_once_keep_what_the_other_writes(self):
        first = self.open_window()
        second = outside.Program(self.begin())
        second.find("Collect Data")
        first.slide("Scale of the log display", 50)
        self.leave(first)
        text = self.stage.settings.read_text()
        self.stage.settings.write_text("# mine\n" + text + "PlotGridColour=255\n[Other]\nNote= two blanks \n")
        self.assertEqual(read_settings(self.stage.settings)["Scale"], "50")
        second.tick("Auto Start")
        self.leave(second)
        text = self.stage.settings.read_text()
        for kept in ("# mine\n", "PlotGridColour=255\n", "[Other]\nNote= two blanks \n", "AutoStart=1\n"):
            self.assertIn(kept, text)

    def test_programs_that_end_at_the_same_time_leave_whole_settings(self):
        programs = [self.open_window()]
        programs += [outside.Program(self.begin()) for _ in range(2)]
        for program in programs:
            program.find("Collect Data")
        for program in programs:
            program.process.send_signal(signal.SIGTERM)
        for program in programs:
            self.assertEqual(program.process.wait(10), 0)
        saved = read_settings(self.stage.settings)
        self.assertEqual(saved["Username"], "N0CALL")
        self.assertEqual({saved[key] for key in ("AutoStart", "AutoStop", "Trigger")}, {"0"})
        self.assertEqual([path.name for path in self.stage.settings.parent.iterdir() if "Lobegraph.conf" != path.name
                          and "lock" not in path.name], [])


class Boxes(from_outside.FromOutside):
    sound = False

    def test_a_message_that_a_redraw_shows_does_not_come_back_for_ever(self):
        """Closing a box is no return to the window, or its redraw would open the box again."""
        path = self.stage.home / "zero.lbg"
        pattern_file.write(path, [100.0] * 100 + [0.0] * 260)
        program = self.open_window()
        program.press("Get File")
        program.answer_file("Get File", path)
        self.assertIn("Error 11 (Division by zero)", self.close_box(program))
        time.sleep(1)
        self.assertIsNone(program.open_box("Lobegraph"))
        self.leave(program)

    def test_coming_back_from_another_window_redraws(self):
        """The redraw is told by its message."""
        path = self.stage.home / "beam.lbg"
        pattern_file.write(path, beam.turn(0))
        program = self.open_window()
        self.load(program, path)
        program.type("Degrees rotated", "400")
        other = self.stage.start("xmessage", "-title", "Another", "hello")
        self.activate("^Another$")
        self.assertIsNone(program.open_box("Lobegraph"))
        outside.stop(other)
        self.activate("^Lobegraph V")
        self.assertIn("LBG007", self.close_box(program))
        self.leave(program)


if __name__ == "__main__":
    from_outside.main()
