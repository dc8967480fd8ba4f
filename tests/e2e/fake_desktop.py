"""A desktop that can be asked not to lock and not to sleep, on the session bus; it prints what it is asked, a line each."""
import os
import sys

from gi.repository import Gio, GLib

COOKIE = 4711
SERVICES = {
    "org.freedesktop.ScreenSaver": ("/org/freedesktop/ScreenSaver", """
        <method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="u" direction="out"/></method>
        <method name="UnInhibit"><arg type="u" direction="in"/></method>"""),
    "org.freedesktop.login1.Manager": ("/org/freedesktop/login1", """
        <method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="s" direction="in"/><arg type="h" direction="out"/></method>"""),
}


def say(*words):
    print(*words, flush=True)


def on_call(connection, sender, path, interface, method, arguments, invocation):
    say(method, *arguments.unpack())
    if interface.endswith("login1.Manager"):
        invocation.return_value_with_unix_fd_list(GLib.Variant("(h)", (0,)), sleep_lock())
    else:
        invocation.return_value(GLib.Variant("(u)", (COOKIE,)) if method == "Inhibit" else None)


def sleep_lock():
    """Whoever holds the far end keeps the computer awake."""
    near, far = os.pipe()
    GLib.unix_fd_add_full(GLib.PRIORITY_DEFAULT, near, GLib.IOCondition.HUP, on_release)
    handed = Gio.UnixFDList.new()
    handed.append(far)
    os.close(far)
    return handed


def on_release(near, condition):
    say("sleep lock released")
    os.close(near)
    return False


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    for interface, (path, methods) in SERVICES.items():
        node = Gio.DBusNodeInfo.new_for_xml(f'<node><interface name="{interface}">{methods}</interface></node>')
        bus.register_object(path, node.interfaces[0], on_call)
    for name in ("org.freedesktop.ScreenSaver", "org.freedesktop.login1"):
        Gio.bus_own_name_on_connection(bus, name, Gio.BusNameOwnerFlags.NONE, lambda *_: say("ready"), lambda *_: sys.exit(1))
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
