"""The guide holds together, and tells about everything that the program shows."""
import re
import subprocess
import sys
import tempfile
import pathlib
import unittest
import urllib.parse

from sources import HELP, ROOT, literals, pages, squeeze

PAGES = pages()
WORDS = " ".join(page.text for page in PAGES.values())

# Texts of three words and more that nobody reads in the window: names for screen readers and for the system, what the
# companions say (their manual pages tell about it), and the program's own outfit.
SILENT_FILES = {"app/parts/Controls.cpp"}  # its own test below
SILENT_FOLDERS = ("render/",)
SILENT_DATA = {"CsvReadings.cpp", "PatternFile.cpp", "RunTimeError.cpp", "EditorGrid.cpp"}
SILENT = {
    "An antenna pattern is being taken", "Choose the colour", "Choose the colour for an overlay",
    "Double-click for the settings", "Full scale of the sound card. Meters deliver levels up to 1000: with one of them leave it at 1000",
    "Get CSV File", "Give an attached adapter to this number, so that swapped plugs do not matter",
    "Hide what is written on the plot, or show it again", "Lobegraph - Choose Input", "Lobegraph - dB Meter",
    "Meter status colour", "Meter's COM port", "Serial port of this computer", "Set default values of", "Sound: line-in",
    "Trigger's COM port", "What happened last", "auto start and stop", "no such key",
    "not in this version yet", "rotation and spikes", "would wipe the live trace",
    "COM port number for TARVEN or ROSKA serially attached power meter",
}


def shown_texts():
    """(where, text) of everything in the sources that reads like words for a person."""
    for path in sorted((ROOT / "src").rglob("*")):
        place = path.relative_to(ROOT / "src").as_posix()
        if path.suffix not in (".cpp", ".h") or place in SILENT_FILES or place.startswith(SILENT_FOLDERS):
            continue
        if place.startswith("data/") and path.name not in SILENT_DATA:
            continue
        fewest = 1 if path.name == "RunTimeError.cpp" else 2 if path.name == "UsbModule.cpp" else 3
        for literal in literals(path):
            for line in literal.split("\n"):
                text = squeeze(re.sub(r"&(?=\w)", "", line)).strip(' (",.:-')  # "&" marks the letter that a key reaches
                a_sentence = fewest == 1 or " " in text
                if a_sentence and not re.search(r"[/_{|%<>\\]|\w\.\w", text) and len(re.findall(r"[A-Za-z]{2,}", text)) >= fewest:
                    yield place, text


def control_rows():
    table = (ROOT / "src/app/parts/Controls.cpp").read_text()
    rows = re.findall(r'\{(\w+), "(\w+)", (\w+), "((?:[^"\\]|\\.)*)"', table)
    assert len(rows) > 60
    return [(name, caption.replace("&", "").strip()) for _, name, _, caption in rows]


class Help(unittest.TestCase):
    def test_every_link_leads_to_a_place(self):
        for name, page in PAGES.items():
            self.assertFalse(page.open, name)
            for link in page.links:
                self.check_link(name, link)

    def check_link(self, origin, link):
        target = urllib.parse.urldefrag(link)
        file = target.url or origin
        self.assertTrue((HELP / file).is_file(), f"{origin}: {link}")
        if target.fragment:
            self.assertIn(target.fragment, PAGES[file].places, f"{origin}: {link}")

    def test_every_picture_exists_and_is_used(self):
        used = {picture for page in PAGES.values() for picture in page.pictures}
        there = {f"images/{path.name}" for path in (HELP / "images").glob("*")}
        self.assertEqual(used, there)
        for picture in there:
            self.assertLess((HELP / picture).stat().st_size, 120_000, picture)

    def test_contents_and_index_lead_to_a_place(self):
        for name in ("LBGHelp.hhc", "LBGHelp.hhk"):
            for link in re.findall(r'name="Local" value="([^"]*)"', (HELP / name).read_text()):
                self.check_link(name, link)

    def test_every_page_has_a_title_and_is_reached_and_compiled(self):
        contents = (HELP / "LBGHelp.hhc").read_text()
        project = (HELP / "LBGHelp.hhp").read_text()
        for name, page in PAGES.items():
            self.assertTrue(page.title, name)
            self.assertIn(f'value="{name}"', contents)
            self.assertIn(f"\n{name}\n", project)

    def test_the_pages_of_the_windows_exist(self):
        in_code = set(re.findall(r'"(\w+\.html)"', (ROOT / "src/app/help/HelpPages.cpp").read_text()))
        self.assertGreater(len(in_code), 8)
        self.assertEqual(in_code - set(PAGES), set())

    def test_every_text_of_the_program_is_explained(self):
        missing = {(place, text) for place, text in shown_texts() if text not in SILENT and text not in WORDS}
        self.assertEqual(missing, set())

    def test_a_message_that_the_guide_forgot_is_found(self):
        texts = [text for _, text in shown_texts()]
        self.assertIn("LBG011 Less than 60 readings - plot aborted", texts)
        self.assertGreater(len(texts), 120)
        self.assertNotIn("LBG012 nobody has written this", WORDS)

    def test_every_code_has_a_place_to_which_F1_leads(self):
        codes = set(re.findall(r'"(LBG\d{3})\b', "".join(
            path.read_text() for path in (ROOT / "src").rglob("*.cpp")) + "".join(
            path.read_text() for path in (ROOT / "src").rglob("*.h"))))
        self.assertGreater(len(codes), 10)
        self.assertEqual(codes - PAGES["messages.html"].places, set())

    def test_every_control_is_described(self):
        places = PAGES["window.html"].places | PAGES["analysis.html"].places
        for name, caption in control_rows():
            with self.subTest(control=name):
                self.assertIn(name, places)
                self.assertIn(caption, WORDS)

    def test_the_examples_for_meter_programs_publish(self):
        """The shell example, run: the file is there with its last value, and says at the end that nobody publishes."""
        text = (HELP / "meterprogram.html").read_text()
        script = re.search(r"<pre>(folder=.*?)</pre>", text, re.S).group(1)
        script = script.replace("&amp;", "&").replace("&gt;", ">").replace("sleep 0.05", "cat $folder/*.conf; break")
        with tempfile.TemporaryDirectory() as home:
            said = subprocess.run(["bash", "-c", "read_my_meter() { echo -42.5; }\n" + script], text=True, check=True,
                                  capture_output=True, env={"XDG_CONFIG_HOME": home, "PATH": "/usr/bin:/bin"}).stdout
            self.assertEqual(said, "[Settings]\nActive=Y\nReading=-42.5\n")
            left = pathlib.Path(home, "lobegraph/GaugeBridge.conf").read_text()
            self.assertEqual(left, "[Settings]\nActive=N\nReading=0\n")


class Compiled(unittest.TestCase):
    guide = None

    def test_it_holds_every_page_and_picture(self):
        listing = subprocess.run(["chmls", "list", self.guide], capture_output=True, text=True, check=True).stdout
        for name in [*PAGES, "guide.css", *(f"images/{path.name}" for path in (HELP / "images").glob("*"))]:
            self.assertRegex(listing, rf"(?m) /{re.escape(name)}$")


if __name__ == "__main__":
    Compiled.guide = sys.argv.pop(1)
    unittest.main(verbosity=2)
