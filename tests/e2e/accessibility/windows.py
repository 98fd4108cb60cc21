# SPDX-License-Identifier: GPL-3.0-or-later
"""What a window manager does when the user closes a window."""

import ctypes
import ctypes.util

CLIENT_MESSAGE = 33


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("message_type", ctypes.c_ulong), ("format", ctypes.c_int),
                ("data", ctypes.c_long * 5)]


class _Event(ctypes.Union):
    _fields_ = [("client", _ClientMessage), ("room", ctypes.c_long * 24)]


class _ClassHint(ctypes.Structure):
    _fields_ = [("name", ctypes.c_char_p), ("group", ctypes.c_char_p)]


def close(title):
    """Asks the program of the one top-level window with that title to close it."""
    x11 = _library()
    display = x11.XOpenDisplay(None)
    window, request = _the_one(x11, display, title)
    event = _Event()
    event.client.type = CLIENT_MESSAGE
    event.client.window = window
    event.client.message_type = x11.XInternAtom(display, b"WM_PROTOCOLS", False)
    event.client.format = 32
    event.client.data[0] = request
    x11.XSendEvent(display, window, False, 0, ctypes.byref(event))
    x11.XCloseDisplay(display)


def classes_of(title):
    """The two names by which a desktop finds the entry in its menu that a window belongs to."""
    x11 = _library()
    display = x11.XOpenDisplay(None)
    hint = _ClassHint()
    x11.XGetClassHint(display, _the_one(x11, display, title)[0], ctypes.byref(hint))
    x11.XCloseDisplay(display)
    return [hint.name.decode(), hint.group.decode()]


def _the_one(x11, display, title):
    """The one top-level window with that title, and the request by which it is closed."""
    request = x11.XInternAtom(display, b"WM_DELETE_WINDOW", False)
    windows = [window for window in _top_level_windows(x11, display)
               if _title_of(x11, display, window) == title and request in _protocols_of(x11, display, window)]
    if len(windows) != 1:
        raise AssertionError(f'there are {len(windows)} windows "{title}"')
    return windows[0], request


def _library():
    x11 = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
    x11.XFetchName.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(ctypes.c_char_p)]
    x11.XGetWMProtocols.argtypes = [ctypes.c_void_p, ctypes.c_ulong,
                                    ctypes.POINTER(ctypes.POINTER(ctypes.c_ulong)), ctypes.POINTER(ctypes.c_int)]
    x11.XGetClassHint.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(_ClassHint)]
    x11.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long,
                               ctypes.c_void_p]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    return x11


def _top_level_windows(x11, display):
    root, parent = ctypes.c_ulong(), ctypes.c_ulong()
    windows, count = ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_uint()
    x11.XQueryTree(ctypes.c_void_p(display), ctypes.c_ulong(x11.XDefaultRootWindow(display)),
                   ctypes.byref(root), ctypes.byref(parent), ctypes.byref(windows), ctypes.byref(count))
    return windows[:count.value]


def _title_of(x11, display, window):
    name = ctypes.c_char_p()
    x11.XFetchName(display, window, ctypes.byref(name))
    return (name.value or b"").decode()


def _protocols_of(x11, display, window):
    """What a window manager can ask of a window's program; nothing for a window that isn't for users."""
    protocols, count = ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_int()
    if not x11.XGetWMProtocols(display, window, ctypes.byref(protocols), ctypes.byref(count)):
        return []
    return protocols[:count.value]
