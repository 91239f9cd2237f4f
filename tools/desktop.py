"""A virtual display with a real pointer: what a user has in hand and before his eyes, for tests and benchmarks.

No window manager runs on it; the tests ask for what one does for its user: windows are moved, and asked to close."""
import contextlib
import ctypes
import os
import subprocess
import time
import typing

from x11 import (ALL_PLANES, ANY_TYPE, CLIENT_MESSAGE, MAP_NOTIFY, SUBSTRUCTURE_NOTIFY, VIEWABLE, Z_PIXMAP,
                 XClientMessage, XWindowAttributes, passOver, x11Calls)

LEFT, RIGHT = 1, 3  # buttons as the window system counts them
LIMIT = 30.0  # seconds, which only a hang reaches
SCALE = int(os.environ.get("QT_SCALE_FACTOR", "1"))  # device pixels to one of the program's


class Window(typing.NamedTuple):
    """A window that shows; a menu is one too."""
    number: int
    title: str
    menu: bool
    left: int
    top: int
    width: int
    height: int


class Picture:
    """A rectangle of the screen, four bytes a pixel: blue, green, red, unused."""

    def __init__(self, width, height, stride, data):
        self.width, self.height, self.stride, self.data = width, height, stride, data

    def row(self, y, left=0, width=None):
        begin = y * self.stride + 4 * left
        return self.data[begin:begin + 4 * (self.width - left if width is None else width)]

    def part(self, left, top, width, height):
        """The bytes of a rectangle, comparable with those of any other picture."""
        return b"".join(self.row(y, left, width) for y in range(top, top + height))

    def pixel(self, x, y):
        """Red, green and blue."""
        blue, green, red = self.row(y, x, 1)[:3]
        return red, green, blue


