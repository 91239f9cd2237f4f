#!/usr/bin/env python3
"""Installs the package into a bare Debian 12, starts what its desktop entry names, plays a game, removes it again, and
tells what is left.

    tools/install_test.py PACKAGE          in a folder of its own, made by mmdebstrap; else as with --here
    tools/install_test.py --here PACKAGE   on this machine, which is left as it was

It needs root for either; without, it is passed over. The bare system is kept beside the package for the next time."""
import argparse
import configparser
import contextlib
import hashlib
import os
import pathlib
import re
import shlex
import shutil
import socket
import stat
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/e2e"))
from desktop import Window, waitFor  # noqa: E402
from managed import ManagedDisplay  # noqa: E402
from peers import Partner  # noqa: E402
from rig import awaitLifting  # noqa: E402
from screen import Screen  # noqa: E402

SUITE = "bookworm"
ENTRY = "usr/share/applications/net.brightrank.brightrank.desktop"
CONSOLE = "Brightrank - Client"
STORE = ".config/Brightrank/Brightrank.ini"
PRACTICE = ".local/share/brightrank/practice"
PLAYER = "player"
# Where dpkg and apt keep their own books, and what is nobody's file.
BOOKS = ("var/lib/dpkg", "var/lib/apt", "var/log", "var/cache", "proc", "sys", "dev", "run", "tmp", "home", "root")


def field(package, name):
    return subprocess.run(["dpkg-deb", "--field", package, name], check=True, capture_output=True, text=True).stdout


def dependencies(package):
    """The names of the packages that it depends on, of alternatives the first."""
    return sorted({re.match(r"\s*([a-z0-9.+-]+)", each)[1] for each in field(package, "Depends").split(",")})


def quietly(*command, **more):
    """Runs a command whose output matters only when it fails."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **more)
    if done.returncode != 0:
        raise RuntimeError(f"{shlex.join(map(str, command))}\n{done.stdout[-3000:]}")
    return done.stdout


class BareDebian:
    """A Debian in a folder, with what the package depends on and nothing else. What runs in it sees processes of its own
    only and ends with the command that started it; nothing stays mounted."""

    def __init__(self, package, stack):
        self.package = package
        self.path = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="brightrank-bare-")))
        self.path.chmod(0o755)
        self.unpack(package)
        self.run("useradd", "--create-home", PLAYER)
        self.home = self.path / "home" / PLAYER
        user = next(line for line in (self.path / "etc/passwd").read_text().splitlines() if line.startswith(PLAYER + ":"))
        self.owner = int(user.split(":")[2])

    def unpack(self, package):
        names = dependencies(package)
        key = hashlib.sha256(" ".join([SUITE, *names]).encode()).hexdigest()[:12]
        kept = package.parent / f"bare-{SUITE}-{key}.tar"
        if not kept.exists():
            for old in package.parent.glob("bare-*.tar"):
                old.unlink()
            made = kept.with_suffix(".new")
            quietly("mmdebstrap", "--variant=minbase", "--format=tar", f"--include={','.join(names)}", SUITE, made)
            made.rename(kept)
        quietly("tar", "--extract", "--file", kept, "--directory", self.path, "--numeric-owner")
        # Without the system's own processes there is nobody to ask to start anything.
        (self.path / "usr/sbin/policy-rc.d").write_text("#!/bin/sh\nexit 101\n")
        (self.path / "usr/sbin/policy-rc.d").chmod(0o755)

    def inside(self, command, user):
        return ["unshare", "--mount", "--pid", "--fork", "--kill-child", f"--mount-proc={self.path}/proc",
                shutil.which("chroot"), *([f"--userspec={user}"] if user else []), str(self.path), *command]

    def run(self, *command):
        return quietly(*self.inside(command, None), env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C.UTF-8"})

    def start(self, command, log, **surroundings):
        """As its user does who clicks; whatever is in the environment of this test plays no part."""
        return subprocess.Popen(self.inside(command, PLAYER), stdout=log, stderr=log, stdin=subprocess.DEVNULL,
                                env={"PATH": "/usr/local/bin:/usr/bin:/bin", "HOME": f"/home/{PLAYER}", **surroundings})

    def install(self):
        shutil.copy(self.package, self.path / "tmp/brightrank.deb")
        self.run("dpkg", "--install", "/tmp/brightrank.deb")

    def end(self, process):
        process.kill()  # and with it all that runs inside
        process.wait()

    def purge(self):
        self.run("dpkg", "--purge", "brightrank")

    def files(self):
        return factsBelow(self.path, "")


class ThisMachine:
    """The machine that the test runs on, with a folder of the test's as home. What the package needs and was not there
    before goes with it."""

    def __init__(self, package, stack):
        self.package = package
        self.path = pathlib.Path("/")
        if "brightrank" in self.installed():
            raise RuntimeError("brightrank is installed on this machine already")
        self.home = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="brightrank-home-")))
        self.owner = os.getuid()
        self.before = self.installed()
        stack.callback(self.purge)

    def installed(self):
        listed = quietly("dpkg-query", "--show", "--showformat=${db:Status-Status} ${Package}\n")
        return {line.split()[1] for line in listed.splitlines() if line.startswith("installed ")}

    def run(self, *command):
        return quietly(*command)

    def start(self, command, log, **surroundings):
        return subprocess.Popen(command, stdout=log, stderr=log, stdin=subprocess.DEVNULL, cwd=self.home,
                                env={"PATH": "/usr/local/bin:/usr/bin:/bin", "HOME": str(self.home), **surroundings})

    def install(self):
        quietly("apt-get", "install", "--yes", "--no-install-recommends", str(self.package),
                env=dict(os.environ, DEBIAN_FRONTEND="noninteractive"))

    def purge(self):
        brought = sorted(self.installed() - self.before)
        if brought:
            quietly("dpkg", "--purge", *brought)

    def end(self, process):
        process.terminate()
        process.wait()

    def files(self):
        """Those with the program's name; the rest of the machine has a life of its own."""
        found = {}
        for top in ("usr", "etc", "opt", "var/lib"):
            found |= factsBelow(self.path, top)
        return {path: fact for path, fact in found.items() if "brightrank" in path.lower()}


