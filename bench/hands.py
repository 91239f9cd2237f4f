#!/usr/bin/env python3
"""Measures what a hand on the board feels, with a real pointer on a virtual display and a server of its own.

    bench/hands.py [--program build/release/brightrank] [--moves 100] [--watched 12]

- CPU of the program for one movement of the pointer with a piece in hand, squares of 76 pixels.
- From letting go of the button to the move's bytes at the server, no delay against slips.
- From handing the opponent's move to the socket to the bytes of the queued pre-move at the server.
- From pressing Enter behind a typed letter to its bytes while the server sends the moves of watched games, each on a board
  of its own, as fast as the socket takes them and without end; under a window manager.

CPU is the run time of all threads as the kernel counts it. The times hold the display's and the loopback's share."""
import argparse
import os
import pathlib
import socket
import statistics
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tools"), str(ROOT / "tests/e2e")]
from desktop import Display, waitFor  # noqa: E402
from managed import ManagedDisplay  # noqa: E402
from month import MOVES  # noqa: E402
from rig import Client, awaitLifting  # noqa: E402
from screen import MOVED, PRE_MOVED, Screen  # noqa: E402
from scripted import ScriptedServer  # noqa: E402
from style12 import style12  # noqa: E402

HOME = ["rnbqkbnr", "pppppppp", "--------", "--------", "--------", "--------", "PPPPPPPP", "RNBQKBNR"]
OUT = HOME[:5] + ["-----N--", "PPPPPPPP", "RNBQKB-R"]
SIDE = 76  # pixels of a square
USERS, OPPONENTS = 1, -1  # relations: whose move it is


class Opponent(ScriptedServer):
    """A server at which the white knight goes to and fro, in one game that never ends."""

    number = 1

    def __init__(self):
        super().__init__()
        self.listener.setsockopt(socket.SOL_SOCKET, socket.SO_SNDBUF, 65536)  # what is said waits behind little
        self.turn = threading.Lock()  # to speak
        self.flooding = False

    def say(self, text):
        with self.turn:
            super().say(text)

    def hear(self, moment, line):
        """A new board asks for its moves."""
        if line.startswith("moves "):
            self.say(MOVES.format(line.split(" ")[1]))
        else:
            super().hear(moment, line)

    def flood(self, games):
        """Moves of watched games, without end."""
        text = "".join(style12(rows, white=f"White{game}", black=f"Black{game}", mover="B", relation=0, number=2,
                               move="N/g1-f3", pretty="Nf3", game=game)
                       for rows in (OUT, HOME) for game in range(101, 101 + games))
        self.flooding = True

        def go():
            while self.flooding:
                self.say(text)

        flood = threading.Thread(target=go)
        flood.start()
        return flood

    def position(self, rows, relation, move, pretty):
        """Shows a position with its prompt."""
        self.say(style12(rows, white="Bench", black="Other", mover="W" if relation == USERS else "B",
                         relation=relation, number=self.number, move=move, pretty=pretty))


class FloodedKeys:
    def __init__(self, display, options):
        self.display = display
        self.server = Opponent()
        self.client = Client(display, self.server.port, handle="Bench", password="bench", program=options.program)
        self.server.logOn("Bench", "bench")
        self.flood = self.server.flood(options.watched)
        waitFor(lambda: len(display.windows()) > options.watched, "a board for each and the console")

    def enters(self, count):
        """Milliseconds from each Enter to the line's bytes."""
        self.display.activate("Brightrank - Client")
        times = []
        for _ in range(count):
            self.display.keys("x")
            time.sleep(0.2)
            pressed = time.perf_counter()
            self.display.keys("Return")
            times.append(self.server.awaitLine("x") - pressed)
        return [1000 * each for each in times]

    def end(self):
        self.server.flooding = False
        self.flood.join()
        self.client.end()


