#!/usr/bin/env python3
"""The built program behind a TimeSeal relay of the project's own: log-on, a game by hand, its end; and no relay."""
import fcntl
import os
import pathlib
import tempfile
from unittest import mock

from game import PlayedByHand, unittest, waitFor
from rig import BUILD, LIMIT, Client

PORT = 6000  # of the relay, fixed and so one for the whole machine
LOCK = pathlib.Path(tempfile.gettempdir(), "brightrank-relay-port.lock")


def free(lock):
    """Locks a file if nobody else has."""
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        return False
    return True


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
        lock = self.enterContext(LOCK.open("a"))  # other tests use the same
        waitFor(lambda: free(lock), "the other tests that start a relay", 60)

    def relayLog(self):
        log = pathlib.Path(self.client.folder, "relay.log")
        return log.read_text().splitlines() if log.exists() else []

    def assertOnTheWire(self, process):
        """The wire leads to that process."""
        self.assertIn(socketOf(self.wire.client.getpeername()[1]), filesOf(process))


class BehindARelay(AskedForTimeSeal):
    beside = {"timeseal.exe": BUILD / "test_relay"}

    def relayRuns(self):
        return os.path.exists(f"/proc/{self.relayProcess()}")

    def relayProcess(self):
        return next(line.removeprefix("process ") for line in self.relayLog() if line.startswith("process "))

    def mode(self, name):
        self.enterContext(mock.patch.dict(os.environ, RELAY_MODE=name))

    def testAGameIsPlayedThroughTheRelay(self):
        self.begin()
        log = self.relayLog()
        self.assertEqual(log[:4], ["127.0.0.1", str(self.wire.port), "-p", str(PORT)])
        self.assertEqual(log.count("ready"), 1)
        self.assertTrue(self.relayRuns())
        self.assertOnTheWire(self.relayProcess())
        self.play("e2e4", "e7e5", "f1c4", "b8c6", "d1h5", "g8f6")
        self.drag("h5", "f7")
        self.partner.await_("Rookery checkmated")
        self.awaitSent("e2-e4", "f1-c4", "d1-h5", "h5-f7")
        self.awaitPosition()
        self.display.awaitWindow("Brightrank - Client     Connected to FICS")

    def testTheRelayEndsWithTheProgram(self):
        self.mode("stays")
        self.begin()
        self.move("e2", "e4")
        self.awaitSent("e2-e4")
        process = self.relayProcess()
        self.assertTrue(self.relayRuns())
        self.client.process.terminate()
        self.client.process.wait(LIMIT)
        waitFor(lambda: not os.path.exists(f"/proc/{process}"), "the relay to end")

    def testTheHostReachesTheRelayAsItStandsInTheSettings(self):
        self.mode("dies")
        self.client = Client(self.display, 5000, beside=self.beside, **self.settings, IP=r'"a b; \"c\""')
        self.addCleanup(self.client.end)
        waitFor(lambda: len(self.relayLog()) > 4, "the relay")
        self.assertEqual(self.relayLog()[:4], ['a b; "c"', "5000", "-p", str(PORT)])


class WithoutARelay(AskedForTimeSeal):
    def greet(self):
        """The box that tells that there is none."""
        self.display.awaitDialog("Brightrank")
        self.assertEqual(self.wire.text(), "")
        self.display.keys("Return")

    def testTheConnectionIsDirect(self):
        self.begin()
        self.move("e2", "e4")
        self.awaitSent("e2-e4")
        self.assertOnTheWire(self.client.process.pid)


if __name__ == "__main__":
    unittest.main(verbosity=2)
