#!/usr/bin/env python3
"""Measures the whole program: a server of its own plays games and tells to it on a virtual display.

    bench/replay.py [--program build/release/brightrank ...] [--runs 3] [--sound] [--picture FILE] [--only boards]

Several programs are measured in turn. The parts `million` (a million lines of the console) and `wakes` (how often the
program wakes while nothing happens) run only when --only names them. For these two, one of the programs may be a terminal
that shows the same text, `--program build/release/brightrank xterm`, as far as it can do what they measure.

CPU is the run time of all threads as the kernel counts it (/proc/PID/task/*/schedstat, nanoseconds; /proc/PID/stat
says the same in steps of 10 ms). A stretch of text ends with thirty underscores, which the program answers with "Set
Style 12" as soon as it has read them; it counts as visible when the program has then used no CPU for 150 ms.
"""
import argparse
import pathlib
import re
import select
import shutil
import socket
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tools"), str(ROOT / "tests/e2e")]
from desktop import Display  # noqa: E402
from watched import recordedGame  # noqa: E402

PROMPT = b"\n\rfics% "
# What a terminal runs: it logs on, prints what comes and answers the end of a stretch, as the program does.
PRINTER = """
import os, socket
line, last = socket.create_connection(("127.0.0.1", {port})), b""
while piece := line.recv(65536):
    os.write(1, piece)
    last = last[-40:] + piece
    for asked, answer in ((b"login: ", b"Bench"), (b"password: ", b"bench"), (b"Starting", b"Set Style 12"),
                          (b"_" * 30, b"Set Style 12")):
        if asked in last:
            line.sendall(answer + b"\\n")
            last = b""
"""
MARK = b"\n\r" + b"_" * 30 + PROMPT
QUIET = 0.15  # seconds without work after which all counts as painted
SECONDS = 10  # of updates on many boards
RESTING = 12  # seconds behind which a caret that nobody uses is at rest

STORE = """[Client]
Registry_OK=Yes
IP=127.0.0.1
Port={port}
Use_Timeseal=False
Auto_Connect={connect}
Auto_Logon=True
Handle=Bench
Password=bench
Last_Server=0
Sound_On={sound}
Left=150
Top=150
Width=11400
Height=8400
"""


def observed(fields, game, white, black):
    """One update of a game that is watched, with these clocks and its prompt."""
    fields = list(fields)
    fields[15], fields[18], fields[23], fields[24] = str(game), "0", str(white), str(black)
    return ("\n\r<12> " + " ".join(fields)).encode("latin-1") + PROMPT


def observedGames(updates):
    """`updates` Style 12 lines of a recorded game, watched, as a list of games; each but the last ends at its end."""
    once = recordedGame()
    games = []
    for number in range(updates):
        game, ply = divmod(number, len(once))
        if ply == 0:
            games.append([])
        games[-1].append(observed(once[ply], game + 1, 3600 - number % 3000, 3599 - number % 2999))
    for number, game in enumerate(games):
        game[-1] += f"\n\r{{Game {number + 1} (Mirabelle vs. oldpawn) Game aborted on move 1}} *".encode() + PROMPT
    return games


def manyGames(count, rounds):
    """`rounds` lists of one update of each of `count` games, which are the recorded game begun at different moves."""
    once = recordedGame()
    return [[observed(once[(7 * game + number) % (len(once) - 1) + 1], game, 3600 - number, 3600 - number)
             for game in range(1, count + 1)] for number in range(rounds)]


def channelTells(count, first=0):
    """One piece of the lines from `first` up to that many."""
    words = "the rook belongs behind the passed pawn and the king in front of it even when it costs a tempo".split()
    return [[f"\n\rName(50): {n} {' '.join(words[n % 5:n % 5 + 4 + n % 11])}".encode() + PROMPT for n in range(first, count)]]


