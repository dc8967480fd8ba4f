"""Printing through the real dialog into a real print server; its pages are looked at as pictures."""
import re
import subprocess

import beam
import from_outside
import outside
import pattern_file
from from_outside import wait_for
from outside import Atspi
from private_printing import PrintServer

UNITS = (758, 560)  # of the window's inside
PAPERS = {"A4": (595, 842), "Letter": (612, 792)}  # points
MM_PER_POINT = 25.4 / 72


def room(points):
    """What the double margin leaves of a printable length, in points."""
    return ((points * 20 - 1080) * 2540 / 1440 - 1080) * 1440 / 2540 / 20


def fitted(width, height):
    """Size of the window on a printable area, in points."""
    ratio = UNITS[0] / UNITS[1]
    width, height = room(width), room(height)
    return (width, width / ratio) if ratio >= width / height else (height * ratio, height)


def grey_page(document, dots_per_inch):
    """The page as rows of grey values."""
    bitmap = subprocess.run(["pdftoppm", "-gray", "-r", str(dots_per_inch), document], capture_output=True, check=True).stdout
    magic, size, _, pixels = bitmap.split(b"\n", 3)
    width, height = map(int, size.split())
    assert magic == b"P5" and len(pixels) == width * height
    return [pixels[row * width:(row + 1) * width] for row in range(height)]


def inked(rows):
    """Left, top, right and bottom of what is not white, in dots; right and bottom lie behind the last one."""
    white = bytes(range(250, 256))
    lines = [(number, row) for number, row in enumerate(rows) if row.strip(white)]
    left = min(len(row) - len(row.lstrip(white)) for _, row in lines)
    right = max(len(row.rstrip(white)) for _, row in lines)
    return left, lines[0][0], right, lines[-1][0] + 1


