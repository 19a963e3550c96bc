"""Drives the real program in a display: starts it, waits for its states through the accessibility bus,
and sends keys and pointer events from outside with xdotool."""

import os
import subprocess
import tempfile
import time

import pyatspi


class Timeout(Exception):
    pass


def wait_for(what, condition, seconds=20.0):
    """The first true value of the condition; Timeout when none comes."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        try:
            value = condition()
        except Exception:  # the tree changes while it is read
            value = None
        if value:
            return value
        time.sleep(0.02)
    raise Timeout("waited %g s for %s" % (seconds, what))


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], check=True, capture_output=True, text=True).stdout.strip()


def key(*names):
    xdotool("key", "--clearmodifiers", *names)


def type_text(text):
    xdotool("type", "--clearmodifiers", "--delay", 5, text)


class Program:
    """The running program."""

    def __init__(self, binary, arguments, environment, restore_signals=True):
        # Nothing of the user who runs the tests is read or written: no settings, journals, sounds or words.
        self.home = tempfile.TemporaryDirectory()
        folders = {name: os.path.join(self.home.name, name.lower())
                   for name in ("XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME")}
        self.environment = {**os.environ, **folders, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_ACCESSIBILITY": "1",
                            **environment}
        self.process = subprocess.Popen([binary, *arguments], env=self.environment,
                                        restore_signals=restore_signals)

    def application(self):
        desktop = pyatspi.Registry.getDesktop(0)
        for i in range(desktop.childCount):
            child = desktop.getChildAtIndex(i)
            if child is not None and child.get_process_id() == self.process.pid:
                return child
        return None

    def window_id(self, name):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name], capture_output=True, text=True)
        ids = found.stdout.split()
        return ids[-1] if ids else None

    def nodes(self, node=None, depth=12):
        """All nodes below the application, from the top; what is in a table isn't walked through."""
        node = node or self.application()
        if node is None or depth < 0:
            return
        for i in range(node.childCount):
            child = node.getChildAtIndex(i)
            if child is None:
                continue
            yield child
            if child.getRoleName() not in ("table", "tree table"):
                yield from self.nodes(child, depth - 1)

    def find(self, role=None, name=None, depth=12):
        """The first node with this role and name."""
        return next((node for node in self.nodes(depth=depth)
                     if role in (None, node.getRoleName()) and name in (None, node.name)), None)

    def all(self, role, node=None):
        return [found for found in self.nodes(node) if found.getRoleName() == role]

    def quit(self):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait(10)


def focus(window):
    xdotool("windowactivate", "--sync", window)


def screenshot(path):
    subprocess.run(["import", "-window", "root", path], check=True)


def enabled(node):
    return node is not None and node.getState().contains(pyatspi.STATE_ENABLED)
