#!/usr/bin/env python3
"""Breaks the rules of core on purpose, one small change at a time, and tells which changes no test notices.

    tools/break_rules.py --room seek
    tools/break_rules.py --file src/common/Text.cpp --list
    tools/break_rules.py --sample 300 --seed 7 --windows

A break changes a comparison, a number, a sign, a logical operator, a condition, a truth value or a text, leaves a statement
out, or swaps two neighbours. All breaks of a file are compiled into it at once, and a number chooses one at the start of the test
program. Only the tests that enter the broken function, or read the broken value, run. Where the compiler needs a value, its breaks
are compiled and linked one by one. Works in build/break_rules and leaves the tree alone; ends with 1 if a break survived that is
not in tools/equivalent_breaks.txt.
"""
import argparse
import concurrent.futures
import contextlib
import math
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

import break_choices
from break_build import Includes, Source, Workshop, put, textOf

ROOMS = ["common", "platform", "settings", "view", "records", "seek", "panels", "board", "session"]
LEAST_WAIT = 10  # seconds of the processor, for tests that take none
STARVED = 4  # how much longer a program may take that others keep from the processor
NEAREST = 40  # tests that are asked first
LONG = 0.05  # seconds; what takes longer is asked last
MEMORY = 6 << 30
FILES = 5 << 30  # bytes; a test has one of 4 GB, without content
MOST = 10000  # breaks, functions or values of one file, and more than there are
DEPENDENTS = 4  # files that one break in a header may have compiled anew


def coreFiles(root, room):
    """The files of a room that core compiles."""
    with open(os.path.join(root, "src", room, "CMakeLists.txt"), encoding="utf-8") as file:
        named = re.search(r"target_sources\(brightrank_core PRIVATE([^)]*)\)", file.read())
    return [f"src/{room}/{name}" for name in (named[1].split() if named else []) if name.endswith(".cpp")]


def coreHeaders(root):
    """The headers that any of those files include."""
    includes = Includes(root)
    return sorted(set().union(*(includes.of(name) for room in ROOMS for name in coreFiles(root, room))))


def runAlone(command, limit, **more):
    """Runs a program whose own programs end with it; None if it had to be stopped."""
    with subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                          errors="replace", start_new_session=True, **more) as process:
        try:
            stdout, stderr = process.communicate(timeout=limit)
            return subprocess.CompletedProcess(command, process.returncode, stdout, stderr)
        except subprocess.TimeoutExpired:
            return None
        finally:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)


class Known:
    """The list of breaks that change nothing: `file | function | line | change`, and below, indented, why."""

    def __init__(self, path):
        self.reasons = {}
        self.twice = []
        key = None
        with open(path, encoding="utf-8") as file:
            for line in file.read().splitlines():
                if line.startswith("#") or not line:
                    continue
                if line.startswith("    "):
                    self.reasons[key] += line.strip()
                else:
                    key = line
                    self.twice += [key] if key in self.reasons else []
                    self.reasons.setdefault(key, "")

    def holds(self, key):
        return bool(self.reasons.get(key))


