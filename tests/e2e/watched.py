"""Games that a server shows to one who watches: each has names and a course of its own."""
import re

from rig import ROOT
from style12 import MOVE_NUMBER, MOVER, PRETTY_MOVE, VERBOSE_MOVE, style12

RECORDED = ROOT / "tests/data/streams/server-b/03_long_game_smoves.raw"
LAST_MOVE = 195  # of a replayed game; a board holds 200


def recordedGame():
    """The fields of the recorded game's Style 12 lines, from the start to the last move that a board holds."""
    recorded = [line.split(" ")[1:] for line in re.split(r"[\n\r]+", RECORDED.read_text("latin-1"))
                if line.startswith("<12>")]
    once = []
    for fields in recorded:
        if int(fields[MOVE_NUMBER]) > LAST_MOVE or (once and fields[VERBOSE_MOVE] == "none"):
            break
        once.append(fields)
    return once


class WatchedGame:
    """The recorded game, begun at a move of its own."""

    course = recordedGame()

    def __init__(self, number):
        self.number = number
        self.place = 7 * number % (len(self.course) - 100) + 1

    @property
    def title(self):
        """Of its board's window."""
        return f"White{self.number} - Black{self.number}    [60 0]"

    @property
    def rows(self):
        """The position that `now` shows."""
        return self.course[self.place][:8]

    def now(self):
        fields = self.course[self.place]
        return style12(self.rows, game=self.number, mover=fields[MOVER], white=f"White{self.number}",
                       black=f"Black{self.number}", number=fields[MOVE_NUMBER], move=fields[VERBOSE_MOVE],
                       pretty=fields[PRETTY_MOVE])

    def next(self):
        """The next update, with its prompt."""
        self.place += 1
        return self.now()
