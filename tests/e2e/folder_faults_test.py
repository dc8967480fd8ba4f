"""Folders that are read-only or gone, a settings file that others rewrite all the time, twenty starts at once."""
import os
import shutil
import signal
import threading

import beam
import from_outside
import pattern_file
from from_outside import read_settings, wait_for

# Root may write everywhere; the program then runs without that right.
NO_MORE_THAN_ANYBODY = ["setpriv", "--bounding-set=-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class Folders(from_outside.FromOutside):
    def open_with_pattern(self):
        path = self.stage.home / "beam.lbg"
        pattern_file.write(path, beam.turn(0))
        program = self.open_window(*NO_MORE_THAN_ANYBODY, RotateTime=4)
        self.load(program, path)
        return program

    def make_read_only(self, folder):
        folder.chmod(0o555)
        self.addCleanup(folder.chmod, 0o755)

    def check_rescue(self, program):
        """What could not be saved there can be saved elsewhere."""
        rescued = self.stage.home / "rescued.lbg"
        self.save(program, rescued)
        wait_for("the rescued pattern", 10, rescued.exists)
        self.assertEqual(len(pattern_file.read(rescued)["Readings"]), 360)

    def test_a_read_only_folder_keeps_its_pattern(self):
        folder = self.stage.home / "patterns"
        folder.mkdir()
        target = folder / "kept.lbg"
        pattern_file.write(target, [50.0] * 60)
        before = target.read_bytes()
        self.make_read_only(folder)
        program = self.open_with_pattern()
        self.save(program, target)
        program.press("Yes", within=program.box("Lobegraph"))
        words = wait_for("the message", 10, lambda: "Error" in " ".join(program.words(program.box("Lobegraph"))) and
                         self.close_box(program))
        self.assertIn("Error 75 (Path/File access error)", words)
        self.assertEqual((target.read_bytes(), [path.name for path in folder.iterdir()]), (before, ["kept.lbg"]))
        self.check_rescue(program)
        self.leave(program)

    def test_a_folder_that_has_vanished_is_told(self):
        folder = self.stage.home / "patterns"
        folder.mkdir()
        program = self.open_with_pattern()
        self.save(program, folder / "first.lbg")
        wait_for("the pattern", 10, (folder / "first.lbg").exists)
        shutil.rmtree(folder)
        self.save(program, folder / "second.lbg")
        self.assertIn("Error 76 (Path not found)", self.close_box(program))
        self.assertEqual(program.text("File name"), "first.lbg")
        self.check_rescue(program)
        self.leave(program)

    def test_settings_that_cannot_be_kept_hold_nobody_up(self):
        program = self.open_window(*NO_MORE_THAN_ANYBODY, Scale=35)
        self.make_read_only(self.stage.settings.parent)
        before = self.stage.settings.read_bytes()
        program.slide("Scale of the log display", 50)
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.process.wait(10), 0)
        self.assertEqual(self.stage.settings.read_bytes(), before)

    def test_a_settings_folder_that_has_vanished_is_made_again(self):
        program = self.open_window(Scale=35)
        shutil.rmtree(self.stage.settings.parent)
        program.slide("Scale of the log display", 50)
        self.leave(program)
        self.assertEqual(read_settings(self.stage.settings)["Scale"], "50")

    def test_a_turn_that_cannot_be_copied_is_taken_all_the_same_and_asks_to_be_saved(self):
        self.turn_antenna("--antenna", "beam", "--seconds", 4)
        self.stage.turns.mkdir(parents=True)
        self.make_read_only(self.stage.turns)
        program = self.open_window(*NO_MORE_THAN_ANYBODY, RotateTime=4)
        self.start_collecting(program, 10)
        wait_for("the end of the turn", 30, lambda: program.enabled("Collect Data"))
        self.assertEqual(program.number("Number of readings"), 360)
        self.assertRegex(program.label("What to do next"), r"^Save File now: the safety copy failed \(.+\)\. ")
        self.check_rescue(program)
        self.leave(program)

    def test_a_safety_folder_that_vanishes_in_the_turn_is_made_again(self):
        self.turn_antenna("--antenna", "beam", "--seconds", 4)
        program = self.open_window(RotateTime=4)
        self.start_collecting(program, 40)
        shutil.rmtree(self.stage.turns)
        wait_for("the end of the turn", 30, lambda: program.enabled("Collect Data"))
        copies = wait_for("the copy", 10, lambda: self.stage.turns.exists() and self.kept_turns())
        self.assertEqual([len(pattern_file.read(copy)["Readings"]) for copy in copies], [360])
        self.leave(program)


class OthersWrite(from_outside.FromOutside):
    sound = False

    def test_a_store_rewritten_at_full_speed_stays_whole(self):
        """The other keeps what it reads, as the guide for meter programs asks, but takes no lock."""
        program = self.open_window(Scale=35, Other="0")
        done = threading.Event()
        writes = []
        writer = threading.Thread(target=self.rewrite, args=(self.stage.settings, done, writes))
        writer.start()
        try:
            program.slide("Scale of the log display", 50)
            program.tick("Auto Start")
            wait_for("the other's writes", 10, lambda: len(writes) > 20)
            program.process.send_signal(signal.SIGTERM)
            self.assertEqual(program.process.wait(10), 0)
        finally:
            done.set()
            writer.join()
        self.assertEqual([text for text in writes if not text.startswith("[Settings]\n") or not text.endswith("\n")], [])
        saved = read_settings(self.stage.settings)
        self.assertEqual(saved["Username"], "N0CALL")
        self.assertIn(saved["Scale"], ("35", "50"), "who takes no lock may undo a change; no value is torn")

    @staticmethod
    def rewrite(path, done, writes):
        number = 0
        while not done.is_set():
            number += 1
            text = path.read_text()
            writes.append(text)
            lines = [f"Other={number}" if line.startswith("Other=") else line for line in text.splitlines()]
            own = path.with_name("other.tmp")
            own.write_text("\n".join(lines) + "\n")
            own.rename(path)

    def test_twenty_starts_at_once(self):
        self.keep_settings(Scale=35, Other="mine")
        processes = [self.begin() for _ in range(20)]
        wait_for("twenty windows", 90, lambda: self.windows() >= 20, 0.5)
        self.assertEqual([process.poll() for process in processes], [None] * 20)
        for process in processes:
            process.send_signal(signal.SIGTERM)
        self.assertEqual([process.wait(60) for process in processes], [0] * 20)
        saved = read_settings(self.stage.settings)
        self.assertEqual((saved["Username"], saved["Other"], saved["Scale"]), ("N0CALL", "mine", "35"))
        names = sorted(path.name for path in self.stage.settings.parent.iterdir() if "lock" not in path.name)
        self.assertEqual(names, ["Lobegraph.conf"])

    def windows(self):
        tree = self.stage.output("xwininfo", "-root", "-tree")
        return sum('"Lobegraph V' in line for line in tree.splitlines())


if __name__ == "__main__":
    from_outside.main()