class Tests:
    """One test program with breaks in it: which test enters which function, and how long each takes."""

    def __init__(self, workshop, target):
        self.workshop, self.target = workshop, target
        self.program = workshop.programOf(target)
        workshop.link(target, self.program)
        self.seconds, self.entered, self.failing, self.outside = {}, {}, [], set()
        self.width = {}  # how many functions a test enters: what enters few says most about each
        self.unbroken = {}  # tests that were run together without a break -> whether they passed
        self.turn = threading.Lock()
        trace = self.program + ".trace"
        put(trace, "")
        done = self.start(self.program, {"BREAK_TRACE": trace}, ["--gtest_brief=1"], 3600)
        lines = textOf(trace).splitlines()
        if done is None or lines[-1:] != ["end"]:
            sys.exit(f"{target} does not come to its end without a break\n{done.stderr if done else ''}")
        for line in lines[:-1]:
            self.readTrace(line.split())

    def readTrace(self, words):
        functions = {int(word) for word in words[2:]}
        if words[0] == "-":
            self.outside |= functions
        elif words[0][0] == "!":
            self.failing.append(words[0][1:])
        else:
            self.seconds[words[0]] = int(words[1]) / 1000
            self.width[words[0]] = len(functions)
            for function in functions:
                self.entered.setdefault(function, []).append(words[0])

    def start(self, program, environment, arguments, limit):
        """Runs the program away from the user's files and from what others left; None if it had to be stopped."""
        seconds = math.ceil(limit)
        limits = lambda: (resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds)),
                          resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY)),
                          resource.setrlimit(resource.RLIMIT_FSIZE, (FILES, FILES)),
                          resource.setrlimit(resource.RLIMIT_CORE, (0, 0)))
        with tempfile.TemporaryDirectory(dir=self.workshop.scratch, ignore_cleanup_errors=True) as home:
            environment = {**os.environ, "HOME": home, "XDG_CONFIG_HOME": home, "QT_QPA_PLATFORM": "", **environment}
            return runAlone([program, *arguments], STARVED * limit, cwd=home, preexec_fn=limits, env=environment)

    def ofFunctions(self, functions):
        """The tests to run for a break in these functions, in the order in which they are asked."""
        named = {test for function in functions for test in self.entered.get(function, [])}
        return self.inOrder(self.seconds if self.outside & functions else named)

    def inOrder(self, named):
        return sorted(named, key=lambda test: (self.seconds[test] >= LONG, self.width[test], test))

    def noticeIn(self, function, number):
        """Whether a test fails with the break `number`, which is in this function. What one test alone entered may be what
        fills a static value when it is first asked for: its break is shown to all others as well."""
        near = self.ofFunctions({function})
        if self.notice(near, number):
            return True
        return len(near) == 1 and self.notice(self.inOrder(set(self.seconds) - set(near)), number)

    def noticeValue(self, value, readers, number, program=None):
        """Whether a test fails with a broken value, which these functions name. What is read before the tests begin does not tell who
        uses it: its break is shown to the tests of its readers first, and then to all others."""
        if value in self.entered and value not in self.outside:
            return self.noticeIn(value, number)
        if value not in self.outside and not program:
            return False
        near = {test for reader in readers - self.outside for test in self.entered.get(reader, [])}
        return self.notice(self.inOrder(near) + self.inOrder(set(self.seconds) - near), number, program)

    def notice(self, tests, number, program=None):
        """Whether a test of `tests` fails with the break `number`, or the program with it."""
        quick = [test for test in tests if self.seconds[test] < LONG]
        parts = (quick[:NEAREST], quick[NEAREST:], [test for test in tests if self.seconds[test] >= LONG])
        return any(part and self.fails(part, number, program or self.program) and self.passUnbroken(part) for part in parts)

    def passUnbroken(self, tests):
        """Whether these tests pass by themselves and in this order: if not, their failing says nothing of a break."""
        key = tuple(tests)
        with self.turn:
            if key not in self.unbroken:
                self.unbroken[key] = not self.fails(tests, 0, self.program)
                if not self.unbroken[key]:
                    print(f"not counted, for they fail together without a break: {' '.join(tests)}", flush=True)
            return self.unbroken[key]

    def fails(self, tests, number, program):
        expected = sum(self.seconds[test] for test in tests)
        with tempfile.NamedTemporaryFile("w", dir=self.workshop.scratch, suffix=".flags", encoding="utf-8") as flags:
            flags.write("--gtest_filter=" + ":".join(tests))
            flags.flush()
            done = self.start(program, {"BREAK_CHOSEN": str(number)},
                              ["--gtest_brief=1", "--gtest_fail_fast", "--gtest_flagfile=" + flags.name], LEAST_WAIT + 5 * expected)
        return done is None or done.returncode != 0


