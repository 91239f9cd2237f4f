#!/usr/bin/env python3
"""Many games between two runs of the program, each with a pointer of its own, at the practice server.

    tests/e2e/soak.py [--games 1000] [--plies 24] [--pace 0.02] [--seed 1] [--settled 100] [--allowance 1.0]

Legal moves at random, by the packaged engine; every third one is answered by a move that was queued before it.
After each move both screens have to show the position that the server sent, and after each game the server has to have
got its moves and nothing else. Prints the memory of both every hundred games, and the time that a move took; the
consoles, which keep all they ever showed, are cleared every fifty. It fails when either program has grown from the
game at which its memory is taken as settled to the last."""
import argparse
import contextlib
import random
import re
import shutil
import subprocess
import time

from learn import learnPieces
from peers import PracticeServer, Wire
from rig import CLIENT, SCALE, TWIPS, Client, Display, waitFor
from screen import MOVED, PRE_MOVED, SQUARES, Screen, pieceOn
from style12 import target

NAMES = ("Pupil", "Rookery")  # white and black


class Engine:
    """Lists legal moves; a pawn becomes one of `promotions`."""

    def __init__(self, promotions="q"):
        self.move = re.compile(f"([a-h][1-8][a-h][1-8][{promotions}]?): 1$")
        path = shutil.which("fairy-stockfish", path="/usr/games:/usr/bin:/usr/local/bin")
        self.process = subprocess.Popen([path], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)

    def legalMoves(self, moves):
        self.process.stdin.write(f"position startpos moves {' '.join(moves)}\ngo perft 1\n")
        found = []
        for line in self.process.stdout:
            if line.startswith("Nodes searched"):
                return found
            if move := self.move.match(line):
                found.append(move[1])

    def randomGame(self, dice, plies):
        moves = []
        while len(moves) < plies and (legal := self.legalMoves(moves)):
            moves.append(dice.choice(legal))
        return moves

    def end(self):
        self.process.stdin.write("quit\n")
        self.process.wait(5)


class Player:
    """One run of the program with its display and its wire."""

    def __init__(self, stack, port, name):
        self.display = stack.enter_context(Display())
        pieces = learnPieces(self.display)
        self.wire = Wire(port)
        stack.callback(self.wire.end)
        self.client = Client(self.display, self.wire.port, handle=name, PreMove_OK=1, AutoQueen=1)
        stack.callback(self.client.end)
        self.screen = Screen(self.display, flipped=name == NAMES[1], pieces=pieces)
        waitFor(lambda: "Set Style 12\n" in self.wire.text(), "the log-on")

    def liftTheFourSecondsRule(self):
        """Board, Clean: else no piece can be lifted yet. The menu stands above the board."""
        self.display.click(self.screen.left + 62 * SCALE, self.screen.top - 35 * SCALE)
        time.sleep(0.05)
        self.display.keys("l")

    def clearConsole(self):
        """Console, Clear Screen."""
        left, top = CLIENT["Left"] // TWIPS, CLIENT["Top"] // TWIPS
        self.display.click((left + 70) * SCALE, (top + 10) * SCALE)
        time.sleep(0.1)
        self.display.keys("c")

    def drag(self, move):
        self.display.move(*self.screen.centre(move[:2]))
        self.display.press()
        self.display.move(*self.screen.centre(move[2:4]))
        self.display.release()
        self.display.move(*self.screen.centre(self.emptySquare(move[2:4])))

    def dragUntil(self, move, done):
        """A piece that is taken up while a position is being put on the board, or too early, stays where it is: on a
        busy machine the hand has to try again."""
        for _ in range(10):
            self.drag(move)
            with contextlib.suppress(AssertionError):
                return waitFor(done, f"{move}, taken up", 1)
        raise AssertionError(f"{move} could not be made")

    def queue(self, move):
        self.dragUntil(move, lambda: self.screen.mark(move[2:4]) == PRE_MOVED)
        time.sleep(0.01)  # for the pointer to be seen at rest

    def emptySquare(self, taken):
        """One to rest on: a pointer left on an own piece makes the board queue a pre-move again and not send it."""
        rows = self.wire.positions()[-1][:8]
        return next(square for square in SQUARES if square != taken and pieceOn(rows, square) == "-")

    def shows(self):
        return self.screen.read() == self.wire.positions()[-1][:8]


