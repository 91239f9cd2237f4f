"""Takes the looks of all pieces from the screen: a server that shows one position, and a run of the program."""
from rig import Client, waitFor
from screen import ALL_PIECES, Screen
from scripted import ScriptedServer, style12


def learnPieces(display, **client):
    """The pieces' looks as a `Screen` keeps them, on a board of the size that `client` gives."""
    server = ScriptedServer()
    program = Client(display, server.port, **client)
    screen = Screen(display)
    try:
        server.logOn()
        server.say(style12(ALL_PIECES, game=7))
        waitFor(screen.find, 15, "a board")
        waitFor(lambda: settled(screen), 10, "the position")
        screen.learn(ALL_PIECES)
    finally:
        program.end()
        server.end()
    return screen.pieces


def settled(screen):
    """True when the squares show twelve pieces and nothing on two colours, twice in a row."""
    first = screen.middles()
    return len(set(first.values())) == 26 and first == screen.middles()
