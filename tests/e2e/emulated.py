"""Devices that this machine does not have, emulated below the program: a serial port with modem lines and the USB
module on a bus. The program must be started under umockdev-wrapper with UMOCKDEV_DIR in its environment."""
import errno
import os
import struct
import threading
import traceback

import gi

gi.require_version("UMockdev", "1.0")
from gi.repository import GLib, UMockdev  # noqa: E402

TIOCMGET, TIOCMBIS, TIOCMBIC, TIOCMSET, TIOCGICOUNT = 0x5415, 0x5416, 0x5417, 0x5418, 0x545D
RTS, CTS = 0x04, 0x20
COUNTERS = 80  # bytes; the changes of CTS come first
NO_DATA = 61  # ENODATA: no kernel driver is bound


class Handler(UMockdev.IoctlBase):
    """Answers requests; what goes wrong is printed, because the emulation would swallow it."""

    def do_handle_ioctl(self, client):
        try:
            result, number = self.answer(client, client.get_request() & 0xFFFFFFFF)
            client.complete(result, number)
            return True
        except Exception:  # noqa: BLE001
            traceback.print_exc()
            return False


class PulseLine(Handler):
    """A line that the program polls for pulses.

    Each answer counts under the level that it gave. A count of all answers would not do: an answer that is on its way
    while the line changes would be taken for one that knows the change already.
    """

    high = False

    def __init__(self):
        super().__init__()
        self.given = {False: 0, True: 0}

    def give(self, pack):
        """Answers with what pack makes of the present level."""
        high = self.high
        answer = pack(high)
        self.given[high] += 1
        return answer


class SerialLines(PulseLine):
    """The modem lines of a serial port whose driver counts the changes of CTS.

    A wire may lead from RTS to the lines of another port, where it is CTS.
    """

    wire = None

    def __init__(self):
        super().__init__()
        self.changes = 0

    def __setattr__(self, name, value):
        if name == "high" and value != self.high:
            self.changes += 1
        super().__setattr__(name, value)

    def answer(self, client, request):
        if request == TIOCMGET:
            lines = client.get_arg().resolve(0, 4)
            self.give(lambda high: lines.update(0, struct.pack("i", CTS if high else 0)))
        elif request == TIOCGICOUNT:
            client.get_arg().resolve(0, COUNTERS).update(0, struct.pack("i", self.changes))
        elif request in (TIOCMBIS, TIOCMBIC, TIOCMSET):
            self.drive(request, struct.unpack("i", bytes(client.get_arg().resolve(0, 4).retrieve()))[0])
        else:
            done = client.execute()
            return done[0], done[1]
        return 0, 0

    def drive(self, request, lines):
        asserted = bool(lines & RTS)
        if self.wire is not None and (asserted or request == TIOCMSET):
            self.wire.high = asserted and request != TIOCMBIC


def descriptor(product_index=2):
    device = struct.pack("<BBHBBBBHHHBBBB", 18, 1, 0x0200, 0, 0, 0, 8, 0x0403, 0x6010, 0x0500, 1, product_index, 3, 1)
    interfaces = b""
    for number in (0, 1):
        interfaces += struct.pack("<BBBBBBBBB", 9, 4, number, 0, 2, 255, 255, 255, 2)
        interfaces += struct.pack("<BBBBHB", 7, 5, 0x81 + 2 * number, 2, 64, 0)
        interfaces += struct.pack("<BBBBHB", 7, 5, 0x02 + 2 * number, 2, 64, 0)
    return device + struct.pack("<BBHBBBBB", 9, 2, 9 + len(interfaces), 2, 1, 0, 0x80, 50) + interfaces


HUB = struct.pack("<BBHBBBBHHHBBBB", 18, 1, 0x0200, 9, 0, 1, 64, 0x1D6B, 2, 0x0510, 0, 0, 0, 1) + struct.pack(
    "<BBHBBBBB", 9, 2, 25, 1, 1, 0, 0xE0, 0) + struct.pack("<BBBBBBBBB", 9, 4, 0, 0, 1, 9, 0, 0, 0) + struct.pack(
    "<BBBBHB", 7, 5, 0x81, 3, 4, 12)


