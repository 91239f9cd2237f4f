"""An evening with the built program, from a machine without settings on: how it is started, its menus and windows are
found over the accessibility bus, and the practice server reached."""
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

from accessible import AccessibleDisplay, menusOf
from peers import PracticeServer, Wire
from rig import BUILD, endProcess, waitFor
from style12 import RELATION

CLIENT = "Brightrank - Client"
LEARNT = 1.3  # seconds of silence, behind which the program knows the server's prompt
AFTER_GRAPH = 2.2  # seconds from its first tick to its second, in which the console shows nothing
MINE, MY_MOVE = ("-1", "1"), "1"  # relations of a game to its player


class Evening(unittest.TestCase):
    """The program without settings, on a managed display with the accessibility bus, and the practice server behind a
    wire."""

    def setUp(self):
        self.display = self.enterContext(AccessibleDisplay())
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="brightrank-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.server = PracticeServer()
        self.addCleanup(self.server.end)
        self.listen()
        self.process = None
        self.addCleanup(lambda: self.process and endProcess(self.process))

    def listen(self, port=0):
        self.wire = Wire(self.server.port, port)
        self.addCleanup(self.wire.end)

    # The program

    def start(self):
        surroundings = self.display.environment() | {"XDG_CONFIG_HOME": str(self.folder / "config")}
        self.process = subprocess.Popen([str(BUILD / "brightrank")], cwd=self.folder, env=surroundings)
        self.display.number("Brightrank - Board")

    def quit(self):
        self.choose("Connect", "Exit")
        self.assertEqual(self.process.wait(30), 0)
        self.process = None

    # What a user does and sees

    def entry(self, menu, name, title=CLIENT):
        return next(entry for above, entry in menusOf(self.display.window(title)) if (above, entry.name) == (menu, name))

    def choose(self, *entry):
        self.entry(*entry).press()

    def opened(self, title):
        self.display.awaitActive(title)
        return self.display.window(title)

    def awaitGone(self, title):
        waitFor(lambda: not self.display.windows(title), f"the end of {title!r}")

    def typeIn(self, title, line):
        self.display.activate(title)
        self.display.type(line)
        self.display.keys("Return")

    def awaitText(self, title, name, pattern):
        text = self.display.window(title).one("text", name)
        waitFor(lambda: re.search(pattern, text.text()), lambda: f"{pattern!r} in {text.text()[-400:]!r}")

    def awaitSent(self, line):
        waitFor(lambda: line + "\n" in self.wire.text(), lambda: f"{line!r} in {self.wire.text()!r}")

    def mine(self):
        """The positions of the own games."""
        return [fields for fields in self.wire.positions() if fields[RELATION] in MINE]

    def board(self):
        """Its title, which says who plays."""
        return self.titles()[1]

    def titles(self):
        return [window.name for window in self.display.windows()]
