"""The calls of the window system that a virtual display needs, with their structures."""
import ctypes

MAP_NOTIFY = 19
CLIENT_MESSAGE = 33
SUBSTRUCTURE_NOTIFY = 1 << 19
ALL_PLANES = 0xFFFFFFFF
Z_PIXMAP = 2
VIEWABLE = 2  # a window that shows
ANY_TYPE = 0


class XImage(ctypes.Structure):
    """The head of what XGetImage gives."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int)]


class XWindowAttributes(ctypes.Structure):
    """What XGetWindowAttributes gives."""
    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
                ("border_width", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p),
                ("root", ctypes.c_ulong), ("of_class", ctypes.c_int), ("bit_gravity", ctypes.c_int),
                ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong),
                ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong),
                ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int), ("masks", ctypes.c_long * 3),
                ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]


class XClientMessage(ctypes.Structure):
    """A message of one window to another, padded to the size of any event."""
    _fields_ = [("kind", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("pad", ctypes.c_long * 12)]


# A window may go while it is asked about: the call then fails, and nobody need be told.
@ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
def passOver(_connection, _error):
    return 0


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
            (x11.XInternAtom, [pointer, ctypes.c_char_p, number]),
            (x11.XQueryTree, [pointer, window, pointer, pointer, pointer, pointer]),
            (x11.XGetWindowAttributes, [pointer, window, pointer]),
            (x11.XGetWindowProperty, [pointer, window, window, ctypes.c_long, ctypes.c_long, number, window, pointer,
                                      pointer, pointer, pointer, pointer]),
            (x11.XGetInputFocus, [pointer, pointer, pointer]),
            (x11.XMoveWindow, [pointer, window, number, number]),
            (x11.XSendEvent, [pointer, window, number, ctypes.c_long, pointer]),
            (xtst.XTestFakeMotionEvent, [pointer, number, number, number, ctypes.c_ulong]),
            (xtst.XTestFakeButtonEvent, [pointer, ctypes.c_uint, number, ctypes.c_ulong])):
        call.argtypes = arguments
    x11.XDefaultRootWindow.restype = x11.XInternAtom.restype = window
    x11.XGetImage.restype = ctypes.POINTER(XImage)
    return x11, xtst
