"""The log of a turn that the real program takes: beside its safety copy, beside what is saved, after a kill."""
import json
import signal
import subprocess

import from_outside
import outside
from from_outside import PROGRAMS, wait_for


class TheLogOfATurn(from_outside.FromOutside):
    def turn_of(self, pattern):
        """What the log beside a pattern says; None without one that is the pattern's own."""
        done = subprocess.run([PROGRAMS / "lobegraph-cli", "report", "--turn", "--json", pattern], capture_output=True, text=True,
                              timeout=20)
        return json.loads(done.stdout)["turn"]

    def begin_turn(self, seconds, readings):
        program = self.open_window(RotateTime=seconds)
        self.turn_antenna("--antenna", "beam", "--seconds", seconds)
        self.start_collecting(program, readings)
        return program

    def test_a_whole_turn_is_told_and_goes_with_what_is_saved(self):
        program = self.begin_turn(4, 10)
        wait_for("the end of the turn", 30, lambda: program.enabled("Collect Data"), 0.1)
        kept = self.turn_of(self.kept_turns()[0])
        keys = kept["keys"]
        self.assertEqual((keys["ended"], keys["planned readings"], keys["taken readings"], keys["rotation time"], keys["operator"]),
                         ("whole", "360", "360", "4", "N0CALL"))
        self.assertEqual(keys["source"], program.label("Input source"))
        times = [reading["time"] for reading in kept["readings"]]
        self.assertEqual((len(times), times), (360, sorted(times)))
        program.press("Smooth")
        path = self.stage.home / "beam.lbg"
        self.save(program, path)
        wait_for("the file", 10, path.exists)
        saved = self.turn_of(path)
        self.assertEqual(saved["changes"], "smoothed")
        self.assertEqual(saved["readings"], kept["readings"])
        self.leave(program)

    def test_a_program_that_is_ended_in_the_turn_says_closed(self):
        program = self.begin_turn(20, 20)
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.process.wait(10), 0)
        turn = self.turn_of(self.kept_turns()[0])
        self.assertEqual(turn["keys"]["ended"], "closed")
        self.assertGreaterEqual(len(turn["readings"]), 20)
        self.assertEqual(turn["keys"]["taken readings"], str(len(turn["readings"])))

    def test_after_a_kill_the_log_of_what_is_there_is_believed_and_saved_where_patterns_are(self):
        program = self.begin_turn(20, 80)
        program.process.kill()
        program.process.wait()
        kept = self.kept_turns()[0]
        turn = self.turn_of(kept)
        self.assertEqual(turn["keys"]["ended"], "killed")
        self.assertGreaterEqual(len(turn["readings"]), 80)
        program = outside.Program(self.begin())
        self.load(program, kept)
        self.save(program, "rescued.lbg")  # no folder: the dialog's own counts
        rescued = self.stage.home / "rescued.lbg"
        wait_for("the file beside the user's own", 10, rescued.exists)
        self.assertEqual(self.turn_of(rescued)["keys"]["ended"], "killed")
        self.leave(program)


if __name__ == "__main__":
    from_outside.main()