def hard_edges_within_units(image, rows=200):
    """Strong steps between two neighbouring pixels of the same unit of the window: an enlarged picture of the screen
    has none."""
    with open(image, "rb") as file:
        assert file.readline() == b"P6\n"
        width, height = map(int, file.readline().split())
        file.readline()
        red = file.read()[0::3]
    unit = width // UNITS[0]
    count = 0
    for row in range(0, height, height // rows):
        line = red[row * width:(row + 1) * width]
        count += sum(1 for x in range(width - 1) if (x + 1) % unit and abs(line[x] - line[x + 1]) > 100)
    return count


class Printing(from_outside.FromOutside):
    sound = False

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.server = PrintServer(cls.stage)
        for queue in ("laser", "rejecting", "stopped"):
            cls.server.add_queue(queue)
        cls.server.command("/usr/sbin/cupsreject", "rejecting")
        cls.server.command("/usr/sbin/cupsdisable", "stopped")

    def open_pattern(self):
        path = self.stage.home / "beam.lbg"
        pattern_file.write(path, beam.turn(180), description="3-element beam, 10 m above the roof")
        program = self.open_window()
        self.load(program, path)
        return program

    def use_queue(self, name):
        self.server.command("/usr/sbin/lpadmin", "-d", name)

    def open_dialog(self, program, copies=1):
        program.press("Print")
        box = program.box("Print")
        if copies != 1:
            program.press("Options >>", within=box)
            Atspi.Value.set_current_value(program.find("Copies:", "spin button", within=box), copies)
        return box

    def confirm(self, program, box):
        program.press("Print", within=box)
        wait_for("the dialog to close", 10, lambda: program.open_box("Print") is None)

    def choose_page(self, program, box, paper, orientation):
        """@return the margins left, top, right, bottom in points, as the dialog shows them"""
        program.press("Properties", within=box)
        page = program.box("Printer Properties")
        sizes = next(node for node in outside.nodes(page) if node.get_role_name() == "combo box")
        if not sizes.get_name().startswith(paper):  # A4 is where it begins
            self.click_on(sizes)
            self.keys("Home", "Return")
        wait_for(paper, 5, lambda: sizes.clear_cache() or sizes.get_name().startswith(paper))
        self.click_on(program.find(orientation, "radio button", within=page))
        margins = [Atspi.Value.get_current_value(program.find(f"{side} margin", "spin button", within=page)) / MM_PER_POINT
                   for side in ("left", "top", "right", "bottom")]
        program.press("OK", within=page)
        wait_for("the properties to close", 10, lambda: not program.has(page, Atspi.StateType.SHOWING))
        return margins

    def completed(self, queue, count):
        jobs = wait_for(f"{count} jobs", 10, lambda: len(self.server.jobs("completed", queue)) >= count and
                        self.server.jobs("completed", queue))
        return sorted(jobs, key=lambda job: int(job.rsplit("-", 1)[1]))

    def test_three_copies_are_three_jobs(self):
        self.use_queue("laser")
        program = self.open_pattern()
        before = len(self.server.jobs("completed", "laser"))
        self.confirm(program, self.open_dialog(program, copies=3))
        jobs = self.completed("laser", before + 3)
        self.assertEqual(len(jobs), before + 3)
        for job in jobs[-3:]:
            pages = self.stage.output("pdfinfo", self.server.document(job))
            self.assertRegex(pages, r"Pages: +1\n")
        self.assertEqual(program.label("What to do next"), "3 copies printed to laser")
        box = self.open_dialog(program)
        program.press("Options >>", within=box)
        copies = program.find("Copies:", "spin button", within=box)
        self.assertEqual(Atspi.Value.get_current_value(copies), 1, "the printer is left at one copy")
        program.press("Cancel", within=box)
        wait_for("the dialog to close", 10, lambda: program.open_box("Print") is None)
        self.assertEqual(program.messages(), [])
        self.assertEqual(len(self.server.jobs("completed", "laser")), before + 3, "cancelled: nothing is printed")
        self.leave(program)

    def test_the_page_holds_the_whole_window_sharp_and_inside_the_margins(self):
        self.use_queue("laser")
        from_outside.PICTURES.mkdir(parents=True, exist_ok=True)
        program = self.open_pattern()
        program.press("Circ / Rect")
        screen = self.stage.home / "screen.png"
        for paper, size in PAPERS.items():
            for orientation in ("Portrait", "Landscape"):
                with self.subTest(paper=paper, orientation=orientation):
                    before = len(self.server.jobs("completed", "laser"))
                    box = self.open_dialog(program)
                    margins = self.choose_page(program, box, paper, orientation)
                    self.confirm(program, box)
                    document = self.server.document(self.completed("laser", before + 1)[-1])
                    self.look_at(document, size if orientation == "Portrait" else size[::-1], margins)
                    self.stage.output("pdftoppm", "-png", "-singlefile", "-r", "100", document,
                                      from_outside.PICTURES / f"printed {paper} {orientation}")
        self.stage.picture(screen)
        self.look_at_picture(document, screen)
        self.leave(program)

    def look_at(self, document, page, margins):
        dots_per_inch = 144
        rows = grey_page(document, dots_per_inch)
        dots = dots_per_inch / 72
        self.assertEqual((len(rows[0]) / dots, len(rows) / dots), page)
        left, top, right, bottom = (dot / dots for dot in inked(rows))
        self.assertAlmostEqual(left, margins[0], delta=1)
        self.assertAlmostEqual(top, margins[1], delta=1)
        self.assertLessEqual(right, page[0] - margins[2])
        self.assertLessEqual(bottom, page[1] - margins[3])
        width, height = fitted(page[0] - margins[0] - margins[2], page[1] - margins[1] - margins[3])
        self.assertAlmostEqual(right - left, width, delta=1)
        self.assertAlmostEqual(bottom - top, height, delta=1)

    def look_at_picture(self, document, screen):
        """One picture without loss, fine in itself, the same as the screen's."""
        self.stage.output("pdfimages", document, self.stage.home / "page")
        images = sorted(self.stage.home.glob("page-*"))
        self.assertEqual([image.suffix for image in images], [".ppm"], "a JPEG would be a .jpg")
        self.assertGreater(hard_edges_within_units(images[0]), 1000)
        # Blurred, so that half a pixel of the screen is no difference.
        alike = ("-resize", "{}x{}!".format(*UNITS), "-blur", "0x3")
        pictures = [self.stage.home / name for name in ("printed.png", "shown.png")]
        for source, target in zip((images[0], screen), pictures):
            self.stage.output("convert", source, *alike, target)
        difference = self.stage.output("compare", "-metric", "RMSE", *pictures, "null:")
        self.assertLess(float(re.search(r"\(([\d.e-]+)\)", difference).group(1)), 0.02)

    def test_a_rejecting_queue_is_told(self):
        self.use_queue("rejecting")
        program = self.open_pattern()
        self.confirm(program, self.open_dialog(program, copies=2))
        self.assertEqual(self.close_box(program).strip(), "LBG014 Printing error not presently handled, Code=482")
        self.assertIsNone(program.open_box("Lobegraph"), "told once, not for every copy")
        for which in ("completed", "not-completed"):
            self.assertEqual(self.server.jobs(which, "rejecting"), [])
        self.leave(program)

    def test_a_stopped_queue_holds_the_jobs(self):
        self.use_queue("stopped")
        program = self.open_pattern()
        self.confirm(program, self.open_dialog(program, copies=2))
        wait_for("the jobs", 10, lambda: len(self.server.jobs("not-completed", "stopped")) == 2)
        wait_for("the end", 10, lambda: program.label("What to do next") == "2 copies printed to stopped")
        self.assertEqual(program.messages(), [])
        self.leave(program)


class WithoutAPrinter(from_outside.FromOutside):
    sound = False

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.stage.environment["CUPS_SERVER"] = f"{cls.stage.folder}/no-server"

    def test_copies_go_into_numbered_files(self):
        program = self.open_window()
        program.press("Print")
        box = program.box("Print")
        program.press("Options >>", within=box)
        Atspi.Value.set_current_value(program.find("Copies:", "spin button", within=box), 2)
        program.type("Output file:", str(self.stage.home / "window.pdf"), within=box)
        program.press("Print", within=box)
        wait_for("the end", 10, lambda: program.label("What to do next") == f"2 copies printed to {self.stage.home}")
        self.assertEqual(sorted(path.name for path in self.stage.home.glob("*.pdf")), ["window-1.pdf", "window-2.pdf"])
        for path in self.stage.home.glob("*.pdf"):
            self.assertRegex(self.stage.output("pdfinfo", path), r"Pages: +1\n")
        self.leave(program)


class DeadServer(from_outside.FromOutside):
    sound = False

    def test_a_server_that_dies_while_the_dialog_is_open_is_told(self):
        server = PrintServer(self.stage)
        server.add_queue("laser")
        program = self.open_window()
        program.press("Print")
        box = program.box("Print")
        outside.stop(server.process)
        program.press("Print", within=box)
        self.assertEqual(self.close_box(program).strip(), "LBG014 Printing error not presently handled, Code=482")
        self.leave(program)


if __name__ == "__main__":
    from_outside.main()
