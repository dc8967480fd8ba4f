"""What the installed program needs on a desktop: valid, complete, and in its place.

usage: packaging_test.py BUILD_FOLDER
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"
PROGRAMS = ("lobegraph", "lobegraph-cli", "lobegraph-meter", "lobegraph-bench")
BUILD = pathlib.Path(".")


def run(*command):
    return subprocess.run([str(part) for part in command], capture_output=True, text=True, check=True).stdout


def options_of(program, *verb):
    return set(re.findall(r"--[a-z][a-z0-9-]+", run(BUILD / "bin" / program, *verb, "--help").split("Examples:")[0]))


class Packaging(unittest.TestCase):
    def test_the_desktop_entry_is_valid(self):
        run("desktop-file-validate", PACKAGING / "desktop/lobegraph.desktop")

    def test_the_description_for_software_centres_is_valid(self):
        run("appstreamcli", "validate", "--no-net", PACKAGING / "desktop/lobegraph.metainfo.xml")

    def test_versions_agree(self):
        version = re.search(r"project\(Lobegraph VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text()).group(1)
        self.assertIn(f'<release version="{version}"', (PACKAGING / "desktop/lobegraph.metainfo.xml").read_text())
        self.assertTrue((PACKAGING / "debian/changelog").read_text().startswith(f"lobegraph ({version})"))

    def test_the_file_type_names_its_icon(self):
        name = {"mime": "http://www.freedesktop.org/standards/shared-mime-info"}
        type_ = xml.etree.ElementTree.parse(PACKAGING / "mime/lobegraph.xml").find("mime:mime-type", name)
        self.assertEqual(type_.find("mime:glob", name).get("pattern"), "*.lbg")
        self.assertEqual(type_.get("type").replace("/", "-"), type_.find("mime:icon", name).get("name"))
        self.assertTrue((PACKAGING / "icons" / (type_.find("mime:icon", name).get("name") + ".svg")).is_file())

    def test_icons_show_something_at_every_size(self):
        for icon in (PACKAGING / "icons").glob("*.svg"):
            for size in (16, 48, 256):
                with self.subTest(icon=icon.name, size=size), tempfile.TemporaryDirectory() as folder:
                    picture = pathlib.Path(folder, "icon.png")
                    run("rsvg-convert", "-w", size, "-h", size, icon, "-o", picture)
                    width, colours = run("identify", "-format", "%w %k", picture).split()
                    self.assertEqual(int(width), size)
                    self.assertGreater(int(colours), 20)

    def test_every_program_has_a_manual_page_with_all_its_options(self):
        for program in PROGRAMS:
            page = (PACKAGING / f"man/{program}.1").read_text().replace("\\-", "-")
            self.assertTrue(page.startswith(f".TH {program.upper()} 1"), program)
            if program in ("lobegraph-meter", "lobegraph-bench"):
                for option in options_of(program):
                    self.assertIn(option, page, program)

    def test_manual_pages_are_clean(self):
        for page in (PACKAGING / "man").glob("*.1"):
            done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", str(page)],
                                  capture_output=True, text=True, check=True)
            self.assertEqual(done.stderr, "", page.name)

    def test_everything_is_installed_in_its_place(self):
        with tempfile.TemporaryDirectory() as folder:
            run("cmake", "--install", BUILD, "--prefix", folder)
            place = pathlib.Path(folder)
            there = {path.relative_to(place).as_posix() for path in place.rglob("*") if not path.is_dir()}
            expected = {f"bin/{program}" for program in PROGRAMS}
            expected |= {f"share/man/man1/{program}.1.gz" for program in PROGRAMS}
            expected |= {
                "lib/lobegraph/lobegraph", "lib/lobegraph/lobegraph-rotator", "lib/lobegraph/LBGHelp.chm", "lib/udev/rules.d/60-lobegraph.rules",
                "share/applications/lobegraph.desktop", "share/metainfo/lobegraph.metainfo.xml",
                "share/mime/packages/lobegraph.xml", "share/icons/hicolor/scalable/apps/lobegraph.svg",
                "share/icons/hicolor/scalable/mimetypes/application-x-lobegraph-pattern.svg",
                "share/bash-completion/completions/lobegraph-cli", "share/doc/lobegraph/copyright",
                "share/doc/lobegraph/changelog.gz"}
            self.assertEqual(there, expected)
            self.assertEqual((place / "bin/lobegraph").resolve(), (place / "lib/lobegraph/lobegraph").resolve())


if __name__ == "__main__":
    BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
