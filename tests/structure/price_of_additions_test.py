"""The count of what an addition costs finds a file too many, a file too few and a table that is gone."""
import pathlib
import tempfile
import unittest

import price_of_additions as price

TABLE = "| meter | `Roska/ROSKA` | 14 | 2 | its pair |\n" + "".join(f"| k{i} | `none{i}` | 1 | 0 | - |\n" for i in range(4))


class Price(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name, text in (("docs/architecture.md", TABLE), ("src/a/Roska.h", "Roska"), ("cli/b.cpp", "ROSKA"), ("src/c.md", "Roska")):
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            (self.root / name).write_text(text)

    def found(self):
        return list(price.violations(self.root))

    def test_what_the_table_says_passes(self):
        self.assertEqual(self.found(), [])

    def test_a_file_more_and_a_file_less_are_found(self):
        (self.root / "src/Switch.cpp").write_text("case Roska:")
        self.assertIn("meter: 3 files know of Roska/ROSKA, the table says 2", self.found()[0])
        (self.root / "src/Switch.cpp").unlink()
        (self.root / "cli/b.cpp").write_text("")
        self.assertIn("meter: 1 files", self.found()[0])

    def test_a_table_that_is_gone_is_found(self):
        (self.root / "docs/architecture.md").write_text("nothing")
        self.assertEqual(len(self.found()), 1)


if __name__ == "__main__":
    unittest.main()
