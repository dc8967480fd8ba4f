"""F1 in the windows of the real program, on a desktop without a viewer for the compiled guide."""
import from_outside
from from_outside import wait_for


class Help(from_outside.FromOutside):
    sound = False

    def setUp(self):
        super().setUp()
        folder = self.stage.home / "bin"
        folder.mkdir()
        (folder / "xdg-mime").write_text("#!/bin/sh\n")
        (folder / "xdg-mime").chmod(0o755)
        path = self.stage.environment["PATH"]
        self.addCleanup(self.stage.environment.__setitem__, "PATH", path)
        self.stage.environment["PATH"] = f"{folder}:{path}"

    def page(self, title):
        """Presses F1 where the focus is; the guide comes up with that page. It is closed with Escape."""
        self.stage.output("xdotool", "key", "F1")
        name = f"^{title} - Lobegraph Help$"
        window = wait_for(f"the page {title}", 10, lambda: self.stage.output(
            "xdotool", "search", "--onlyvisible", "--name", name).split())[-1]
        self.stage.output("xdotool", "windowactivate", "--sync", window, "key", "Escape")
        wait_for("the guide to close", 10, lambda: not self.stage.output(
            "xdotool", "search", "--onlyvisible", "--name", name).split())

    def test_each_window_opens_its_page(self):
        program = self.open_window()
        self.activate("^Lobegraph V")
        self.page("The main window")
        self.activate("^Lobegraph V")
        self.stage.output("xdotool", "key", "ctrl+comma")
        box = program.box("Lobegraph Settings")
        self.page("The settings")
        program.press("Cancel", within=box)
        program.press("Choose Input")
        box = program.box("Lobegraph - Choose Input")
        self.page("Choosing the input")
        program.press("Cancel", within=box)
        program.press("Save File")
        program.box("Lobegraph")
        self.page("Messages")
        self.close_box(program)
        program.tick("Show editor")
        self.activate("^Lbg editor")
        self.page("The readings editor")
        self.leave(program)


if __name__ == "__main__":
    from_outside.main()
