"""A display with a window manager on it, which has a say in where windows go and which of them has the keyboard."""
import re
import subprocess
import tempfile

from rig import Display, endProcess, waitFor


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

    def asked(self, *command):
        return subprocess.run(command, env=self.environment(), capture_output=True, text=True).stdout

    def number(self, title):
        """That of the window, as soon as it shows."""
        found = waitFor(lambda: self.asked("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}"),
                        f"a window {title!r}")
        return found.split()[-1]

    def activeTitle(self):
        """Of the window that has the keyboard."""
        return self.asked("xdotool", "getactivewindow", "getwindowname").strip()

    def awaitActive(self, title):
        waitFor(lambda: self.activeTitle().startswith(title),
                lambda: f"{title!r} to have the keyboard and not {self.activeTitle()!r}")

    def activate(self, title):
        self.asked("xdotool", "windowactivate", self.number(title))
        self.awaitActive(title)

    def sizeOf(self, title):
        """Width and height of what the frame holds."""
        return self.areaOf(title)[2:]

    def areaOf(self, title):
        """Of what the frame holds: left, top, width, height."""
        facts = self.asked("xwininfo", "-id", self.number(title))
        return tuple(int(re.search(rf"{key}: +(-?\d+)", facts)[1])
                     for key in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

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
