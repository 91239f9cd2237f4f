"""Takes the looks of all pieces from the screen: a server that shows one position, and a run of the program."""
import socket
import threading

from rig import ALL_PIECES, Client, Screen, waitFor

LINE = ("<12> {} W -1 0 0 0 0 0 7 Lantern Harbour 0 3 0 39 39 180 180 1 none (0:00) none 0 0 0")


class OnePosition:
    """Logs one client on and shows it one position."""

    def __init__(self, rows):
        self.rows = rows
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.thread = threading.Thread(target=self.run, daemon=True)
        self.thread.start()

    def run(self):
        self.client, _ = self.listener.accept()
        reader = self.client.makefile("rb")
        self.client.sendall(b"login: ")
        reader.readline()
        self.client.sendall(b"\n\rpassword: ")
        reader.readline()
        self.client.sendall(b"\n\r**** Starting FICS session as Pupil ****\n\r\n\rfics% ")
        reader.readline()
        self.client.sendall(b"\n\r" + LINE.format(" ".join(self.rows)).encode() + b"\n\rfics% ")

    def end(self):
        self.client.close()
        self.listener.close()


def learnPieces(display, **client):
    """The pieces' looks as a `Screen` keeps them, on a board of the size that `client` gives."""
    server = OnePosition(ALL_PIECES)
    program = Client(display, server.port, **client)
    screen = Screen(display)
    try:
        waitFor(screen.find, 15, "a board")
        waitFor(lambda: settled(screen), 10, "the position")
        screen.learn(ALL_PIECES)
    finally:
        program.end()
        server.end()
    return screen.pieces


def settled(screen):
    """True when the squares show twelve pieces and nothing on two colours, twice in a row."""
    first = screen.middles()
    return len(set(first.values())) == 26 and first == screen.middles()
