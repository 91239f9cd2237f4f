#!/usr/bin/env python3
"""Breaks the rules of core on purpose, one small change at a time, and tells which changes no test notices.

    tools/break_rules.py --room seek
    tools/break_rules.py --file src/common/Text.cpp --list
    tools/break_rules.py --sample 300 --seed 7 --windows

A break changes a comparison, a number, a sign, a logical operator, a condition, a truth value or a text, leaves a statement
out, or swaps two neighbours. All breaks in the functions of a file are compiled into it at once, and a number chooses one at
the start of the test program. Only the tests that enter the broken function run. A break outside of functions (a constant,
a table) is compiled and linked by itself. Works in build/break_rules and leaves the tree alone; ends with 1 if a break
survived that is not in tools/equivalent_breaks.txt.
"""
import argparse
import concurrent.futures
import hashlib
import os
import random
import re
import resource
import shlex
import subprocess
import sys
import time

import one_line_breaks

ROOMS = ["common", "platform", "settings", "view", "records", "seek", "panels", "board", "session"]
LEAST_WAIT = 10  # seconds, for tests that take none
NEAREST = 40  # tests that are asked first
LONG = 0.05  # seconds; what takes longer is asked last
MEMORY = 6 << 30


def run(command, **more):
    return subprocess.run(command, capture_output=True, text=True, errors="replace", check=False, **more)


def must(command, **more):
    done = run(command, **more)
    if done.returncode != 0:
        sys.exit(f"{shlex.join(command) if isinstance(command, list) else command}\n{done.stdout}{done.stderr}")
    return done.stdout


def coreFiles(root, room, ending=".cpp"):
    """The files of a room that core has."""
    with open(os.path.join(root, "src", room, "CMakeLists.txt"), encoding="utf-8") as file:
        named = re.search(r"target_sources\(brightrank_core PRIVATE([^)]*)\)", file.read())
    return [f"src/{room}/{name}" for name in (named[1].split() if named else []) if name.endswith(ending)]


class Known:
    """The list of breaks that change nothing: `file | function | line | change`, and below, indented, why."""

    def __init__(self, path):
        self.reasons = {}
        key = None
        with open(path, encoding="utf-8") as file:
            for line in file.read().splitlines():
                if line.startswith("#") or not line:
                    continue
                if line.startswith("    "):
                    self.reasons[key] = self.reasons.get(key, "") + line.strip()
                else:
                    key = line

    def holds(self, key):
        return bool(self.reasons.get(key))


class Source:
    """One file with its breaks."""

    def __init__(self, root, name):
        self.name = name
        with open(os.path.join(root, name), encoding="utf-8") as file:
            self.code = file.read()
        self.finder = one_line_breaks.Finder(self.code)
        self.breaks = self.finder.breaks
        self.numbers = {}  # function -> its number in all files
        self.object = None
        for one in self.breaks:
            one.file = name
            one.key = f"{name} | {one.key}"
            one.fate = None

    def together(self):
        return [one for one in self.breaks if one.function and not one.function.constant]

    def alone(self):
        return [one for one in self.breaks if not one.function or one.function.constant]


class Workshop:
    """The build folder: compiles files with breaks, links test programs with them, runs tests."""

    def __init__(self, root, folder):
        self.root, self.folder = root, folder
        self.scratch = os.path.join(folder, "breaks")
        os.makedirs(self.scratch, exist_ok=True)
        self.commands = {}

    def configure(self, targets):
        environment = {**os.environ, "CCACHE_NOHASHDIR": "1", "CCACHE_BASEDIR": self.root,
                       "CCACHE_SLOPPINESS": "pch_defines,time_macros"}
        must(["cmake", "-S", self.root, "-B", self.folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
              "-DCMAKE_CXX_FLAGS=-Og"], env=environment)
        must(["cmake", "--build", self.folder, "-j2", "--target", *targets], env=environment)
        for line in must(["ninja", "-C", self.folder, "-t", "commands", "brightrank_core"]).splitlines():
            found = re.search(r" -c (\S+\.cpp)$", line)
            if found:
                self.commands[os.path.relpath(found[1], self.root)] = line
        runner = os.path.join(self.root, "tools", "break_runner.cpp")
        self.runner = os.path.join(self.scratch, "runner.o")
        must(["g++", "-std=c++20", "-O1", "-c", runner, "-o", self.runner])

    def compile(self, name, code, object_):
        """Compiles `code` in place of the file `name`; gives what the compiler says, "" if nothing."""
        path = object_[:-2] + ".cpp"
        with open(path, "w", encoding="utf-8") as file:
            file.write(code)
        words = shlex.split(self.commands[name])
        words = words[next(number for number, word in enumerate(words) if word.endswith("c++")) :]
        words[words.index("-o") + 1] = object_
        words[words.index("-c") + 1] = path
        words = [word for word in words if not word.startswith("-W")] + ["-w", "-Wno-narrowing", "-fmax-errors=0"]
        done = run(words, cwd=self.folder)
        return "" if done.returncode == 0 else done.stderr

    def memory(self, source):
        mark = hashlib.sha1((source.code + self.commands[source.name]).encode()).hexdigest()
        return os.path.join(self.scratch, mark + ".wrong")

    def remembered(self, source):
        """The breaks of this very file that did not compile in an earlier run; they leave at once."""
        wrong = set()
        if os.path.exists(self.memory(source)):
            with open(self.memory(source), encoding="utf-8") as file:
                wrong = set(file.read().split("\n"))
        for one in source.breaks:
            if one.key in wrong:
                one.fate = "no program"
        return wrong

    def remember(self, source, wrong):
        wrong = wrong | {one.key for one in source.breaks if one.fate == "no program"}
        with open(self.memory(source), "w", encoding="utf-8") as file:
            file.write("\n".join(sorted(wrong)))

    def link(self, target, objects, program):
        line = must(["ninja", "-C", self.folder, "-t", "commands", target]).splitlines()[-1]
        words = shlex.split(line.replace(": &&", "").replace("&& :", ""))
        words[words.index("-o") + 1] = program
        first = next(number for number, word in enumerate(words) if word.endswith(".o"))
        more = ["-Wl,-S", *(["-fuse-ld=lld", "-Wl,--threads=1"] if os.path.exists("/usr/bin/ld.lld") else [])]
        must(words[:first] + more + objects + words[first:], cwd=self.folder)