class Campaign:
    """All that is asked for in one call."""

    def __init__(self, options, root, known):
        self.options, self.root, self.known = options, root, known
        self.workshop = Workshop(root, os.path.join(root, options.build))
        self.targets = ["core_tests"] + (["window_tests"] if options.windows else [])
        self.sources = [Source(root, name) for name in self.files()]
        core = [name for room in ROOMS for name in coreFiles(root, room)] + coreHeaders(root)
        self.places = {name: place for place, name in enumerate(core)}
        self.others = []  # files that read the headers' values and are not broken themselves
        self.choose()

    def files(self):
        if self.options.file:
            return [os.path.relpath(os.path.abspath(name), self.root) for name in self.options.file]
        rooms = self.options.room or ROOMS
        headers = [] if self.options.windows else coreHeaders(self.root)
        return [name for room in rooms for name in [*coreFiles(self.root, room), *(one for one in headers if one.split("/")[1] == room)]]

    def choose(self):
        """Numbers the breaks, and keeps a sample of them if one is wanted."""
        for source in self.sources:
            self.count(source)
        everything = [one for source in self.sources for one in source.breaks]
        chosen = everything
        if self.options.sample:
            chosen = random.Random(self.options.seed).sample(everything, min(self.options.sample, len(everything)))
        if self.options.only:
            chosen = [one for one in chosen if self.options.only in one.key]
        if self.options.again:
            with open(self.options.again, encoding="utf-8") as file:
                told = {re.sub(r"^(\S+?):\d+: ", r"\1 | ", line.rstrip("\n")) for line in file}
            chosen = [one for one in chosen if one.key in told]
        if self.options.inside or self.options.values:
            chosen = [one for one in chosen if bool(one.function and not one.file.endswith(".h")) == bool(self.options.inside)]
        chosen = set(chosen)
        for source in self.sources:
            source.breaks = [one for one in source.breaks if one in chosen]
        self.sources = [source for source in self.sources if source.breaks]

    def count(self, source):
        """Numbers the breaks and the parts of a file from a number of its own on: the other files stay as they are compiled."""
        first = MOST * (1 + self.places.setdefault(source.name, len(self.places)))
        for number, one in enumerate(source.breaks, first):
            one.number = number
        for number, part in enumerate(source.finder.layout.functions + source.finder.layout.values, first):
            source.numbers[part] = number

    def every(self):
        return [one for source in self.sources for one in source.breaks]

    def run(self):
        workshop = self.workshop
        workshop.take()
        workshop.configure([*self.targets, "brightrank"] if self.options.windows else self.targets)
        self.addReaders(workshop)
        with concurrent.futures.ThreadPoolExecutor(self.options.jobs) as pool:
            workshop.prepare(self.sources + self.others, pool)
            if workshop.changed():
                sys.exit(f"changed while it was compiled: {' '.join(workshop.changed())}")
            alone = sum(1 for one in self.every() if one.alone and one.fate is None)
            print(f"{time.strftime('%H:%M:%S')} compiled; {alone} breaks need a compilation of their own", flush=True)
            for number, target in enumerate(self.targets):
                tests = Tests(workshop, target)
                if tests.failing:
                    print(f"not counted, for they fail without a break: {' '.join(tests.failing)}")
                print(f"{time.strftime('%H:%M:%S')} {len(tests.seconds)} tests of {target}", flush=True)
                self.ends = time.monotonic() + 60 * (self.options.minutes or 0)
                list(pool.map(lambda pair: self.judge(tests, *pair), self.open("survived" if number else None)))

    def addReaders(self, workshop):
        """Files of core that include a broken header tell which tests enter their functions."""
        named = {source.name for source in self.sources}
        for name in workshop.readersOf([name for name in named if name.endswith(".h")]):
            if name.startswith("src/") and name not in named:
                other = Source(self.root, name)
                other.breaks = other.finder.breaks = []
                self.count(other)
                self.others.append(other)

    def open(self, fate):
        """What has that fate from the program before, None for the first one; in an order by chance where time may end it, so that
        it ends in a fair sample."""
        left = [(source, one) for source in self.sources for one in source.breaks if one.fate == fate]
        if self.options.minutes:
            random.Random(self.options.seed).shuffle(left)
        return left

    def judge(self, tests, source, one):
        if self.options.minutes and time.monotonic() > self.ends:
            one.fate = None  # not reached, though it may have survived the program before
            return
        if one.alone:
            noticed = self.judgeAlone(tests, source, one)
        elif one.function:
            noticed = tests.noticeIn(source.numbers[one.function], one.number)
        else:
            noticed = tests.noticeValue(source.numbers[one.value], self.readersOf(one), one.number)
        if noticed in ("no program", "not made"):
            one.fate = noticed
            return
        one.fate = "killed" if noticed else "survived"
        told = f"{source.name}:{one.line}: {one.key.split(' | ', 1)[1]}"
        if noticed and self.known.holds(one.key):
            print(f"listed, but noticed: {told}", flush=True)
        if not noticed and tests.target == self.targets[-1] and not self.known.holds(one.key):
            print(told, flush=True)

    def readersOf(self, one):
        name = one.value.name if one.value else one.function.name
        return set().union(*(source.readersOf(name) for source in self.sources + self.others))

    def judgeAlone(self, tests, source, one):
        """Compiles what has this one break, which needs no number."""
        workshop = tests.workshop
        stem = os.path.join(workshop.scratch, f"alone_{one.number}")
        units = workshop.readersOf([source.name]) if source.isHeader() else [source.name]
        code = break_choices.Choices(source.code, source.finder, workshop.kept).alone(one)
        put(os.path.join(stem, source.name[len("src/"):]), code)
        try:
            instead = {}
            for name in units:
                path = os.path.join(stem, name[len("src/"):]) if name == source.name else workshop.pathOfUnit(name)
                instead[name] = os.path.join(stem, name.replace("/", "_") + ".o")
                if workshop.compile(name, path, instead[name], [stem], ["-fsyntax-only"] if len(units) > DEPENDENTS else []):
                    return "no program"
                if len(units) > DEPENDENTS:
                    return "not made"
            program = workshop.programOf(one.number)
            workshop.link(tests.target, program, instead)
            part = one.value or one.function
            return tests.noticeValue(source.numbers[part], self.readersOf(one), 0, program)
        finally:
            shutil.rmtree(stem)
            if os.path.exists(workshop.programOf(one.number)):
                os.remove(workshop.programOf(one.number))

    def report(self):
        """A line for each room; the open survivors stand above."""
        print(f"{'room':10}{'breaks':>8}{'killed':>8}{'listed':>8}{'open':>8}{'killed of 100':>16}"
              f"{'no program':>12}{'not made':>10}{'not reached':>14}")
        rooms = {}
        for one in self.every():
            rooms.setdefault(one.file.split("/")[1], []).append(one)
        rooms = {**rooms, "all": self.every()} if len(rooms) > 1 else rooms
        for room, breaks in rooms.items():
            count = lambda fate: sum(1 for one in breaks if one.fate == fate)
            listed = sum(1 for one in breaks if one.fate == "survived" and self.known.holds(one.key))
            killed, open_ = count("killed"), count("survived") - listed
            rate = 100 * killed / max(1, killed + open_)
            made = killed + listed + open_
            print(f"{room:10}{made:8}{killed:8}{listed:8}{open_:8}{rate:16.1f}"
                  f"{count('no program'):12}{count('not made'):10}{count(None):14}")
        if self.workshop.changed():
            print(f"changed in the meantime: {' '.join(self.workshop.changed())}")
        return 1 if any(one.fate == "survived" and not self.known.holds(one.key) for one in self.every()) else 0


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--room", action="append", choices=ROOMS, help="only this room of core; may be repeated")
    parser.add_argument("--file", action="append", help="only this file; may be repeated")
    parser.add_argument("--only", help="only breaks whose key holds this text")
    parser.add_argument("--again", metavar="FILE", help="only breaks that this output of an earlier run tells")
    parser.add_argument("--inside", action="store_true", help="only breaks inside of functions, and of no header")
    parser.add_argument("--values", action="store_true", help="only what --inside leaves out")
    parser.add_argument("--sample", type=int, help="only so many breaks, chosen by --seed")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--minutes", type=float, help="stop after so long, and report what was reached")
    parser.add_argument("--jobs", type=int, default=1, help="how many test programs run at once")
    parser.add_argument("--windows", action="store_true", help="show what survives to window_tests as well")
    parser.add_argument("--build", default="build/break_rules", help="the build folder (%(default)s)")
    parser.add_argument("--list", action="store_true", help="tell the breaks and make none")
    options = parser.parse_args()
    known = Known(os.path.join(root, "tools", "equivalent_breaks.txt"))
    campaign = Campaign(options, root, known)
    if options.list:
        for one in campaign.every():
            print(f"{one.file}:{one.line}: {one.key.split(' | ', 1)[1]}")
        return 0
    campaign.run()
    return campaign.report()


if __name__ == "__main__":
    sys.exit(main())