class Soak:
    def __init__(self, stack, options):
        self.options = options
        self.dice = random.Random(options.seed)
        self.practice = PracticeServer()
        stack.callback(self.practice.end)
        self.engine = Engine()
        stack.callback(self.engine.end)
        self.players = [Player(stack, self.practice.port, name) for name in NAMES]
        self.moves = self.preMoves = 0

    def agree(self, count, move):
        """Both sides have got the position behind `count` plies of this game, and both screens show it."""
        for player in self.players:
            waitFor(lambda: len(player.wire.positions()) > count, f"the position behind {move}")
            last = player.wire.positions()[-1]
            waitFor(player.shows, f"{last[:8]} on the screen behind {move}")
            # A move shows before the server has confirmed it; its mark comes with the confirmation. The repainting at
            # a game's start takes that of the first move.
            if count > 1:
                waitFor(lambda: player.screen.mark(target(last)) == MOVED, f"the mark of {move}")
            else:
                time.sleep(0.05)

    def start(self):
        for player in self.players:
            player.wire.received.clear()
            player.wire.sent.clear()
        white, black = self.players
        white.wire.sayForUser(f"match {NAMES[1]} 60 0 u white")
        waitFor(lambda: b"Challenge: Pupil" in black.wire.received, "the challenge")
        black.wire.sayForUser("accept")
        for player in self.players:
            waitFor(player.wire.positions, "the first position")
            if not hasattr(player.screen, "side"):
                waitFor(player.screen.find, "a board")
            waitFor(player.shows, "the start position")
            player.liftTheFourSecondsRule()

    def play(self):
        moves = self.engine.randomGame(self.dice, self.options.plies)
        self.current = moves
        self.start()
        ply = 0
        while ply < len(moves):
            due = time.monotonic() + self.options.pace
            ply += self.preMove(moves, ply) if ply % 3 == 2 and ply + 1 < len(moves) else self.move(moves, ply)
            time.sleep(max(0.0, due - time.monotonic()))
        self.finish()
        self.moves += len(moves)

    def move(self, moves, ply):
        player = self.players[ply % 2]
        if ply == 0:
            player.dragUntil(moves[0], lambda: len(player.wire.positions()) > 1)
        else:
            player.drag(moves[ply])
        self.agree(ply + 1, moves[ply])
        return 1

    def preMove(self, moves, ply):
        """He who has just moved queues his next move, and the other one makes his."""
        self.players[(ply + 1) % 2].queue(moves[ply + 1])
        self.players[ply % 2].drag(moves[ply])
        self.agree(ply + 2, moves[ply + 1])
        self.preMoves += 1
        return 2

    def finish(self):
        ended = re.compile(rb"\{Game \d+ \(Pupil vs\. Rookery\) [^}]*\} [01*]")
        if not ended.search(bytes(self.players[0].wire.received)):
            self.players[0].wire.sayForUser("resign")
        for player in self.players:
            waitFor(lambda: ended.search(bytes(player.wire.received)), "the end of the game")
        for place, player in enumerate(self.players):
            self.compareSent(player, self.current[place::2])

    def compareSent(self, player, moves):
        """The server has been asked for the game's list and has got these moves in their long form, byte for byte; the sign of check is the board's."""
        promoted = {"": "", "q": r"=Q\+?"}
        wanted = r"moves \d+\n" + "".join(f"{move[:2]}-{move[2:4]}{promoted[move[4:]]}\n" for move in moves)
        sent = bytes(player.wire.sent).decode("latin-1")
        if not re.fullmatch(wanted, sent):
            raise AssertionError(f"{sent!r} was sent, and not {wanted!r}")


def main():
    parser = argparse.ArgumentParser(description="Plays many games between two runs of the program.")
    parser.add_argument("--games", type=int, default=1000)
    parser.add_argument("--plies", type=int, default=24, help="of a game; it is resigned then")
    parser.add_argument("--pace", type=float, default=0.02, help="seconds from one move to the next, at the least")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--settled", type=int, default=100, help="games after which memory grows no more")
    parser.add_argument("--allowance", type=float, default=1.0, help="megabytes that it may grow by all the same")
    options = parser.parse_args()
    with contextlib.ExitStack() as stack:
        soak = Soak(stack, options)
        begin = time.monotonic()
        settled = None
        for game in range(1, options.games + 1):
            try:
                soak.play()
            except AssertionError as error:
                sent = [player.wire.text()[-30:] for player in soak.players]
                raise SystemExit(f"game {game}, {' '.join(soak.current)}: {error}; sent last: {sent}") from error
            if game % 50 == 0:
                for player in soak.players:
                    player.clearConsole()
                time.sleep(0.3)
            if game % 100 == 0 or game in (1, options.settled, options.games):
                spent = time.monotonic() - begin
                memory = [player.client.memory() for player in soak.players]
                print(f"{game} games, {soak.moves} moves, {soak.preMoves} of them queued: "
                      f"{', '.join(f'{each:.1f}' for each in memory)} MB resident, {spent:.0f} s, "
                      f"{1000 * spent / soak.moves:.0f} ms a move", flush=True)
                settled = memory if game == options.settled else settled
        if settled and any(now > before + options.allowance for now, before in zip(memory, settled)):
            raise SystemExit(f"memory has grown since game {options.settled}")


if __name__ == "__main__":
    main()
