"""Takes the looks of all pieces from the screen: a server that shows one position, and a run of the program."""
import contextlib

from rig import Client, waitFor
from screen import ALL_PIECES, Screen
from scripted import ScriptedServer
from style12 import style12


def learnPieces(display, **client):
    """The pieces' looks as a `Screen` keeps them, on a board of the size that `client` gives."""
    screen = Screen(display)
    with contextlib.ExitStack() as stack:
        server = ScriptedServer()
        stack.callback(server.end)
        program = Client(display, server.port, **client)
        stack.callback(program.end)
        server.logOn()
        server.say(style12(ALL_PIECES, game=7))
        waitFor(screen.find, "a board")
        waitFor(lambda: settled(screen), "the position")
        screen.learn(ALL_PIECES)
    return screen.pieces


def settled(screen):
    """True when the squares show twelve pieces and nothing on two colours, twice in a row."""
    first = screen.middles()
    return len(set(first.values())) == 26 and first == screen.middles()
