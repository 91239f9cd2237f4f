"""A virtual display with a real pointer: what a user has in hand and before his eyes, for tests and benchmarks."""
import ctypes
import os
import subprocess
import time

LEFT, MIDDLE, RIGHT = 1, 2, 3  # buttons as the window system counts them
MAP_NOTIFY = 19
SUBSTRUCTURE_NOTIFY = 1 << 19
ALL_PLANES = 0xFFFFFFFF
Z_PIXMAP = 2


class XImage(ctypes.Structure):
    """The head of what XGetImage gives."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int)]


def x11Calls():
    """The two libraries, with the argument types that are not plain integers."""
    x11 = ctypes.CDLL("libX11.so.6")
    xtst = ctypes.CDLL("libXtst.so.6")
    pointer, number, window = ctypes.c_void_p, ctypes.c_int, ctypes.c_ulong
    x11.XOpenDisplay.restype = pointer
    for call, arguments in (
            (x11.XCloseDisplay, [pointer]),
            (x11.XDefaultRootWindow, [pointer]),
            (x11.XSelectInput, [pointer, window, ctypes.c_long]),
            (x11.XNextEvent, [pointer, pointer]),
            (x11.XSync, [pointer, number]),
            (x11.XGetImage, [pointer, window, number, number, ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, number]),
            (x11.XFree, [pointer]),
            (xtst.XTestFakeMotionEvent, [pointer, number, number, number, ctypes.c_ulong]),
            (xtst.XTestFakeButtonEvent, [pointer, ctypes.c_uint, number, ctypes.c_ulong])):
        call.argtypes = arguments
    x11.XDefaultRootWindow.restype = window
    x11.XGetImage.restype = ctypes.POINTER(XImage)
    return x11, xtst


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
    """An X server in memory of 1920 by 1080 pixels, ended with the `with` block."""

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1920x1080x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            self.name = ":" + pipe.readline().strip()
        self.x11, self.xtst = x11Calls()
        self.connection = self.x11.XOpenDisplay(self.name.encode())
        self.root = self.x11.XDefaultRootWindow(self.connection)
        self.x11.XSelectInput(self.connection, self.root, SUBSTRUCTURE_NOTIFY)
        self.x11.XSync(self.connection, 0)
        return self

    def __exit__(self, *_):
        self.x11.XCloseDisplay(self.connection)
        self.server.terminate()
        self.server.wait()

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

    def keys(self, *names):
        """Keys by their names, such as "Return" or "shift+F9"; they go to the window that has the focus."""
        subprocess.run(["xdotool", "key", *names], env=self.environment(), check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "5", text], env=self.environment(), check=True)

    def picture(self, left=0, top=0, width=1920, height=1080):
        """What the screen shows there now."""
        image = self.x11.XGetImage(self.connection, self.root, left, top, width, height, ALL_PLANES, Z_PIXMAP)
        head = image.contents
        data = ctypes.string_at(head.data, head.bytes_per_line * head.height)
        picture = Picture(head.width, head.height, head.bytes_per_line, data)
        self.x11.XFree(head.data)
        self.x11.XFree(image)
        return picture

    def save(self, path):
        subprocess.run(["import", "-display", self.name, "-window", "root", str(path)], check=True)


def waitFor(holds, seconds=10.0, what="it"):
    """Waits until `holds()` gives something true, and gives that; an error after `seconds`."""
    until = time.monotonic() + seconds
    while True:
        found = holds()
        if found:
            return found
        if time.monotonic() > until:
            raise AssertionError(f"waited {seconds} s in vain for {what}")
        time.sleep(0.005)