class Program:
    """One run of the program, with a settings store of its own."""

    def __init__(self, path, display, port=0, connect=False, sound=False):
        self.folder = tempfile.mkdtemp(prefix="brightrank-bench-")
        store = pathlib.Path(self.folder, "config/Brightrank/Brightrank.ini")
        store.parent.mkdir(parents=True)
        store.write_text(STORE.format(port=port, connect=connect, sound=int(sound)))
        self.log = open(pathlib.Path(self.folder, "log"), "wb")
        surroundings = display.environment() | {"XDG_CONFIG_HOME": self.folder + "/config"}
        self.process = subprocess.Popen([path], cwd=self.folder, env=surroundings, stdout=self.log, stderr=self.log)

    def cpu(self):
        """Seconds of CPU so far."""
        total = 0
        for task in pathlib.Path(f"/proc/{self.process.pid}/task").iterdir():
            total += int((task / "schedstat").read_text().split()[0])
        return total / 1e9

    def memory(self, what="VmRSS"):
        """Megabytes, 10^6 bytes."""
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(re.search(what + r":\s+(\d+)", status)[1]) * 1024 / 1e6

    def wakes(self, seconds):
        """How often a second its threads have gone to sleep, in so many seconds from now."""
        before = self.sleeps()
        time.sleep(seconds)
        return (self.sleeps() - before) / seconds

    def sleeps(self):
        tasks = pathlib.Path(f"/proc/{self.process.pid}/task").iterdir()
        return sum(int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)", (task / "status").read_text(), re.MULTILINE)[1])
                   for task in tasks)

    def awaitQuiet(self):
        """Waits until nothing is worked on any more; gives the moment at which that began."""
        before, since = self.cpu(), time.monotonic()
        while time.monotonic() - since < QUIET:
            time.sleep(0.01)
            now = self.cpu()
            if now - before > 0.0008:  # more than a timer's tick
                since = time.monotonic()
            before = now
        return since

    def end(self):
        self.process.terminate()
        self.process.wait()
        self.log.close()
        shutil.rmtree(self.folder)


class Terminal(Program):
    """A terminal that keeps as many lines; what it runs is not counted."""

    def __init__(self, path, display, port):
        self.folder = tempfile.mkdtemp(prefix="brightrank-bench-")
        self.log = open(pathlib.Path(self.folder, "log"), "wb")
        self.process = subprocess.Popen([path, "-geometry", "100x30", "-sb", "-sl", "1100000", "-e", sys.executable, "-c",
                                         PRINTER.format(port=port)],
                                        env=display.environment(), stdout=self.log, stderr=self.log)


def isTerminal(path):
    return pathlib.Path(path).name == "xterm"


def connected(path, options, display, server):
    """The program, logged on."""
    program = (Terminal(path, display, server.port) if isTerminal(path)
               else Program(path, display, server.port, True, options.sound))
    server.logOn()
    return program


class Server:
    """Takes one client through its log-on and then sends whatever is to be measured."""

    def __init__(self):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]

    def logOn(self):
        self.listener.settimeout(30)
        self.socket, _ = self.listener.accept()
        self.socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.socket.sendall(b"login: ")
        self.awaitText(b"Bench")
        self.socket.sendall(b"\n\rpassword: ")
        self.awaitText(b"bench")
        self.socket.sendall(b"\n\r**** Starting FICS session as Bench ****\n\r" + PROMPT)
        self.awaitText(b"Set Style 12")
        self.socket.sendall(b"\n\rStyle 12 set." + PROMPT)
        time.sleep(0.3)
        self.socket.sendall(b"fics% ")
        time.sleep(1.5)  # the prompt is learnt when it stands alone for a second

    def awaitText(self, text, seconds=120):
        got = b""
        until = time.monotonic() + seconds
        while text not in got:
            if not select.select([self.socket], [], [], max(0, until - time.monotonic()))[0]:
                raise SystemExit(f"replay: no {text!r} came back, but {got!r}")
            piece = self.socket.recv(4096)
            if not piece:
                raise SystemExit("replay: the program hung up")
            got += piece

    def end(self):
        self.socket.close()
        self.listener.close()


def stretch(program, server, parts, pause=0.0):
    """Sends the pieces of all parts, one every `pause` seconds or as fast as they are taken, and waits behind each part
    until it is read. Gives CPU seconds, and wall seconds until all is read and until all is visible."""
    program.awaitQuiet()
    cpu, begin = program.cpu(), time.monotonic()
    for part in parts:
        due = time.monotonic()
        for piece in part if pause else [b"".join(part)]:
            server.socket.sendall(piece)
            due += pause
            time.sleep(max(0.0, due - time.monotonic()))
        server.socket.sendall(MARK)
        server.awaitText(b"Set Style 12")
    read = time.monotonic() - begin
    visible = program.awaitQuiet() - begin
    return program.cpu() - cpu, read, visible


