"""Pictures of every window at every screen scale, on light and dark desktops, with narrow and wide faces, for people to look
at; what a machine can see of them is checked here."""
import subprocess
import time

import beam
import from_outside
import outside
import pattern_file
from from_outside import PROGRAMS, wait_for
from rotator import wait_for_published

GROWN, SHRUNK, HEIGHT = 758, 501, 560
SCREEN = (1600, 1200)
# Scale, dark, face
DESKTOPS = ((1, False, "Liberation Sans"), (1.25, True, "DejaVu Sans Mono"), (1.5, False, "DejaVu Sans"))
SHADES = {"Window": "35,38,41", "View": "27,30,32", "Button": "49,54,59", "Selection": "61,174,233", "Tooltip": "49,54,59"}
OTHER_WINDOWS = {"settings": "Lobegraph Settings", "chooser": "Lobegraph - Choose Input", "editor": "Lbg editor",
                 "meter": "Lobegraph - dB Meter"}


def desktop_settings(dark, face):
    """As a desktop keeps them for the programs of its user."""
    text = f"[General]\nfont={face},10,-1,5,50,0,0,0,0,0\nmenuFont={face},10,-1,5,50,0,0,0,0,0\n"
    if dark:
        for group, ground in SHADES.items():
            text += f"[Colors:{group}]\nBackgroundNormal={ground}\nBackgroundAlternate={ground}\nForegroundNormal=252,252,252\n"
    return text


class Screenshots(from_outside.FromOutside):
    sound = False
    display = "{}x{}".format(*SCREEN)

    def take(self, name, expected):
        wait_for(f"a window of {expected}", 10, lambda: self.close_to(self.window_size(), expected))
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
        if scale == 1:
            self.take_other_scales_of_the_plot(program, grown)
        program.press("<-Shrink")
        self.take(f"polar shrunk at {scale}.png", shrunk)
        program.press("Grow->")
        program.press("Circ / Rect")
        self.take(f"rectangular grown at {scale}.png", grown)
        program.press("<-Shrink")
        self.take(f"rectangular shrunk at {scale}.png", shrunk)

    def take_other_scales_of_the_plot(self, program, size):
        program.press("Lin / Log")
        self.take("linear dB grown.png", size)
        program.press("Lin / Log")
        program.tick("Plot in dB")
        self.take("not in dB grown.png", size)
        program.tick("Plot in dB")
        program.press("Rescale")

    def test_every_window_on_every_desktop(self):
        from_outside.PICTURES.mkdir(parents=True, exist_ok=True)
        meter = self.stage.start(PROGRAMS / "lobegraph-bench", "--as", "program", "--antenna", "beam", "--seconds", 30)
        self.addCleanup(outside.stop, meter)
        wait_for_published(self.stage)
        self.stage.environment.update(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")
        for scale, dark, face in DESKTOPS:
            with self.subTest(scale=scale, dark=dark, face=face):
                self.stage.environment["QT_SCALE_FACTOR"] = str(scale)
                (self.stage.home / ".config" / "kdeglobals").write_text(desktop_settings(dark, face))
                self.take_all_windows(f"{'dark' if dark else 'light'}, {face}, at {scale}", dark)

    def take_all_windows(self, desktop, dark):
        program = self.open_window(InputDeviceIsLineIn="False", InputDeviceIsdBMeter="True", GaugeBridge="True", StartupDelay="0",
                                   RotateTime="6", Commport="1")
        self.look(f"empty, {desktop}.png", "Lobegraph V", dark)
        self.start_collecting(program, 130)
        self.look(f"collecting, {desktop}.png", "Lobegraph V", dark)
        program.press("Halt Collection")
        wait_for("the end of the turn", 10, lambda: program.enabled("Collect Data"))
        program.tick("Show editor")
        self.look(f"editor, {desktop}.png", OTHER_WINDOWS["editor"], dark)
        self.activate("^Lobegraph V")
        self.keys("ctrl+comma")
        program.box(OTHER_WINDOWS["settings"])
        self.look(f"settings, {desktop}.png", OTHER_WINDOWS["settings"], dark)
        self.keys("Escape")
        self.choose_a_meter_that_is_not_there(program, f"chooser, {desktop}.png", dark)
        self.look(f"meter, {desktop}.png", OTHER_WINDOWS["meter"], dark)
        self.leave(program)

    def choose_a_meter_that_is_not_there(self, program, name, dark):
        program.press("Choose Input")
        box = program.box(OTHER_WINDOWS["chooser"])
        program.press("ROSKA Wattscan meter", "radio button", within=box)
        self.look(name, OTHER_WINDOWS["chooser"], dark)
        program.press("OK", within=box)
        program.box("Lobegraph")
        self.stage.picture(from_outside.PICTURES / name.replace("chooser", "message"), title=None)
        self.assertIn("COM Port not available", self.close_box(program))

    def look(self, name, title, dark):
        """The window is a part of the screen, something is drawn in it, and it follows the desktop's shade."""
        wait_for("the window", 10, lambda: f'"{title}' in self.stage.output("xwininfo", "-root", "-tree"))
        time.sleep(0.3)
        path = from_outside.PICTURES / name
        self.stage.picture(path, title)
        words = subprocess.run(["convert", str(path), "-format", "%w %h %k %[fx:p{w-4,h-4}.lightness]", "info:"],
                               capture_output=True, text=True, check=True).stdout.split()
        width, height, colours, lightness = map(float, words)
        self.assertLess(width, SCREEN[0], name)
        self.assertLess(height, SCREEN[1], name)
        self.assertGreater(colours, 20, name)
        self.assertEqual(lightness < 0.5, dark, name)


if __name__ == "__main__":
    from_outside.main()
