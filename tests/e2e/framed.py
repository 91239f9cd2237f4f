"""A display with a window manager: windows have frames, and the program does not decide alone where they go."""
import re
import subprocess
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
    def __enter__(self):
        super().__enter__()
        manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment(), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        self.atEnd.callback(endProcess, manager)
        waitFor(lambda: "window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")
        return self

    def ask(self, *command):
        return subprocess.run(command, env=self.environment(), capture_output=True, text=True).stdout

    def named(self, title):
        """The number of the window of that title that shows; None without one."""
        numbers = self.ask("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$").split()
        return numbers[-1] if numbers else None

    def frame(self, title):
        """Of the window of that title, as soon as it has one."""
        return waitFor(lambda: self.frameNow(title), f"the frame of {title!r}")

    def frameNow(self, title):
        number = self.named(title)
        facts = number and self.ask("xwininfo", "-id", number)
        extents = number and re.search(r"= (\d+), (\d+), (\d+), (\d+)", self.ask("xprop", "-id", number,
                                                                               "_NET_FRAME_EXTENTS"))
        if not facts or not extents:
            return None
        left, right, top, bottom = (int(edge) for edge in extents.groups())
        x, y, width, height = (int(re.search(rf"{fact}:\s+(-?\d+)", facts)[1]) for fact in
                               ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        return Frame(x - left, y - top, x + width + right, y + height + bottom)

    def settled(self, title):
        """The frame, once it stands still."""
        last = []

        def still():
            last.append(self.frame(title))
            return len(last) > 3 and len(set(last[-3:])) == 1 and last[-1]

        return waitFor(still, f"{title!r} to stand still")

    def focus(self, title):
        """Brings a window up, with the keys."""
        self.frame(title)
        subprocess.run(["xdotool", "windowactivate", "--sync", self.named(title)], env=self.environment(), check=True)
