"""A scene: one run of the real program in a folder of its own, with the steps that scenes are made of."""

import contextlib
import os
import re
import resource
import signal
import tempfile
import time

import desktop
from subrip_file import captions_of

QUESTION = "The opened file has been modified"


def subrip(texts):
    blocks = []
    for number, text in enumerate(texts, 1):
        at = "%02d:%02d:%02d" % (number // 3600, number // 60 % 60, number % 60)
        blocks.append("%d\r\n%s,000 --> %s,500\r\n%s\r\n\r\n" % (number, at, at, text))
    return "".join(blocks)


class Scene:
    """One program with a folder of its own."""

    def __init__(self, binary, film, folder):
        self.binary, self.film, self.folder = binary, film, folder
        os.makedirs(folder)
        self.config = os.path.join(folder, "config")
        os.makedirs(os.path.join(self.config, "tessaly-cuewright"))
        self.state = tempfile.TemporaryDirectory()
        self.cache = os.path.join(self.state.name, "cache")
        self.program = None

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content):
        with open(self.path(name), "w", encoding="utf-8", newline="") as file:
            file.write(content)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), encoding="utf-8", newline="") as file:
            return file.read()

    def captions(self, name):
        return captions_of(self.read(name))

    def start(self, *arguments, options="", largest=None):
        with open(os.path.join(self.config, "tessaly-cuewright", "settings.ini"), "w", encoding="utf-8") as file:
            file.write("[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nWindowState=0\nLastFolder=%s/\n%s" %
                       (self.folder, options))
        before = resource.getrlimit(resource.RLIMIT_FSIZE)
        if largest is not None:
            # The program must get an error for a file that grows beyond this, as on a full disk, and no signal.
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (largest, before[1]))
        try:
            environment = {"XDG_CONFIG_HOME": self.config, "XDG_STATE_HOME": self.state.name, "XDG_CACHE_HOME": self.cache,
                           "LC_ALL": "C.UTF-8", "CUEWRIGHT_MPV_OPTIONS": "ao=null"}
            self.program = desktop.Program(self.binary, list(arguments), environment, restore_signals=largest is None)
        finally:
            resource.setrlimit(resource.RLIMIT_FSIZE, before)
        self.main = desktop.wait_for("the main window", lambda: self.program.window_id("Tessaly Cuewright"))
        desktop.focus(self.main)

    def keys(self, *names):
        """Keys for the main window."""
        desktop.focus(self.main)
        desktop.key(*names)

    @contextlib.contextmanager
    def stopped(self):
        """Whatever comes meanwhile is found by the program all at once."""
        self.program.process.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self.program.process.send_signal(signal.SIGCONT)

    def file_name(self, what):
        return desktop.wait_for(what, lambda: self.program.find("text", "File name:"))

    def type_path(self, path):
        """Types a file of the scene's folder, where every dialog opens, into the file dialog, and confirms it."""
        field = self.file_name("the file dialog")
        # A whole path, typed fast, is now and then taken by the dialog's list of completions.
        name = os.path.relpath(path, self.folder)
        desktop.key("ctrl+a")
        desktop.type_text(name)
        desktop.wait_for("the typed name", lambda: field.queryText().getText(0, -1) == name)
        desktop.key("Return")

    def open_by_key(self, name):
        self.keys("ctrl+o")
        self.type_path(self.path(name))

    def open_document(self, *texts, options="", largest=None):
        """Starts with a SubRip file "a.srt" of these captions; its content."""
        content = subrip(texts)
        self.start_with(content, len(texts), options=options, largest=largest)
        return content

    def start_with(self, content, count, **how):
        """Starts with "a.srt" of this content and waits for its captions."""
        self.start(self.write("a.srt", content), **how)
        self.wait_rows(count)

    def start_with_film(self):
        """Starts with the film, which stands in the scene's folder, and waits until it plays."""
        film = self.path("film.mp4")
        os.symlink(self.film, film)
        self.start(film)
        self.wait_film()

    def append(self, path):
        self.menu_item("alt+e", "Append subtitle...")
        self.type_path(path)

    def table(self):
        return desktop.wait_for("the list", lambda: self.program.find("table", "List of the captions"))

    def wait_rows(self, count):
        table = self.table()
        desktop.wait_for("%d captions" % count, lambda: table.queryTable().nRows == count)

    def wait_film(self):
        label = desktop.wait_for("the position", lambda: next(
            (l for l in self.program.all("label") if l.description == "Current position in milliseconds"), None))
        desktop.wait_for("the film to play", lambda: int(label.name or 0) > 100)

    def wait_sound(self):
        """Waits until the film's sound was read whole, so that it is known where the voice is."""
        desktop.wait_for("the sound", lambda: any(
            name.endswith(".bands") for _, _, names in os.walk(self.cache) for name in names), 60)

    def pane(self):
        return desktop.wait_for("the pane", lambda: self.program.find("text", "Text of the caption"))

    def focus_pane(self):
        pane = self.pane()
        desktop.wait_for("a pane to type in", lambda: desktop.enabled(pane))
        pane.queryComponent().grabFocus()
        desktop.wait_for("the focus in the pane", lambda: pane.getState().contains(desktop.pyatspi.STATE_FOCUSED))
        return pane

    def type_into_pane(self, text):
        pane = self.focus_pane()
        desktop.key("ctrl+a")
        desktop.type_text(text)
        desktop.wait_for("the typed text", lambda: pane.queryText().getText(0, -1) == text)

    def box_shown(self, text):
        """The label of a box whose text has this part."""
        return next((label for label in self.program.all("label")
                     if text in label.name and label.getState().contains(desktop.pyatspi.STATE_SHOWING)), None)

    def box(self, text, answer=None):
        """Waits for a box whose text has this part; then presses a button of it or Escape."""
        desktop.wait_for("a box with: " + text, lambda: self.box_shown(text))
        if answer == "Escape":
            desktop.key("Escape")
            self.box_gone(text)
        elif answer is not None:
            self.press_button(answer)

    def box_gone(self, text):
        desktop.wait_for("the end of: " + text, lambda: not self.box_shown(text))

    def menu_item(self, menu_key, name):
        """Opens a menu by its key and walks down to an item."""
        desktop.focus(self.main)
        desktop.key(menu_key)
        # A letter in parentheses, by which the menu chooses an item, is no part of its name.
        item = desktop.wait_for("the menu with " + name, lambda: next(
            (item for item in self.program.all("menu item") if re.sub(r"\(\w\)", "", item.name) == name), None))
        for _ in range(30):
            state = item.getState()
            if state.contains(desktop.pyatspi.STATE_FOCUSED) or state.contains(desktop.pyatspi.STATE_SELECTED):
                break
            desktop.key("Down")
        desktop.key("Return")

    def top_button(self, name):
        """The first button of this name in the window that came last; the tool bar has some of the same names."""
        windows = self.program.application()
        for i in reversed(range(windows.childCount)):
            for found in self.program.all("push button", windows.getChildAtIndex(i)):
                if found.name == name and found.parent.getRoleName() != "tool bar":
                    return found
        return None

    def command(self, words):
        """Gives the command that the palette finds first by these words."""
        self.keys("ctrl+shift+p")
        desktop.wait_for("the palette", lambda: self.program.window_id("^Find a command$"))
        field = desktop.wait_for("the words", lambda: self.program.find("text", "Words of the command"))
        desktop.type_text(words)
        desktop.wait_for("the typed words", lambda: field.queryText().getText(0, -1) == words)
        desktop.key("Return")
        desktop.wait_for("the end of the palette", lambda: self.program.window_id("^Find a command$") is None)

    def start_to_hold(self, *lines):
        """Starts with the film and a plain text of these lines, ready for keys that are held."""
        self.write("lines.txt", "".join(line + "\n" for line in lines))
        self.start_with_film()
        self.open_by_key("lines.txt")
        self.wait_rows(len(lines))
        desktop.focus(self.main)
        self.table().queryComponent().grabFocus()

    def press_button(self, name):
        """Clicks a button of the box on top."""
        button = desktop.wait_for("the button " + name, lambda: self.top_button(name))
        where = button.queryComponent().getExtents(desktop.pyatspi.DESKTOP_COORDS)
        desktop.xdotool("mousemove", where.x + where.width // 2, where.y + where.height // 2, "click", 1)

    def save_until(self, name, part):
        """Saves by the key and waits until the file holds this."""
        self.keys("ctrl+s")
        self.wait_saved(name, part)

    def wait_saved(self, name, part):
        desktop.wait_for("the saved text", lambda: part in self.read(name))

    def close(self, answer=None):
        """Closes the window, and answers the question that must come then."""
        self.keys("alt+F4")
        if answer is not None:
            self.box(QUESTION, answer)

    def close_asking_nothing(self):
        self.close()
        self.wait_end()

    def close_with(self, answer):
        self.close(answer)
        self.wait_end()

    def wait_end(self):
        desktop.wait_for("the program's end", lambda: self.program.process.poll() is not None)
        assert self.program.process.returncode == 0, self.program.process.returncode

    def still_open(self):
        assert self.program.process.poll() is None

    def export_dialog(self, format_name=None):
        """The dialog of formats, answered with OK."""
        dialog = desktop.wait_for("the formats", lambda: self.program.window_id("^Save as$"))
        desktop.focus(dialog)
        if format_name is not None:
            desktop.wait_for("the box of formats", lambda: self.program.find("combo box"))
            desktop.type_text(format_name)
        desktop.key("Return")

    def save_dialog(self, path, replaces=None):
        """The file dialog, answered with a path, and its question whether a file is replaced; None leaves it."""
        self.file_name("the save dialog")
        if path is None:
            desktop.key("Escape")
        else:
            self.type_path(path)
        if replaces is not None:
            self.box("already exists", replaces)
        if replaces == "No":
            desktop.key("Escape")
        desktop.wait_for("the end of the save dialog", lambda: self.program.find("text", "File name:") is None)

    def focused(self):
        """Role and name of what has the focus in the program."""
        found = [(node.getRoleName(), node.name) for node in self.program.nodes()
                 if node.getState().contains(desktop.pyatspi.STATE_FOCUSED)]
        # The current cell of a list says so of itself also while something else has the focus.
        return next((node for node in found if node[0] != "table cell"), found[0] if found else None)

    def tab_to(self, role, name):
        """Goes on with the Tab key until this has the focus."""
        for _ in range(40):
            if self.focused() == (role, name):
                return
            desktop.key("Tab")
            time.sleep(0.05)  # the focus is told a moment after the key
        raise desktop.Timeout("no Tab reaches the %s %s" % (role, name))

    def hold(self, name, seconds=0.5):
        """Holds a key while a line is spoken, and waits as long as a pause between lines."""
        desktop.xdotool("keydown", name)
        time.sleep(seconds)
        desktop.xdotool("keyup", name)
        time.sleep(0.2)

    def restore(self, count):
        """Takes the offer to bring back so many captions of a run that ended early."""
        self.box("It can be restored", "Yes")
        self.wait_rows(count)
        # The box stood over the window and has gone.
        self.main = desktop.wait_for("the main window", lambda: self.program.window_id("Tessaly Cuewright"))

    def journals(self):
        """The journals that are whole and not empty: one that is still being made doesn't survive the program."""
        folder = os.path.join(self.state.name, "tessaly-cuewright", "journals")
        names = os.listdir(folder) if os.path.isdir(folder) else []
        return [name for name in names
                if name.endswith(".journal") and os.path.getsize(os.path.join(folder, name)) > 0]

    def kill_once_kept(self, text):
        """Kills the program as soon as a journal has this text."""
        folder = os.path.join(self.state.name, "tessaly-cuewright", "journals")

        def kept():
            for name in self.journals():
                with open(os.path.join(folder, name), "rb") as file:
                    content = file.read()
                if text.encode("utf-16-le") in content or text.encode() in content:
                    return True
            return False

        desktop.wait_for("the text in a journal", kept)
        self.program.process.kill()
        self.program.process.wait()

    def end(self):
        if self.program is not None:
            self.program.quit()
