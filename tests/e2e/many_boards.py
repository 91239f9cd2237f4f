#!/usr/bin/env python3
"""Forty boards of the built program side by side: what arrives for one, and the closing of one, concerns no other."""
import collections
import queue
import random
import threading
import time
import unittest

from forty import FORTY, FortyBoards
from rig import LOG_ON, SCALE, waitFor
from watched import WatchedGame


class Watching(FortyBoards):
    def testUpdatesReachTheRightBoards(self):
        self.awaitAll()
        for _ in range(10):
            self.round()
            self.awaitAll()

    def testAnUpdateOfOneChangesNoOther(self):
        self.awaitAll()
        for number in self.dice.sample(range(1, FORTY + 1), 10):
            self.server.say(self.games[number].next())
            self.awaitAll()

    def testClosedInAnyOrderTheyLeaveTheOthersAlone(self):
        for number in self.dice.sample(range(1, FORTY + 1), 30):
            self.round()
            self.awaitAll()  # an update on its way would open the board anew
            self.close(number)
            self.awaitCommand(f"unob {number}")
            self.forget(number)
            self.server.say(f"\n\rRemoving game {number} from observation list.\n\rfics% ")
        self.round()
        self.awaitAll()

    def testClosedByTheirOwnMenu(self):
        for number in self.dice.sample(range(1, FORTY + 1), 5):
            self.round()
            self.awaitAll()
            window = self.boards[number][0]
            self.display.click(window.left + 20 * SCALE, window.top + 10 * SCALE)
            menu = self.display.awaitMenu()  # File
            self.display.click(menu.left + menu.width // 2, menu.top + menu.height - 12 * SCALE)  # Exit is the last
            self.awaitCommand(f"unob {number}")
            self.forget(number)
        self.round()
        self.awaitAll()

    def testClosedInTheMidstOfAFloodOfUpdates(self):
        flood = Flood(self.server, self.games)
        closed = self.dice.sample(range(1, FORTY + 1), 20)
        for number in closed:
            time.sleep(self.dice.random() / 50)
            self.close(number)
            flood.awaitLeft(number)
            self.display.awaitGone(self.boards[number][0])
        flood.end()
        last = WatchedGame(FORTY + 1)
        self.server.say(last.now())
        waitFor(lambda: self.display.windows(last.title), "the flood to be read", 60)
        closed.append(last.number)
        for number in closed:  # an update that was on its way has opened a board anew
            for window in self.display.windows(WatchedGame(number).title):
                self.display.closeWindow(window)
                waitFor(lambda: not self.display.windows(WatchedGame(number).title), "the board to close")
        self.expected = self.server.sent.decode("latin-1").removeprefix(LOG_ON)
        commands = [line for line in self.expected.split("\n")[:-1] if not line.startswith("moves ")]
        self.assertEqual(list(dict.fromkeys(commands)), [f"unob {number}" for number in closed])
        self.games = {number: game for number, game in self.games.items() if number not in closed}
        self.assertEqual({game.title for game in self.games.values()}, {each.title for each in self.boardWindows()})

    def testClosedWhileTheyOpen(self):
        for count in range(25):
            game = WatchedGame(50 + count)
            before = {window.number for window in self.display.windows()}
            self.server.say(game.now() + "".join(each.next() for each in self.games.values()))
            opened = waitFor(lambda: [each for each in self.display.windows() if each.number not in before],
                             "another board")
            time.sleep(count * 0.001)
            self.display.closeWindow(opened[0])
            self.awaitCommand(f"moves {game.number}")
            self.awaitCommand(f"unob {game.number}")
            waitFor(lambda: not self.display.windows(game.title), f"{game.title} to close")
        self.awaitAll()


class Flood:
    """Updates of all games at random, one a millisecond at the most, until their boards leave them."""

    def __init__(self, server, games):
        self.server, self.games = server, dict(games)
        self.left = collections.Counter()
        self.ended = False
        self.threads = [threading.Thread(target=each, daemon=True) for each in (self.send, self.listen)]
        for thread in self.threads:
            thread.start()

    def send(self):
        dice = random.Random(11)
        while not self.ended:
            number = dice.choice([number for number in self.games if not self.left[number]])
            game = self.games[number]
            self.server.say(game.next() if game.place + 1 < len(game.course) else game.now())
            time.sleep(0.001)

    def listen(self):
        while not self.ended:
            try:
                line = self.server.lines.get(timeout=0.05)[1]
            except queue.Empty:
                continue
            if line.startswith("unob "):
                self.left[int(line.removeprefix("unob "))] += 1

    def awaitLeft(self, number):
        waitFor(lambda: self.left[number], f"unob {number}")

    def end(self):
        self.ended = True
        for thread in self.threads:
            thread.join()


if __name__ == "__main__":
    unittest.main(verbosity=2)
