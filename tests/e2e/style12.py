"""The Style 12 line: its fields, and one written."""
PROMPT = "\n\rfics% "
START = ["rnbqkbnr", "pppppppp", "--------", "--------", "--------", "--------", "PPPPPPPP", "RNBQKBNR"]  # of a game
# After 1. e4 e5 2. Nf3, each.
E4 = ["rnbqkbnr", "pppppppp", "--------", "--------", "----P---", "--------", "PPPP-PPP", "RNBQKBNR"]
E5 = ["rnbqkbnr", "pppp-ppp", "--------", "----p---", "----P---", "--------", "PPPP-PPP", "RNBQKBNR"]
NF3 = ["rnbqkbnr", "pppp-ppp", "--------", "----p---", "----P---", "-----N--", "PPPP-PPP", "RNBQKB-R"]
LINE = ("<12> {rows} {mover} -1 1 1 1 1 0 {game} {white} {black} {relation} 60 0 39 39 3600 3600 {number} {move} "
        "(0:00) {pretty} {flip} 0 0")
# Fields, counted from the first row.
MOVER, GAME, RELATION, MOVE_NUMBER, VERBOSE_MOVE, PRETTY_MOVE = 8, 15, 18, 25, 26, 28


def style12(rows, game=1, mover="W", white="Skipper", black="Harbour", relation=0, number=1, move="none", pretty="none",
            flip=0):
    """A position with its prompt, as the server sends it."""
    return "\n\r" + LINE.format(rows=" ".join(rows), mover=mover, game=game, white=white, black=black, number=number,
                                relation=relation, move=move, pretty=pretty, flip=flip) + PROMPT


def target(fields):
    """The square on which the last move ended; castling ends on the king's."""
    move = fields[VERBOSE_MOVE]
    if move.startswith("o-o"):
        return ("c" if move == "o-o-o" else "g") + ("8" if fields[MOVER] == "W" else "1")
    return move[5:7]
