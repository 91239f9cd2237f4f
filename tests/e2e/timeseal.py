#!/usr/bin/env python3
"""The built program behind a TimeSeal relay of the project's own: log-on, a game by hand, its end; and no relay."""
import os
import pathlib
import socket
import sys
import tempfile

from game import PlayedByHand, unittest, waitFor
from rig import BUILD

PORT = 6000  # of the relay, fixed and so one for the whole machine
LOCK = pathlib.Path(tempfile.gettempdir(), "brightrank-test-port-6000.lock")


def lockPort():
    """Waits until no other test uses the port. The lock is one of the toolkit's, as other tests use it too."""
    names = [os.getpid(), os.path.realpath(sys.executable), socket.gethostname(),
             pathlib.Path("/etc/machine-id").read_text().strip() if os.path.exists("/etc/machine-id") else "",
             pathlib.Path("/proc/sys/kernel/random/boot_id").read_text().strip()]

    def taken():
        try:
            lock = os.open(LOCK, os.O_CREAT | os.O_EXCL | os.O_WRONLY, 0o644)
        except FileExistsError:
            return False
        os.write(lock, "".join(f"{name}\n" for name in names).encode())
        os.close(lock)
        return True
    waitFor(taken, 60, f"{LOCK}, the lock of another test")


def socketOf(port):
    """The name of the socket on this machine that has that local port and is connected."""
    for line in pathlib.Path("/proc/net/tcp").read_text().splitlines()[1:]:
        fields = line.split()
        if int(fields[1].split(":")[1], 16) == port and fields[3] == "01":
            return f"socket:[{fields[9]}]"
    return None


def filesOf(process):
    """What a process has open."""
    return [os.readlink(each) for each in pathlib.Path(f"/proc/{process}/fd").iterdir()]


class AskedForTimeSeal(PlayedByHand):
    settings = {"Use_Timeseal": "True"}

    def setUp(self):
        lockPort()
        self.addCleanup(LOCK.unlink)

    def relayLog(self):
        log = pathlib.Path(self.client.folder, "relay.log")
        return log.read_text().splitlines() if log.exists() else []


class BehindARelay(AskedForTimeSeal):
    beside = {"timeseal.exe": BUILD / "test_relay"}

    def relayRuns(self):
        return os.path.exists(f"/proc/{self.relayProcess()}")

    def relayProcess(self):
        return next(line.removeprefix("process ") for line in self.relayLog() if line.startswith("process "))

    def testAGameIsPlayedThroughTheRelay(self):
        self.begin()
        log = self.relayLog()
        self.assertEqual(log[:4], ["127.0.0.1", str(self.wire.port), "-p", str(PORT)])
        self.assertEqual(log.count("ready"), 1)
        self.assertTrue(self.relayRuns())
        self.assertIn(socketOf(self.wire.client.getpeername()[1]), filesOf(self.relayProcess()))
        self.play("e2e4", "e7e5", "f1c4", "b8c6", "d1h5", "g8f6")
        self.drag("h5", "f7")
        self.partner.await_("Rookery checkmated")
        self.awaitSent("e2-e4", "f1-c4", "d1-h5", "h5-f7")
        self.awaitPosition()
        self.awaitWindow("Brightrank - Client     Connected to FICS")

    def testTheRelayEndsWithTheProgram(self):
        self.begin()
        self.move("e2", "e4")
        self.awaitSent("e2-e4")
        process = self.relayProcess()
        self.assertTrue(self.relayRuns())
        self.client.process.terminate()
        waitFor(lambda: not os.path.exists(f"/proc/{process}"), 10, "the relay to end")


class WithoutARelay(AskedForTimeSeal):
    def greet(self):
        """The box that tells that there is none."""
        self.awaitDialog("Brightrank")
        self.assertEqual(self.wire.lines(), [""])
        self.display.keys("Return")

    def testTheConnectionIsDirect(self):
        self.begin()
        self.move("e2", "e4")
        self.awaitSent("e2-e4")
        self.assertEqual(self.relayLog(), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
