#!/usr/bin/env python3
"""The program left open for long, with time in a hurry: a server of the test's own talks, shows games and lets the line
drop, while a user opens and closes his windows.

    tests/e2e/month.py [--hours 24] [--speed 60] [--lines 20000] [--games 40] [--allowance 4.0]

In each simulated hour there are that many lines of channel talk, that many watched games that come and go, every panel
once with its answer, boards that the user closes, and one lost line behind which he connects again. The seek graph polls
at its own pace throughout. Prints after each hour the memory, the memory without the text that the console keeps, and the
CPU of that hour. What a byte of talk costs in the console is measured before, and once more at the end, when the console
is cleared. By that price, which is the lower one, it fails when memory has grown by more than the allowance (megabytes)
since the second hour, the first in which all has been open once."""
import argparse
import collections
import contextlib
import pathlib
import queue
import re
import socket
import threading
import time

from help_panel import NEXT
from history_lists import GAMES
from managed import ManagedDisplay
from peers import hangUp
from rig import Client, waitFor
from scripted import ScriptedCase
from seek_graph import ADS
from server_variables import NOTES, VARS
from style12 import PROMPT
from watched import WatchedGame

CONSOLE = "Brightrank - Client"
BARE = PROMPT.lstrip("\n\r")
TICK = 0.05  # seconds between two looks at what is due
APART = 0.2  # seconds without a byte, behind which what has come is read
LONGEST = 80  # updates of a game
MOVES = "\n\rMovelist for game {0}:\n\r\n\rWhite{0} (1500) vs. Black{0} (1500) --- Sat Aug 16, 19:15 EST 2003\n\r" \
    "Rated standard match, initial time: 60 minutes, increment: 0 seconds.\n\r\n\r" \
    "Move  White{0}            Black{0}\n\r----  ----------------   ----------------\n\r" \
    "      {{Still in progress}} *\n\r" + PROMPT
TALK = "the rook belongs behind the passed pawn and the king in front of it even when it costs a tempo".split()


class Town:
    """Takes the program in as often as it comes, and answers what it asks."""

    def __init__(self):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.turn = threading.RLock()
        self.client = None
        self.ready = threading.Event()  # somebody is logged on
        self.asked = collections.Counter()  # by the first word
        self.left = queue.Queue()  # numbers of games that are not watched any more
        threading.Thread(target=self.run, daemon=True).start()

    def run(self):
        with contextlib.suppress(OSError):
            while True:
                self.client, _ = self.listener.accept()
                self.client.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
                with contextlib.suppress(OSError):
                    self.serve()
                self.ready.clear()

    def serve(self):
        self.say("login: ")
        rest = b""
        while piece := self.client.recv(65536):
            *lines, rest = (rest + piece).split(b"\n")
            for line in lines:
                self.hear(line.decode("latin-1"))

    def hear(self, line):
        word = line.split(" ")[0]
        self.asked[word] += 1
        if word == "Pupil":
            self.say("\n\rpassword: ")
        elif word == "practice":
            self.say(f"\n\r**** Starting FICS session as Pupil ****\n\r{PROMPT}")
        elif line == "Set Style 12":
            self.say("\n\rStyle 12 set." + PROMPT)
            self.ready.set()
        elif word == "unob":
            self.left.put(int(line.split(" ")[1]))
        else:
            self.answer(word, line)

    def answer(self, word, line):
        answers = {"sought": ADS + f"{ADS.count(chr(10))} ads displayed.\n", "Vars": VARS, "Fi": NOTES,
                   "History": "History for Foo:\n" + GAMES}
        if word in answers:
            self.sayAlone(answers[word].replace("\n", "\n\r") + BARE)
        elif word == "Help":
            self.sayAlone("".join(f"line {number} of the page\n\r" for number in range(40)) + NEXT)
        elif word == "Next":
            self.sayAlone("the end of the page\n\r" + BARE)
        elif word == "moves":
            self.say(MOVES.format(line.split(" ")[1]))

    def sayAlone(self, text):
        """In an arrival of its own, as an answer mostly comes where time has its own pace."""
        with self.turn:
            time.sleep(APART)
            self.say(text)
            time.sleep(APART)

    def say(self, text):
        with self.turn:
            self.client.sendall(text.encode("latin-1"))

    def drop(self):
        hangUp(self.client)

    def end(self):
        hangUp(self.listener, self.client)


