"""Operates Lobegraph from outside, as a person would: a display and a sound server of its own, the accessibility tree.

Must run inside a session bus of its own: dbus-run-session -- /usr/bin/python3 ...
"""
import atexit
import contextlib
import functools
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

TICKS = os.sysconf("SC_CLK_TCK")


def wait_for(what, seconds, condition, every=0.05):
    """The first true value of condition(); raises TimeoutError with `what` after that many seconds."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise TimeoutError(f"waited {seconds} s for {what}")
        time.sleep(every)


@functools.cache
def use_own_accessibility_bus():
    """The accessibility bus of this session, in a folder of its own.

    A desktop announces its bus on its display and keeps it in the user's runtime folder; neither is touched.
    """
    folder = tempfile.mkdtemp(prefix="lobegraph-a11y-")
    atexit.register(shutil.rmtree, folder, ignore_errors=True)
    session = Gio.bus_get_sync(Gio.BusType.SESSION)

    def call(name, path, method, arguments=None):
        return session.call_sync(name, path, name, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None).unpack()

    call("org.freedesktop.DBus", "/org/freedesktop/DBus", "UpdateActivationEnvironment",
         GLib.Variant("(a{ss})", ({"XDG_RUNTIME_DIR": folder},)))
    os.environ["AT_SPI_BUS_ADDRESS"] = call("org.a11y.Bus", "/org/a11y/bus", "GetAddress")[0]


class Stage(contextlib.ExitStack):
    """Everything that was started here is stopped here, by its own process id, last first."""

    def __init__(self):
        super().__init__()
        use_own_accessibility_bus()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="lobegraph-"))
        self.callback(shutil.rmtree, self.folder, ignore_errors=True)
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        self.environment = dict(os.environ)
        for name in ("XDG_CONFIG_HOME", "XDG_STATE_HOME", "WAYLAND_DISPLAY", "SESSION_MANAGER", "AT_SPI_BUS_ADDRESS"):
            self.environment.pop(name, None)
        self.environment.setdefault("XAUTHORITY", os.path.expanduser("~/.Xauthority"))
        self.environment.update(
            XDG_RUNTIME_DIR=str(runtime), QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            NO_AT_BRIDGE="0", LC_ALL="C.UTF-8")
        self.homes = 0
        self.new_home()

    def new_home(self):
        """A home in which nobody has been yet, for the programs started from now on."""
        self.homes += 1
        self.home = self.folder / f"home{self.homes}"
        self.home.mkdir()
        self.environment["HOME"] = str(self.home)

    @property
    def settings(self):
        """The program's settings file."""
        return self.home / ".config" / "lobegraph" / "Lobegraph.conf"

    @property
    def turns(self):
        """The folder of the safety copies."""
        return self.home / ".local" / "state" / "lobegraph"

    def start(self, *command, log=None, **options):
        with open(log or os.devnull, "ab") as output:
            process = subprocess.Popen([str(part) for part in command], env=self.environment, stdout=output,
                                       stderr=output, **options)
        self.callback(stop, process)
        return process

    def virtual_display(self, size="1280x1024"):
        reading, writing = os.pipe()
        # A display that resets when its last client goes would throw out whoever comes just then.
        self.start("Xvfb", "-noreset", "-displayfd", str(writing), "-screen", "0", f"{size}x24", "-nolisten", "tcp",
                   pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            self.environment["DISPLAY"] = ":" + answer.readline().strip()
        self.start("openbox")
        wait_for("the window manager", 60, lambda: "window id" in self.output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))

    def private_sound(self):
        """A sound server whose default input hears the null sink "rx"; nothing reaches anybody's speakers."""
        socket = self.folder / "pulse.sock"
        server = self.start(
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--disable-shm=yes",
            "--realtime=yes", "--high-priority=yes",
            "-L", f"module-native-protocol-unix auth-anonymous=1 socket={socket}",
            "-L", "module-null-sink sink_name=rx rate=44100 channels=2 format=s16le norewinds=1"
                  " sink_properties=device.description=Receiver")
        self.environment["PULSE_SERVER"] = f"unix:{socket}"
        wait_for("the sound server", 60, lambda: "rx.monitor" in self.output("pactl", "list", "short", "sources"))
        self.output("pactl", "set-default-source", "rx.monitor")
        return server

    def output(self, *command):
        done = subprocess.run([str(part) for part in command], env=self.environment, capture_output=True, text=True,
                              check=False)
        return done.stdout + done.stderr

    def picture(self, path, title="Lobegraph V"):
        """The window whose title begins so, as a PNG; without a title, or such a window, the whole screen."""
        tree = self.output("xwininfo", "-root", "-tree")
        window = re.search(r'(0x[0-9a-f]+) "' + re.escape(title), tree) if title else None
        self.output("import", "-window", window.group(1) if window else "root", path)


def process_stat(pid):
    """The fields of /proc/PID/stat from the state on: the one that proc(5) numbers N stands at N - 3."""
    return pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()


