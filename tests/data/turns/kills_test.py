"""A turn is killed at each write of its files: pattern and log agree to the last whole reading, and both load.

A process that is killed completes what it writes within a page of the disk; in the middle of a write only a power cut ends one.
Then the pattern may be torn, but a reading stands in the log before the next one touches the pattern.

    kills_test.py TURN_WRITER LOBEGRAPH_CLI KILLER
"""
import csv
import json
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest

READINGS = 20
MOST = 500  # operations; there are far fewer


class Kills(unittest.TestCase):
    def test_before_each_operation(self):
        self.at_each_operation({})

    def test_in_the_middle_of_each_write(self):
        self.at_each_operation({"LOBEGRAPH_KILL_HALFWAY": "1"})

    def at_each_operation(self, wish):
        for number in range(1, MOST):
            with self.subTest(operation=number), tempfile.TemporaryDirectory() as folder:
                if self.survives(pathlib.Path(folder), number, wish):
                    break
        print(f"{number - 1} operations, {'halfway' if wish else 'before'}", flush=True)
        self.assertGreater(number, 2 * READINGS)

    def survives(self, folder, number, wish):
        """The program came to its end: it had no such operation."""
        environment = {"LD_PRELOAD": KILLER, "LOBEGRAPH_KILL_IN": str(folder), "LOBEGRAPH_KILL_FROM": str(folder),
                       "LOBEGRAPH_KILL_AT": str(number)} | wish
        done = subprocess.run([TURN_WRITER, folder, str(READINGS)], env=environment, capture_output=True, text=True, timeout=20)
        self.assertIn(done.returncode, (0, -signal.SIGKILL))
        self.check_what_is_left(folder, len(done.stdout.split()), bool(wish))
        return done.returncode == 0

    def check_a_torn_pattern(self, pattern, whole, halfway):
        self.assertTrue(halfway or whole == 0, "only the first reading may be unreadable")
        if whole == 0:
            return
        with open(pattern.with_suffix(".turn.csv"), encoding="utf-8") as file:
            rows = list(csv.DictReader(line for line in file if not line.startswith("#")))
        self.assertEqual([row["reading"] for row in rows], [str(number + 1) for number in range(whole)])

    def check_what_is_left(self, folder, in_hand, halfway):
        patterns = sorted(folder.glob("*.lbg"))
        whole = in_hand - 1  # the reading in hand may be there or not
        if not patterns:
            return self.assertLessEqual(whole, 0)
        taken, turn = self.pattern(patterns[0]), self.turn(patterns[0])
        if taken is None:
            return self.check_a_torn_pattern(patterns[0], whole, halfway)
        self.assertIn(len(taken), (whole, in_hand))
        if turn is None:
            return self.assertLessEqual(whole, 0, "the log is there from the first whole reading on")
        levels = [reading["level"] for reading in turn["readings"]]
        self.assertIn(len(levels), (whole, in_hand))
        both = min(len(levels), len(taken))
        self.assertEqual(levels[:both], taken[:both])

    def report(self, *arguments):
        done = subprocess.run([CLI, "report", "--json", *arguments], capture_output=True, text=True, timeout=20)
        return json.loads(done.stdout) if done.stdout else None

    def pattern(self, path):
        """Its levels; None for one that cannot be read."""
        report = self.report("--calibrate", "--readings", path)
        return None if report["error"] else report["Readings"][:report["NumReadings"] + 1]

    def turn(self, path):
        report = self.report("--turn", path)
        return report and report["turn"]


if __name__ == "__main__":
    TURN_WRITER, CLI, KILLER = sys.argv[1:4]
    unittest.main(argv=sys.argv[:1])
