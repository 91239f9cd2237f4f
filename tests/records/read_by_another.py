#!/usr/bin/env python3
"""What the program writes is read without an error by pgn-extract, and gives the moves of the games that were written.

    read_by_another.py WRITE_GAMES GAMES     the built writer, and published games"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

WRITE_GAMES, GAMES = sys.argv[1:3]
READER = shutil.which("pgn-extract") or "/usr/games/pgn-extract"
MOST_MOVES = 200  # of a written game


def read(path):
    """The games of a file as pgn-extract reads them: squares of each move, and the result; and what it has to say."""
    done = subprocess.run([READER, "-Wlalg", "--notags", "-w", "100000", str(path)], capture_output=True,
                          text=True, check=True)
    games = [re.sub(r"\d+\.+ ", "", " ".join(game.split())) for game in done.stdout.split("\n\n") if game.strip()]
    return games, done.stderr


class ReadByAnother(unittest.TestCase):
    def testEachGameIsReadAsItWasPlayed(self):
        with tempfile.TemporaryDirectory() as folder:
            written = pathlib.Path(folder) / "written.pgn"
            subprocess.run([WRITE_GAMES, GAMES, written], check=True)
            short = pathlib.Path(folder) / "played.pgn"
            short.write_text("\n\n".join(line for line in pathlib.Path(GAMES).read_text("latin-1").splitlines()
                                         if line and f" {MOST_MOVES + 1}. " not in line), "latin-1")
            played, _ = read(short)
            games, told = read(written)
            self.assertGreater(len(played), 30)
            self.assertEqual(len(games), len(played))
            for number, (ours, theirs) in enumerate(zip(games, played)):
                self.assertEqual(ours, theirs, number)
            self.assertNotRegex(told.lower(), r"error|unknown|missing|failed|illegal|warning|omitted")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