class Traffic:
    """What is said and shown, at its pace."""

    def __init__(self, town, options):
        self.town, self.options = town, options
        self.said = self.bytes = 0  # lines, and bytes of text that the console keeps
        self.number = 0  # of the latest game
        self.games = []
        self.due = collections.Counter()
        # Meanwhile nothing is said, since the next prompt ends an answer that has not come yet, and no game begins or
        # ends, since a new board takes the keyboard. What is due is said afterwards.
        self.typing = threading.Event()

    def show(self, text):
        """Text for the console."""
        self.town.say(text)
        self.bytes += len(text)

    def talk(self):
        words = " ".join(TALK[self.said % 5:self.said % 5 + 4 + self.said % 11])
        self.said += 1
        self.show(f"\n\rName(50): {self.said} {words}" + PROMPT)

    def begin(self):
        self.number += 1
        game = WatchedGame(self.number % 500 + 1)
        game.last = min(game.place + 20 + self.number * 13 % (LONGEST - 20), len(game.course) - 2)
        self.games.append(game)
        self.town.say(game.now())

    def step(self, game):
        if game.place < game.last:
            self.town.say(game.next())
            return
        if self.typing.is_set():
            return
        self.show(f"\n\r{{Game {game.number} (White{game.number} vs. Black{game.number}) White{game.number} resigns}} 0-1\n\r"
                  f"\n\rRemoving game {game.number} from observation list.\n\r" + PROMPT)
        self.games.remove(game)

    def forgetLeft(self):
        with contextlib.suppress(queue.Empty):
            while True:
                number = self.town.left.get_nowait()
                self.games = [game for game in self.games if game.number != number]

    def tick(self, seconds):
        """So many seconds of the server's time."""
        self.forgetLeft()
        while len(self.games) < self.options.games and not self.typing.is_set():
            self.begin()
        self.due["line"] += seconds * self.options.lines / 3600
        self.due["update"] += seconds * self.options.games / 15  # a move in a quarter of a minute
        while not self.typing.is_set() and (self.due["line"] >= 1 or self.due["update"] >= 1):
            if self.due["line"] >= 1:
                self.due["line"] -= 1
                self.talk()
            if self.due["update"] >= 1:
                self.due["update"] -= 1
                self.games and self.step(self.games[int(self.due["update"] * 7 + self.said) % len(self.games)])


class User(threading.Thread):
    """Opens and closes every panel once; what goes wrong is kept for the test."""

    PANELS = [("alt+w v", "Variables"), ("alt+w n", "Variables"), ("alt+w m", "Match"), ("alt+w o", "Options"),
              ("hi Foo", "History for Foo"), ("help seek", "Help Panel")]

    def __init__(self, display, boards, typing):
        super().__init__(daemon=True)
        self.display, self.boards, self.typing, self.fault = display, boards, typing, None

    def run(self):
        try:
            for keys, title in self.PANELS:
                with self.undisturbed():
                    self.openAndClose(keys, title)
            for _ in range(self.boards):
                with self.undisturbed():
                    self.display.closeByKey("White")
        except Exception as fault:
            self.fault = fault
        finally:
            self.typing.clear()

    @contextlib.contextmanager
    def undisturbed(self):
        time.sleep(0.5)  # for games to begin
        self.typing.set()
        time.sleep(0.3)
        yield
        self.typing.clear()

    def openAndClose(self, keys, title):
        self.display.activate(CONSOLE)
        if "+" in keys:
            self.display.keys(*keys.split(" "))
        else:
            self.display.type(keys)
            self.display.keys("Return")
        self.display.number(title)
        time.sleep(0.2)  # for its answer
        self.display.closeByKey(title)


