"""What the end-to-end tests stand on: the built program under a virtual display, the practice server, and between the
two a wire that keeps every byte. The tests see what a user sees, the screen, and what the server receives."""
import os
import pathlib
import queue
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tools"))
from desktop import LEFT, RIGHT, Display, waitFor  # noqa: E402, F401

BUILD = pathlib.Path(os.environ.get("BRIGHTRANK_BUILD", ROOT / "build/dev")).resolve()
LIGHT, DARK = (241, 234, 205), (188, 131, 46)  # the default colours of the squares
MOVED, PRE_MOVED = (255, 0, 0), (0, 255, 0)  # and of the marks
TWIPS = 15  # a pixel

STORE = """[Client]
Registry_OK=Yes
IP=127.0.0.1
Port={port}
Use_Timeseal=False
Auto_Connect=True
Auto_Logon=True
Handle={handle}
Password={password}
Last_Server=0
Sound_On=0
Left=150
Top=9900
Width=9000
Height=5400
{extra}
[Board]
Left=9900
Top=150
Width={boardWidth}
Height={boardHeight}
"""


class Wire:
    """Listens for the program, hands its bytes on to the practice server and the answers back, and keeps them."""

    def __init__(self, serverPort):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.serverPort = serverPort
        self.sent = bytearray()  # by the program
        self.received = bytearray()  # by the program
        self.times = []  # (moment, count of bytes sent by then)
        self.thread = threading.Thread(target=self.run, daemon=True)
        self.thread.start()

    def run(self):
        try:
            self.client, _ = self.listener.accept()
        except OSError:
            return
        self.client.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.server = socket.create_connection(("127.0.0.1", self.serverPort))
        threading.Thread(target=self.carry, args=(self.server, self.client, self.received), daemon=True).start()
        self.carry(self.client, self.server, self.sent)

    def carry(self, source, target, kept):
        try:
            while piece := source.recv(65536):
                kept += piece
                if kept is self.sent:
                    self.times.append((time.monotonic(), len(kept)))
                target.sendall(piece)
            target.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass

    def sayForUser(self, line):
        """A command to the server that the program knows nothing of."""
        self.server.sendall(line.encode("latin-1") + b"\n")

    def lines(self):
        """What the program has sent so far, line by line."""
        return bytes(self.sent).decode("latin-1").split("\n")

    def positions(self):
        """The Style 12 lines that the program was given, each as its fields."""
        found = re.findall(rb"<12> ([^\r\n]*)[\r\n]", bytes(self.received))
        return [line.decode("latin-1").split(" ") for line in found]

    def end(self):
        for each in (self.listener, getattr(self, "client", None), getattr(self, "server", None)):
            if each:
                each.close()