def processor_seconds(pid):
    """What a process has taken of the processors so far."""
    fields = process_stat(pid)
    return (int(fields[11]) + int(fields[12])) / TICKS


def stop(process):
    if process.poll() is None:
        process.send_signal(signal.SIGTERM)
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


def nodes(root):
    """The node and all below it; what vanishes meanwhile is passed over."""
    try:
        yield root
        for index in range(root.get_child_count()):
            child = root.get_child_at_index(index)
            if child is not None:
                yield from nodes(child)
    except GLib.Error:
        return


class Program:
    """A running program in the accessibility tree. Controls are found by their accessible names."""

    def __init__(self, process):
        self.process = process
        self.known = {}
        self.root = wait_for("the program in the accessibility tree", 20, self._application)

    def _application(self):
        # The tree is read afresh each time: what was cached before the program came says nothing.
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            try:
                if child is not None and child.get_process_id() == self.process.pid:
                    return child
            except GLib.Error:
                continue
        return None

    def find(self, name, role=None, seconds=10, within=None):
        """Controls once found are remembered: while the program measures, each question waits for a reading to end."""
        known = self.known.get((name, role)) if within is None else None
        if known is not None and self.says(known, name, role):
            return known
        node = wait_for(f"a control named {name!r}", seconds, lambda: self.now(name, role, within))
        if within is None:
            self.known[name, role] = node
        return node

    def now(self, name, role=None, within=None):
        """The control, if there is one at this moment."""
        return next((node for node in nodes(within or self.root) if self.says(node, name, role)), None)

    def learn(self):
        """Remembers every control there is now, so that finding them later costs no questions."""
        for node in nodes(self.root):
            name, role = node.get_name(), node.get_role_name()
            self.known.setdefault((name, role), node)

    @staticmethod
    def says(node, name, role):
        try:
            return node.get_name() == name and (role is None or node.get_role_name() == role)
        except GLib.Error:
            return False

    def press(self, name, role="push button", within=None):
        node = self.find(name, role, within=within)
        wait_for(f"{name!r} to be enabled", 10, lambda: self.enabled(node))
        Atspi.Action.do_action(node, 0)

    def tick(self, name):
        self.press(name, "check box")

    def ticked(self, name):
        return self.has(self.find(name, "check box"), Atspi.StateType.CHECKED)

    def enabled(self, node_or_name, role="push button"):
        node = self.find(node_or_name, role) if isinstance(node_or_name, str) else node_or_name
        return self.has(node, Atspi.StateType.ENABLED)

    @staticmethod
    def has(node, state):
        node.clear_cache()
        return node.get_state_set().contains(state)

    def text(self, name):
        node = self.find(name, "text")
        return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))

    def number(self, name):
        """The number that a box shows; 0 while it shows none."""
        text = self.text(name)
        return float(text) if text.replace(".", "", 1).isdigit() else 0.0

    def label(self, name):
        """What a label shows, found by its accessible name; its description carries the words."""
        node = self.find(name, "label")
        node.clear_cache()
        return node.get_description()

    def type(self, name, text, within=None):
        node = self.find(name, "text", within=within)
        Atspi.EditableText.set_text_contents(node, text)

    def slide(self, name, value):
        node = self.find(name, "slider")
        Atspi.Value.set_current_value(node, value)

    def box(self, title, seconds=10):
        """An open dialog or message box."""
        return wait_for(f"a box titled {title!r}", seconds, lambda: self.open_box(title))

    def open_box(self, title):
        for node in nodes(self.root):
            try:
                if node.get_role_name() in ("dialog", "alert", "file chooser") and node.get_name() == title:
                    return node
            except GLib.Error:
                continue
        return None

    def words(self, box):
        """Every text in a box."""
        return [node.get_name() for node in nodes(box) if node.get_role_name() == "label"]

    def messages(self):
        """What the open message boxes say."""
        boxes = [node for node in nodes(self.root) if node.get_role_name() in ("dialog", "alert")]
        return [" ".join(filter(None, self.words(box))) for box in boxes]

    def answer_file(self, title, path):
        """Types a path into a file dialog and confirms it."""
        box = self.box(title)
        field = next(node for node in nodes(box) if node.get_role_name() == "text" and self.has(node, Atspi.StateType.EDITABLE))
        Atspi.EditableText.set_text_contents(field, str(path))
        button = "Save" if title == "Save File" else "Open"
        self.press(button, within=box)
        wait_for("the file dialog to close", 10, lambda: self.open_box(title) is None)

    def answer_input(self, title, text):
        """Types into an input box and confirms it."""
        box = self.box(title)
        field = next(node for node in nodes(box) if node.get_role_name() == "text")
        Atspi.EditableText.set_text_contents(field, text)
        self.press("OK", within=box)
        wait_for("the input box to close", 10, lambda: self.open_box(title) is None)
