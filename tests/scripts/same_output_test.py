"""What same_output.py sees between two builds, tried with scripts that stand for the program."""
import contextlib
import io
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import generated_patterns  # noqa: E402
import same_output  # noqa: E402

SAYS_NAMES = '''#!/bin/sh
for name; do case "$name" in patterns/*) echo "$name 12.5" ;; esac; done
'''


class SameOutput(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.names = generated_patterns.write_all(self.folder / "patterns", 30)

    def build(self, name, script):
        programs = self.folder / f"programs {name}"
        programs.mkdir()
        (programs / "lobegraph-cli").write_text(script)
        (programs / "lobegraph-cli").chmod(0o755)
        return same_output.Build(programs, self.folder / name, self.folder / "patterns")

    def compare(self, new_script, mends=()):
        """What differs, and what was printed."""
        builds = [self.build("old", SAYS_NAMES), self.build("new", new_script)]
        differences = same_output.Differences()
        differences.mends = list(mends)
        command = same_output.Command("report", [["report", *(f"patterns/{name}" for name in self.names)]])
        with contextlib.redirect_stdout(io.StringIO()) as printed:
            differences.compare(command.title, *(build.run(command) for build in builds))
            differences.summary()
        return sum(differences.seen.values()), printed.getvalue()

    def test_the_same_program_says_the_same(self):
        self.assertEqual(self.compare(SAYS_NAMES)[0], 0)

    def test_one_byte_in_one_line_is_seen_and_named(self):
        count, printed = self.compare(SAYS_NAMES.replace(
            'echo "$name 12.5"', 'echo "$name 12.5" | sed "/p003/s/12.5/12.6/"'))
        self.assertEqual(count, 1)
        self.assertIn("DIFFERS report: output  p003.az line 1", printed)

    def test_exit_code_errors_and_files_count(self):
        self.assertEqual(self.compare(SAYS_NAMES + "exit 1\n")[0], 1)
        self.assertEqual(self.compare_again(SAYS_NAMES + "echo oh >&2\n"), 1)
        self.assertEqual(self.compare_again(SAYS_NAMES + "echo more >out/more.svg\n"), 1)

    def compare_again(self, script):
        self.setUp()
        return self.compare(script)[0]

    def test_a_missing_line_differs_alone(self):
        self.assertEqual(self.compare(SAYS_NAMES.replace("patterns/*)", "patterns/p003*) ;; patterns/*)"))[0], 1)

    def test_what_is_meant_is_counted_and_told_with_its_reason(self):
        count, printed = self.compare(SAYS_NAMES + "exit 1\n", [("report: exit code*", "refusals are failures")])
        self.assertEqual(count, 0)
        self.assertIn("meant, 1 times: report: exit code*: refusals are failures", printed)

    def test_each_line_of_the_mends_has_a_reason(self):
        for mend in same_output.Differences().mends:
            self.assertEqual(len(mend), 2, mend)
            self.assertTrue(all(mend), mend)


class Patterns(unittest.TestCase):
    def test_the_same_ones_each_time_and_of_every_format(self):
        with tempfile.TemporaryDirectory() as folder:
            first, second = pathlib.Path(folder, "1"), pathlib.Path(folder, "2")
            names = generated_patterns.write_all(first, 40)
            self.assertEqual(generated_patterns.write_all(second, 40), names)
            for name in names:
                self.assertEqual((first / name).read_bytes(), (second / name).read_bytes(), name)
            self.assertEqual({"".join(pathlib.Path(name).suffixes) for name in names},
                             {ending for ending, _ in generated_patterns.WRITERS})


if __name__ == "__main__":
    unittest.main()