def start(path, options, display):
    program = Program(path, display)
    display.awaitMap()
    mapped = program.cpu()
    time.sleep(2)
    figures = {"start: CPU until the first window is mapped, ms": mapped * 1000,
               "start: CPU until both windows stand and rest, ms": program.cpu() * 1000,
               "start: resident with one board, MB": program.memory(),
               "start: of it not shared with files, MB": program.memory("RssAnon")}
    program.end()
    return figures


def replay(path, options, display):
    server = Server()
    program = connected(path, options, display, server)
    figures = {}

    def measure(name, parts, unit, scale, pause=0.0):
        before = program.memory()
        cpu, read, visible = stretch(program, server, parts, pause)
        figures[f"{name}: CPU of one, {unit}"] = cpu / sum(map(len, parts)) * scale
        if pause == 0:
            figures[f"{name}: wall until all is read, s"] = read
            figures[f"{name}: wall until all is visible, s"] = visible
        figures[f"{name}: resident before, MB"] = before
        figures[f"{name}: resident after, MB"] = program.memory()

    measure(f"{options.paced} observed updates, 100 a second", observedGames(options.paced), "ms", 1e3, 0.01)
    measure(f"{options.updates} observed updates at once", observedGames(options.updates), "ms", 1e3)
    if options.picture:
        display.save(options.picture + "-games.png")
    measure("200 lines of the console, 50 a second", channelTells(200), "us", 1e6, 0.02)
    measure("5000 lines of the console, 1000 a second", channelTells(5000), "us", 1e6, 0.001)
    tells = channelTells(options.long)[0]
    part = min(10000, options.long // 2)
    measure(f"first {part} lines of the console", [tells[:part]], "us", 1e6)
    measure(f"{options.lines} lines at once", channelTells(options.lines), "us", 1e6)
    if options.long > options.lines + 2 * part:
        stretch(program, server, [tells[part + options.lines:-part]])
        measure(f"last {part} of {options.long} lines", [tells[-part:]], "us", 1e6)
    if options.picture:
        display.save(options.picture + "-tells.png")
    program.end()
    server.end()
    return figures


def million(path, options, display):
    """Channel tells up to that number, a page turned by a key then, and by the wheel."""
    server = Server()
    program = connected(path, options, display, server)
    part, step = 10000, 90000
    figures = {"console: resident without lines, MB": program.memory()}

    def measure(tells, name):
        cpu, _, _ = stretch(program, server, [tells])
        figures[f"console: {name}: CPU of one, us"] = cpu / len(tells) * 1e6

    said = 0
    while said < options.million:
        tells = channelTells(said + part + step, said)[0]
        measure(tells[:part], f"lines {said + 1} to {said + part}")
        said += part + step
        stretch(program, server, [tells[part:-part]])
        measure(tells[-part:], f"lines {said - part + 1} to {said}")
        figures[f"console: resident after {said} lines, MB"] = program.memory()
    if not isTerminal(path):
        turnPages(program, display, figures)
    program.end()
    server.end()
    return figures


def turnPages(program, display, figures):
    """The pages of the console that the pointer stands on, up from its end."""
    display.click(400, 300)
    time.sleep(0.3)
    for name, turn in (("page turned by a key", lambda: display.keys("Prior")),
                       ("line of the wheel", lambda: display.turnWheel(up=True)),
                       ("jump to the other end", iter([lambda: display.keys("ctrl+Home"),
                                                       lambda: display.keys("ctrl+End")] * 10).__next__)):
        spent = []
        for _ in range(20):
            act = turn() if name.startswith("jump") else turn
            program.awaitQuiet()
            cpu = program.cpu()
            act()
            program.awaitQuiet()
            spent.append((program.cpu() - cpu) * 1000)
        figures[f"console: one {name}: CPU, ms"] = statistics.median(spent)
        figures[f"console: one {name}: CPU of the dearest of 20, ms"] = max(spent)


def wakes(path, options, display):
    """With the caret out of sight, and in the console's command line."""
    server = Server()
    program = connected(path, options, display, server)
    time.sleep(2)
    figures = {"wakes a second, no clock, no caret": program.wakes(20)}
    display.click(400, 550)
    figures["wakes a second, no clock, a caret that was just used"] = program.wakes(8)
    time.sleep(RESTING - 8)
    figures["wakes a second, no clock, a caret"] = program.wakes(20)
    server.socket.sendall(manyGames(1, 1)[0][0])
    time.sleep(2)
    figures["wakes a second, a running clock, a caret"] = program.wakes(20)
    program.end()
    server.end()
    return figures


def boards(path, options, display):
    """One board for each of many games that go on side by side at the pace of people."""
    server = Server()
    program = connected(path, options, display, server)
    count = options.boards
    first, *rounds = manyGames(count, 1 + SECONDS)
    name = f"{count} boards"
    figures = {f"{name}: resident with one, MB": program.memory()}
    cpu, _, visible = stretch(program, server, [first])
    opened = len(display.windows()) - 1  # but for the console
    if opened != count:
        raise SystemExit(f"replay: {opened} boards have opened and not {count}")
    figures[f"{name}: CPU until all have opened, s"] = cpu
    figures[f"{name}: wall until all have opened, s"] = visible
    figures[f"{name}: resident with all, MB"] = program.memory()
    figures[f"{name}: of it not shared with files, MB"] = program.memory("RssAnon")
    if options.picture:
        display.save(options.picture + "-boards.png")
    begin, cpu = time.monotonic(), program.cpu()
    time.sleep(SECONDS / 2)
    rest = (program.cpu() - cpu) / (time.monotonic() - begin)
    figures[f"{name}, no update: CPU of one second, ms"] = rest * 1000
    cpu, _, _ = stretch(program, server, [sum(rounds, [])], 1 / count)
    figures[f"{name}, one update a second each: CPU of one second, ms"] = cpu / SECONDS * 1000
    figures[f"{name}, one update a second each: CPU of one update without the clocks', ms"] = \
        (cpu / SECONDS - rest) / count * 1000
    figures[f"{name}, one update a second each: resident after {SECONDS} s, MB"] = program.memory()
    program.end()
    server.end()
    return figures


USUAL, ON_DEMAND = (start, replay, boards), (million, wakes)


def main():
    parser = argparse.ArgumentParser(description="Measures the whole program on a virtual display.")
    parser.add_argument("--program", nargs="+", default=[str(ROOT / "build/release/brightrank")])
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--updates", type=int, default=2000)
    parser.add_argument("--paced", type=int, default=300)
    parser.add_argument("--lines", type=int, default=20000)
    parser.add_argument("--long", type=int, default=100000)
    parser.add_argument("--sound", action="store_true", help="with Sound_On=1")
    parser.add_argument("--picture", help="saves FILE-games.png, FILE-tells.png, FILE-boards.png")
    parser.add_argument("--boards", type=int, default=40)
    parser.add_argument("--million", type=int, default=1000000, help="lines of that part, in hundred thousands")
    parser.add_argument("--only", choices=[part.__name__ for part in (*USUAL, *ON_DEMAND)], help="one of the parts")
    options = parser.parse_args()
    parts = [part for part in (*USUAL, *ON_DEMAND) if part.__name__ == options.only] or USUAL
    paths = [shutil.which(path) if isTerminal(path) else str(pathlib.Path(path).resolve()) for path in options.program]
    tables = {path: {} for path in paths}
    for _ in range(options.runs):
        for part in parts:
            for path in paths:
                with Display() as display:
                    for name, value in part(path, options, display).items():
                        tables[path].setdefault(name, []).append(value)
    for path, table in tables.items():
        width = max(map(len, table))
        print(f"{path if len(paths) > 1 else '':{width}}  {'least':>9}  {'median':>9}")
        for name, values in table.items():
            print(f"{name:{width}}  {min(values):9.3f}  {statistics.median(values):9.3f}")


if __name__ == "__main__":
    main()
