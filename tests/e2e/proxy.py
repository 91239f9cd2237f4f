"""A wire between program and server with the faults of a network: slow, uneven, in crumbs, silent, dead, cut."""
import contextlib
import ctypes
import fcntl
import queue
import random
import socket
import struct
import termios
import threading
import time

from peers import Wire, hangUp

SO_ATTACH_FILTER = 26
WITHOUT_GOODBYE = struct.pack("ii", 1, 0)  # for SO_LINGER
CRUMB_PAUSE = 0.001  # seconds, so that each goes as a packet of its own


def deafen(connection):
    """From now on the system throws away what comes for this end before anybody sees it, acknowledgements too: the line
    is half-open, as a pulled cable leaves it."""
    dropAll = ctypes.create_string_buffer(struct.pack("HBBI", 6, 0, 0, 0))
    connection.setsockopt(socket.SOL_SOCKET, SO_ATTACH_FILTER, struct.pack("HP", 1, ctypes.addressof(dropAll)))


def unacknowledged(connection):
    """Bytes that the other end's system does not have yet."""
    return struct.unpack("i", fcntl.ioctl(connection, termios.TIOCOUTQ, bytes(4)))[0]


class Proxy(Wire):
    """Takes one program after the other. `received` is what the present one was given, `before` what the earlier ones
    were; the same holds for `sent`, which is of the present one alone.

    `delay` is in seconds and holds for both ways, `jitter` is added to it at random, in order; `piece` is the most
    bytes in a packet, of the server's."""

    def __init__(self, serverPort, port=0, delay=0.0, jitter=0.0, piece=None):
        self.delay, self.jitter, self.piece = delay, jitter, piece
        self.random = random.Random(7)
        self.opened = threading.Event()
        self.opened.set()
        self.cut = None  # bytes behind which the line is cut
        self.before = []
        self.ends = []
        super().__init__(serverPort, port)

    # What a test does to the line

    def stall(self, seconds):
        """Nothing passes for so long; nothing is lost."""
        self.opened.clear()
        threading.Timer(seconds, self.opened.set).start()

    def goDeaf(self):
        """All that the program sends is swallowed, and it hears nothing more."""
        self.opened.clear()
        deafen(self.client)

    def cutBehind(self, text):
        """The line is reset as soon as the program has been given these bytes."""
        self.cut = text

    def awaitCut(self, seconds=30):
        until = time.monotonic() + seconds
        while self.cut is not None:
            if time.monotonic() > until:
                raise AssertionError(f"{self.cut!r} did not come in {bytes(self.received)[-600:]!r}")
            time.sleep(0.01)

    def leadTo(self, serverPort):
        """Where the next connection goes."""
        self.serverPort = serverPort

    # How it does it

    def run(self):
        with contextlib.suppress(OSError):
            while True:
                client, _ = self.listener.accept()
                self.opened.set()  # before anybody can see the connection and stall it
                server = socket.create_connection(("127.0.0.1", self.serverPort))
                self.begin(client, server)

    def begin(self, client, server):
        for end in client, server:
            end.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.ends += client, server
        if hasattr(self, "client"):
            self.before.append(bytes(self.received))
        self.client, self.server, self.sent, self.received = client, server, bytearray(), bytearray()
        for source, target, kept in (client, server, self.sent), (server, client, self.received):
            due = queue.Queue()
            threading.Thread(target=self.hear, args=(source, due), daemon=True).start()
            threading.Thread(target=self.say, args=(due, source, target, kept), daemon=True).start()

    def hear(self, source, due):
        """Each piece with the moment at which it goes on; an empty one is the end."""
        last, piece = 0.0, b"-"
        while piece:
            try:
                piece = source.recv(65536)
            except OSError:
                piece = b""
            last = max(last, time.monotonic() + self.delay + self.random.uniform(0, self.jitter))
            due.put((last, piece))

    def say(self, due, source, target, kept):
        with contextlib.suppress(OSError):
            while (next := due.get())[1]:
                moment, piece = next
                time.sleep(max(0.0, moment - time.monotonic()))
                self.opened.wait()
                if not self.pass_(piece, target, kept):
                    return
            target.shutdown(socket.SHUT_WR)

    def pass_(self, piece, target, kept):
        """False when the line is no more."""
        if kept is self.sent:
            self.times.append(time.monotonic())
        end = self.placeOfCut(kept, piece)
        self.crumble(piece[:end], target, kept)
        if end is None:
            return True
        while unacknowledged(target):
            time.sleep(0.001)
        self.reset()
        return False

    def placeOfCut(self, kept, piece):
        """In the piece, behind the bytes to cut at; None without."""
        if self.cut is None or kept is not self.received:
            return None
        place = (bytes(kept) + piece).find(self.cut, max(0, len(kept) - len(self.cut) + 1))
        return None if place < 0 else place + len(self.cut) - len(kept)

    def crumble(self, piece, target, kept):
        size = self.piece if self.piece and kept is self.received else len(piece) or 1
        for at in range(0, len(piece), size):
            kept += piece[at:at + size]
            target.sendall(piece[at:at + size])
            if size < len(piece):
                time.sleep(CRUMB_PAUSE)

    def reset(self):
        """The program's line ends without a goodbye, the server's in order."""
        self.client.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, WITHOUT_GOODBYE)
        with contextlib.suppress(OSError):  # wakes who reads from it, who would keep it open
            self.client.shutdown(socket.SHUT_RD)
        self.client.close()
        hangUp(self.server)
        self.cut = None

    def whole(self):
        """All that the program has sent, when it has ended: when the server has been told so."""
        time.sleep(2 * self.delay + self.jitter)
        return self.text()

    def end(self):
        self.opened.set()
        hangUp(self.listener, *self.ends)