class Tests:
    """One test program with breaks in it: which test enters which function, and how long each takes."""

    def __init__(self, workshop, target, objects):
        self.workshop, self.target = workshop, target
        self.program = os.path.join(workshop.scratch, target)
        workshop.link(target, [workshop.runner, *objects], self.program)
        self.seconds, self.entered, self.failing, self.outside = {}, {}, [], set()
        self.width = {}  # how many functions a test enters: what enters few says most about each
        trace = self.program + ".trace"
        done = self.start(self.program, {"BREAK_TRACE": trace}, ["--gtest_brief=1"], 3600)
        if done is None:
            sys.exit(f"{target} does not end")
        with open(trace, encoding="utf-8") as file:
            for line in file:
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
        """Runs the program away from the user's files; None if it had to be stopped."""
        home = self.workshop.scratch
        limits = lambda: (resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY)),
                          resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 28, 1 << 28)),
                          resource.setrlimit(resource.RLIMIT_CORE, (0, 0)))
        try:
            return run([program, *arguments], cwd=home, timeout=limit, preexec_fn=limits, stdin=subprocess.DEVNULL,
                       env={**os.environ, "HOME": home, "XDG_CONFIG_HOME": home, "QT_QPA_PLATFORM": "", **environment})
        except subprocess.TimeoutExpired:
            return None

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

    def notice(self, tests, number, program=None):
        """Whether a test of `tests` fails with the break `number`, or the program with it."""
        quick = [test for test in tests if self.seconds[test] < LONG]
        parts = (quick[:NEAREST], quick[NEAREST:], tests[len(quick) :])
        return any(part and self.fails(part, number, program or self.program) for part in parts)

    def fails(self, tests, number, program):
        flags = f"{self.program}.{os.getpid()}.{number}.flags"
        with open(flags, "w", encoding="utf-8") as file:
            file.write("--gtest_filter=" + ":".join(tests))
        expected = sum(self.seconds[test] for test in tests)
        done = self.start(program, {"BREAK_CHOSEN": str(number)},
                          ["--gtest_brief=1", "--gtest_fail_fast", "--gtest_flagfile=" + flags], LEAST_WAIT + 5 * expected)
        os.remove(flags)
        return done is None or done.returncode != 0


