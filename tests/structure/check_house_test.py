"""The check of rooms and files itself: each broken promise is found, a kept one is not."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import check_house


class House(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.crowded = check_house.CROWDED
        check_house.CROWDED = {}
        self.addCleanup(setattr, check_house, "CROWDED", self.crowded)

    def write(self, name, text=""):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def fill(self, folder, count):
        for number in range(count):
            self.write(f"{folder}/File{number}.h")

    def found(self):
        return list(check_house.violations(self.root))

    def test_thirty_files_are_a_full_room_and_one_more_is_too_many(self):
        self.fill("src/data/base", 30)
        self.write("src/data/base/README.md")
        self.assertEqual(self.found(), [])
        self.write("src/data/base/More.cpp")
        self.assertEqual(self.found(), ["src/data/base: 31 files, a full room has 30"])

    def test_tests_have_rooms_as_well(self):
        self.fill("tests/cli", 31)
        self.assertEqual(self.found(), ["tests/cli: 31 files, a full room has 30"])

    def test_an_exception_holds_as_long_as_it_is_needed(self):
        check_house.CROWDED = {"cli": "for now"}
        self.fill("cli", 31)
        self.assertEqual(self.found(), [])
        (self.root / "cli/File0.h").unlink()
        self.assertEqual(self.found(), ["cli: 30 files are no crowd; take the exception away"])

    def test_a_file_of_more_than_300_lines(self):
        self.write("src/data/base/A.cpp", "\n" * 300)
        self.assertEqual(self.found(), [])
        self.write("bench/B.cpp", "\n" * 301)
        self.assertEqual(self.found(), ["bench/B.cpp: 301 lines, a file has at most 300"])

    def test_files_that_include_each_other(self):
        self.write("src/data/base/A.h", '#include "data/record/B.h"\n')
        self.write("src/data/record/B.h", '#include "data/record/C.h"\n')
        self.write("src/data/record/C.h", "")
        self.assertEqual(self.found(), [])
        self.write("src/data/record/C.h", '#include "data/base/A.h"\n')
        self.assertEqual(self.found(), ["a circle of files: data/base/A.h, data/record/B.h, data/record/C.h"])

    def test_functions_of_interfaces_are_counted(self):
        self.write("src/data/base/A.h", "virtual int One() const = 0;\nvirtual void Two(int a,\n  int b) = 0;\nint x = 0;\n")
        self.write("bench/B.cpp", "virtual ~B() = default;\nvirtual void Three() { x = 0; }\n")
        self.assertEqual(list(check_house.interface_functions(self.root)), [("src/data/base/A.h", 2)])
        self.assertEqual(list(check_house.too_many_interface_functions(self.root, 3)), [])
        self.assertEqual(len(list(check_house.too_many_interface_functions(self.root, 2))), 1)


if __name__ == "__main__":
    unittest.main()