def factsBelow(root, top):
    """What each file and folder is and holds, but for the books of the package system."""
    found = {}
    for folder, folders, names in os.walk(root / top):
        inside = os.path.relpath(folder, root)
        folders[:] = [name for name in folders if os.path.normpath(f"{inside}/{name}") not in BOOKS]
        for name in [*folders, *names]:
            found[os.path.normpath(f"{inside}/{name}")] = factOf(pathlib.Path(folder, name))
    return found


def factOf(path):
    """Without the date of a folder, which says only that something in it came or went."""
    facts = path.lstat()
    if stat.S_ISREG(facts.st_mode):
        return facts.st_mode, facts.st_uid, facts.st_size, facts.st_mtime_ns
    return facts.st_mode, facts.st_uid, os.readlink(path) if stat.S_ISLNK(facts.st_mode) else ""


class Entry:
    """The desktop entry as a desktop reads it; the commands of ours have no field codes."""

    def __init__(self, system):
        self.file = configparser.ConfigParser(interpolation=None, delimiters="=")
        self.file.optionxform = str
        self.file.read(system.path / ENTRY)
        icon = self.file["Desktop Entry"]["Icon"]
        if not (system.path / f"usr/share/icons/hicolor/scalable/apps/{icon}.svg").exists():
            raise AssertionError(f"there is no icon {icon!r}")

    def command(self, action=None):
        group = f"Desktop Action {action}" if action else "Desktop Entry"
        return shlex.split(self.file[group]["Exec"])

    def actions(self):
        return [each for each in self.file["Desktop Entry"]["Actions"].split(";") if each]


def keepPicture(display):
    """What the screen shows when something fails."""
    handle, path = tempfile.mkstemp(prefix="brightrank-install-", suffix=".png")
    os.close(handle)
    display.save(path)
    print(f"what the screen shows: {path}", file=sys.stderr)


@contextlib.contextmanager
def started(system, display, command):
    """A command of the desktop entry, which has to end in order by the time that the block ends."""
    with tempfile.TemporaryFile() as log:
        process = system.start(command, log, DISPLAY=display.name)
        try:
            yield process
            status = process.wait(30)
            if status != 0:
                raise AssertionError(f"{command} ended with status {status}")
        except BaseException:
            keepPicture(display)
            log.seek(0)
            sys.stderr.write(log.read().decode(errors="replace"))
            raise
        finally:
            if process.poll() is None:
                system.end(process)


