#!/usr/bin/python3
"""Times a film in the real program: opens a text and a film, holds the key B for each line, and saves.

    time_film.py BINARY TEXT FILM FOLDER

The SubRip file, the screenshots and the table of key times against stored times go to FOLDER. Keys come from
outside the process. The film's time at each key comes from the player library's own control socket, not from the
program's clock."""

import json
import os
import socket
import sys
import time

import desktop
from subrip_file import captions_of

TOLERANCE_MS = 60
FIRST_MS = 1200
HOLD_MS = 1300
GAP_MS = 900


class FilmClock:
    """The film's time as the player library tells it."""

    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(path)
        self.buffer = b""
        self.request = 0

    def get(self, name):
        self.request += 1
        line = json.dumps({"command": ["get_property", name], "request_id": self.request}) + "\n"
        self.socket.sendall(line.encode())
        while True:
            while b"\n" not in self.buffer:
                self.buffer += self.socket.recv(65536)
            reply, self.buffer = self.buffer.split(b"\n", 1)
            answer = json.loads(reply)
            if answer.get("request_id") == self.request:
                return answer.get("data")

    def now_ms(self):
        return self.get("audio-pts") * 1000

    def wait_until(self, ms):
        while True:
            left = ms - self.now_ms()
            if left <= 0:
                return
            time.sleep(min(left / 1000, 0.05))


def open_menu_item(program, window, menu_key, name):
    """Opens a menu by its key and walks down to an item."""
    desktop.focus(window)
    desktop.key(menu_key)
    item = desktop.wait_for("the menu with " + name, lambda: program.find("menu item", name))
    for _ in range(30):
        if item.getState().contains(desktop.pyatspi.STATE_FOCUSED) or item.getState().contains(
                desktop.pyatspi.STATE_SELECTED):
            break
        desktop.key("Down")
    desktop.key("Return")


def answer_file_dialog(program, title, path):
    dialog = desktop.wait_for("the window " + title, lambda: program.window_id(title))
    desktop.focus(dialog)
    desktop.key("ctrl+a")
    desktop.type_text(path)
    desktop.key("Return")
    desktop.wait_for("the end of " + title, lambda: program.window_id(title) is None)


def position_label(program):
    return next((label for label in program.all("label") if label.description == "Current position in milliseconds"), None)


def hold_keys(clock, lines, shots):
    """Holds the key B once a line; the film's time around each press and release."""
    held = []
    for number in range(len(lines)):
        clock.wait_until(FIRST_MS + number * (HOLD_MS + GAP_MS))
        before = clock.now_ms()
        desktop.xdotool("keydown", "b")
        down = (before, clock.now_ms())
        if number == 2:
            desktop.screenshot(os.path.join(shots, "2_holding.png"))
        clock.wait_until(FIRST_MS + number * (HOLD_MS + GAP_MS) + HOLD_MS)
        before = clock.now_ms()
        desktop.xdotool("keyup", "b")
        held.append((down, (before, clock.now_ms())))
    return held


def compare(held, captions, lines):
    """Prints key times against stored times; the failures found."""
    failures = []
    if [text for _, _, text in captions] != lines:
        failures.append("the texts are not the lines in their order: %r" % [text for _, _, text in captions])
    print("line   key down       start   key up         end     (ms)")
    for number, ((down, up), (start, end, _)) in enumerate(zip(held, captions), 1):
        print("%4d   %5.0f - %5.0f  %5d   %5.0f - %5.0f  %5d" % (number, *down, start, *up, end))
        for what, (first, last), stored in (("start", down, start), ("end", up, end)):
            if not first - TOLERANCE_MS <= stored <= last + TOLERANCE_MS:
                failures.append("line %d: the %s is %d, the key came at %.0f to %.0f" % (number, what, stored, first, last))
    return failures


def main():
    binary, text, film, folder = (os.path.abspath(path) for path in sys.argv[1:5])
    os.makedirs(folder, exist_ok=True)
    run = os.environ["XDG_RUNTIME_DIR"]
    control = os.path.join(run, "player")
    saved = os.path.join(folder, "good_evening.srt")
    if os.path.exists(saved):
        os.remove(saved)
    with open(text, encoding="utf-8") as file:
        lines = [line.strip() for line in file if line.strip()]

    program = desktop.Program(binary, [text], {
        "XDG_CONFIG_HOME": os.path.join(run, "config"),
        "CUEWRIGHT_MPV_OPTIONS": "ao=null input-ipc-server=" + control,
        "LC_ALL": "C.UTF-8",
    })
    try:
        window = desktop.wait_for("the main window", lambda: program.window_id("Tessaly Cuewright [0-9]"))
        # A first start asks for the language.
        settings = desktop.wait_for("the settings", lambda: program.window_id("^General Settings$"))
        desktop.focus(settings)
        desktop.key("Return")
        desktop.wait_for("the end of the settings", lambda: program.window_id("^General Settings$") is None)
        table = desktop.wait_for("the list", lambda: program.find("table", "List of the captions"))
        desktop.wait_for("the %d lines in the list" % len(lines), lambda: table.queryTable().nRows == len(lines))
        desktop.screenshot(os.path.join(folder, "1_text_opened.png"))

        open_menu_item(program, window, "alt+f", "Open video file...")
        answer_file_dialog(program, "Open video file", film)
        desktop.focus(window)
        label = desktop.wait_for("the position", lambda: position_label(program))
        desktop.wait_for("the film to play", lambda: int(label.name or 0) > 100)
        clock = FilmClock(control)
        held = hold_keys(clock, lines, folder)
        desktop.screenshot(os.path.join(folder, "3_timed.png"))

        desktop.key("ctrl+s")
        export = desktop.wait_for("the export dialog", lambda: program.window_id("^Save as$"))
        desktop.focus(export)
        desktop.key("Return")
        desktop.wait_for("the save dialog", lambda: program.find("file chooser", None) or program.find("dialog", "Save as"))
        desktop.wait_for("its file name field", lambda: program.find("text", "File name:"))
        desktop.key("ctrl+a")
        desktop.type_text(saved)
        desktop.key("Return")
        desktop.wait_for("the saved file", lambda: os.path.exists(saved))
        with open(saved, encoding="utf-8", newline="") as file:
            captions = captions_of(file.read())
        failures = compare(held, captions, lines)
    finally:
        desktop.screenshot(os.path.join(folder, "4_end.png"))
        program.quit()
    for failure in failures:
        print("FAILED:", failure)
    print("%d captions, %d failures" % (len(captions), len(failures)))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