class UsbModule(PulseLine):
    """A module of two channels at /dev/bus/usb/001/002, seen through the kernel's requests. All its pins but D0 are high."""

    gone = False
    fail_pins = False
    fail_release = False

    def __init__(self):
        super().__init__()
        self.finished = []
        self.set_up = []
        self.claimed = []

    def answer(self, client, request):
        if self.gone and not (request == 0x4008550D and self.finished):
            return -1, errno.ENODEV  # what was under way is still handed back, as the kernel does
        if request == 0x8038550A:
            return self.submit(client)
        if request == 0x4008550D:
            if not self.finished:
                return -1, errno.EAGAIN
            client.get_arg().resolve(0, 8).set_ptr(0, self.finished.pop(0))
            return 0, 0
        if request == 0x8004551A:
            client.get_arg().resolve(0, 4).update(0, struct.pack("I", 0x1D))
            return 0, 0
        if request in (0x8004550F, 0x8108551B):  # claim, or detach the kernel's driver and claim
            self.claimed.append(struct.unpack("I", bytes(client.get_arg().resolve(0, 4).retrieve()))[0])
            return 0, 0
        if request == 0x80045510 and self.fail_release:
            return -1, errno.EIO
        if request in (0x41045508, 0xC0105512):
            return -1, NO_DATA
        return 0, 0

    def submit(self, client):
        urb = client.get_arg().resolve(0, 56)
        length = struct.unpack_from("i", bytes(urb.retrieve()), 24)[0]
        buffer = urb.resolve(16, length)
        kind, request, value, index, wanted = struct.unpack("<BBHHH", bytes(buffer.retrieve())[:8])
        answer, status = self.control(kind, request, value, index), 0
        if answer is None:
            answer, status = b"", -errno.EPIPE
        answer = answer[:wanted]
        if answer:
            buffer.update(8, answer)
        urb.update(4, struct.pack("i", status))
        urb.update(28, struct.pack("i", len(answer)))
        self.finished.append(urb)
        return 0, 0

    def control(self, kind, request, value, index):
        """Bytes to answer; None stalls."""
        if (kind, request) == (0x80, 6):
            return self.get_descriptor(value)
        if (kind, request) == (0xC0, 0x0C):
            return None if self.fail_pins else self.give(lambda high: bytes([0xFE | high]))
        if kind == 0x40:
            self.set_up.append((request, value, index))
        return b""

    @staticmethod
    def get_descriptor(value):
        whole = descriptor()
        if value >> 8 == 1:
            return whole[:18]
        if value >> 8 == 2:
            return whole[18:]
        if value & 0xFF == 0:
            return bytes([4, 3, 9, 4])
        text = {1: "DLP Design", 2: "DLP2232M", 3: "DL0001"}[value & 0xFF].encode("utf-16-le")
        return bytes([len(text) + 2, 3]) + text


class Machine:
    """A computer with the emulated devices plugged in as asked."""

    def __init__(self):
        self.bed = UMockdev.Testbed.new()
        self.loop = GLib.MainLoop()
        threading.Thread(target=self.loop.run, daemon=True).start()

    def environment(self):
        return {"UMOCKDEV_DIR": self.bed.get_root_dir()}

    def serial_port(self, name):
        """@return the lines, and the handle of the meter's end"""
        self.bed.add_from_string(
            f"P: /devices/usb9/9-1/9-1:1.0/{name}/tty/{name}\nN: {name}\nE: DEVNAME=/dev/{name}\n"
            "E: SUBSYSTEM=tty\nA: dev=188:0\n\n")
        lines = SerialLines()
        self.bed.attach_ioctl(f"/dev/{name}", lines)
        return lines, self.bed.get_dev_fd(f"/dev/{name}")

    def usb_module(self):
        self.usb_device("/devices/usb1", "001", HUB)
        self.usb_device("/devices/usb1/1-1", "002", descriptor())
        module = UsbModule()
        self.bed.attach_ioctl("/dev/bus/usb/001/002", module)
        return module

    def usb_device(self, path, number, raw):
        self.bed.add_from_string(
            f"P: {path}\nN: bus/usb/001/{number}={raw.hex().upper()}\nE: DEVNAME=/dev/bus/usb/001/{number}\n"
            f"E: DEVTYPE=usb_device\nE: SUBSYSTEM=usb\nE: BUSNUM=001\nE: DEVNUM={number}\nE: MAJOR=189\nE: MINOR={int(number)}\n"
            f"A: busnum=1\\n\nA: devnum={int(number)}\\n\nA: speed=480\\n\nA: bConfigurationValue=1\\n\n"
            f"H: descriptors={raw.hex().upper()}\n\n")

    def close(self):
        self.loop.quit()
