#!/usr/bin/env python3
"""Games of the practice server, written as a PGN file from its move lists, and read by an independent program.

    tests/e2e/written_games.py [--games 1000] [--plies 120] [--seed 1]

Legal moves at random, by the packaged engine, with every kind of promotion. What `pgn-extract` reads in the file has to
be, without a complaint, the moves that were played, the players and the result."""
import argparse
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile

from peers import Partner, PracticeServer
from rig import BUILD
from soak import Engine

NAMES = ("Pupil", "Rookery")  # white and black
PATH = os.environ["PATH"] + ":/usr/games"


class Games:
    """Two users who play, and what the server says of their games."""

    def __init__(self, options):
        self.options = options
        self.dice = random.Random(options.seed)
        self.engine = Engine(promotions="qrbn")
        self.server = PracticeServer()
        self.players = [Partner(self.server.port, name) for name in NAMES]
        self.answers = []
        self.played = []

    def play(self):
        moves = self.engine.randomGame(self.dice, self.dice.randint(1, self.options.plies))
        white, black = self.players
        white.say(f"match {NAMES[1]} 60 {self.dice.randint(0, 12)} u white")
        black.await_("Challenge: ")
        black.say("accept")
        white.await_("<12> ")
        for ply, move in enumerate(moves):
            typed = move if len(move) == 4 else f"{move[:4]}={move[4]}"
            self.players[ply % 2].say(typed)
            for player in self.players:
                player.await_(rf"<12> [^\r]* {'BW'[ply % 2]} [^\r]*/{move[:2]}-{move[2:4]}|<12> [^\r]* o-o")
        if self.engine.legalMoves(moves):
            self.players[self.dice.randint(0, 1)].say("resign")
        for player in self.players:
            player.await_(r"\{Game \d+ \(Pupil vs\. Rookery\) [^}]*\} (\S+)")
        self.take(moves)

    def take(self, moves):
        white = self.players[0]
        white.await_("fics% ")
        white.say("smoves pupil -1")
        answer = white.await_(r"Pupil \(\d+\) vs\.(?s:.*?)\} (\S+)\n\r\n?\r?fics% ")
        self.answers.append("\n\r" + answer[0])
        self.played.append((moves, answer[1]))
        for player in self.players:
            player.text, player.read = player.text[player.read:], 0

    def end(self):
        for player in self.players:
            player.end()
        self.engine.end()
        self.server.end()


def uci(moves):
    return " ".join(moves)


def readBack(path):
    """What the independent reader makes of the file: the players, the moves and the result of each game."""
    read = subprocess.run(["pgn-extract", "-Wuci", path], capture_output=True, text=True, check=True,
                          env=os.environ | {"PATH": PATH})
    progress = r"Processing |Games: \d+$|\d+ games? matched out of|Pupil - Rookery .* FICS, Fremont|$"
    complaints = [line for line in read.stderr.splitlines() if not re.match(progress, line)]
    if complaints:
        raise AssertionError("\n".join(complaints[:10]))
    games = []
    for block in read.stdout.split("[Event ")[1:]:
        tags = dict(re.findall(r'\[(\w+) "(.*)"\]', "[Event " + block))
        moves = block.split("\n\n", 1)[1].lower().split()  # "c7c8Q"
        games.append((tags, moves[:-1], moves[-1]))
    return games


def compare(games, played):
    if len(games) != len(played):
        raise AssertionError(f"{len(games)} games read, {len(played)} played")
    for number, ((tags, moves, result), (wanted, end)) in enumerate(zip(games, played), 1):
        if (tags["White"], tags["Black"]) != NAMES or moves != wanted or {result, tags["Result"]} != {end}:
            raise AssertionError(f"game {number}: {tags} {uci(moves)} {result}\nplayed: {uci(wanted)} {end}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--games", type=int, default=1000)
    parser.add_argument("--plies", type=int, default=120)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    games = Games(options)
    try:
        for _ in range(options.games):
            games.play()
    finally:
        games.end()
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder, "games.pgn")
        subprocess.run([BUILD / "record_writer", path], input="".join(games.answers).encode("latin-1"), check=True)
        compare(readBack(path), games.played)
    print(f"{options.games} games, {sum(len(moves) for moves, _ in games.played)} half-moves: all read back as played")


if __name__ == "__main__":
    sys.exit(main())