class Display:
    """An X server in memory, ended with the `with` block; its size is in pixels of the program."""

    def __init__(self, width=1920, height=1080):
        self.width, self.height = width * SCALE, height * SCALE

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self.start(stack)
            self.connect(stack)
            self.atEnd = stack.pop_all()
        return self

    def __exit__(self, *_):
        self.atEnd.close()

    def start(self, stack):
        read, write = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{self.width}x{self.height}x24", "-nolisten", "tcp",
             "-r"],  # a key that is held does not repeat itself
            pass_fds=[write], stderr=subprocess.DEVNULL)
        stack.callback(endProcess, server)
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise RuntimeError("the virtual display did not start")
        self.name = ":" + number

    def connect(self, stack):
        self.x11, self.xtst = x11Calls()
        self.x11.XSetErrorHandler(passOver)
        self.connection = self.x11.XOpenDisplay(self.name.encode())
        if not self.connection:
            raise RuntimeError(f"the virtual display {self.name} is not to be reached")
        stack.callback(self.x11.XCloseDisplay, self.connection)
        self.root = self.x11.XDefaultRootWindow(self.connection)
        self.x11.XSelectInput(self.connection, self.root, SUBSTRUCTURE_NOTIFY)
        self.x11.XSync(self.connection, 0)

    def awaitMap(self):
        """Waits until a window shows."""
        event = (ctypes.c_long * 24)()
        while ctypes.cast(event, ctypes.POINTER(ctypes.c_int))[0] != MAP_NOTIFY:
            self.x11.XNextEvent(self.connection, event)

    def environment(self):
        """That of a program which is to show itself here."""
        surroundings = dict(os.environ, DISPLAY=self.name, QT_QPA_PLATFORM="xcb")
        surroundings.pop("WAYLAND_DISPLAY", None)
        return surroundings

    def move(self, x, y):
        self.xtst.XTestFakeMotionEvent(self.connection, -1, int(x), int(y), 0)
        self.x11.XSync(self.connection, 0)

    def press(self, button=LEFT):
        self.xtst.XTestFakeButtonEvent(self.connection, button, 1, 0)
        self.x11.XSync(self.connection, 0)

    def release(self, button=LEFT):
        self.xtst.XTestFakeButtonEvent(self.connection, button, 0, 0)
        self.x11.XSync(self.connection, 0)

    def click(self, x, y, button=LEFT):
        self.move(x, y)
        self.press(button)
        self.release(button)

    def turnWheel(self, up):
        """By one notch, where the pointer is."""
        wheel = 4 if up else 5
        self.press(wheel)
        self.release(wheel)

    def keys(self, *names):
        """Keys by their names, such as "Return" or "shift+F9"; they go to the window that has the focus."""
        self.xdotool("key", *names)

    @contextlib.contextmanager
    def held(self, key):
        """A key is down while the `with` block lasts, such as one that takes its window away: if it is lifted before,
        the toolkit holds that for an assistive tool to hear, and never lets go of what came too late for the window."""
        self.xdotool("keydown", key)
        try:
            yield
        finally:
            self.xdotool("keyup", key)

    def type(self, text):
        self.xdotool("type", "--delay", "5", text)

    def xdotool(self, *words):
        subprocess.run(["xdotool", *words], env=self.environment(), check=True)

    def windows(self, title=None):
        """Those that show but menus, the lowest first; only those with that title, if one is given."""
        return [window for window in self.allWindows() if not window.menu and title in (None, window.title)]

    def menus(self):
        """The menus that are open."""
        return [window for window in self.allWindows() if window.menu]

    def allWindows(self):
        root, parent, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_uint()
        children = ctypes.POINTER(ctypes.c_ulong)()
        self.x11.XQueryTree(self.connection, self.root, ctypes.byref(root), ctypes.byref(parent),
                            ctypes.byref(children), ctypes.byref(count))
        numbers = children[:count.value]
        self.x11.XFree(children)
        found = []
        for number in numbers:
            facts = XWindowAttributes()
            known = self.x11.XGetWindowAttributes(self.connection, number, ctypes.byref(facts))
            if known and facts.map_state == VIEWABLE:
                found.append(Window(number, self.titleOf(number), bool(facts.override_redirect), facts.x, facts.y,
                                    facts.width, facts.height))
        return found

    def titleOf(self, number):
        name = self.x11.XInternAtom(self.connection, b"_NET_WM_NAME", 0)
        kind, form, length, rest = ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong()
        text = ctypes.c_void_p()
        self.x11.XGetWindowProperty(self.connection, number, name, 0, 256, 0, ANY_TYPE, ctypes.byref(kind),
                                    ctypes.byref(form), ctypes.byref(length), ctypes.byref(rest), ctypes.byref(text))
        if not text.value:
            return ""
        title = ctypes.string_at(text.value, length.value).decode()
        self.x11.XFree(text)
        return title

    def hasFocus(self, window):
        """True when keys go to that window."""
        number, revert = ctypes.c_ulong(), ctypes.c_int()
        self.x11.XGetInputFocus(self.connection, ctypes.byref(number), ctypes.byref(revert))
        return number.value == window.number

    def awaitWindow(self, title):
        """The highest window of that title, as soon as it shows."""
        return waitFor(lambda: self.windows(title), f"a window {title!r}")[-1]

    def awaitFocus(self, window):
        waitFor(lambda: self.hasFocus(window), f"the focus in {window.title!r}")
        return window

    def awaitDialog(self, title):
        """The window of that title, as soon as it takes the keys."""
        return self.awaitFocus(self.awaitWindow(title))

    def awaitMenu(self):
        """The popup menu that is open."""
        return waitFor(self.menus, "a menu")[-1]

    def awaitNoMenu(self):
        waitFor(lambda: not self.menus(), "the menu to close")

    def isGone(self, window):
        return window.number not in [each.number for each in self.windows()]

    def awaitGone(self, window):
        waitFor(lambda: self.isGone(window), f"{window.title!r} to close")

    def moveWindow(self, window, left, top):
        """As a user does who drags the title."""
        self.x11.XMoveWindow(self.connection, window.number, left, top)
        self.x11.XSync(self.connection, 0)

    def closeWindow(self, window):
        """As a user does with the cross in the title: the window is asked to close."""
        message = XClientMessage(kind=CLIENT_MESSAGE, window=window.number, format=32,
                                 message_type=self.x11.XInternAtom(self.connection, b"WM_PROTOCOLS", 0))
        message.data[0] = self.x11.XInternAtom(self.connection, b"WM_DELETE_WINDOW", 0)
        self.x11.XSendEvent(self.connection, window.number, 0, 0, ctypes.byref(message))
        self.x11.XSync(self.connection, 0)

    def picture(self, left=0, top=0, width=None, height=None):
        """What the screen shows there now; all of it without figures."""
        width, height = width or self.width - left, height or self.height - top
        image = self.x11.XGetImage(self.connection, self.root, left, top, width, height, ALL_PLANES, Z_PIXMAP)
        head = image.contents
        data = ctypes.string_at(head.data, head.bytes_per_line * head.height)
        picture = Picture(head.width, head.height, head.bytes_per_line, data)
        self.x11.XFree(head.data)
        self.x11.XFree(image)
        return picture

    def save(self, path):
        subprocess.run(["import", "-display", self.name, "-window", "root", str(path)], check=True)


def waitFor(holds, what, seconds=LIMIT):
    """Waits until `holds()` gives something true, and gives that; an error after `seconds`. `what` is waited for: a
    text, or what gives one then."""
    until = time.monotonic() + seconds
    while True:
        found = holds()
        if found:
            return found
        if time.monotonic() > until:
            raise AssertionError(f"waited {seconds} s in vain for {what() if callable(what) else what}")
        time.sleep(0.005)


def endProcess(process):
    """Asks a process to end and gives its exit status; one that does not end is killed, and that is an error."""
    process.terminate()
    try:
        return process.wait(LIMIT)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        raise
