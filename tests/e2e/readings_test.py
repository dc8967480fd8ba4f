"""Readings at hand: a CSV file through the editor into the plot and a pattern file; angles and levels read off the
rectangular drawing by mouse."""
import math
import struct
import subprocess
import time

import beam
import from_outside
import pattern_file
from from_outside import wait_for
from outside import Atspi

FULL_SCALE = 234
AREA = {"left": 26, "right": 494, "top": 160, "bottom": 394}  # of the rectangular drawing, edges included
VALUE = 1  # column


def single(number):
    return struct.unpack("f", struct.pack("f", number))[0]


class Editor(from_outside.FromOutside):
    sound = False
    display = "1600x1024"  # plot and editor side by side

    def open_editor(self, pattern=None):
        program = self.open_window()
        if pattern:
            self.load(program, pattern)
        program.tick("Show editor")
        self.activate("^Lbg editor$")
        self.table = program.find("Readings", "table")
        return program

    def cell(self, row, column=VALUE):
        return Atspi.Table.get_accessible_at(self.table, row - 1, column)

    def shown(self, row, column=VALUE):
        cell = self.cell(row, column)
        cell.clear_cache()
        return cell.get_name()

    def type_values(self, row, *values):
        """Clicks on a value; what is typed replaces it, Enter goes to the one below."""
        self.click_on(self.cell(row))
        for value in values:
            self.write(str(value))
            self.keys("Return")

    def test_a_CSV_file_edited_and_saved_gives_the_same_numbers_again(self):
        numbers = [single(level) for level in beam.turn(0)]
        source = self.stage.home / "spreadsheet.csv"
        source.write_text("\ufeff" + "".join(f"{number:.6g}\r\n" for number in numbers))
        numbers = [single(float(f"{number:.6g}")) for number in numbers]
        program = self.open_editor()
        program.press("Get values from a CSV file")
        program.answer_file("Get CSV File", source.with_suffix(""))  # typed without its ending
        wait_for("the values", 10, lambda: program.label("What happened last") == "360 values read, 0 were not numbers")
        self.assertEqual(self.shown(360, 2), "359.00")

        self.activate("^Lbg editor$")
        self.type_values(5, 123.456, 77)
        numbers[4:6] = [single(123.456), 77]
        wait_for("the edited values", 5, lambda: (self.shown(5), self.shown(6)) == ("123.46", "77"))
        program.press("Insert a row")  # Enter went down to row 7
        wait_for("the new row", 5, lambda: self.shown(7) == "0")
        self.type_values(7, 55)
        numbers = (numbers[:6] + [55] + numbers[6:])[:360]
        self.click_on(self.cell(10))
        program.press("Delete a row")
        numbers = numbers[:9] + numbers[10:]
        wait_for("the last row to be empty", 5, lambda: (self.shown(360), self.shown(360, 2)) == ("0", "0"))
        program.press("Update the plot")
        wait_for("the plot", 10, lambda: program.number("Number of readings") == 359)

        copy = self.stage.home / "edited.lbg"
        self.save(program, copy)
        wait_for("the file", 10, copy.exists)
        stored = [single(level) for level in pattern_file.read(copy)["Readings"]]
        self.assertEqual(stored, numbers)
        program.press("Clear all values")
        wait_for("the empty grid", 5, lambda: self.shown(5) == "0")
        self.load(program, copy)
        program.press("Get values from the plot")
        wait_for("the values of the file", 5, lambda: self.shown(5) == "123.46")
        self.assertEqual((self.shown(6), self.shown(7), self.shown(359, 2), self.shown(360)), ("77", "55", "359.00", "0"))
        self.assertEqual(program.messages(), [])
        self.leave(program)

    def test_a_value_that_is_no_number_is_told_and_changes_nothing(self):
        path = self.stage.home / "beam.lbg"
        pattern_file.write(path, beam.turn(0))
        program = self.open_editor(path)
        program.press("Get values from the plot")
        wait_for("the values", 5, lambda: self.shown(360, 2) == "359.00")
        self.type_values(1, 900, "12,5", 800)
        wait_for("the typed values", 5, lambda: self.shown(3) == "800")
        beamwidth = program.text("Beamwidth in degrees")
        program.press("Update the plot")
        self.assertRegex(self.close_box(program), r"Error 13 \(Type mismatch\) in line \d+ of procedure cmdUpdate_Click of "
                                                  "Form frmEditLbg")
        self.assertEqual(program.label("What happened last"), "Row 2 is no number: the plot stays as it is")
        self.assertEqual(program.text("Beamwidth in degrees"), beamwidth)
        self.activate("^Lbg editor$")
        self.write("1")  # the row stands selected
        self.keys("Return")
        wait_for("the new value", 5, lambda: self.shown(2) == "1")
        program.press("Update the plot")
        program.press("Clear all values")
        wait_for("the empty grid", 5, lambda: self.shown(2) == "0")
        program.press("Get values from the plot")
        wait_for("the values of the plot", 5, lambda: self.shown(2) == "1")
        self.activate("^Lbg editor$")
        self.keys("alt+F4")
        wait_for("the box to be unticked", 10, lambda: not program.ticked("Show editor"))
        self.leave(program)


