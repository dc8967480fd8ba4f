"""The whole window by keyboard: each accelerator, the operator's name, and a turn from the first start to the saved file."""
import hashlib

import beam
import from_outside
import outside
import pattern_file
from from_outside import read_settings, wait_for

ACCELERATORS_THAT_DRAW = {"Lin / Log": "l", "Reverse": "v", "De-Spike": "k", "Smooth": "m", "Original": "o", "Rescale": "r"}


class Accelerators(from_outside.FromOutside):
    def setUp(self):
        super().setUp()
        self.path = self.stage.home / "spiky.lbg"
        readings = beam.turn(130)
        readings[60] = 990.0
        readings[61] = 300.0
        pattern_file.write(self.path, readings)

    def plot(self):
        """What is drawn inside the outer ring; the time stands outside."""
        path = self.stage.home / "window.png"
        self.stage.picture(path)
        self.stage.output("convert", path, "-crop", "400x400+50+90", "+repage", "-strip", path.with_suffix(".rgb"))
        return hashlib.sha256(path.with_suffix(".rgb").read_bytes()).hexdigest()

    def box_opens(self, program, key, title):
        self.activate("^Lobegraph V")
        self.keys(f"alt+{key}")
        self.box_in_front(program, title)
        self.keys("Escape")
        wait_for("the box to close", 10, lambda: program.open_box(title) is None)

    def test_boxes_open(self):
        program = self.open_window()
        self.box_opens(program, "s", "Lobegraph")  # there is nothing to save
        self.keys("alt+g")
        self.box_in_front(program, "Get File")
        self.write(str(self.path))
        self.keys("Return")
        wait_for("the pattern", 10, lambda: program.text("File name") == self.path.name)
        self.box_opens(program, "s", "Save File")
        self.box_opens(program, "y", "Get File")
        self.box_opens(program, "p", "Print")
        self.box_opens(program, "c", "Lobegraph - Choose Input")
        self.activate("^Lobegraph V")
        self.keys("alt+x")
        self.assertEqual(program.process.wait(10), 0)

    def test_each_drawing_command_draws(self):
        program = self.open_window()
        self.load(program, self.path)
        self.activate("^Lobegraph V")
        for name, key in ACCELERATORS_THAT_DRAW.items():
            with self.subTest(name):
                before = self.plot()
                self.keys(f"alt+{key}")
                wait_for(f"{name} to draw", 5, lambda: self.plot() != before)
        gain = program.text("Estimated gain")
        self.keys("alt+t")
        wait_for("the directivity", 5, lambda: program.text("Estimated gain") != gain)
        self.keys("alt+z")
        program.find("Vertical", "push button")
        self.keys("alt+e")
        wait_for("the rectangular drawing", 5, lambda: self.shown(program, "Pattern Analysis"))
        self.keys("alt+n")
        wait_for("a shrunk window", 5, lambda: self.window_size()[0] == 501)
        self.keys("alt+w")
        wait_for("a grown window", 5, lambda: self.window_size()[0] == 758)
        self.leave(program)

    def test_collecting_and_calibrating(self):
        program = self.open_window(RotateTime=60)
        self.turn_antenna("--antenna", "beam", "--seconds", 60)
        self.keys("alt+i")
        wait_for("the sweep", 10, lambda: program.ticked("Calibrate Input"))
        self.keys("alt+i")
        wait_for("the end of the sweep", 10, lambda: not program.ticked("Calibrate Input"))
        self.keys("alt+d")
        self.wait_for_readings(program, 5)
        self.keys("alt+x")
        self.assertIsNone(program.process.poll(), "no way out by Exit in the middle of a turn")
        self.keys("alt+h")
        wait_for("the end of the turn", 10, lambda: program.enabled("Collect Data"))

    @staticmethod
    def shown(program, name):
        return program.has(program.find(name, "push button"), outside.Atspi.StateType.SHOWING)


class WithoutAMouse(from_outside.FromOutside):
    def test_from_the_first_start_to_the_saved_pattern(self):
        program = outside.Program(self.begin())
        self.box_in_front(program, " ")
        self.write("DL1XYZ")
        self.keys("Return")
        program.find("Collect Data")
        program.learn()
        self.turn_antenna("--antenna", "beam", "--seconds", 4)
        self.activate("^Lobegraph V")
        self.set_rotation_time(program, 4)
        self.keys("alt+d")
        wait_for("the turn to begin", 15, lambda: program.enabled("Halt Collection"))
        wait_for("the end of the turn", 30, lambda: program.enabled("Collect Data"), 0.1)
        self.keys("Return")  # the focus waits on Rescale
        wait_for("the beam to be turned up", 10, lambda: program.number("Beamwidth in degrees") > 0
                 and program.text("Degrees rotated") != "0")
        self.save_by_keys(program)
        self.leave(program)

    def set_rotation_time(self, program, seconds):
        slider = program.find("Rotation time in seconds", "slider")
        self.keys(*["Tab"] * 6)  # input, calibrate, three boxes to tick, Collect Data
        wait_for("the focus on the slider", 5, lambda: program.has(slider, outside.Atspi.StateType.FOCUSED))
        self.keys("Home", *["Right"] * (seconds - 1))
        wait_for("the rotation time", 5, lambda: program.label("Rotation time chosen") == str(seconds))

    def save_by_keys(self, program):
        path = self.stage.home / "turn.lbg"
        self.keys("alt+s")
        self.box_in_front(program, "Save File")
        self.write(str(path))
        self.keys("Return")
        wait_for("the file", 10, path.exists)
        stored = pattern_file.read(path)
        self.assertEqual(len(stored["Readings"]), 360)
        self.assertEqual(stored["CollectedBy"], "DL1XYZ")

    def test_the_operators_name(self):
        program = self.open_window()
        self.activate("^Lobegraph V")
        self.keys("shift+Tab", "shift+Tab", "Return")
        wait_for("the question", 10, lambda: any("Please enter the Operator's name" in words for words in program.messages()))
        wait_for("the question in front", 10, lambda: "User =" not in self.title_in_front())
        self.write("OP2AB")
        self.keys("Return")
        wait_for("the name", 10, lambda: program.label("Operator") == " OP2AB")
        self.leave(program)
        self.assertEqual(read_settings(self.stage.settings)["Username"], "N0CALL", "for this run only")

    def test_a_cancelled_call_sign_is_kept_as_none(self):
        program = outside.Program(self.begin())
        self.box_in_front(program, " ")
        self.keys("Escape")
        program.find("Collect Data")
        self.leave(program)
        self.assertEqual(read_settings(self.stage.settings)["Username"], "")
        again = outside.Program(self.begin())
        again.find("Collect Data")
        self.assertIsNone(again.open_box(" "))
        self.leave(again)


if __name__ == "__main__":
    from_outside.main()
