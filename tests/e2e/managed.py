"""A display with a window manager on it, which has a say in where windows go and which of them has the keyboard."""
import contextlib
import re
import subprocess
import tempfile
import typing

from rig import Display, endProcess, waitFor


class Frame(typing.NamedTuple):
    """The outer edges of a window, in pixels of the screen."""
    left: int
    top: int
    right: int
    bottom: int

    @property
    def corner(self):
        return self.left, self.top

    def meets(self, other):
        return self.left < other.right and other.left < self.right and self.top < other.bottom and other.top < self.bottom


class ManagedDisplay(Display):
    """Windows are known by the beginnings of their titles."""

    def connect(self, stack):
        super().connect(stack)  # a server without a client begins anew, whoever is just about to come
        folder = stack.enter_context(tempfile.TemporaryDirectory())  # settings of its own, which there are none
        manager = subprocess.Popen(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   env=self.environment() | {"HOME": folder, "XDG_CONFIG_HOME": folder,
                                                             "XDG_CACHE_HOME": folder})
        stack.callback(endProcess, manager)
        waitFor(lambda: "window id" in self.asked("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")

    def menus(self):
        """Without the manager's own window, which stands beside the screen."""
        return [menu for menu in super().menus() if menu.left + menu.width > 0]

    def asked(self, *command):
        return subprocess.run(command, env=self.environment(), capture_output=True, text=True).stdout

    def numberNow(self, title):
        """That of the window, if it shows; None otherwise. One of just that title comes before those that only begin
        with it."""
        for pattern in f"^{re.escape(title)}$", f"^{re.escape(title)}":
            if numbers := self.asked("xdotool", "search", "--onlyvisible", "--name", pattern).split():
                return numbers[-1]
        return None

    def number(self, title):
        """The same, as soon as it shows."""
        return waitFor(lambda: self.numberNow(title), f"a window {title!r}")

    def shows(self, number):
        return "IsViewable" in self.asked("xwininfo", "-id", number)

    def activeNumber(self):
        return self.asked("xdotool", "getactivewindow").strip()

    def activeTitle(self):
        """Of the window that has the keyboard."""
        return self.asked("xdotool", "getactivewindow", "getwindowname").strip()

    def awaitActive(self, title):
        waitFor(lambda: self.activeTitle().startswith(title),
                lambda: f"{title!r} to have the keyboard and not {self.activeTitle()!r}")

    def activate(self, title):
        self.asked("xdotool", "windowactivate", self.number(title))
        self.awaitActive(title)

    def closeByKey(self, title):
        """By Alt+F4. The window manager loses a key that comes while it is busy with the window, so it is pressed again as
        long as that window has the keyboard. A window that only closes at the second asking passes here: that each goes
        at the first is for the window tests."""
        self.activate(title)
        number = waitFor(self.activeNumber, f"the number of {title!r}")
        for _ in range(5):
            pressed = self.held("alt+F4") if self.activeNumber() == number else contextlib.nullcontext()
            with contextlib.suppress(AssertionError), pressed:
                return waitFor(lambda: not self.shows(number), f"{title!r} to close", 4)
        raise AssertionError(f"{title!r} does not close")

    def sizeOf(self, title):
        """Width and height of what the frame holds."""
        return self.areaOf(title)[2:]

    def areaOf(self, title):
        """Of what the frame holds: left, top, width, height."""
        return waitFor(lambda: self.areaNow(self.number(title)), f"the place of {title!r}")

    def areaNow(self, number):
        """None of a window that is going."""
        facts = self.asked("xwininfo", "-id", number)
        found = [re.search(rf"{key}: +(-?\d+)", facts)
                 for key in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        return tuple(int(each[1]) for each in found) if all(found) else None

    def frame(self, title):
        """As soon as the window has one."""
        return waitFor(lambda: self.frameNow(title), f"the frame of {title!r}")

    def frameNow(self, title):
        number = self.numberNow(title)
        area = number and self.areaNow(number)
        extents = area and re.search(r"= (\d+), (\d+), (\d+), (\d+)", self.asked("xprop", "-id", number,
                                                                                "_NET_FRAME_EXTENTS"))
        if not extents:
            return None
        left, right, top, bottom = (int(edge) for edge in extents.groups())
        x, y, width, height = area
        return Frame(x - left, y - top, x + width + right, y + height + bottom)

    def settled(self, title):
        """The frame, once it stands still."""
        last = []

        def still():
            last.append(self.frame(title))
            return len(last) > 3 and len(set(last[-3:])) == 1 and last[-1]

        return waitFor(still, f"{title!r} to stand still")

    def put(self, title, x, y):
        self.asked("xdotool", "windowmove", "--sync", self.number(title), str(x), str(y))

    def resize(self, title, width, height):
        self.asked("xdotool", "windowsize", self.number(title), str(width), str(height))
        waitFor(lambda: self.sizeOf(title) == (width, height), lambda: f"{width} x {height}, not {self.sizeOf(title)}")

    def minimise(self, title):
        """Gives what it takes to bring the window back."""
        number, area = self.number(title), self.areaOf(title)
        self.asked("xdotool", "windowminimize", number)
        waitFor(lambda: "HIDDEN" in self.asked("xprop", "-id", number, "_NET_WM_STATE"), f"{title!r} to be gone")
        return title, number, area

    def bringBack(self, minimised):
        title, number, area = minimised
        self.asked("xdotool", "windowactivate", number)
        waitFor(lambda: self.areaOf(title) == area, "the window to be back")
