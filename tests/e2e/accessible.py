"""The program as an assistive tool knows it: roles, names, states and actions, over the accessibility bus. To be run by
the system's own python3, for which the distribution packs the bus's library."""
import atexit
import contextlib
import os
import subprocess
import tempfile

from managed import ManagedDisplay
from rig import endProcess, waitFor

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


def startBus():
    """A session bus of the test's own, as which this process and all that it starts know it. The assistive tools' bus
    has its socket in the runtime folder, which is the test's own too."""
    folder = tempfile.TemporaryDirectory(prefix="brightrank-bus-")
    atexit.register(folder.cleanup)
    os.environ["XDG_RUNTIME_DIR"] = folder.name
    bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE,
                           stderr=subprocess.DEVNULL, text=True)
    atexit.register(endProcess, bus)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    launcher = subprocess.Popen([LAUNCHER, "--launch-immediately"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    atexit.register(endProcess, launcher)


startBus()  # before the library looks for it

import gi  # noqa: E402
from gi.repository import Gio, GLib  # noqa: E402


def busAnswers():
    """True when the launcher has the bus of the assistive tools ready."""
    try:
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        return session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                 Gio.DBusCallFlags.NONE, 5000)
    except GLib.Error:
        return None


waitFor(busAnswers, "the bus of the assistive tools")

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

STATES = {name: getattr(Atspi.StateType, name.upper()) for name in ("enabled", "checked", "focused", "showing", "visible")}


def hearWhatIsThere():
    """What the bus has said since the last time."""
    while GLib.MainContext.default().iteration(False):
        pass


class Node:
    """A thing of the tree. What is asked of one that has gone is an error or nothing."""

    def __init__(self, thing):
        self.thing = thing

    @property
    def name(self):
        return self.thing.get_name()

    @property
    def role(self):
        return self.thing.get_role_name()

    @property
    def description(self):
        return self.thing.get_description()

    def has(self, state):
        return self.thing.get_state_set().contains(STATES[state])

    def children(self):
        found = (self.thing.get_child_at_index(index) for index in range(self.thing.get_child_count()))
        return [Node(child) for child in found if child]

    def all(self, role=None, name=None):
        """What stands below it with that role and name, in order of the tree."""
        for child in self.children():
            if role in (None, child.role) and name in (None, child.name):
                yield child
            yield from child.all(role, name)

    def one(self, role=None, name=None):
        """The first of them, as soon as there is one."""
        return waitFor(lambda: next(self.all(role, name), None), f"a {role or 'thing'} {name!r} in {self.name!r}")

    def press(self):
        """Its first action, which is what a click on it does."""
        Atspi.Action.do_action(self.thing, 0)

    def text(self):
        return Atspi.Text.get_text(self.thing, 0, -1)

    def write(self, text):
        Atspi.EditableText.set_text_contents(self.thing, text)


class AccessibleDisplay(ManagedDisplay):
    """One program at a time."""

    def program(self):
        def found():
            hearWhatIsThere()  # which programs have come and gone
            desktop = Atspi.get_desktop(0)
            desktop.clear_cache()
            each = [desktop.get_child_at_index(index) for index in range(desktop.get_child_count())]
            return next((Node(one) for one in each if one and one.get_name() == "Brightrank"), None)

        return waitFor(found, "the program on the bus")

    def windows(self, title=""):
        """The windows whose titles begin so."""
        try:
            return [window for window in self.program().children() if window.name.startswith(title)]
        except GLib.Error:  # one goes
            return []

    def window(self, title):
        return waitFor(lambda: next(iter(self.windows(title)), None), f"a window {title!r}")


class Ears:
    """Hears what the program tells assistive tools while the `with` block lasts: where the keyboard goes, and which
    descriptions change."""
    FOCUS, DESCRIPTION = "object:state-changed:focused", "object:property-change:accessible-description"

    def __enter__(self):
        self.forget()
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in self.FOCUS, self.DESCRIPTION:
            self.listener.register(kind)
        return self

    def __exit__(self, *_):
        for kind in self.FOCUS, self.DESCRIPTION:
            self.listener.deregister(kind)

    def forget(self):
        hearWhatIsThere()
        self.focused, self.name, self.described = None, None, []

    def hear(self, event):
        with contextlib.suppress(GLib.Error):  # it has gone meanwhile
            thing = Node(event.source)
            if event.type == self.DESCRIPTION:
                self.described.append(thing.description)
            elif event.detail1:
                self.focused, self.name = thing, thing.name or thing.role

    def focus(self):
        """The name of what has the keyboard, or its role if it has no name; None if nothing was heard."""
        hearWhatIsThere()
        return self.name

    def inside(self, role, name=None):
        """Whether what has the keyboard, or something that it stands in, has that role and name."""
        thing = self.focused.thing
        while thing:
            if Node(thing).role == role and name in (None, Node(thing).name):
                return True
            thing = thing.get_parent()
        return False

    def descriptions(self):
        hearWhatIsThere()
        return self.described


def menusOf(window):
    """The entries of the window's menu bar, as (menu, entry)."""
    bar = next(window.all("menu bar"), None)
    for menu in bar.children() if bar else []:
        for entry in menu.all():
            if entry.name:
                yield menu.name, entry
