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

    def find(self, role=None, name=None, node=None, depth=12):
        """The first node with this role and name, below the application."""
        node = node or self.application()
        if node is None or depth < 0:
            return None
        for i in range(node.childCount):
            child = node.getChildAtIndex(i)
            if child is None:
                continue
            if (role is None or child.getRoleName() == role) and (name is None or child.name == name):
                return child
            if child.getRoleName() in ("table", "tree table"):
                continue
            found = self.find(role, name, child, depth - 1)
            if found is not None:
                return found
        return None

    def all(self, role, node=None, depth=12):
        node = node or self.application()
        found = []
        if node is None or depth < 0:
            return found
        for i in range(node.childCount):
            child = node.getChildAtIndex(i)
            if child is None:
                continue
            if child.getRoleName() == role:
                found.append(child)
            if child.getRoleName() not in ("table", "tree table"):
                found += self.all(role, child, depth - 1)
        return found

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
