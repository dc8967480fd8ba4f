#!/usr/bin/python3
"""Random keys and clicks on the real window, as a user without rights whose home is thrown away afterwards.

    scripts/monkey.py PROGRAMS [--seconds 20] [--seed N]

PROGRAMS is the folder of the built programs, best of those built with the sanitizers. Looks for an end other than by Exit, for a
window that does not answer for longer than a second while no run is on, and for a box that cannot be closed. A redraw inside a
run ends the program by an assertion. No real port is in reach: the user may open none. Exits with 1 when something was found,
with the seed, the last actions and the program's last words; after a late answer it goes on to its end first. The time in which
the window waits for a core is taken off, and that for the disk where the kernel counts it (sysctl kernel.task_delayacct=1).
"""
import argparse
import collections
import os
import pathlib
import pwd
import random
import shutil
import subprocess
import sys
import tempfile
import time

NOBODY = pwd.getpwnam("nobody")
PATIENCE = 1.0  # seconds without an answer while idle
WITHOUT_WINDOW = 30.0  # seconds in which a program that goes on may show none
DEAD = 60.0  # seconds without an answer at any time
MOST_IN_A_BOX = 40  # actions, before it is closed by the keys that close a box

KEYS = ("Tab Tab Tab space space Return Escape Up Down Left Right Home End Page_Up Page_Down BackSpace Delete F1 F2 F10 "
        "0 1 2 3 5 9 minus period comma a z alt+d alt+h alt+l alt+e alt+y alt+r alt+o alt+m alt+v alt+k alt+z alt+t alt+s "
        "alt+n alt+i alt+c ctrl+c ctrl+v ctrl+a ctrl+z ctrl+x shift+Tab shift+Right ctrl+Right alt+Down").split()
RARE_KEYS = "alt+x alt+F4 alt+p alt+g".split()


