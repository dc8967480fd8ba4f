"""The program under a Wayland compositor, and with PipeWire's sound server: a turn each. A part of "./test --long"."""
import beam
import from_outside
import outside
import pattern_file
from from_outside import wait_for

TURN_S = 9


class ModernDesktop(from_outside.FromOutside):
    def check_turn(self, program):
        """A whole turn of the beam, turned up and saved."""
        self.turn_antenna("--antenna", "beam", "--seconds", TURN_S)
        program.press("Collect Data")
        wait_for("the turn to begin", 15, lambda: not program.enabled("Collect Data"))
        wait_for("the end of the turn", 30, lambda: program.enabled("Collect Data"), 0.1)
        program.press("Rescale")
        wait_for("the figures", 10, lambda: program.number("Beamwidth in degrees") > 0)
        self.assertAlmostEqual(program.number("Beamwidth in degrees"), beam.beamwidth(beam.turn(0)), delta=6)
        path = self.stage.home / "turn.lbg"
        self.save(program, path)
        wait_for("the file", 10, path.exists)
        self.assertEqual(len(pattern_file.read(path)["Readings"]), 360)


class Wayland(ModernDesktop):
    @classmethod
    def setUpClass(cls):
        cls.stage = outside.Stage()
        cls.addClassCleanup(cls.stage.close)
        cls.stage.environment.pop("DISPLAY", None)
        # This compositor has no keyboard, from which Qt would take its input method.
        cls.stage.environment.update(QT_QPA_PLATFORM="wayland", WAYLAND_DISPLAY="lobegraph-0", QT_IM_MODULE="compose")
        cls.stage.start("weston", "--backend=headless-backend.so", "--socket=lobegraph-0", "--width=1280", "--height=1024",
                        "--idle-time=0", "--no-config")
        socket = cls.stage.folder / "runtime" / "lobegraph-0"
        wait_for("the compositor", 15, socket.exists)
        cls.stage.private_sound()

    @staticmethod
    def sizes(program):
        """Of the program's windows."""
        windows = [program.root.get_child_at_index(index) for index in range(program.root.get_child_count())]
        areas = [outside.Atspi.Component.get_extents(window, outside.Atspi.CoordType.WINDOW) for window in windows]
        return [(area.width, area.height) for area in areas]

    def test_a_turn_and_the_two_widths(self):
        program = self.open_window(RotateTime=TURN_S)
        self.check_turn(program)
        self.assertIn((758, 560), self.sizes(program))
        program.press("<-Shrink")
        wait_for("a shrunk window", 5, lambda: (501, 560) in self.sizes(program))
        program.press("Grow->")
        wait_for("a grown window", 5, lambda: (758, 560) in self.sizes(program))
        program.press("Choose Input")
        program.press("Cancel", within=program.box("Lobegraph - Choose Input"))
        self.leave(program)


class PipeWire(ModernDesktop):
    sound = False

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        stage = cls.stage
        stage.environment["PULSE_SERVER"] = f"unix:{stage.folder}/runtime/pulse/native"
        stage.start("pipewire")
        wait_for("PipeWire", 15, (stage.folder / "runtime" / "pipewire-0").exists)
        stage.start("wireplumber")
        stage.start("pipewire-pulse")
        wait_for("its Pulse server", 15, lambda: "PipeWire" in stage.output("pactl", "info"))
        stage.output("pactl", "load-module", "module-null-sink", "sink_name=rx", "rate=44100", "channels=2")
        wait_for("the sink", 15, lambda: "rx.monitor" in stage.output("pactl", "list", "short", "sources"))
        stage.output("pactl", "set-default-source", "rx.monitor")
        wait_for("the source", 15, lambda: "Default Source: rx.monitor" in stage.output("pactl", "info"))

    def test_a_turn(self):
        program = self.open_window(RotateTime=TURN_S)
        self.check_turn(program)
        self.leave(program)


if __name__ == "__main__":
    from_outside.main()
