"""Pattern files through the real dialogs: round trip, overwriting, a full disk, a decimal comma."""
import os
import resource
import signal
import subprocess

import beam
import from_outside
import pattern_file
from from_outside import wait_for


def seen(path):
    return path.read_bytes(), path.stat().st_ino


class Files(from_outside.FromOutside):
    sound = False

    def beam_file(self, name="beam.lbg", **fields):
        path = self.stage.home / name
        pattern_file.write(path, beam.turn(0), **fields)
        return path

    def test_what_is_saved_loads_as_it_was(self):
        path = self.beam_file(description="Zähler, 3 Elemente")
        program = self.open_window()
        self.load(program, path)
        self.assertEqual(program.text("Description of the pattern"), "Zähler, 3 Elemente")
        self.assertEqual(program.label("Collected by whom"), "K1AB")
        self.assertAlmostEqual(program.number("Beamwidth in degrees"), beam.beamwidth(beam.turn(0)), delta=0.01)
        program.press("Smooth")
        program.press("Original")
        self.save(program, self.stage.home / "copy")  # typed without its ending
        copy = self.stage.home / "copy.lbg"
        wait_for("the file", 10, copy.exists)
        first, second = pattern_file.read(path), pattern_file.read(copy)
        for field in ("Readings", "Description", "CollectedBy", "CollectedDate", "Elements", "Polarization", "Plot180"):
            self.assertEqual(first[field], second[field], field)
        self.assertTrue(copy.read_bytes().endswith(b'"Not 180 plot"\r\n'))
        self.leave(program)

    def test_a_name_typed_without_its_ending_opens(self):
        self.beam_file()
        program = self.open_window()
        program.press("Get File")
        program.answer_file("Get File", self.stage.home / "beam")
        wait_for("the pattern", 10, lambda: program.text("File name") == "beam.lbg")
        self.leave(program)

    def test_a_file_that_is_not_there_is_told_and_costs_nothing(self):
        program = self.open_window()
        self.load(program, self.beam_file())
        program.press("Get File")
        program.answer_file("Get File", self.stage.home / "nowhere.lbg")
        self.assertIn("Error 53 (File not found)", self.close_box(program))
        self.assertEqual((program.text("File name"), program.number("Number of readings")), ("beam.lbg", 360))
        self.leave(program)

    def test_an_existing_file_is_replaced_only_after_yes(self):
        path = self.beam_file()
        old = self.beam_file("Old.lbg", description="Keep me")
        before = seen(old)
        program = self.open_window()
        self.load(program, path)
        self.save(program, old)
        box = program.box("Lobegraph")
        self.assertIn("LBG004 Filename OLD.LBG already exists\nDo you wish to replace it?", program.words(box))
        program.press("No", within=box)
        wait_for("the box to close", 10, lambda: program.open_box("Lobegraph") is None)
        self.assertEqual(seen(old), before)
        self.assertEqual(program.text("File name"), "beam.lbg")
        self.save(program, old)
        program.press("Yes", within=program.box("Lobegraph"))
        wait_for("the new file", 10, lambda: seen(old) != before)
        self.assertEqual(pattern_file.read(old)["Description"], "Bench")
        wait_for("its name", 10, lambda: program.text("File name") == "Old.lbg")
        self.leave(program)

    def test_a_disk_that_fills_up_keeps_the_old_file(self):
        small, options = self.small_disk()
        path = self.beam_file()
        target = small / "kept.lbg"
        pattern_file.write(target, [50.0] * 60, description="Keep me")
        before = seen(target)
        self.fill(small)
        program = self.open_window(options=options)
        self.load(program, path)
        self.save(program, target)
        program.press("Yes", within=program.box("Lobegraph"))
        words = wait_for("the message", 10, lambda: "Error" in " ".join(program.words(program.box("Lobegraph"))) and
                         self.close_box(program))
        self.assertIn("Error 61 (Disk full)", words)
        self.assertEqual(seen(target), before)
        self.assertEqual(sorted(entry.name for entry in small.iterdir() if entry.name != "filler"), ["kept.lbg"])
        self.assertEqual(program.text("File name"), "beam.lbg")
        elsewhere = self.stage.home / "rescued.lbg"
        if not options:
            self.save(program, elsewhere)
            wait_for("the rescued pattern", 10, elsewhere.exists)
        self.leave(program)

    def small_disk(self):
        """A folder on which a pattern finds no room, and how to start the program for that."""
        small = self.stage.home / "small"
        small.mkdir()
        mounted = os.geteuid() == 0 and subprocess.run(
            ["mount", "-t", "tmpfs", "-o", "size=32k", "tmpfs", str(small)], capture_output=True).returncode == 0
        if mounted:
            self.addCleanup(subprocess.run, ["umount", "--lazy", str(small)], check=True)
            return small, {}

        def no_file_above_a_kilobyte():
            resource.setrlimit(resource.RLIMIT_FSIZE, (1024, resource.RLIM_INFINITY))
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)

        return small, {"preexec_fn": no_file_above_a_kilobyte, "restore_signals": False}

    @staticmethod
    def fill(folder):
        if not os.path.ismount(folder):
            return
        with open(folder / "filler", "wb", buffering=0) as filler:
            try:
                while filler.write(b"x" * 4096):
                    pass
            except OSError:
                pass


class DecimalComma(from_outside.FromOutside):
    """German, the way a desktop says it; the pattern file and the settings know only the point."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        locales = os.environ.get("LOCPATH") or str(cls.stage.folder / "locales")
        if not os.path.isdir(f"{locales}/de_DE.UTF-8"):
            os.makedirs(locales, exist_ok=True)
            subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", f"{locales}/de_DE.UTF-8"], check=True)
        cls.stage.environment.update(LOCPATH=locales, LC_ALL="de_DE.UTF-8")

    def test_level_has_a_comma_and_the_files_have_points(self):
        formatted = subprocess.run(["printf", "%.1f", "0"], env=self.stage.environment, capture_output=True, text=True)
        self.assertEqual(formatted.stdout, "0,0", "the locale is there")
        program = self.open_window(RotateTime=4, StartupDelay="0.1")
        self.turn_antenna("--antenna", "omni", "--seconds", 4, "--noise", 0.3)
        self.start_collecting(program, 20)
        wait_for("a level with a comma", 10, lambda: "," in program.text("Input level"), 0.01)
        wait_for("the end of the turn", 20, lambda: program.enabled("Collect Data"))
        path = self.stage.home / "comma.lbg"
        self.save(program, path)
        wait_for("the file", 10, path.exists)
        stored = pattern_file.read(path)
        self.assertEqual(len(stored["Readings"]), 360)
        self.assertTrue(any(level != int(level) for level in stored["Readings"]))
        self.load(program, path)
        self.assertEqual(program.number("Number of readings"), 360)
        self.leave(program)
        settings = from_outside.read_settings(self.stage.settings)
        self.assertEqual((settings["RotateTime"], settings["StartupDelay"]), ("4", "0.1"))


if __name__ == "__main__":
    from_outside.main()