def as_nobody(arguments):
    """Once more on a session bus of its own, without the rights of root, on copies that anybody may read."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="lobegraph-monkey-"))
    try:
        programs = folder / "programs"
        programs.mkdir()
        for name in ("lobegraph", "lobegraph-bench"):
            shutil.copy2(arguments.programs / name, programs)
        for name in ("monkey.py", "outside.py"):
            shutil.copy2(pathlib.Path(__file__).resolve().parent / name, folder)
        rights = []
        if os.geteuid() == 0:
            for path in (folder, *folder.rglob("*")):
                os.chown(path, NOBODY.pw_uid, NOBODY.pw_gid)
            rights = ["setpriv", f"--reuid={NOBODY.pw_uid}", f"--regid={NOBODY.pw_gid}", "--clear-groups"]
        environment = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        environment.update(HOME=str(folder), TMPDIR=str(folder), LOBEGRAPH_MONKEY=str(folder), PYTHONDONTWRITEBYTECODE="1",
                           XDG_RUNTIME_DIR=str(folder), CUPS_SERVER=str(folder / "no-printers"))
        return subprocess.run([*rights, "dbus-run-session", "--", "/usr/bin/python3", folder / "monkey.py", programs,
                               "--seconds", str(arguments.seconds), "--seed", str(arguments.seed)],
                              env=environment, cwd=folder, check=False).returncode
    finally:
        shutil.rmtree(folder, ignore_errors=True)


class Found(Exception):
    """What the monkey was looking for."""


class Hands:
    """Keys, clicks and questions to the X server."""

    def __init__(self, display):
        from Xlib import X, XK, display as xdisplay, protocol
        from Xlib.ext import xtest
        self.X, self.XK, self.xtest, self.protocol = X, XK, xtest, protocol
        self.display = xdisplay.Display(display)
        self.display.set_error_handler(lambda *_: None)
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask | X.StructureNotifyMask)
        self.size = self.display.screen().width_in_pixels, self.display.screen().height_in_pixels
        self.asked = 0

    def atom(self, name):
        return self.display.intern_atom(name)

    def property(self, window, name):
        try:
            value = window.get_full_property(self.atom(name), self.X.AnyPropertyType)
        except Exception:  # noqa: BLE001 - a window that has just gone
            return None
        return None if value is None else value.value

    def windows(self, process):
        """The windows of a process, the lowest first."""
        stack = self.property(self.root, "_NET_CLIENT_LIST_STACKING")
        every = [self.display.create_resource_object("window", number) for number in stack] if stack else []
        return [w for w in every if list(self.property(w, "_NET_WM_PID") or []) == [process.pid]]

    def title(self, window):
        value = self.property(window, "_NET_WM_NAME")
        return value.decode(errors="replace") if value else ""

    def place(self, window):
        try:
            size, corner = window.get_geometry(), window.translate_coords(self.root, 0, 0)
            return -corner.x, -corner.y, size.width, size.height
        except Exception:  # noqa: BLE001
            return 0, 0, 1, 1

    def focus(self):
        focus = self.display.get_input_focus().focus
        return focus if isinstance(focus, int) else focus.id

    def key(self, chord):
        codes = [self.display.keysym_to_keycode(self.XK.string_to_keysym(name)) for name in self.chord(chord)]
        for code in codes:
            self.xtest.fake_input(self.display, self.X.KeyPress, code)
        for code in reversed(codes):
            self.xtest.fake_input(self.display, self.X.KeyRelease, code)
        self.display.sync()

    @staticmethod
    def chord(text):
        names = {"alt": "Alt_L", "ctrl": "Control_L", "shift": "Shift_L"}
        return [names.get(name, name) for name in text.split("+")]

    def type(self, text):
        for character in text:
            name = {"/": "slash", ".": "period", "-": "minus", " ": "space"}.get(character, character)
            self.key("shift+" + name if character.isupper() else name)

    def press(self, x, y, button=1, to=None, twice=False):
        fake = self.xtest.fake_input
        fake(self.display, self.X.MotionNotify, x=x, y=y)
        for _ in range(2 if twice else 1):
            fake(self.display, self.X.ButtonPress, button)
            if to:
                fake(self.display, self.X.MotionNotify, x=to[0], y=to[1])
            fake(self.display, self.X.ButtonRelease, button)
        self.display.sync()

    def ping(self, window, limit, gone, late):
        """Seconds until the window's event loop answers; None when it does not, or when gone() is true.

        Calls late() again and again once an idle window should have answered.
        """
        self.asked += 1
        begun = time.monotonic()
        event = self.protocol.event.ClientMessage(
            window=window, client_type=self.atom("WM_PROTOCOLS"),
            data=(32, [self.atom("_NET_WM_PING"), self.asked, window.id, 0, 0]))
        window.send_event(event)
        self.display.flush()
        while time.monotonic() - begun < limit and not gone():
            while self.display.pending_events():
                answer = self.display.next_event()
                if answer.type == self.X.ClientMessage and list(answer.data[1])[1] == self.asked:
                    return time.monotonic() - begun
            time.sleep(0.002)
            if time.monotonic() - begun > PATIENCE:
                late()
                time.sleep(0.1)
        return None


class Monkey:
    def __init__(self, stage, programs, seed):
        self.stage, self.programs, self.chance = stage, programs, random.Random(seed)
        self.hands = Hands(stage.environment["DISPLAY"])
        self.log = stage.home / "program.log"
        self.last = collections.deque(maxlen=60)
        self.counts = collections.Counter()
        self.titles = collections.Counter()
        self.turns = set()
        self.slowest = 0.0
        self.in_box = 0
        self.process = self.tree = None
        self.names = self.files()
        self.begin()

    def files(self):
        """Patterns that it may open, good ones and bad ones."""
        rows = [359, *range(100, 460), 360, 0, 0, 0, 359, 0, '"Bench"', 35, '"V1.0.0"', '"K1AB"', '"12:00 1/2/2020"', '"  3"',
                '"Horizontal"', '"Not 180 plot"']
        whole = "".join(f"{row}\r\n" for row in rows)
        texts = {"good.lbg": whole, "cut.lbg": whole[:900], "silent.lbg": whole.replace("\r\n3", "\r\n0"), "empty.lbg": "",
                 "table.csv": "angle,level\n0,1\n90,2\n180,3\n", "noise.lbg": "".join(map(chr, range(1, 127))) * 40}
        for name, text in texts.items():
            (self.stage.home / name).write_bytes(text.encode())
        return [*texts, "new.lbg", "nowhere/new.lbg", "."]

    def begin(self):
        self.process = self.stage.start(self.programs / "lobegraph", log=self.log, cwd=self.stage.home)
        self.tree = None
        self.counts["starts"] += 1
        self.seen_last = time.monotonic()
        end = self.seen_last + 60
        while not self.hands.windows(self.process):
            self.look_at_end()
            if time.monotonic() > end:
                raise Found("no window after a minute")
            time.sleep(0.05)

    def look_at_end(self):
        code = self.process.poll()
        if code not in (None, 0):
            raise Found(f"the program has ended with {code}")
        return code == 0

    def is_main(self, window):
        return self.hands.title(window).startswith("Lobegraph V")

    def act(self):
        """One action; the next window of the program is in front, a box before the window."""
        windows = self.hands.windows(self.process)
        if not windows:
            if time.monotonic() - self.seen_last > WITHOUT_WINDOW:
                raise Found(f"no window for {WITHOUT_WINDOW:.0f} s, but the program goes on: {self.state()}")
            return
        self.seen_last = time.monotonic()
        front = windows[-1]
        title = self.hands.title(front)
        self.in_box = 0 if self.is_main(front) else self.in_box + 1
        if self.in_box > 10 * MOST_IN_A_BOX:
            raise Found(f"the box {title!r} cannot be closed: {self.words()}")
        if self.in_box > MOST_IN_A_BOX:
            self.note(title, lambda: self.close_box(front))
        elif title in ("Get File", "Save File", "Lobegraph") and self.chance.random() < 0.15:
            self.note(title, self.give_name)
        elif self.chance.random() < 0.45:
            self.note(title, self.give_key)
        else:
            self.note(title, lambda: self.click(front))

    def note(self, title, action):
        self.counts["actions"] += 1
        self.titles[title if not title.startswith("Lobegraph V") else "the window"] += 1
        self.last.append(f"{title[:20]!r}: {action()}")

    def close_box(self, window):
        """By the keys that close a box, or by a click where its buttons stand."""
        key = ("Escape", "Return", "click", "alt+F4")[self.in_box // 4 % 4]
        if key == "click":
            x, y, width, height = self.hands.place(window)
            self.hands.press(x + self.chance.randrange(width), max(y, y + height - 25))
        else:
            self.hands.key(key)
        return f"closes {window.id:#x} with {key}, the keys go to {self.hands.focus():#x}"

    def words(self):
        """What the open boxes say."""
        import outside
        try:
            return self.reader().messages()
        except (TimeoutError, outside.GLib.Error) as error:
            return error

    def give_name(self):
        name = self.chance.choice(self.names)
        self.hands.key("ctrl+a")
        self.hands.type(f"{self.stage.home}/{name}")
        self.hands.key("Return")
        return f"types {name}"

    def give_key(self):
        key = self.chance.choice(RARE_KEYS if self.chance.random() < 0.01 else KEYS)
        self.hands.key(key)
        return f"key {key}"

    def click(self, window):
        x, y, width, height = self.hands.place(window)
        def spot():
            return (min(max(x + self.chance.randrange(max(width, 1)), 0), self.hands.size[0] - 1),
                    min(max(y + self.chance.randrange(max(height, 1)), 0), self.hands.size[1] - 1))
        at, kind = spot(), self.chance.random()
        if kind < 0.75:
            self.hands.press(*at)
            return f"click {at}"
        if kind < 0.83:
            self.hands.press(*at, twice=True)
            return f"double click {at}"
        if kind < 0.9:
            self.hands.press(*at, button=self.chance.choice((3, 4, 5)))
            return f"other button {at}"
        to = spot()
        self.hands.press(*at, to=to)
        return f"drag {at} {to}"

    def watch(self):
        """Asks the window's loop for an answer, and whether a run may be the reason that it came late."""
        window = next((w for w in self.hands.windows(self.process) if self.is_main(w)), None)
        if window is None or self.look_at_end():
            return
        self.turns.update(self.stage.turns.glob("*.lbg"))
        waited = self.waited_for_others()
        seen = collections.Counter()
        took = self.hands.ping(window, DEAD, lambda: self.process.poll() is not None, lambda: seen.update([self.state()]))
        if self.process.poll() is not None:
            return
        if took is None:
            raise Found(f"no answer for {DEAD:.0f} s")
        own = took - (self.waited_for_others() - waited)
        self.counts["answers"] += 1
        if own > PATIENCE and not self.running():
            self.counts["late answers"] += 1
            print(f"no answer for {own:.2f} s (of {took:.2f} s) while idle: {dict(seen)}; {self.last[-1]}", flush=True)
        self.slowest = max(self.slowest, own)

    def state(self):
        """What the window's thread is doing: running or waiting, and in which call of the system."""
        import outside
        folder = pathlib.Path(f"/proc/{self.process.pid}")
        try:
            doing = outside.process_stat(self.process.pid)[0]
            return f"{doing} {(folder / 'wchan').read_text()} {(folder / 'syscall').read_text().split()[0]}"
        except OSError as error:
            return str(error)

    def waited_for_others(self):
        """Seconds that the window's thread was ready while other programs had the processor, or waited for the disk."""
        import outside
        try:
            core = int(pathlib.Path(f"/proc/{self.process.pid}/schedstat").read_text().split()[1]) / 1e9
            return core + int(outside.process_stat(self.process.pid)[39]) / outside.TICKS
        except OSError:
            return 0.0

    def running(self):
        """A run is on: the program says so to a screen reader."""
        import outside
        try:
            return self.reader().enabled("Halt Collection") or not self.reader().enabled("Exit")
        except (TimeoutError, outside.GLib.Error):
            return self.process.poll() is not None

    def reader(self):
        """The program as a screen reader sees it."""
        import outside
        if self.tree is None:
            self.tree = outside.Program(self.process)
        return self.tree

    def go_on(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if self.look_at_end():
                self.counts["ends by Exit"] += 1
                self.begin()
            self.act()
            time.sleep(0.01)
            if self.counts["actions"] % 10 == 0:
                self.watch()


def play(stage, arguments):
    import outside
    stage.virtual_display()
    stage.private_sound()
    outside.wait_for("the bench", 15, lambda: stage.start(
        arguments.programs / "lobegraph-bench", "--sink", "rx", "--seconds", "36"))
    monkey = Monkey(stage, arguments.programs, arguments.seed)
    begun = time.monotonic()
    try:
        monkey.go_on(arguments.seconds)
        found = None
    except Found as what:
        found = what
    print(f"{time.monotonic() - begun:.0f} s, {dict(monkey.counts)}, {len(monkey.turns)} turns, "
          f"slowest answer {1000 * monkey.slowest:.0f} ms; actions in {dict(monkey.titles.most_common(12))}")
    if found:
        time.sleep(1)  # a sanitizer is still writing
        print(*monkey.last, sep="\n")
        print(monkey.log.read_text(errors="replace")[-6000:])
        print(f"Found with seed {arguments.seed}: {found}")
        return 1
    return 1 if monkey.counts["late answers"] else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs", type=lambda text: pathlib.Path(text).resolve())
    parser.add_argument("--seconds", type=float, default=20)
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**6))
    arguments = parser.parse_args()
    if "LOBEGRAPH_MONKEY" not in os.environ:
        print(f"seed {arguments.seed}", flush=True)
        return as_nobody(arguments)
    import outside
    with outside.Stage() as stage:
        return play(stage, arguments)


if __name__ == "__main__":
    sys.exit(main())
