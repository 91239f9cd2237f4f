#!/usr/bin/env python3
"""The command that plays offline: client and practice server start together and end together, in a store of their own."""
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import tempfile
import unittest

from peers import Partner
from rig import BUILD, LIMIT, Display, waitFor

CLIENT = "Brightrank - Client     Connected to FICS"


class Offline(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(Display())

    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="brightrank-e2e-")))

    def start(self, *arguments, program=BUILD / "brightrank-play", **surroundings):
        whole = self.display.environment() | {"HOME": str(self.folder), "XDG_DATA_HOME": None} | surroundings
        whole = {name: value for name, value in whole.items() if value is not None}
        process = subprocess.Popen([str(program), *arguments], env=whole, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, text=True, cwd=self.folder)
        self.addCleanup(process.stdout.close)
        self.addCleanup(lambda: process.poll() is None and (process.terminate(), process.wait(LIMIT)))
        return process

    def awaitStore(self, process):
        """The folder of the run, as soon as its client has been started."""
        for line in process.stdout:
            if found := re.match("Settings and logs: (.*)", line):
                return pathlib.Path(found[1])
        raise AssertionError(f"ended with {process.wait()}")

    def port(self, store):
        return int(re.search(r"127\.0\.0\.1:(\d+)", (store / "server.log").read_text())[1])

    def begin(self, *arguments):
        """A run whose user is logged on; gives it with its store and port."""
        process = self.start(*arguments)
        store = self.awaitStore(process)
        port = self.port(store)
        partner = Partner(port)

        def isLoggedOn():
            partner.say("finger Pupil")
            return "not logged on" not in partner.await_(r"(?s)Finger of Pupil.*?fics% ", 5)[0]

        waitFor(isLoggedOn, "its user to log on")
        partner.end()
        return process, store, port

    def assertEnded(self, process, status, port):
        self.assertEqual(process.wait(LIMIT), status)
        with self.assertRaises(ConnectionRefusedError), socket.create_connection(("127.0.0.1", port)):
            pass
        waitFor(lambda: not self.display.windows(CLIENT), "the client to be gone")

    def test_the_server_ends_with_the_client(self):
        process, store, port = self.begin()
        self.assertEqual(store, self.folder / ".local/share/brightrank/practice")
        self.display.closeWindow(self.display.awaitWindow(CLIENT))
        self.assertEnded(process, 0, port)

    def test_both_end_with_the_command(self):
        signal.signal(signal.SIGHUP, signal.SIG_DFL)  # who starts the tests may have had them passed over
        signal.signal(signal.SIGINT, signal.default_int_handler)
        for number, status in (signal.SIGTERM, 143), (signal.SIGHUP, 129), (signal.SIGINT, 130):
            with self.subTest(number.name):
                process, store, port = self.begin()
                self.display.awaitWindow(CLIENT)
                process.send_signal(number)
                self.assertEnded(process, status, port)
                self.assertIn("Handle=Pupil", (store / "config/Brightrank/Brightrank.ini").read_text())

    def test_both_end_in_order_when_the_command_is_killed(self):
        process, store, port = self.begin()
        self.display.awaitWindow(CLIENT)
        settings = store / "config/Brightrank/Brightrank.ini"
        settings.write_text(settings.read_text().replace("Handle=Pupil\n", ""))
        process.kill()
        process.wait(LIMIT)
        waitFor(lambda: not self.display.windows(CLIENT), "the client to be gone")
        waitFor(lambda: "Handle=Pupil" in settings.read_text(), "the settings")
        waitFor(lambda: not self.listens(port), "the server to be gone")

    def listens(self, port):
        with socket.socket() as line:
            return line.connect_ex(("127.0.0.1", port)) == 0

    def test_it_ends_by_itself_after_some_seconds(self):
        process = self.start("--seconds", "1")
        port = self.port(self.awaitStore(process))
        self.assertIn("Ended after 1 seconds.", process.stdout.read())
        self.assertEnded(process, 0, port)

    def test_a_second_run_has_a_store_of_its_own(self):
        first = self.start("--store", str(self.folder / "games"))
        self.assertEqual(self.awaitStore(first), self.folder / "games")
        second = self.start("--store", str(self.folder / "games"))
        self.assertEqual(self.awaitStore(second), self.folder / "games2")
        self.assertNotEqual(self.port(self.folder / "games"), self.port(self.folder / "games2"))

    def test_what_the_user_chose_stays_and_where_to_connect_is_new(self):
        file = self.folder / "config/Brightrank/Brightrank.ini"
        file.parent.mkdir(parents=True)
        file.write_text("[Client]\nHandle=Novice\nPort=1\nSeek_Graph=False\nIP=198.51.100.1\nLast_Server=2\n"
                        "Use_Timeseal=True\nAuto_Connect=False\nAuto_Logon=False\n\n[Board]\nLeft=300\n")
        process = self.start("--store", str(self.folder))
        port = self.port(self.awaitStore(process))
        kept = file.read_text()
        self.assertIn("Handle=Novice\n", kept)
        self.assertIn("Seek_Graph=False\n", kept)
        self.assertEqual(kept.count("Port="), 1)
        for line in (f"Port={port}", "IP=127.0.0.1", "Last_Server=0", "Use_Timeseal=False", "Auto_Connect=True",
                     "Auto_Logon=True"):
            self.assertIn(f"{line}\n", kept)
        self.assertIn("[Board]\nLeft=300\n", kept)
        self.assertEqual(file.stat().st_mode & 0o777, 0o600)

    def test_a_store_is_named_from_where_the_user_stands(self):
        (self.folder / "elsewhere/games").mkdir(parents=True)
        for name in "games", "-games", "a  b/games":
            with self.subTest(name):
                process = self.start("--seconds", "1", "--store", name, CDPATH=str(self.folder / "elsewhere"))
                self.assertEqual(self.awaitStore(process), self.folder / name)
                self.assertEqual(process.wait(LIMIT), 0)

    def test_a_file_that_has_the_name_of_the_lock_keeps_its_text(self):
        (self.folder / "lock").write_text("a door\n")
        self.awaitStore(self.start("--store", str(self.folder)))
        self.assertEqual((self.folder / "lock").read_text(), "a door\n")

    def test_what_cannot_be_written_is_told(self):
        for name, told in (("lock", "nothing can be written in {}"), ("server.log", "nothing can be written in {}"),
                           ("config/Brightrank/Brightrank.ini", "the settings in {}/config cannot be written"),
                           ("config/Brightrank/Brightrank.ini.new", "the settings in {}/config cannot be written")):
            with self.subTest(name):
                store = self.folder / name.replace("/", "-")
                (store / name / "full").mkdir(parents=True)
                process = self.start("--store", str(store))
                self.assertIn("brightrank-play: " + told.format(store), process.stdout.read())
                self.assertEqual(process.wait(LIMIT), 1)

    def beside(self, server, client):
        """The command with two others in place of its programs."""
        folder = self.folder / "programs"
        folder.mkdir()
        shutil.copy(BUILD / "brightrank-play", folder)
        for name, commands in ("brightrank-practice", server), ("brightrank", client):
            (folder / name).write_text(f"#!/bin/sh\n{commands}\n")
            (folder / name).chmod(0o755)
        return folder / "brightrank-play"

    def test_a_client_that_fails_is_told_with_its_last_words_and_its_status(self):
        program = self.beside("echo listening on 127.0.0.1:1; exec sleep 60", "echo alas; exit 3")
        process = self.start("--store", str(self.folder), program=program)
        self.assertRegex(process.stdout.read(), r"alas\nbrightrank-play: the client ended with status 3; its log is .*\n")
        self.assertEqual(process.wait(LIMIT), 3)

    def test_a_server_that_ends_by_itself_is_told_and_the_client_ends_too(self):
        mark = self.folder / "ended"
        program = self.beside("echo listening on 127.0.0.1:1; sleep 1",
                              f"trap 'echo >{mark}; exit 0' TERM; while :; do sleep 0.1; done")
        process = self.start("--store", str(self.folder), program=program)
        self.assertIn("brightrank-play: the practice server ended by itself; its log is", process.stdout.read())
        self.assertEqual(process.wait(LIMIT), 1)
        self.assertTrue(mark.exists())

    def test_the_client_works_in_the_store(self):
        program = self.beside("echo listening on 127.0.0.1:1; exec sleep 60",
                              "pwd; echo $BRIGHTRANK_CONFIG_HOME; echo $XDG_CACHE_HOME")
        store = self.folder / "games"
        self.assertEqual(self.start("--store", str(store), program=program).wait(LIMIT), 0)
        expected = "".join(f"{store}{below}\n" for below in ("", "/config", "/cache"))
        self.assertEqual((store / "client.log").read_text(), expected)

    def test_the_store_is_in_the_data_folder_if_that_is_a_whole_path(self):
        program = self.beside("echo listening on 127.0.0.1:1; exec sleep 60", "exit 0")
        for data, store in ((str(self.folder / "data"), "data"), ("data", ".local/share"), ("", ".local/share")):
            with self.subTest(data):
                process = self.start(program=program, XDG_DATA_HOME=data)
                self.assertEqual(self.awaitStore(process), self.folder / store / "brightrank/practice")
                self.assertEqual(process.wait(LIMIT), 0)

    def test_a_server_that_does_not_start_is_told_whatever_an_earlier_one_wrote(self):
        program = self.beside("echo no engine; exit 2", "exit 0")
        (self.folder / "server.log").write_text("listening on 127.0.0.1:1\n")
        process = self.start("--store", str(self.folder), program=program)
        self.assertEqual(process.stdout.read(), "no engine\nbrightrank-play: the practice server did not start\n")
        self.assertEqual(process.wait(LIMIT), 1)

    def test_what_nobody_would_see_in_a_terminal_is_told_by_the_desktop(self):
        notifier = self.folder / "bin/notify-send"
        notifier.parent.mkdir()
        notifier.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$@\" >>{self.folder}/told\n")
        notifier.chmod(0o755)
        surroundings = {"HOME": None, "PATH": f"{notifier.parent}:{os.environ['PATH']}", "XDG_RUNTIME_DIR": None}
        self.assertEqual(self.start(**surroundings, DBUS_SESSION_BUS_ADDRESS=None).wait(LIMIT), 1)
        self.assertFalse((self.folder / "told").exists(), "there is no desktop to tell")
        self.assertEqual(self.start(**surroundings, DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere").wait(LIMIT), 1)
        self.assertEqual((self.folder / "told").read_text().split("\n")[-3:],
                         ["Practice on this machine", "there is neither XDG_DATA_HOME nor HOME", ""])

    def test_without_a_home_it_says_so(self):
        process = self.start(HOME=None)
        self.assertEqual(process.stdout.read(), "brightrank-play: there is neither XDG_DATA_HOME nor HOME\n")
        self.assertEqual(process.wait(LIMIT), 1)

    def test_the_windows_have_the_colours_of_the_desktop(self):
        (self.folder / ".config").mkdir()
        (self.folder / ".config/kdeglobals").write_text("[Colors:Button]\nBackgroundNormal=10,200,30\n"
                                                        "[Colors:Window]\nBackgroundNormal=10,200,30\n")
        self.awaitStore(self.start(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5", XDG_CONFIG_HOME=None))
        self.display.awaitWindow(CLIENT)
        waitFor(self.isGreen, "a window in the colours of the desktop")

    def isGreen(self):
        window = self.display.awaitWindow(CLIENT)
        picture = self.display.picture(window.left, window.top, window.width, window.height)
        return picture.data.count(bytes((30, 200, 10))) > 1000

    def test_without_a_display_it_says_so(self):
        process = self.start(DISPLAY=None)
        self.assertIn("there is no display", process.stdout.read())
        self.assertEqual(process.wait(LIMIT), 1)

    def test_a_command_line_that_makes_no_sense_is_refused(self):
        for arguments in ("--seconds",), ("--seconds", "0"), ("--seconds", "x"), ("--store", ""), ("game",):
            with self.subTest(arguments):
                process = self.start(*arguments)
                self.assertIn("brightrank-play", process.stdout.read())
                self.assertEqual(process.wait(LIMIT), 2)


if __name__ == "__main__":
    unittest.main()
