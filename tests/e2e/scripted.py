"""A server of the test's own: it logs one client on, says what it is told to, and keeps what the client sends."""
import queue
import socket
import threading
import time
import unittest

from peers import hangUp
from rig import LIMIT, Client
from style12 import PROMPT


class ScriptedServer:
    """`lines` holds what the client has sent, each with its moment; `sent` keeps every byte."""

    def __init__(self):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.lines = queue.Queue()  # (moment, line)
        self.sent = bytearray()  # by the client
        self.thread = threading.Thread(target=self.listen, daemon=True)
        self.thread.start()

    def listen(self):
        try:
            self.client, _ = self.listener.accept()
            self.client.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            self.say("login: ")
            rest = b""
            while piece := self.client.recv(65536):
                now = time.perf_counter()
                self.sent += piece
                *lines, rest = (rest + piece).split(b"\n")
                for line in lines:
                    self.hear(now, line.decode("latin-1"))
        except OSError:
            pass

    def hear(self, moment, line):
        self.lines.put((moment, line))

    def say(self, text):
        self.client.sendall(text.encode("latin-1"))

    def awaitLine(self, wanted, seconds=LIMIT):
        """The moment at which that line came; another one before it is an error."""
        try:
            moment, line = self.lines.get(timeout=seconds)
        except queue.Empty:
            raise AssertionError(f"{wanted!r} did not come") from None
        if line != wanted:
            raise AssertionError(f"the program sent {line!r} and not {wanted!r}")
        return moment

    def logOn(self, handle="Pupil", password="practice"):
        self.awaitLine(handle)
        self.say("\n\rpassword: ")
        self.awaitLine(password)
        self.say(f"\n\r**** Starting FICS session as {handle} ****\n\r{PROMPT}")
        self.awaitLine("Set Style 12")
        self.say("\n\rStyle 12 set." + PROMPT)

    def whole(self):
        """All that the client has sent, when it has ended."""
        self.thread.join(LIMIT)
        return bytes(self.sent).decode("latin-1")

    def end(self):
        hangUp(self.listener, getattr(self, "client", None))


class ScriptedCase(unittest.TestCase):
    """A program on `display` that talks with a scripted server; both end with the test."""
    LEARNT = 1.3  # seconds of silence, behind which the program knows the server's prompt
    Server = ScriptedServer

    def begin(self, display, **settings):
        self.display = display
        self.server = self.Server()
        self.addCleanup(self.server.end)
        self.client = Client(display, self.server.port, **settings)
        self.addCleanup(self.endClient)

    def logOn(self, display):
        self.begin(display)
        self.server.logOn()
        time.sleep(self.LEARNT)

    def endClient(self):
        """What its store holds then; the second time nothing."""
        return None if self.client.log.closed else self.client.end()
