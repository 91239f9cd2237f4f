"""The built program with a settings store of its own. The tests see what a user sees, the screen, and what a server
receives."""
import contextlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tools"))
from desktop import LIMIT, RIGHT, SCALE, Display, endProcess, waitFor  # noqa: E402, F401

BUILD = pathlib.Path(os.environ.get("BRIGHTRANK_BUILD", ROOT / "build/dev")).resolve()

TWIPS = 15  # a pixel of the program's, in the store
QUIET = 0.25  # seconds in which something that must not happen would have happened
LOG_ON = "Pupil\npractice\nSet Style 12\n"  # all that the program says before its user does anything

# The keys of the store's section Client; a test may give others.
CLIENT = {"Registry_OK": "Yes", "IP": "127.0.0.1", "Use_Timeseal": "False", "Auto_Connect": "True",
          "Auto_Logon": "True", "Last_Server": 0, "Sound_On": 0,
          "Left": 150, "Top": 9900, "Width": 9000, "Height": 5400}


def section(name, keys):
    return f"[{name}]\n" + "".join(f"{key}={value}\n" for key, value in keys.items())


class Client:
    """The built program with a store of its own, on a display of the test's."""

    def __init__(self, display, port, handle="Pupil", password="practice", program=BUILD / "brightrank",
                 boardWidth=10500, boardHeight=9000, beside=None, points=None, arguments=(), **settings):
        """`beside` are files in the program's current directory, as names and what they link to; `points` is the size
        of the desktop's font, `arguments` stand in the program's command line."""
        self.folder = tempfile.mkdtemp(prefix="brightrank-e2e-")
        for name, target in (beside or {}).items():
            pathlib.Path(self.folder, name).symlink_to(target)
        self.store = pathlib.Path(self.folder, "config/Brightrank/Brightrank.ini")
        self.store.parent.mkdir(parents=True)
        client = CLIENT | {"Port": port, "Handle": handle, "Password": password} | settings
        board = {"Left": 9900, "Top": 150, "Width": boardWidth, "Height": boardHeight}
        self.store.write_text(section("Client", client) + section("Board", board))
        self.log = open(pathlib.Path(self.folder, "log"), "w+b")
        surroundings = display.environment() | {"XDG_CONFIG_HOME": self.folder + "/config"}
        self.process = subprocess.Popen([str(program), *arguments], cwd=self.folder, stdout=self.log, stderr=self.log,
                                        env=surroundings | self.desktop(points))

    def desktop(self, points):
        """The surroundings of a desktop with letters of that size."""
        if points is None:
            return {}
        fonts = {key: f"DejaVu Sans,{points},-1,5,50,0,0,0,0,0" for key in ("font", "menuFont", "toolBarFont")}
        self.store.parent.with_name("kdeglobals").write_text(section("General", fonts))
        return {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}

    def stored(self, key):
        """What the store's section Client holds for the key; the program's own word once it has ended."""
        client = self.store.read_text().split("[Client]")[1].split("\n[")[0]
        return re.search(rf"^{key}=(.*)$", client, re.MULTILINE)[1]

    def memory(self):
        """Resident, in megabytes of 10^6 bytes."""
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(re.search(r"VmRSS:\s+(\d+)", status)[1]) * 1024 / 1e6

    def end(self):
        """Asks the program to end, which it has to do in order, and gives what its store holds then. What it said of a
        disorder is shown."""
        try:
            status = endProcess(self.process)
            store = self.store.read_text()
        finally:
            if self.process.returncode != 0:
                self.log.seek(0)
                sys.stderr.write(self.log.read().decode(errors="replace"))
            self.log.close()
            shutil.rmtree(self.folder, ignore_errors=True)
        if status != 0:
            raise AssertionError(f"the program ended with status {status}")
        return store


def awaitStill(look, what):
    """What `look` gives once it is the same twice, a moment apart."""
    last = []

    def still():
        time.sleep(QUIET)
        last.append(look())
        return len(last) > 1 and last[-1] == last[-2] and last[-1]

    return waitFor(still, f"{what} to stand still")


def nameFile(display, path, taken):
    """Types a name into the file dialog that has the keyboard, until `taken()`. The dialog may not listen from the first
    letter on, and then asks about a file that is not there; the list of names that drops down may take the Return."""
    for _ in range(5):
        time.sleep(QUIET)
        display.keys("ctrl+a")
        display.type(str(path))
        with contextlib.suppress(AssertionError), display.held("Return"):
            return waitFor(taken, "the name to be taken", 3)
    raise AssertionError(f"{path} could not be named")


def awaitLifting():
    """No piece can be lifted in the first four seconds of a game."""
    time.sleep(4.2)