class AnalysisLines(from_outside.FromOutside):
    sound = False

    def setUp(self):
        super().setUp()
        path = self.stage.home / "beam.lbg"
        pattern_file.write(path, beam.turn(180))
        self.program = self.open_window()
        self.load(self.program, path)
        self.program.press("Circ / Rect")
        self.program.press("Pattern Analysis")
        self.program.slide("Scale of the log display", 40)
        self.activate("^Lobegraph V")
        self.window = self.window_id()

    def mouse(self, *command):
        self.stage.output("xdotool", *command)
        time.sleep(0.05)  # as a hand does it: the window sees each of them

    def point(self, x, y):
        self.mouse("mousemove", "--window", self.window, x, y)

    def drag(self, button, start, end):
        self.point(200, start)
        self.mouse("mousedown", button)
        for height in (start + (end - start) // 2, end):
            self.point(200, height)
        self.mouse("mouseup", button)

    def drawing(self):
        """Every pixel of the rectangular drawing, once two pictures in a row are the same."""
        path = self.stage.home / "window.png"
        size = f"{AREA['right'] - AREA['left'] + 1}x{AREA['bottom'] - AREA['top'] + 1}+{AREA['left']}+{AREA['top']}"
        taken = []

        def settled():
            self.stage.picture(path)
            taken.append(subprocess.run(["convert", path, "-crop", size, "-depth", "8", "rgb:-"], check=True,
                                        capture_output=True).stdout)
            return len(taken) > 1 and taken[-1] == taken[-2]

        wait_for("the drawing to settle", 10, settled)
        return taken[-1]

    def set_move_and_clear(self, level, unit, delta):
        program = self.program
        self.point(260, 100)
        before = self.drawing()
        self.drag(1, 180, 277)
        self.drag(3, 200, 350)
        for line, y in (("upper", 277), ("lower", 350)):
            shown = wait_for(f"the {line} line's level", 5, lambda: program.text(f"Level of the {line} line"))
            self.assertAlmostEqual(float(shown), level(AREA["bottom"] - y), delta=delta)
            self.assertEqual(program.find(f"{line.capitalize()} line: {unit}", "label").get_name(), f"{line.capitalize()} line: {unit}")
        self.point(260, 300)
        wait_for("the angle", 5, lambda: program.text("Angle at the pointer") == "0")
        self.point(260, 100)
        both = self.drawing()
        self.assertNotEqual(both, before)
        self.drag(1, 300, 240)
        self.assertAlmostEqual(float(program.text("Level of the upper line")), level(AREA["bottom"] - 240), delta=delta)
        self.point(260, 100)
        self.assertNotEqual(self.drawing(), both)
        program.press("Clear the upper line")
        wait_for("the upper level to go", 5, lambda: program.text("Level of the upper line") == "")
        self.assertNotEqual(self.drawing(), before)
        program.press("Clear the lower line")
        wait_for("the lower level to go", 5, lambda: program.text("Level of the lower line") == "")
        self.assertEqual(self.drawing(), before, "the picture beneath is as it was, to the last pixel")

    def test_lines_on_all_three_scales(self):
        with self.subTest(scale="logarithmic"):
            self.set_move_and_clear(lambda h: 40 * math.log10(h / FULL_SCALE), "-dB level", 0.051)
        self.program.press("Lin / Log")
        with self.subTest(scale="50 dB"):
            self.set_move_and_clear(lambda h: -(FULL_SCALE - h) * 50 / FULL_SCALE, "-dB level", 0.051)
        self.program.tick("Plot in dB")
        with self.subTest(scale="amplitude"):
            self.set_move_and_clear(lambda h: h * 100 / FULL_SCALE, "% peak value", 0.51)
        self.leave(self.program)


if __name__ == "__main__":
    from_outside.main()
