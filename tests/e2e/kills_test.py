"""The program is killed at each write, sync and rename: what was on the disk is there whole, or what was to come is.

The short form takes every second operation of a save and every sixth of the settings; LOBEGRAPH_LONG=1 takes all, and
the middle of each write besides.
"""
import itertools
import os
import signal

import beam
import from_outside
import outside
import pattern_file
from from_outside import read_settings, wait_for

KILLER = os.environ["LOBEGRAPH_KILLER"]
LONG = os.environ.get("LOBEGRAPH_LONG") == "1"
OLD, NEW = [50.0] * 60, beam.turn(0)
MOST = 200  # operations; there are far fewer


class Kills(from_outside.FromOutside):
    sound = False

    def killer(self, folder, number, halfway):
        """How to start a program that is killed at that operation below the folder, once self.armed exists."""
        self.armed = self.stage.home / "armed"
        wish = ["env", f"LD_PRELOAD={KILLER}", f"LOBEGRAPH_KILL_IN={folder}", f"LOBEGRAPH_KILL_FROM={self.armed}",
                f"LOBEGRAPH_KILL_AT={number}"]
        return wish + ["LOBEGRAPH_KILL_HALFWAY=1"] if halfway else wish

    def survived(self, process):
        """The program came through: it had no such operation."""
        code = process.wait(20)
        self.assertIn(code, (0, -signal.SIGKILL))
        return code == 0

    def at_each_operation(self, every, act):
        """act(number, halfway) until it says that there was no such operation; returns how many there were."""
        for halfway in (False, True) if LONG else (False,):
            for number in itertools.count(1, 1 if LONG else every):
                self.assertLess(number, MOST)
                with self.subTest(operation=number, halfway=halfway):
                    self.stage.new_home()
                    self.log = self.stage.home / "program.log"
                    survived = act(number, halfway)
                if survived:
                    break
            print(f"operations: fewer than {number + 1}, {'halfway' if halfway else 'before'}", flush=True)
            self.assertGreater(number, 1)

    def test_a_save_leaves_the_old_pattern_or_the_new_one(self):
        self.at_each_operation(2, self.kill_a_save)

    def kill_a_save(self, number, halfway):
        folder = self.stage.home / "patterns"
        folder.mkdir()
        source, target = self.stage.home / "source.lbg", folder / "target.lbg"
        pattern_file.write(source, NEW)
        pattern_file.write(target, OLD, description="Keep me")
        program = self.open_window(*self.killer(folder, number, halfway))
        self.load(program, source)
        self.armed.touch()
        try:
            self.save(program, target)
            program.press("Yes", within=program.box("Lobegraph"))
            wait_for("the new name", 10, lambda: program.process.poll() is not None or
                     program.text("File name") == "target.lbg")
            if program.process.poll() is None:
                program.process.send_signal(signal.SIGTERM)
        except (TimeoutError, outside.GLib.Error):
            self.assertIsNotNone(program.process.poll(), "it is gone")
        survived = self.survived(program.process)
        readings = len(pattern_file.read(target)["Readings"])
        self.assertIn(readings, (360,) if survived else (len(OLD), 360))
        return survived

    def test_the_settings_are_each_as_they_were_or_as_they_shall_be(self):
        self.at_each_operation(6, self.kill_at_the_settings)

    def kill_at_the_settings(self, number, halfway):
        old, new = {"Scale": "35", "RotateTime": "60", "AutoStop": "1"}, {"Scale": "50", "RotateTime": "90", "AutoStop": "0"}
        program = self.open_window(*self.killer(self.stage.settings.parent, number, halfway), Other="mine", **old)
        program.slide("Scale of the log display", 50)
        program.slide("Rotation time in seconds", 90)
        program.tick("Auto Stop")
        wait_for("the ticks", 10, lambda: not program.ticked("Auto Stop"))
        self.armed.touch()
        program.process.send_signal(signal.SIGTERM)
        survived = self.survived(program.process)
        text = self.stage.settings.read_text()
        self.assertTrue(text.startswith("[Settings]\nUsername=N0CALL\nOther=mine\n") and text.endswith("\n"), text)
        saved = read_settings(self.stage.settings)
        for key, value in old.items():
            self.assertIn(saved[key], (new[key],) if survived else (value, new[key]), key)
        self.assertEqual(self.next_start()["Username"], "N0CALL")
        return survived

    def next_start(self):
        """No lock of the killed program holds up the next one."""
        process = self.begin()
        wait_for("the window", 15, lambda: "Lobegraph V" in self.stage.output("xwininfo", "-root", "-tree"))
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(10), 0)
        return read_settings(self.stage.settings)


if __name__ == "__main__":
    from_outside.main()
