#!/usr/bin/python3
"""Reads the main window as a screen reader does, and works it from there: the captions of the list, its menu by the
keyboard, the modes.

    read_aloud.py BINARY FOLDER
"""

import os
import sys

import desktop

SUBRIP = ("1\n00:00:01,000 --> 00:00:02,000\nHello\n\n"
          "2\n00:00:06,500 --> 00:00:09,400\nMy name is\nAnn\n\n"
          "3\n00:00:10,000 --> 00:00:12,000\nthere\n\n")


def has(node, state):
    return node is not None and node.getState().contains(state)


class Reader:
    def __init__(self, binary, folder):
        config = os.path.join(folder, "config", "tessaly-cuewright")
        os.makedirs(config)
        with open(os.path.join(config, "settings.ini"), "w", encoding="utf-8") as file:
            file.write("[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nWindowState=0\n")
        self.document = os.path.join(folder, "a.srt")
        with open(self.document, "w", encoding="utf-8") as file:
            file.write(SUBRIP)
        self.program = desktop.Program(binary, [self.document], {
            "XDG_CONFIG_HOME": os.path.join(folder, "config"), "XDG_STATE_HOME": folder, "LC_ALL": "C.UTF-8"})

    def start(self):
        # The file opens although the window isn't given the focus first.
        desktop.wait_for("the loaded file", lambda: self.program.find("label", "Current subtitle file: a.srt"))
        self.window = desktop.wait_for("the title with the name",
                                       lambda: self.program.window_id("^a.srt - Tessaly Cuewright"))
        desktop.focus(self.window)
        self.table = desktop.wait_for("the list", lambda: self.program.find("table", "List of the captions"))

    def cell(self, row, column=0):
        return self.table.queryTable().getAccessibleAt(row, column)

    def focused(self, name):
        desktop.wait_for("the focus on " + name,
                         lambda: any(self.cell(row).name == name and has(self.cell(row), desktop.pyatspi.STATE_FOCUSED)
                                     for row in range(3)))

    def list(self):
        self.focused("1, 1 to 2 seconds, Hello")
        desktop.key("Down")
        self.focused("2, 6.5 to 9.4 seconds, My name is Ann")
        self.table.queryTable().addRowSelection(2)
        self.focused("3, 10 to 12 seconds, there")
        assert list(self.table.queryTable().getSelectedRows()) == [2]

    def menu(self):
        # The toolkit doesn't show an open menu of this kind to the bus: it is known by what its letter does.
        for key in ("shift+F10", "Menu"):
            desktop.key(key)
            desktop.wait_for("the list's menu by " + key, lambda: len(self.windows()) > 1)
            desktop.key("e")
            desktop.wait_for("the box of its first item", lambda: self.program.window_id("^Edit Caption$"))
            desktop.key("Escape")
            desktop.wait_for("the end of the box", lambda: self.program.window_id("^Edit Caption$") is None)
            desktop.focus(self.window)

    def windows(self):
        found = desktop.subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(self.program.process.pid)],
                                       capture_output=True, text=True)
        return found.stdout.split()

    def modes(self):
        buttons = self.program.all("radio button")
        assert len(buttons) == 3, [button.name for button in buttons]
        checked = [has(button, desktop.pyatspi.STATE_CHECKED) for button in buttons]
        assert checked == [True, False, False], checked

    def mnemonics(self):
        # File, and in it Exit.
        desktop.key("alt+f")
        desktop.wait_for("the File menu", lambda: has(self.program.find("menu item", "Exit"), desktop.pyatspi.STATE_SHOWING))
        desktop.key("e")
        desktop.wait_for("the end of the program, which has nothing to ask", lambda: self.program.process.poll() is not None)


def main():
    reader = Reader(*sys.argv[1:3])
    try:
        reader.start()
        reader.list()
        reader.menu()
        reader.modes()
        reader.mnemonics()
        print("the window can be read and worked")
    finally:
        reader.program.quit()


if __name__ == "__main__":
    main()
