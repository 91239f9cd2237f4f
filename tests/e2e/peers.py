"""Who the program talks with: the practice server, a wire to it that keeps every byte, and a partner who types."""
import contextlib
import os
import queue
import re
import socket
import subprocess
import threading
import time

from rig import BUILD, LIMIT, endProcess


def hangUp(*sockets):
    """Closes those that there are, also under a thread that reads from one."""
    for each in filter(None, sockets):
        with contextlib.suppress(OSError):  # it may not be connected
            each.shutdown(socket.SHUT_RDWR)
        each.close()


class Wire:
    """Listens for the program, hands its bytes on to the practice server and the answers back, and keeps them."""

    def __init__(self, serverPort, port=0):
        """`port` is that of one that has ended; 0 for a free one."""
        self.listener = socket.create_server(("127.0.0.1", port))
        self.port = self.listener.getsockname()[1]
        self.serverPort = serverPort
        self.sent = bytearray()  # by the program
        self.received = bytearray()  # by the program
        self.times = []  # the moments at which the program has sent
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
                if kept is self.sent:
                    self.times.append(time.monotonic())
                kept += piece
                target.sendall(piece)
            target.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass

    def sayForUser(self, line):
        """A command to the server that the program knows nothing of."""
        self.server.sendall(line.encode("latin-1") + b"\n")

    def text(self):
        """What the program has sent so far."""
        return bytes(self.sent).decode("latin-1")

    def whole(self):
        """All that the program has sent, when it has ended."""
        self.thread.join(LIMIT)
        return self.text()

    def positions(self):
        """The Style 12 lines that the program was given, each as its fields."""
        found = re.findall(rb"<12> ([^\r\n]*)[\r\n]", bytes(self.received))
        return [line.decode("latin-1").split(" ") for line in found]

    def end(self):
        hangUp(self.listener, getattr(self, "client", None), getattr(self, "server", None))


class PracticeServer:
    """It does not outlive the tests, in whatever way they end."""

    def __init__(self):
        self.process = subprocess.Popen(
            [str(BUILD / "brightrank-practice"), "--port", "0", "--seed", "7", "--ad-pace", "0", "--owner-pid", str(os.getpid())],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        while not (found := re.search(rb"127\.0\.0\.1:(\d+)", self.process.stdout.readline())):
            if self.process.poll() is not None:
                raise RuntimeError("the practice server did not start")
        self.port = int(found[1])

    def end(self):
        endProcess(self.process)
        self.process.stdout.close()


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

    def await_(self, pattern, seconds=LIMIT):
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
        hangUp(self.socket)
