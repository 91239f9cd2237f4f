#!/usr/bin/env python3
"""Each fault of the proxy, between two plain sockets."""
import contextlib
import socket
import time
import unittest

from peers import hangUp
from proxy import Proxy, unacknowledged


class ProxyCheck(unittest.TestCase):
    def setUp(self):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.addCleanup(hangUp, self.listener)

    def join(self, **faults):
        self.proxy = Proxy(self.listener.getsockname()[1], **faults)
        self.addCleanup(self.proxy.end)
        self.connect()

    def connect(self):
        self.program = socket.create_connection(("127.0.0.1", self.proxy.port))
        self.server, _ = self.listener.accept()
        for end in self.program, self.server:
            end.settimeout(5)
            self.addCleanup(end.close)

    def read(self, count, end=None):
        text = b""
        with contextlib.suppress(TimeoutError):
            while len(text) < count and (piece := (end or self.program).recv(65536)):
                text += piece
        return text

    def testWithoutFaultsAllPassesBothWaysAndIsKept(self):
        self.join()
        self.server.sendall(b"login: ")
        self.assertEqual(self.read(7), b"login: ")
        self.program.sendall(b"Pupil\n")
        self.assertEqual(self.read(6, self.server), b"Pupil\n")
        self.assertEqual((bytes(self.proxy.received), self.proxy.text()), (b"login: ", "Pupil\n"))

    def testADelayHoldsForBothWaysAndKeepsTheOrder(self):
        self.join(delay=0.3, jitter=0.1)
        for ends in (self.server, self.program), (self.program, self.server):
            begun = time.monotonic()
            for number in range(20):
                ends[0].sendall(b"%02d " % number)
                time.sleep(0.01)
            first = self.read(3, ends[1])
            self.assertGreaterEqual(time.monotonic() - begun, 0.3)
            self.assertEqual(first + self.read(60 - len(first), ends[1]), b"".join(b"%02d " % each for each in range(20)))

    def testCrumbsAreOneByteEach(self):
        self.join(piece=1)
        self.server.sendall(b"<12> rnbqkbnr")
        pieces = []
        while sum(map(len, pieces)) < 13:
            pieces.append(self.program.recv(65536))
        self.assertEqual(b"".join(pieces), b"<12> rnbqkbnr")
        self.assertGreater(len(pieces), 6)

    def testAStallHoldsEverythingBackAndLosesNothing(self):
        self.join()
        begun = time.monotonic()
        self.proxy.stall(0.5)
        self.server.sendall(b"late")
        self.assertEqual(self.read(4), b"late")
        self.assertGreaterEqual(time.monotonic() - begun, 0.5)

    def testADeafLineAcknowledgesNothing(self):
        self.join()
        self.server.sendall(b"x")
        self.read(1)
        self.proxy.goDeaf()
        self.program.sendall(b"e2-e4\n")
        self.server.settimeout(0.3)
        self.assertEqual(self.read(6, self.server), b"")
        self.assertEqual(unacknowledged(self.program), 6)
        self.server.sendall(b"y")
        self.program.settimeout(0.3)
        self.assertEqual(self.read(1), b"")

    def testACutGivesAllUpToItsPlaceAndThenResets(self):
        for piece in None, 1:
            with self.subTest(piece=piece):
                self.join(piece=piece)
                self.proxy.cutBehind(b"half a li")
                self.server.sendall(b"one half a ")
                self.server.sendall(b"line and more")
                with self.assertRaises(ConnectionResetError):
                    self.proxy.awaitCut()
                    while self.program.recv(1):
                        pass
                self.assertEqual(bytes(self.proxy.received), b"one half a li")
                self.assertEqual(self.read(1, self.server), b"")

    def testTheNextConnectionMayGoToAnotherServer(self):
        self.join()
        self.server.sendall(b"one")
        self.read(3)
        hangUp(self.program)
        with socket.create_server(("127.0.0.1", 0)) as other:
            self.proxy.leadTo(other.getsockname()[1])
            program = socket.create_connection(("127.0.0.1", self.proxy.port))
            server, _ = other.accept()
            self.addCleanup(hangUp, program, server)
            server.sendall(b"two")
            self.assertEqual(program.recv(3), b"two")
            self.assertEqual(self.proxy.before, [b"one"])
            self.assertEqual(bytes(self.proxy.received), b"two")


if __name__ == "__main__":
    unittest.main(verbosity=2)
