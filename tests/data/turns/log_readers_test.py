"""Other programs open the log of a turn: pandas, and LibreOffice's spreadsheet.

    log_readers_test.py TURN_WRITER
"""
import csv
import pathlib
import subprocess
import sys
import tempfile
import unittest

import pandas

READINGS = 20
COLUMNS = ["reading", "time", "level", "samples", "flags"]


class Readers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        subprocess.run([TURN_WRITER, cls.folder, str(READINGS)], check=True, capture_output=True, timeout=20)
        cls.log, = cls.folder.glob("*.turn.csv")

    def test_pandas(self):
        table = pandas.read_csv(self.log, comment="#")
        self.assertEqual(list(table.columns), COLUMNS)
        self.assertEqual(list(table.reading), list(range(1, READINGS + 1)))
        self.assertEqual(table.level[0], 900)
        self.assertEqual(list(table.samples), [5] * READINGS)
        times = pandas.to_datetime(table.time)
        self.assertIsNotNone(times[0].tzinfo)
        self.assertTrue(times.is_monotonic_increasing)

    def test_libreoffice(self):
        out = self.folder / "out"
        subprocess.run(["soffice", f"-env:UserInstallation=file://{self.folder}/profile", "--headless", "--convert-to",
                        "csv:Text - txt - csv (StarCalc):44,34,76", "--infilter=CSV:44,34,76", "--outdir", out, self.log],
                       check=True, capture_output=True, timeout=120)
        with open(out / self.log.name.replace(".turn.csv", ".turn.csv"), encoding="utf-8") as file:
            rows = list(csv.reader(file))
        self.assertEqual(rows[0][0], "# turn log: 1")
        heading = rows.index(COLUMNS)
        self.assertEqual([row[0] for row in rows[heading + 1:]], [str(number) for number in range(1, READINGS + 1)])
        self.assertEqual([row[3] for row in rows[heading + 1:]], ["5"] * READINGS)
        self.assertEqual(float(rows[heading + 1][2]), 900)


if __name__ == "__main__":
    TURN_WRITER, = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