class PracticeServer:
    def __init__(self, *options):
        self.process = subprocess.Popen([str(BUILD / "brightrank-practice"), "--port", "0", "--seed", "7", *options],
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        while not (found := re.search(rb"127\.0\.0\.1:(\d+)|port (\d+)", self.process.stdout.readline())):
            if self.process.poll() is not None:
                raise RuntimeError("the practice server did not start")
        self.port = int(found[1] or found[2])

    def end(self):
        self.process.terminate()
        self.process.wait(10)


class Partner:
    """Another user of the server, who types."""

    def __init__(self, port, handle="Rookery"):
        self.socket = socket.create_connection(("127.0.0.1", port))
        self.text = ""
        self.read = 0
        self.pieces = queue.Queue()
        threading.Thread(target=self.listen, daemon=True).start()
        self.await_("login:")
        self.say(handle)
        self.await_("password:")
        self.say("practice")
        self.await_("fics% ")
        self.say("set style 12")
        self.await_("fics% ")

    def listen(self):
        try:
            while piece := self.socket.recv(65536):
                self.pieces.put(piece.decode("latin-1"))
        except OSError:
            pass

    def say(self, line):
        self.socket.sendall(line.encode("latin-1") + b"\n")

    def await_(self, pattern, seconds=10):
        """Waits for a pattern in what has come since the last one, and gives its match."""
        until = time.monotonic() + seconds
        while not (found := re.compile(pattern).search(self.text, self.read)):
            try:
                self.text += self.pieces.get(timeout=max(0.0, until - time.monotonic()))
            except queue.Empty:
                raise AssertionError(f"no {pattern!r} in {self.text[self.read:][-600:]!r}") from None
        self.read = found.end()
        return found

    def end(self):
        self.socket.close()


class Screen:
    """The board as it stands on the screen: where its squares are and what stands on them."""

    INNER = 0.2  # of a square's side, left out at each edge: marks are painted there

    def __init__(self, display, flipped=False):
        self.display = display
        self.flipped = flipped
        self.pieces = {}  # bytes of a square's middle -> piece letter

    def find(self):
        """Looks for the board; false when none shows."""
        picture = self.display.picture()
        dark = bytes(reversed(DARK))
        left, right, top, bottom = picture.width, -1, -1, -1
        for y in range(picture.height):
            row = picture.row(y)
            first = next((x for x in iter4(row, dark)), None)
            if first is None:
                continue
            top = y if top < 0 else top
            bottom = y
            left = min(left, first)
            right = max(right, row.rfind(dark + row[4 * first + 3:4 * first + 4]) // 4)
        if right - left < 100:
            return False
        self.left, self.top = left, top
        self.side = (right - left + 1) // 8
        return abs((bottom - top + 1) - 8 * self.side) <= 8

    def corner(self, square):
        column, row = ord(square[0]) - ord("a"), int(square[1]) - 1
        if self.flipped:
            column, row = 7 - column, 7 - row
        return self.left + column * self.side, self.top + (7 - row) * self.side

    def centre(self, square):
        x, y = self.corner(square)
        return x + self.side // 2, y + self.side // 2

    def middles(self):
        """The picture of each square without its edge."""
        edge = int(self.side * self.INNER)
        inner = self.side - 2 * edge
        picture = self.display.picture(self.left, self.top, 8 * self.side, 8 * self.side)
        found = {}
        for square in SQUARES:
            x, y = self.corner(square)
            found[square] = picture.part(x - self.left + edge, y - self.top + edge, inner, inner)
        return found

    def learn(self, rows):
        """Takes the pieces' looks from a position that is known to show; rows as in a Style 12 line."""
        for square, look in self.middles().items():
            self.pieces[look] = pieceOn(rows, square)

    def read(self):
        """The position that shows, as the eight rows of a Style 12 line; "?" for what is no known piece."""
        middles = self.middles()
        return ["".join(self.pieces.get(middles[file + rank], "?") for file in "abcdefgh") for rank in "87654321"]

    def mark(self, square):
        """The colour of the square's frame."""
        x, y = self.corner(square)
        return self.display.picture(x, y, self.side, self.side).pixel(0, self.side // 2)


SQUARES = [file + rank for rank in "12345678" for file in "abcdefgh"]
# Every piece and the empty square on both colours.
ALL_PIECES = ["KQRBNPkq", "rbnp----", "-KQRBNPk", "-rbnpq--", "--------", "--------", "--------", "--------"]


def iter4(row, colour):
    """Columns of the pixels of that colour."""
    at = row.find(colour)
    while at >= 0:
        if at % 4 == 0:
            yield at // 4
        at = row.find(colour, at + 1)


def pieceOn(rows, square):
    return rows[8 - int(square[1])][ord(square[0]) - ord("a")]


class Client:
    """The built program with a store of its own, on a display of the test's."""

    def __init__(self, display, port, handle="Pupil", password="practice", program=BUILD / "brightrank",
                 boardWidth=10500, boardHeight=9000, **settings):
        self.folder = tempfile.mkdtemp(prefix="brightrank-e2e-")
        store = pathlib.Path(self.folder, "config/Brightrank/Brightrank.ini")
        store.parent.mkdir(parents=True)
        extra = "\n".join(f"{key}={value}" for key, value in settings.items())
        store.write_text(STORE.format(port=port, handle=handle, password=password, extra=extra, boardWidth=boardWidth,
                                      boardHeight=boardHeight))
        self.log = open(pathlib.Path(self.folder, "log"), "wb")
        self.process = subprocess.Popen([str(program)], cwd=self.folder, stdout=self.log, stderr=self.log,
                                        env=display.environment() | {"XDG_CONFIG_HOME": self.folder + "/config"})

    def memory(self):
        """Resident, in megabytes of 10^6 bytes."""
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(re.search(r"VmRSS:\s+(\d+)", status)[1]) * 1024 / 1e6

    def end(self):
        """Asks the program to end; gives its exit status."""
        self.process.terminate()
        try:
            status = self.process.wait(15)
        finally:
            self.log.close()
            shutil.rmtree(self.folder, ignore_errors=True)
        return status
