"""The clocks that a program reads, shifted by a test below the program's own code."""
import os
import struct
import time

NS = 1_000_000_000


class Clocks:
    """`environment` for the program; every shift counts from the moment at which it is made."""

    def __init__(self, path):
        self.path = path
        self.monotonic = self.suspended = self.date = 0
        path.write_bytes(bytes(24))

    def wrapper(self):
        return "env", f"LD_PRELOAD={os.environ['LOBEGRAPH_SHIFTED_CLOCKS']}", f"LOBEGRAPH_CLOCKS={self.path}"

    def keep(self):
        with open(self.path, "r+b") as file:
            file.write(struct.pack("3q", self.monotonic, self.suspended, self.date))

    def wrap_in(self, seconds, started):
        """The millisecond clock of a program that started then (by the monotonic clock) leaves 31 bits so soon."""
        self.monotonic = int((2**31 / 1000 - (time.monotonic() - started) - seconds) * NS)
        self.keep()

    def suspend(self, seconds):
        self.suspended += int(seconds * NS)
        self.keep()

    def set_date_on(self, seconds):
        self.date += int(seconds * NS)
        self.keep()
