#!/usr/bin/env python3
"""Games written as a PGN file from a server's move lists, and read by an independent program.

    tests/e2e/written_games.py [--games 1000] [--plies 120] [--seed 1]

The games are played on the practice server, legal moves at random by the packaged engine with every kind of promotion;
then come the published games of the tests' data. What `pgn-extract` reads in the file has to be, without a complaint,
the moves that were played, the players and the result."""
import argparse
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile

from peers import Partner, PracticeServer
from rig import BUILD, ROOT
from soak import Engine

NAMES = ("Pupil", "Rookery")  # white and black
PUBLISHED = ROOT / "tests/data/games/standard.pgn"
MOST_MOVES = 200  # of a list that can be read
PROMPT = "fics% "


class Games:
    """Two users who play, and what the server says of their games."""

    def __init__(self, options):
        self.options = options
        self.dice = random.Random(options.seed)
        self.engine = Engine(promotions="qrbn")
        self.server = PracticeServer()
        self.players = [Partner(self.server.port, name) for name in NAMES]
        self.answers = []  # to "smoves", each with its prompt
        self.played = []  # the moves as squares, and the result

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
        white.await_(PROMPT)
        white.say("smoves pupil -1")
        answer = white.await_(rf"Pupil \(\d+\) vs\.(?s:.*?)\}} (\S+)\n\r\n?\r?{PROMPT}")
        self.answers.append("\n\r" + answer[0])
        self.played.append((moves, answer[1]))
        for player in self.players:
            player.text, player.read = player.text[player.read:], 0

    def end(self):
        for player in self.players:
            player.end()
        self.engine.end()
        self.server.end()


def cell(move):
    return f"{move:8}(0:00)     "


def listOf(game):
    """A published game as a server answers "smoves" with it."""
    *words, result = game.split()
    moves = [word for word in words if not word.endswith(".")]
    rows = [f"{number // 2 + 1:3}.  " + "".join(map(cell, moves[number:number + 2]))
            for number in range(0, len(moves), 2)]
    return "\n\r".join([f"\n\r{NAMES[0]} (1200) vs. {NAMES[1]} (1640) --- Thu Oct 14, 20:36 PDT 2010",
                        "Rated blitz match, initial time: 5 minutes, increment: 12 seconds.", "", *rows,
                        f"      {{Game over}} {result}", PROMPT])


def publishedGames():
    games = [line for line in PUBLISHED.read_text("latin-1").splitlines() if line.startswith("1. ")]
    return [game for game in games if f" {MOST_MOVES + 1}. " not in game]


def readBack(path):
    """What the independent reader makes of the file: the tags, the moves and the result of each game."""
    read = subprocess.run(["pgn-extract", "-Wuci", "-w", "100000", path], capture_output=True, text=True, check=True,
                          env=os.environ | {"PATH": os.environ["PATH"] + ":/usr/games"})
    progress = r"Processing |Games: \d+$|\d+ games? matched out of|\S+ - \S+ |$"
    complaints = [line for line in read.stderr.splitlines() if not re.match(progress, line)]
    if complaints:
        raise AssertionError("\n".join(complaints[:10]))
    games = []
    for block in read.stdout.split("[Event ")[1:]:
        tags = dict(re.findall(r'\[(\w+) "(.*)"\]', "[Event " + block))
        moves = block.split("\n\n", 1)[1].lower().split()  # "c7c8Q"
        games.append((tags, moves[:-1], moves[-1]))
    return games


def written(answers, folder):
    path = pathlib.Path(folder, "written.pgn")
    path.unlink(missing_ok=True)
    subprocess.run([BUILD / "record_writer", path], input="".join(answers).encode("latin-1"), check=True)
    return readBack(path)


def compare(games, played):
    if len(games) != len(played):
        raise AssertionError(f"{len(games)} games read, {len(played)} played")
    for number, ((tags, moves, result), (wanted, end)) in enumerate(zip(games, played), 1):
        if (tags["White"], tags["Black"]) != NAMES or moves != wanted or {result, tags["Result"]} != {end}:
            raise AssertionError(f"game {number}: {tags} {' '.join(moves)} {result}\n"
                                 f"played: {' '.join(wanted)} {end}")


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
    published = publishedGames()
    with tempfile.TemporaryDirectory() as folder:
        compare(written(games.answers, folder), games.played)
        itself = pathlib.Path(folder, "published.pgn")
        itself.write_text("\n\n".join('[Event "?"]\n[White "A"]\n[Black "B"]\n\n' + game for game in published), "latin-1")
        compare(written(map(listOf, published), folder), [(moves, result) for _, moves, result in readBack(itself)])
    print(f"{options.games} games, {sum(len(moves) for moves, _ in games.played)} half-moves, and {len(published)} "
          "published ones: all read back as played")


if __name__ == "__main__":
    sys.exit(main())