def close(display):
    display.closeWindow(Window(int(display.number(CONSOLE)), CONSOLE, False, 0, 0, 0, 0))


def startAlone(system, display, entry):
    """The first start: console and board show, and the settings are written at the end, for their owner alone."""
    with started(system, display, entry.command()):
        display.number("Brightrank - Board")
        display.number(CONSOLE)
        close(display)
    facts = (system.home / STORE).stat()
    if stat.S_IMODE(facts.st_mode) != 0o600 or facts.st_uid != system.owner:
        raise AssertionError(f"{STORE} has the mode {facts.st_mode:o} and belongs to {facts.st_uid}")


def practicePort(system):
    log = system.home / PRACTICE / "server.log"
    found = waitFor(lambda: log.exists() and re.search(r"127\.0\.0\.1:(\d+)", log.read_text()), "the practice server")
    return int(found[1])


def practise(system, display, entry):
    """The action of the entry: a game on the practice server, to its end."""
    if entry.actions() != ["Practice"]:
        raise AssertionError(f"the entry's actions are {entry.actions()}")
    with started(system, display, entry.command("Practice")):
        display.number("Seek Graph")
        port = practicePort(system)
        partner = Partner(port)
        playGame(display, partner)
        partner.end()
        close(display)
    with contextlib.suppress(ConnectionRefusedError), socket.create_connection(("127.0.0.1", port)):
        raise AssertionError("the practice server is still there")


def playGame(display, partner):
    """The shortest mate, by the program's user with the pointer."""
    partner.say("match Pupil 10 0 u white")
    partner.await_("Issuing")
    display.activate(CONSOLE)
    display.type("accept")
    display.keys("Return")
    partner.await_("Creating")
    screen = Screen(display, flipped=True)
    board = display.number("Rookery")
    area = display.areaNow(board)
    waitFor(lambda: screen.find(Window(int(board), "", False, *area)), "the board")
    awaitLifting()
    for theirs, mine in (("f2f3", "e7e5"), ("g2g4", "d8h4")):
        before = screen.middles()
        partner.say(theirs)
        waitFor(lambda: theirs[2:] in screen.changed(before), f"{theirs} on the board")
        drag(display, screen, mine)
        partner.await_(rf"<12> .*{mine[:2]}-{mine[2:]}")
    partner.await_("checkmated")


def drag(display, screen, move):
    display.move(*screen.centre(move[:2]))
    display.press()
    display.move(*screen.centre(move[2:]))
    display.release()


def expectNothingLeft(before, after):
    differing = sorted(path for path in before.keys() | after.keys() if before.get(path) != after.get(path))
    if differing:
        raise AssertionError("left or changed: " + ", ".join(differing[:40]))


def testOn(system):
    before = system.files()
    system.install()
    added = system.files().keys() - before.keys()
    print(f"installed: {len(added)} files and folders")
    entry = Entry(system)
    with ManagedDisplay(1400, 900) as display:
        startAlone(system, display, entry)
        print(f"started: {shlex.join(entry.command())}, and closed again")
        practise(system, display, entry)
        print(f"started: {shlex.join(entry.command('Practice'))}, and played a game to mate")
    system.purge()
    expectNothingLeft(before, system.files())
    print("removed: nothing of the package is left")
    kept = sorted(str(path.relative_to(system.home)) for path in system.home.rglob("*") if path.is_file())
    print("the user's own files stay:", *[each for each in kept if not each.startswith((".bash", ".profile"))], sep="\n  ")


def passOver(why):
    print(f"passed over: {why}")
    return 77


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("package", type=pathlib.Path)
    parser.add_argument("--here", action="store_true", help="install onto this machine")
    chosen = parser.parse_args()
    if os.geteuid() != 0:
        return passOver("only root can install packages")
    if not chosen.package.exists():
        return passOver(f"there is no {chosen.package.name}")
    kind = ThisMachine if chosen.here else BareDebian
    with contextlib.ExitStack() as stack:
        try:
            system = kind(chosen.package.resolve(), stack)
        except (OSError, RuntimeError) as why:
            if chosen.here:
                return passOver(why)
            print(f"no bare Debian can be had here, so this machine has to do:\n{why}")
            system = ThisMachine(chosen.package.resolve(), stack)
        testOn(system)
    return 0


if __name__ == "__main__":
    sys.exit(main())
