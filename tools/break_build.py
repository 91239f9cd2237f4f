"""The build folder of tools/break_rules.py: writes files with their breaks, compiles them and what includes them, links test programs."""
import fcntl
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys

import one_line_breaks
from break_choices import Choices

ROUNDS = 25
COMPLAINT = re.compile(r"^([^\s:]+):(\d+):(?:\d+:)? +(.*(?:error:|required from|in .constexpr. expansion|note:.*constant).*)$", re.M)
FOLDERS = ("src", "tests", "fuzz", "practice")  # where an include in quotes may begin


def run(command, **more):
    return subprocess.run(command, capture_output=True, text=True, errors="replace", check=False, **more)


def must(command, **more):
    done = run(command, **more)
    if done.returncode != 0:
        sys.exit(f"{shlex.join(command) if isinstance(command, list) else command}\n{done.stdout}{done.stderr}")
    return done.stdout


def textOf(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def put(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


class Includes:
    """Which files of ours a file includes, itself or through others."""

    def __init__(self, root):
        self.root, self.direct, self.all = root, {}, {}

    def of(self, name):
        if name not in self.all:
            found, left = set(), [name]
            while left:
                new = self.named(left.pop()) - found
                found |= new
                left += new
            self.all[name] = found
        return self.all[name]

    def named(self, name):
        if name not in self.direct:
            included = re.findall(r'^#include "([^"]+)"', textOf(os.path.join(self.root, name)), re.M)
            places = [os.path.dirname(name), *FOLDERS]
            paths = [[os.path.normpath(os.path.join(place, path)) for place in places] for path in included]
            here = lambda path: os.path.exists(os.path.join(self.root, path))
            self.direct[name] = {found for found in (next(filter(here, several), None) for several in paths) if found}
        return self.direct[name]


class Source:
    """One file with its breaks."""

    def __init__(self, root, name):
        self.name = name
        self.code = textOf(os.path.join(root, name))
        self.finder = one_line_breaks.Finder(self.code)
        self.breaks = self.finder.breaks  # those to be judged
        self.numbers = {}  # function or value -> its number in all files
        for one in self.breaks:
            one.file = name
            one.key = f"{name} | {one.key}"
            one.fate = None
            one.alone = False  # has to be compiled by itself

    def isHeader(self):
        return self.name.endswith(".h")

    def readersOf(self, name):
        """The numbers of the functions that name a value."""
        if not name or not re.search(rf"\b{name}\b", self.code):
            return set()
        tokens = self.finder.tokens
        return {self.numbers[function] for function in self.finder.layout.functions
                if any(token.text == name for token in tokens[function.opened : function.closed])}


class Workshop:
    """Compiles files with breaks, and links test programs with them."""

    def __init__(self, root, folder):
        self.root, self.folder = root, folder
        self.scratch = os.path.join(folder, "breaks")
        self.shadow = os.path.join(self.scratch, "headers")
        self.includes = Includes(root)
        self.before = self.times()
        self.commands, self.objects, self.own = {}, {}, {}  # unit -> command, object of the build, object with breaks
        self.written = {}  # path -> text, owners
        self.kept = set()
        self.remembered = {}

    def take(self):
        """Holds the folder until the program ends: two calls in it would write over each other's files."""
        os.makedirs(self.scratch, exist_ok=True)
        self.held = open(os.path.join(self.scratch, "held"), "w", encoding="utf-8")
        try:
            fcntl.flock(self.held, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            sys.exit(f"another call works in {self.folder}; --build names another folder")

    def times(self):
        """When each file that may be compiled or read was changed."""
        walks = [walk for top in ("src", "tests") for walk in os.walk(os.path.join(self.root, top))]
        paths = [os.path.join(folder, name) for folder, _, names in walks for name in names if not name.endswith((".py", ".pyc"))]
        return {os.path.relpath(path, self.root): os.stat(path).st_mtime_ns for path in paths if os.path.exists(path)}

    def changed(self):
        """The files that were changed since this began: what was found may be neither of the old nor of the new tree."""
        return sorted({name for name, _ in self.before.items() ^ self.times().items()})

    def configure(self, targets):
        environment = {**os.environ, "CCACHE_NOHASHDIR": "1", "CCACHE_BASEDIR": self.root,
                       "CCACHE_SLOPPINESS": "pch_defines,time_macros"}
        must(["cmake", "-S", self.root, "-B", self.folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
              "-DCMAKE_CXX_FLAGS=-Og"], env=environment)
        must(["cmake", "--build", self.folder, "-j2", "--target", *targets], env=environment)
        for line in must(["ninja", "-C", self.folder, "-t", "commands", "core_tests"]).splitlines():
            found = re.search(r" -o (\S+) .*-c (\S+\.cpp)$", line)
            if found:
                name = os.path.relpath(found[2], self.root)
                self.commands[name], self.objects[name] = line, found[1]
        runner = os.path.join(self.root, "tools", "break_runner.cpp")
        self.runner = os.path.join(self.scratch, "runner.o")
        must(["g++", "-std=c++20", "-O1", "-c", runner, "-o", self.runner])

    def programOf(self, name):
        """Where a test program with breaks stands: tests look for other parts of the build beside it."""
        return os.path.join(self.folder, f"broken_{name}")

    def readersOf(self, headers):
        """The units that include one of these headers."""
        return [name for name in self.commands if self.includes.of(name) & set(headers)]

    def compile(self, name, path, object_, folders=(), only=()):
        """Compiles the file `path` in place of the unit `name`; gives what the compiler says, "" if nothing."""
        words = shlex.split(self.commands[name])
        words = words[next(number for number, word in enumerate(words) if word.endswith("c++")) :]
        words[words.index("-o") + 1] = object_
        words[words.index("-c") + 1] = path
        words = [word for word in words if not word.startswith("-W")] + ["-w", "-Wno-narrowing", "-fmax-errors=0", *only]
        words[1:1] = [f"-I{folder}" for folder in (*folders, self.shadow)]
        if "-MF" in words:
            words[words.index("-MF") + 1] = object_ + ".d"
        done = run(words, cwd=self.folder)
        return "" if done.returncode == 0 else done.stderr or f"the compiler ended with {done.returncode}"

    def prepare(self, sources, pool):
        """Compiles all files with their breaks, and what includes them. What the compiler takes badly leaves, or is compiled alone."""
        headers = [source.name for source in sources if source.isHeader()]
        units = sorted({*(source.name for source in sources if not source.isHeader()), *self.readersOf(headers)})
        core = [name for name in units if name.startswith("src/")]
        self.recall(sources)
        try:
            if headers:
                self.compileAll(sources, [core], pool, ["-fsyntax-only"])
            self.compileAll(sources, [core, [name for name in units if name not in core]], pool, [])
        finally:
            self.remember(sources)

    def compileAll(self, sources, parts, pool, only):
        for _ in range(ROUNDS):
            self.write(sources)
            for part in parts:
                said = [words for words in pool.map(lambda name: self.bring(name, only), part) if words]
                if said:
                    break
            else:
                return
            if not self.blame(said):
                sys.exit(f"does not compile with breaks:\n{said[0][:6000]}")
        sys.exit("does not compile with breaks")

    def write(self, sources):
        self.written, self.loosened = {}, set()
        for source in sources:
            choices = Choices(source.code, source.finder, self.kept)
            for one in source.finder.breaks:
                one.alone = one.alone or choices.isFixed(one)
            breaks = [one for one in source.finder.breaks if one.fate is None and not one.alone and self.wanted(source, one)]
            text, owners = choices.together(breaks, source.numbers.get)
            self.loosened |= choices.loosened
            path = self.pathOf(source)
            self.written[path] = (text, owners)
            if not os.path.exists(path) or textOf(path) != text:
                put(path, text)
        self.dropHeaders()

    def dropHeaders(self):
        """A changed copy of an earlier call would be compiled in place of the tree's own header."""
        for folder, _, names in os.walk(self.shadow):
            for path in (os.path.join(folder, name) for name in names):
                if path not in self.written:
                    os.remove(path)

    def wanted(self, source, one):
        """Copies of functions cost time to compile, so only those asked for are made; the others are cheap and stay."""
        return one.value or source.isHeader() or one in source.breaks

    def pathOf(self, source):
        if source.isHeader():
            return os.path.join(self.shadow, os.path.relpath(source.name, "src"))
        return os.path.join(self.scratch, source.name.replace("/", "_"))

    def pathOfUnit(self, name):
        """Where a unit stands that is to be compiled: with breaks, if it has any."""
        path = os.path.join(self.scratch, name.replace("/", "_"))
        return path if path in self.written else os.path.join(self.root, name)

    def bring(self, name, only):
        """Compiles a unit unless it is as it was; gives what the compiler says."""
        path = self.pathOfUnit(name)
        self.own[name] = os.path.join(self.scratch, name.replace("/", "_")[:-4] + ".o")
        mark = self.markOf(name, path, only)
        stamp = self.own[name] + (".checked" if only else ".stamp")
        if os.path.exists(stamp) and textOf(stamp) == mark:
            return ""
        if os.path.exists(stamp):
            os.remove(stamp)  # the object may be another one from here on, or none if this is interrupted
        said = self.compile(name, path, self.own[name], only=only)
        if not said:
            put(stamp, mark)
        return said

    def markOf(self, name, path, only):
        mark = hashlib.sha1(self.commands[name].encode())
        shadows = lambda header: os.path.join(self.shadow, os.path.relpath(header, "src"))
        for header in sorted(self.includes.of(name)):
            mark.update(self.textOf(shadows(header) if shadows(header) in self.written else os.path.join(self.root, header)))
        mark.update(self.textOf(path))
        return mark.hexdigest()

    def textOf(self, path):
        return (self.written[path][0] if path in self.written else textOf(path)).encode()

    def blame(self, said):
        """Finds out from the compiler's words which names must stay constants, or else which breaks are none."""
        names, sure, likely = set(), set(), set()
        for words in said:
            named, breaks, others = self.foundIn(words)
            names |= named
            likely |= breaks
            sure |= set() if others else breaks
        if names - self.kept:
            self.kept |= names
            return True
        for one in sure or likely:
            if one.function:
                one.fate = "no program"
            else:
                one.alone = True
        return bool(likely)

    def foundIn(self, said):
        """The names and the breaks that the compiler complains of in one unit, and whether it does so elsewhere: what it says of
        breaks may then only follow from that."""
        names, breaks, others = set(), set(), False
        for path, line, words in COMPLAINT.findall(said):
            path = os.path.normpath(os.path.join(self.folder, path))
            owners = self.written[path][1].get(int(line), []) if path in self.written else []
            named = self.namedAt(path, int(line), words) & self.loosened
            if named and (re.search("constan|constexpr|variable-sized", words) or not owners):
                names |= named
            breaks.update(owners)
            others = others or "error:" in words and not owners and path.startswith(self.root)
        return names, breaks, others

    def namedAt(self, path, line, words):
        text = self.textOf(path).decode() if os.path.exists(path) else ""
        return set(re.findall(r"\w+", words + " " + (text.split("\n")[line - 1] if text else "")))

    def memory(self):
        return os.path.join(self.scratch, "remembered.json")

    def recall(self, sources):
        """What did not compile in an earlier run leaves at once, if the file and what it includes are still the same."""
        if os.path.exists(self.memory()):
            self.remembered = json.loads(textOf(self.memory()))
        self.kept |= set(self.remembered.get("kept", []))
        for source in sources:
            fates = self.remembered.get(self.hashOf(source), {})
            for one in source.finder.breaks:
                one.fate = "no program" if one.key in fates.get("wrong", []) else None
                one.alone = one.key in fates.get("alone", [])

    def remember(self, sources):
        self.remembered["kept"] = sorted(self.kept)
        for source in sources:
            self.remembered[self.hashOf(source)] = {
                "wrong": [one.key for one in source.finder.breaks if one.fate == "no program"],
                "alone": [one.key for one in source.finder.breaks if one.alone]}
        put(self.memory(), json.dumps(self.remembered, indent=1))

    def hashOf(self, source):
        mark = hashlib.sha1(source.code.encode())
        for header in sorted(self.includes.of(source.name)):
            mark.update(textOf(os.path.join(self.root, header)).encode())
        return mark.hexdigest()

    def link(self, target, program, instead=None):
        """Links a test program with all that was compiled here; `instead` gives other objects for some units."""
        line = must(["ninja", "-C", self.folder, "-t", "commands", target]).splitlines()[-1]
        words = shlex.split(line.replace(": &&", "").replace("&& :", ""))
        words[words.index("-o") + 1] = program
        more = ["-Wl,-S", *(["-fuse-ld=lld", "-Wl,--threads=1"] if os.path.exists("/usr/bin/ld.lld") else []), self.runner]
        for name, object_ in {**self.own, **(instead or {})}.items():
            if self.objects[name] in words:
                words[words.index(self.objects[name])] = object_
            else:
                more.append(object_)
        first = next(number for number, word in enumerate(words) if word.endswith(".o"))
        must(words[:first] + more + words[first:], cwd=self.folder)
