"""Pictures of the window at every screen scale, for people to look at; their sizes are checked here."""
import subprocess

import beam
import from_outside
import pattern_file
from from_outside import wait_for

GROWN, SHRUNK, HEIGHT = 758, 501, 560


class Screenshots(from_outside.FromOutside):
    sound = False
    display = "1600x1200"

    def size_of_window(self):
        window = self.stage.output("xdotool", "search", "--onlyvisible", "--name", "^Lobegraph V").split()[-1]
        geometry = self.stage.output("xdotool", "getwindowgeometry", "--shell", window)
        values = dict(line.split("=") for line in geometry.splitlines() if "=" in line)
        return int(values["WIDTH"]), int(values["HEIGHT"])

    def take(self, name, expected):
        wait_for(f"a window of {expected}", 10, lambda: self.close_to(self.size_of_window(), expected))
        wait_for("its paint to settle", 10, lambda: self.settled(name))
        size = subprocess.run(["identify", "-format", "%w %h %k", from_outside.PICTURES / name],
                              capture_output=True, text=True, check=True).stdout
        width, height, colours = map(int, size.split())
        self.assertTrue(self.close_to((width, height), expected), (width, height))
        self.assertGreater(colours, 50, "something is drawn")

    @staticmethod
    def close_to(size, expected):
        """At 1.5 half a pixel is rounded, at times twice."""
        return all(abs(one - other) <= 1 for one, other in zip(size, expected))

    def settled(self, name):
        """Two pictures in a row are the same."""
        path = from_outside.PICTURES / name
        before = path.read_bytes() if path.exists() else b""
        self.stage.picture(path)
        return path.read_bytes() == before

    def test_every_shape_at_every_scale(self):
        from_outside.PICTURES.mkdir(parents=True, exist_ok=True)
        path = self.stage.home / "3-element beam.lbg"
        pattern_file.write(path, beam.turn(180), description="3-element beam, 10 m above the roof")
        for scale in (1, 1.5, 2):
            with self.subTest(scale=scale):
                self.stage.environment["QT_SCALE_FACTOR"] = str(scale)
                program = self.open_window()
                self.load(program, path)
                program.press("Rescale")
                wait_for("the beam to stand up", 10, lambda: program.text("Degrees rotated") == "180")
                self.take_all_shapes(program, scale)
                self.leave(program)

    def take_all_shapes(self, program, scale):
        grown, shrunk = ((round(width * scale), round(HEIGHT * scale)) for width in (GROWN, SHRUNK))
        self.take(f"polar grown at {scale}.png", grown)
        program.press("<-Shrink")
        self.take(f"polar shrunk at {scale}.png", shrunk)
        program.press("Grow->")
        program.press("Circ / Rect")
        self.take(f"rectangular grown at {scale}.png", grown)
        program.press("<-Shrink")
        self.take(f"rectangular shrunk at {scale}.png", shrunk)


if __name__ == "__main__":
    from_outside.main()
