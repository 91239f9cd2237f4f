"""A board as it stands on the screen: where its squares are, what stands on them, and how they are marked."""
import re

LIGHT, DARK = (241, 234, 205), (188, 131, 46)  # the default colours of the squares
MOVED, PRE_MOVED = (255, 0, 0), (0, 255, 0)  # and of the marks
SQUARES = [file + rank for rank in "12345678" for file in "abcdefgh"]
# Every piece and the empty square on both colours.
ALL_PIECES = ["KQRBNPkq", "rbnp----", "-KQRBNPk", "-rbnpq--", "--------", "--------", "--------", "--------"]


class Screen:
    """One board on the display; the only one that shows, or that of a window."""

    INNER = 0.2  # of a square's side, left out at each edge: marks are painted there

    def __init__(self, display, flipped=False, pieces=None):
        self.display = display
        self.flipped = flipped
        self.pieces = {} if pieces is None else pieces  # bytes of a square's middle -> piece letter

    def find(self, window=None):
        """Looks for the board, in that window if one is given; false when none shows."""
        area = (window.left, window.top, window.width, window.height) if window else ()
        picture = self.display.picture(*area)
        dark = bytes(reversed(DARK))
        left, right, top, bottom = picture.width, -1, -1, -1
        for y in range(picture.height):
            row = picture.row(y)
            first = next((x for x in iter4(row, dark)), None)
            if first is None:
                continue
            top = y if top < 0 else top
            bottom = y
            left = min(left, first)
            right = max(right, row.rfind(dark + row[4 * first + 3:4 * first + 4]) // 4)
        if right - left < 100:
            return False
        self.left, self.top = (left + window.left, top + window.top) if window else (left, top)
        self.side = (right - left + 1) // 8
        return abs((bottom - top + 1) - 8 * self.side) <= 8

    def corner(self, square):
        column, row = ord(square[0]) - ord("a"), int(square[1]) - 1
        if self.flipped:
            column, row = 7 - column, 7 - row
        return self.left + column * self.side, self.top + (7 - row) * self.side

    def centre(self, square):
        x, y = self.corner(square)
        return x + self.side // 2, y + self.side // 2

    def middles(self):
        """The picture of each square without its edge."""
        edge = int(self.side * self.INNER)
        inner = self.side - 2 * edge
        picture = self.display.picture(self.left, self.top, 8 * self.side, 8 * self.side)
        found = {}
        for square in SQUARES:
            x, y = self.corner(square)
            found[square] = picture.part(x - self.left + edge, y - self.top + edge, inner, inner)
        return found

    def changed(self, before):
        """The squares whose middles look other than they did."""
        return {square for square, look in self.middles().items() if look != before[square]}

    def learn(self, rows):
        """Takes the pieces' looks from a position that is known to show; rows as in a Style 12 line."""
        for square, look in self.middles().items():
            self.pieces[look] = pieceOn(rows, square)

    def read(self):
        """The position that shows, as the eight rows of a Style 12 line; "?" for what is no known piece."""
        middles = self.middles()
        return ["".join(self.pieces.get(middles[file + rank], "?") for file in "abcdefgh") for rank in "87654321"]

    def pieceOn(self, square):
        return pieceOn(self.read(), square)

    def mark(self, square):
        """The colour of the square's frame."""
        x, y = self.corner(square)
        return self.display.picture(x, y, self.side, self.side).pixel(0, self.side // 2)


def iter4(row, colour):
    """Columns of the pixels of that colour."""
    at = row.find(colour)
    while at >= 0:
        if at % 4 == 0:
            yield at // 4
        at = row.find(colour, at + 1)


def letters(row, colour):
    """Columns of the pixels that letters of that colour cover by three quarters or more of a black ground. Not every
    letter covers one wholly, and what is left of the full colour then differs from machine to machine."""
    channels = (b"[%s-%s]" % (re.escape(bytes([most * 3 // 4])), re.escape(bytes([most]))) for most in colour)
    found = re.finditer(b"(?=%s)" % b"".join(channels), row)
    return [each.start() // 4 for each in found if each.start() % 4 == 0]


def pieceOn(rows, square):
    return rows[8 - int(square[1])][ord(square[0]) - ord("a")]
