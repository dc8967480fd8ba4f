"""The demo as `./run demo` starts it: what it leaves, and how it tells that it failed."""
import pathlib
import re
import subprocess
import tempfile
import time
import unittest

import from_outside
import pattern_file

DEMO = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "demo.py"


class Demo(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="lobegraph-demo-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_demo(self, programs):
        started = time.monotonic()
        done = subprocess.run(["dbus-run-session", "--", "/usr/bin/python3", DEMO, programs, self.folder / "demo"],
                              capture_output=True, text=True, timeout=100)
        self.assertLess(time.monotonic() - started, 90)
        return done

    def test_it_leaves_the_pattern_a_picture_and_the_figures_beside_the_true_ones(self):
        done = self.run_demo(from_outside.PROGRAMS)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        left = self.folder / "demo"
        figures = (left / "figures.txt").read_text()
        self.assertIn(figures, done.stdout)
        for figure, off in (("Beamwidth", 1.5), ("Gain", 0.5)):
            measured, true = map(float, re.search(figure + r"\s+([\d.]+)\s+([\d.]+)", figures).groups())
            self.assertLessEqual(abs(measured - true), off, figures)
        pattern = pattern_file.read(left / "demo.lbg")
        self.assertEqual((len(pattern["Readings"]), pattern["Description"]), (360, "Demo: 3-element beam"))
        self.assertEqual(pattern["CollectedBy"], "N0CALL")
        self.assertEqual((left / "demo.png").read_bytes()[:4], b"\x89PNG")

    def test_a_failure_is_told_and_is_no_success(self):
        programs = self.folder / "programs"
        programs.mkdir()
        (programs / "lobegraph").symlink_to(from_outside.PROGRAMS / "lobegraph")
        bench = programs / "lobegraph-bench"
        bench.write_text("#!/bin/sh\necho No sink today. >&2\nexit 3\n")
        bench.chmod(0o755)
        done = self.run_demo(programs)
        self.assertEqual(done.returncode, 1)
        self.assertIn("The demo has failed: lobegraph-bench has ended: No sink today.", done.stderr)
        self.assertNotIn("Traceback", done.stderr)


if __name__ == "__main__":
    from_outside.main()
