"""Triggers that fail a turn: a port that is not there, and one that is pulled out while a pulse is waited for."""
import os
import pty
import tty

import from_outside
import outside
from from_outside import PROGRAMS, wait_for
from rotator import METER, wait_for_published

HINT = "What to do next"


class FailingTriggers(from_outside.FromOutside):
    sound = False

    def open_triggered(self, **ports):
        """Paced by the trigger on COM2, its level from a program."""
        self.keep_settings(**METER, GaugeBridge="True", Commtrigger=2, Trigger=1)
        with open(self.stage.settings, "a", encoding="utf-8") as settings:
            settings.write("[Ports]\n" + "".join(f"{name}={path}\n" for name, path in ports.items()))
        bench = self.stage.start(PROGRAMS / "lobegraph-bench", "--as", "program", "--antenna", "omni", "--peak", 900)
        self.addCleanup(outside.stop, bench)
        wait_for_published(self.stage)
        return self.open_as_kept()

    def trigger(self, program, readings):
        """By hand, that many readings."""
        for reading in range(1, readings + 1):
            program.press("Manual Trigger")
            wait_for("the reading", 10, lambda: program.number("Current reading number") == reading, 0.02)

    def test_a_port_that_is_pulled_out_ends_the_turn_with_the_readings_so_far_and_a_message(self):
        master, slave = pty.openpty()
        tty.setraw(slave)
        program = self.open_triggered(COM2=os.ttyname(slave))
        program.press("Collect Data")
        wait_for("the turn to wait", 10, lambda: program.label(HINT) == "Waiting for the first trigger pulse.")
        self.trigger(program, 5)
        os.close(slave)
        os.close(master)
        self.assertIn("The trigger's port has gone.", self.close_box(program))
        self.assertTrue(program.enabled("Collect Data"))
        self.assertEqual(program.number("Number of readings"), 5)

        program.press("Collect Data")
        wait_for("the turn to wait", 10, lambda: program.label(HINT).startswith("The trigger's port is not open"))
        self.trigger(program, 2)
        program.press("Halt Collection")
        wait_for("the end of the turn", 10, lambda: program.enabled("Collect Data"))
        self.assertEqual(program.number("Number of readings"), 2)
        self.leave(program)


if __name__ == "__main__":
    from_outside.main()
