"""A dialog of the program under the pointer: its fields are found by their white, the rest by its place."""
import time

from rig import SCALE, waitFor

WHITE = b"\xff\xff\xff"
WIDTH, HEIGHT = 40 * SCALE, 14 * SCALE  # a field has at least that
# The middles of the match dialog's controls, in pixels from the left (or, below 0, the right) and from the lower edge.
PLACES = {"Rated": (30, 96), "Use Server Setting": (30, 68), "Type": (-80, 96), "Color": (-80, 68), "OK": (-137, 22),
          "Cancel": (-51, 22)}


class Dialog:
    def __init__(self, display, window):
        self.display, self.window = display, window

    @classmethod
    def find(cls, display, title):
        """That of a title, as soon as it takes the keys."""
        return cls(display, display.awaitDialog(title))

    def fields(self):
        """The middles of the white fields, from the top and then from the left."""
        window = self.window
        picture = self.display.picture(window.left, window.top, window.width, window.height)
        found = []  # of the rows in which fields begin: top, left, right
        for y in range(window.height - HEIGHT):
            for left, right in runs(picture.row(y)):
                if any(y < field[0] + 1.5 * HEIGHT and left < field[2] and right > field[1] for field in found):
                    continue
                if all(picture.row(y + step, left, 1)[:3] == WHITE for step in range(HEIGHT)):
                    row = next((field[0] for field in found if y < field[0] + HEIGHT), y)
                    found.append((row, left, right))
        return [(window.left + left + WIDTH // 2, window.top + top + HEIGHT // 2) for top, left, _ in sorted(found)]

    def write(self, field, text):
        """Puts a text into a field, whatever stood there."""
        self.display.click(*waitFor(self.fields, "the dialog's fields")[field])
        self.display.keys("ctrl+a")
        self.display.type(text)

    def click(self, control):
        x, y = PLACES[control]
        window = self.window
        self.display.click(window.left + x * SCALE + (window.width if x < 0 else 0),
                           window.top + window.height - y * SCALE)

    def pick(self, control, index):
        """An entry of a list, which shows its first one yet."""
        self.click(control)
        self.display.awaitMenu()
        self.display.keys(*["Down"] * index, "Return")
        self.display.awaitNoMenu()
        time.sleep(0.1)

    def answer(self, key):
        self.display.keys(key)
        self.display.awaitGone(self.window)


def runs(row):
    """Where stretches of white begin and end that are as wide as a field."""
    begin = None
    for x in range(len(row) // 4 + 1):
        if row[4 * x:4 * x + 3] == WHITE:
            begin = x if begin is None else begin
        elif begin is not None:
            if x - begin >= WIDTH:
                yield begin, x
            begin = None