class Campaign:
    """All that is asked for in one call."""

    def __init__(self, options, root, known):
        self.options, self.root, self.known = options, root, known
        self.sources = [Source(root, name) for name in self.files()]
        self.choose()

    def files(self):
        if self.options.file:
            return [os.path.relpath(os.path.abspath(name), self.root) for name in self.options.file]
        return [name for room in self.options.room or ROOMS for name in coreFiles(self.root, room)]

    def choose(self):
        """Numbers the breaks, and keeps a sample of them if one is wanted."""
        everything = [one for source in self.sources for one in source.breaks]
        for number, one in enumerate(everything, 1):
            one.number = number
        chosen = everything
        if self.options.sample:
            chosen = random.Random(self.options.seed).sample(everything, min(self.options.sample, len(everything)))
        if self.options.only:
            chosen = [one for one in chosen if self.options.only in one.key]
        if self.options.again:
            with open(self.options.again, encoding="utf-8") as file:
                told = {re.sub(r"^(\S+?):\d+: ", r"\1 | ", line.rstrip("\n")) for line in file}
            chosen = [one for one in chosen if one.key in told]
        if self.options.inside:
            chosen = [one for one in chosen if one.function]
        chosen = set(chosen)
        functions = 0
        for source in self.sources:
            source.breaks = [one for one in source.breaks if one in chosen]
            for function in source.finder.layout.functions:
                functions += 1
                source.numbers[function] = functions
        self.sources = [source for source in self.sources if source.breaks]

    def every(self):
        return [one for source in self.sources for one in source.breaks]

    def prepare(self, workshop, source):
        """Compiles a file with all breaks of its functions; those that do not compile leave."""
        source.object = os.path.join(workshop.scratch, source.name.replace("/", "_")[:-4] + ".o")
        remembered = workshop.remembered(source)
        for _ in range(12):
            breaks = [one for one in source.together() if one.fate is None]
            code, owners = one_line_breaks.schema(source.code, source.finder, breaks, source.numbers.get)
            said = workshop.compile(source.name, code, source.object)
            if not said:
                workshop.remember(source, remembered)
                return
            places = re.findall(re.escape(source.object[:-2]) + r"\.cpp:(\d+):.*?(?:error|required from)", said)
            wrong = {owners[int(place)] for place in places if int(place) in owners}
            if not wrong:
                sys.exit(f"{source.name} does not compile with its breaks:\n{said[:3000]}")
            for one in wrong:
                one.fate = "no program"
        sys.exit(f"{source.name} does not compile with its breaks")

    def run(self):
        workshop = Workshop(self.root, os.path.join(self.root, self.options.build))
        workshop.configure(["core_tests"] + (["window_tests", "brightrank"] if self.options.windows else []))
        with concurrent.futures.ThreadPoolExecutor(self.options.jobs) as pool:
            list(pool.map(lambda source: self.prepare(workshop, source), self.sources))
            print(f"{time.strftime('%H:%M:%S')} compiled", flush=True)
            for target in ["core_tests"] + (["window_tests"] if self.options.windows else []):
                tests = Tests(workshop, target, [source.object for source in self.sources])
                if tests.failing:
                    print(f"not counted, for they fail without a break: {' '.join(tests.failing)}")
                print(f"{time.strftime('%H:%M:%S')} {len(tests.seconds)} tests of {target}", flush=True)
                self.ends = time.monotonic() + 60 * (self.options.minutes or 0)
                list(pool.map(lambda pair: self.judge(tests, *pair), self.open()))

    def open(self):
        """What is still to be judged; in an order by chance where time may end it, so that it ends in a fair sample."""
        left = [(source, one) for source in self.sources for one in source.breaks if one.fate in (None, "survived")]
        if self.options.minutes:
            random.Random(self.options.seed).shuffle(left)
        return left

    def judge(self, tests, source, one):
        if self.options.minutes and time.monotonic() > self.ends:
            return
        if one.function and not one.function.constant:
            noticed = tests.noticeIn(source.numbers[one.function], one.number)
        else:
            noticed = self.judgeAlone(tests, source, one)
        if noticed is None:
            one.fate = "no program"
            return
        one.fate = "killed" if noticed else "survived"
        if not noticed and tests.target == "core_tests" and not self.known.holds(one.key):
            print(f"{source.name}:{one.line}: {one.key.split(' | ', 1)[1]}", flush=True)

    def judgeAlone(self, tests, source, one):
        """Compiles the file with this one break. Its tests come first, then all, for a table may be read from anywhere."""
        stem = os.path.join(tests.workshop.scratch, f"alone_{one.number}")
        code = one_line_breaks.edited(source.code, one.edits)
        try:
            if tests.workshop.compile(source.name, code, stem + ".o"):
                return None
            others = [other.object for other in self.sources if other is not source]
            plain = [tests.workshop.runner, stem + ".o", *others]
            tests.workshop.link(tests.target, plain, stem)
            near = tests.ofFunctions(set(source.numbers.values()) - tests.outside)
            far = [test for test in tests.ofFunctions(tests.outside or {-1}) if test not in set(near)]
            return tests.notice(near, 0, stem) or tests.notice(far or list(set(tests.seconds) - set(near)), 0, stem)
        finally:
            for ending in (".o", ".cpp", ""):
                if os.path.exists(stem + ending):
                    os.remove(stem + ending)

    def report(self):
        """A line for each room; the open survivors stand above."""
        print(f"{'room':10}{'breaks':>8}{'killed':>8}{'listed':>8}{'open':>8}{'killed of 100':>16}{'not reached':>14}")
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
            print(f"{room:10}{made:8}{killed:8}{listed:8}{open_:8}{rate:16.1f}{count(None):14}")
        return 1 if any(one.fate == "survived" and not self.known.holds(one.key) for one in self.every()) else 0


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--room", action="append", choices=ROOMS, help="only this room of core; may be repeated")
    parser.add_argument("--file", action="append", help="only this file; may be repeated")
    parser.add_argument("--only", help="only breaks whose key holds this text")
    parser.add_argument("--again", metavar="FILE", help="only breaks that this output of an earlier run tells")
    parser.add_argument("--inside", action="store_true", help="only breaks inside of functions, which are quick")
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