class Month:
    def __init__(self, stack, options):
        self.options = options
        self.display = stack.enter_context(ManagedDisplay())
        self.town = Town()
        stack.callback(self.town.end)
        self.client = Client(self.display, self.town.port, Seek_Graph="True", Seek_Off=0)
        stack.callback(self.client.end)
        self.traffic = Traffic(self.town, options)
        self.logOn()

    def logOn(self):
        waitFor(self.town.ready.is_set, "the log-on")
        time.sleep(0.3)
        self.town.say(BARE)
        time.sleep(ScriptedCase.LEARNT)

    def cpu(self):
        """Seconds so far."""
        tasks = pathlib.Path(f"/proc/{self.client.process.pid}/task").iterdir()
        return sum(int((task / "schedstat").read_text().split()[0]) for task in tasks) / 1e9

    def own(self):
        """Memory that is the program's own, megabytes."""
        status = pathlib.Path(f"/proc/{self.client.process.pid}/status").read_text()
        return int(re.search(r"RssAnon:\s+(\d+)", status)[1]) * 1024 / 1e6

    def rest(self):
        """Waits until nothing is worked on but the timers."""
        last = self.cpu()
        for _ in range(200):
            time.sleep(0.5)
            now = self.cpu()
            if now - last < 0.03:
                return
            last = now

    def calibrate(self):
        """What a byte of talk costs in the console, bytes."""
        for count in 10000, 40000:  # the first take what the program has left over from its start
            before, said = self.own(), self.traffic.bytes
            for _ in range(count):
                self.traffic.talk()
            self.rest()
        return (self.own() - before) * 1e6 / (self.traffic.bytes - said)

    def hour(self):
        user = User(self.display, 3, self.traffic.typing)
        user.start()
        seconds = 3600 / self.options.speed
        begin = last = time.monotonic()
        while time.monotonic() < begin + seconds or user.is_alive():
            time.sleep(TICK)
            now = time.monotonic()
            self.traffic.tick((now - last) * self.options.speed)
            last = now
        if user.fault:
            raise user.fault
        self.reconnect()

    def reconnect(self):
        """The line drops; the user sees it in the title, and connects again."""
        self.town.drop()
        self.traffic.games.clear()
        self.display.number(CONSOLE + "     Closed")
        self.display.activate(CONSOLE)
        self.display.keys("alt+c", "f")
        self.logOn()

    def clear(self):
        self.display.activate(CONSOLE)
        self.display.keys("alt+o", "c")


def main():
    parser = argparse.ArgumentParser(description="Leaves the program open for long.")
    parser.add_argument("--hours", type=int, default=24)
    parser.add_argument("--speed", type=float, default=60)
    parser.add_argument("--lines", type=int, default=20000, help="of talk in an hour")
    parser.add_argument("--games", type=int, default=40, help="that are watched at a time")
    parser.add_argument("--allowance", type=float, default=4.0, help="megabytes of growth")
    options = parser.parse_args()
    with contextlib.ExitStack() as stack:
        month = Month(stack, options)
        price = month.calibrate()
        print(f"a byte of talk takes {price:.2f} bytes in the console", flush=True)
        hours = []  # memory and bytes of talk behind each
        for hour in range(1, options.hours + 1):
            before = month.cpu()
            month.hour()
            spent = month.cpu() - before
            month.rest()
            hours.append((month.own(), month.traffic.bytes))
            own = hours[-1][0] - price * month.traffic.bytes / 1e6
            print(f"hour {hour}: {month.client.memory():.1f} MB resident, {own:.1f} MB its own without the console's text, "
                  f"{spent:.2f} s of CPU; {month.traffic.said} lines, {month.traffic.number} games, "
                  f"{month.town.asked['sought']} polls", flush=True)
        month.clear()
        month.rest()
        text = hours[-1][0] - month.own()
        price = text / month.traffic.bytes
        (first, said), (last, saidLast) = hours[min(1, len(hours) - 1)], hours[-1]
        growth = last - first - price * (saidLast - said)
        print(f"cleared: {month.client.memory():.1f} MB resident, {month.own():.1f} MB its own; the text took {text:.1f} MB, "
              f"{price * 1e6:.2f} bytes a byte, and beside it memory has grown by {growth:.1f} MB", flush=True)
        if growth > options.allowance:
            raise SystemExit("memory has grown")


if __name__ == "__main__":
    main()