class Hands:
    def __init__(self, display, options):
        self.display = display
        self.opponent = Opponent()
        self.client = Client(display, self.opponent.port, handle="Bench", password="bench", program=options.program,
                             boardWidth=12600, boardHeight=10500, PreMove_OK=1, Mouse_Slip=0)
        self.opponent.logOn("Bench", "bench")
        self.screen = Screen(display)
        self.opponent.position(HOME, USERS, "none", "none")
        waitFor(self.screen.find, "a board")
        awaitLifting()
        waitFor(self.screen.find, "the board")
        if self.screen.side != SIDE:
            raise SystemExit(f"hands: the squares have {self.screen.side} pixels and not {SIDE}")

    def cpu(self):
        tasks = pathlib.Path(f"/proc/{self.client.process.pid}/task").iterdir()
        return sum(int((task / "schedstat").read_text().split()[0]) for task in tasks) / 1e9

    def lift(self, square):
        self.display.move(*self.screen.centre(square))
        self.display.press()

    def pointerMoves(self, count, pause):
        """CPU milliseconds for each of `count` movements that far apart. A program that paints at a pace of its own
        would show by costing more when they come slowly."""
        self.lift("g1")
        waitFor(lambda: self.screen.mark("g1") == MOVED, "the piece to be lifted")
        x, y = self.screen.centre("d4")
        before = self.cpu()
        for step in range(count):
            self.display.move(x + 7 * (step % 40) - 140, y + 5 * (step % 60) - 150)
            time.sleep(pause)
        time.sleep(0.1)
        spent = self.cpu() - before
        if self.screen.mark("g1") != MOVED:
            raise SystemExit("hands: the piece was lost on the way")
        self.display.move(*self.screen.centre("g1"))
        self.display.release()
        time.sleep(0.2)
        return spent / count * 1000

    def rest(self, seconds):
        """CPU milliseconds of a second in which nobody does anything; the clock of the game runs."""
        before = self.cpu()
        time.sleep(seconds)
        return (self.cpu() - before) / seconds * 1000

    def releases(self, count):
        """Milliseconds from each mouse-up to the move's bytes."""
        times = []
        for start, end, rows in [("g1", "f3", OUT), ("f3", "g1", HOME)] * (count // 2):
            self.lift(start)
            self.display.move(*self.screen.centre(end))
            time.sleep(0.03)
            released = time.perf_counter()
            self.display.release()
            times.append(self.opponent.awaitLine(f"{start}-{end}") - released)
            self.opponent.number += 1
            self.opponent.position(rows, USERS, "p/h7-h6", "h6")
            time.sleep(0.03)
        return [1000 * each for each in times]

    def queue(self, start, end):
        """Queues a move; a piece taken up while a position is being put on the board stays where it is."""
        while self.screen.mark(end) != PRE_MOVED:
            self.lift(start)
            self.display.move(*self.screen.centre(end))
            self.display.release()
            self.display.move(*self.screen.centre("e5"))
            time.sleep(0.05)

    def preMoves(self, count):
        """Milliseconds from each opponent's move to the queued move's bytes."""
        times = []
        for start, end, rows in [("g1", "f3", HOME), ("f3", "g1", OUT)] * (count // 2):
            self.opponent.position(rows, OPPONENTS, "P/h2-h3", "h3")
            time.sleep(0.05)
            self.queue(start, end)
            self.opponent.number += 1
            handed = time.perf_counter()
            self.opponent.position(rows, USERS, "p/h7-h6", "h6")
            times.append(self.opponent.awaitLine(f"{start}-{end}") - handed)
            time.sleep(0.03)
        return [1000 * each for each in times]

    def end(self):
        self.client.end()


def show(name, times):
    ordered = sorted(times)
    print(f"{name}: median {statistics.median(ordered):.2f}, least {ordered[0]:.2f}, "
          f"of a hundred the second longest {ordered[-max(2, len(ordered) // 50)]:.2f}, {len(ordered)} measured")


def main():
    parser = argparse.ArgumentParser(description="Measures what a hand on the board feels.")
    parser.add_argument("--program", default=str(ROOT / "build/release/brightrank"))
    parser.add_argument("--moves", type=int, default=100)
    parser.add_argument("--watched", type=int, default=12)
    options = parser.parse_args()
    options.program = str(pathlib.Path(options.program).resolve())
    with Display() as display:
        hands = Hands(display, options)
        try:
            print(f"squares of {hands.screen.side} pixels, load {os.getloadavg()[0]:.1f}")
            print(f"a second at rest: {hands.rest(5):.3f} ms of CPU")
            for pause in (0.005, 0.02):
                print(f"a movement with a piece in hand, one every {1000 * pause:.0f} ms: "
                      f"{hands.pointerMoves(400, pause):.3f} ms of CPU")
            show("mouse-up to the move's bytes, ms", hands.releases(options.moves))
            show("opponent's move to the pre-move's bytes, ms", hands.preMoves(options.moves))
        finally:
            hands.end()
    with ManagedDisplay() as display:
        keys = FloodedKeys(display, options)
        try:
            show(f"Enter to the line's bytes under a flood for {options.watched} boards, ms", keys.enters(options.moves))
        finally:
            keys.end()


if __name__ == "__main__":
    main()
