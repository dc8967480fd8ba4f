"""Drags a file over a window and drops it there, as a file manager does by the X protocol XDND."""
import time

from Xlib import X, Xatom, display
from Xlib.protocol import event

VERSION = 5
PATIENCE_S = 10


class Drag:
    """One file in the hand of one mouse."""

    def __init__(self, name, path):
        self.display = display.Display(name)
        self.root = self.display.screen().root
        self.hand = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.uris = path.as_uri().encode() + b"\r\n"
        self.hand.set_selection_owner(self.atom("XdndSelection"), X.CurrentTime)

    def atom(self, name):
        return self.display.intern_atom(name)

    def drop(self, window_id, x, y):
        """@return whether the window took the file; x and y are on the screen"""
        target = self.display.create_resource_object("window", window_id)
        self.send(target, "XdndEnter", VERSION << 24, self.atom("text/uri-list"), 0, 0)
        self.send(target, "XdndPosition", 0, x << 16 | y, X.CurrentTime, self.atom("XdndActionCopy"))
        if not self.wait("XdndStatus")[1] & 1:
            self.send(target, "XdndLeave", 0, 0, 0, 0)
            return False
        self.send(target, "XdndDrop", 0, X.CurrentTime, 0, 0)
        return bool(self.wait("XdndFinished")[1] & 1)

    def send(self, target, name, *data):
        target.send_event(event.ClientMessage(window=target, client_type=self.atom(name), data=(32, [self.hand.id, *data])))
        self.display.flush()

    def wait(self, name):
        """The data of the answer; meanwhile whoever asks what is dragged is told."""
        end = time.monotonic() + PATIENCE_S
        while time.monotonic() < end:
            if not self.display.pending_events():
                time.sleep(0.02)
                continue
            got = self.display.next_event()
            if got.type == X.SelectionRequest:
                self.tell(got)
            elif got.type == X.ClientMessage and got.client_type == self.atom(name):
                return got.data[1]
        raise TimeoutError(f"no {name} after {PATIENCE_S} s")

    def tell(self, request):
        if request.target == self.atom("TARGETS"):
            request.requestor.change_property(request.property, Xatom.ATOM, 32, [self.atom("text/uri-list")])
        else:
            request.requestor.change_property(request.property, request.target, 8, self.uris)
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=request.property))
        self.display.flush()

    def close(self):
        self.display.close()
