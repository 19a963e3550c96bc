#!/usr/bin/python3
"""Takes a picture of every window of the real program, in a language and a colour scheme, and puts them on one sheet,
or the windows that the help shows into a folder.

usage: screenshots.py BINARY LANGUAGE light|dark FILM SUBTITLE SHEET.png|FOLDER
"""

import os
import shutil
import subprocess
import sys
import tempfile

import desktop
import pyatspi

# The windows by the place of their item in the menus, separators counted: (menu, item), and how to get through it.
WINDOWS = (
    ("find", "mnuFind"),
    ("replace", "mnuReplace"),
    ("delay", "mnuDelay"),
    ("retime", "mnuRetime"),
    ("report", "mnuReport"),
    ("format", "mnuFormatSettings"),
    ("settings", "mnuGSettings"),
    ("export", "mnuSaveAs"),
    ("spell", "mnuSpell"),
    ("update", "mnuUpdate"),
    ("audio", "mnuOpenWav"),
    ("help", "mnuHelpTopics"),
    ("about", "mnuAbout"),
)
SETTINGS_PAGES = 5
# Of these the help has pictures: the name here, and in the help.
HELP_PICTURES = {"main": "main_window", "export": "export", "format": "format_settings", "settings": "settings"}
WAVE_HEIGHT = 73


def client_windows():
    text = subprocess.run(["xprop", "-root", "_NET_CLIENT_LIST"], capture_output=True, text=True).stdout
    return [word.strip(",") for word in text.split() if word.startswith("0x")]


def capture(window, path):
    subprocess.run(["import", "-window", window, path], check=True)


def settle(window):
    """Waits until the window's picture stays the same."""
    last = [None]

    def same():
        now = subprocess.run(["import", "-window", window, "rgb:-"], capture_output=True).stdout
        before, last[0] = last[0], now
        return now and now == before

    desktop.wait_for("the picture of " + window, same)


class Menus:
    """The items of the menu bar by the names that the program gives them, in any language."""

    def __init__(self, program, names):
        self.program = program
        self.names = names

    def press(self, name):
        menu, item = self.names[name]
        bar = desktop.wait_for("the menu bar", lambda: self.program.find("menu bar"))
        target = bar.getChildAtIndex(menu).getChildAtIndex(0).getChildAtIndex(item)
        try:
            target.queryAction().doAction(0)
        except Exception:  # a window that opened keeps the call from coming back in time
            pass


def film_plays(program):
    """The film's own time line has moved."""
    return any(slider.queryValue().currentValue > 500 for slider in program.all("slider"))


def sound_is_there(folder):
    """The film's sound stands in the user's store."""
    return any(name.endswith(".wav") for _, _, names in os.walk(folder) for name in names)


def save_for_help(shots, program, folder):
    """The pictures that the help shows, with few colours, and the Audio bar cut out of the main window's."""
    small = ["-colors", "128", "-strip"]
    for name, path in shots:
        if name in HELP_PICTURES:
            target = os.path.join(folder, HELP_PICTURES[name] + ".png")
            subprocess.run(["convert", path, *small, target], check=True)
    scale = next(slider for slider in program.all("slider") if slider.queryComponent().getSize()[1] == WAVE_HEIGHT)
    _, y = scale.queryComponent().getPosition(pyatspi.WINDOW_COORDS)
    main = dict(shots)["main"]
    area = "0x%d+0+%d" % (WAVE_HEIGHT + 12, y - 10)
    target = os.path.join(folder, "audio_bar.png")
    subprocess.run(["convert", main, "-crop", area, "+repage", *small, target], check=True)


def menu_places(source):
    """Where each item stands, read from the order of their making in the main window's form."""
    import re

    places, menus, counts = {}, [], {}
    for name, parent in re.findall(r'MenuItem \w+\{\*this, "(\w+)"(?:, &(\w+))?\}', source):
        if not parent:
            menus.append(name)
        elif parent in menus:
            places[name] = (menus.index(parent), counts.get(parent, 0))
            counts[parent] = counts.get(parent, 0) + 1
    return places


def main():
    binary, language, scheme, film, subtitle, sheet = sys.argv[1:7]
    run = tempfile.mkdtemp()
    config = os.path.join(run, "tessaly-cuewright")
    os.makedirs(config)
    with open(os.path.join(config, "settings.ini"), "w", encoding="utf-8") as file:
        file.write("[Brakemoor Works\\Cuewright]\nLanguage=%s\nWindowState=0\nWindowWidth=1100\nWindowHeight=740\n"
                   "VFileName=%s\nM_AUDIOBAR=1\n" % (language, film))
    root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    with open(os.path.join(root, "capture/main_window.h"), encoding="utf-8") as file:
        places = menu_places(file.read())
    program = desktop.Program(binary, [subtitle], {
        "XDG_CONFIG_HOME": run,
        "XDG_STATE_HOME": run,
        "XDG_CACHE_HOME": run,
        "CUEWRIGHT_COLOR_SCHEME": scheme,
        "CUEWRIGHT_MPV_OPTIONS": "ao=null",
        "LC_ALL": "C.UTF-8",
    })
    shots = []

    def shoot(window, name):
        settle(window)
        path = os.path.join(run, "%02d_%s.png" % (len(shots), name))
        capture(window, path)
        shots.append((name, path))

    try:
        main_window = desktop.wait_for("the main window", lambda: (client_windows() or [None])[0])
        menus = Menus(program, places)
        menus.press("mnuVFileName")
        desktop.wait_for("the film", lambda: program.find("slider", None) and film_plays(program))
        desktop.focus(main_window)
        desktop.key("x")
        menus.press("mnuFilmSound")
        desktop.wait_for("the film's sound", lambda: sound_is_there(run))
        shoot(main_window, "main")
        for name, item in WINDOWS:
            before = client_windows()
            menus.press(item)
            opened = desktop.wait_for("the window of " + item,
                                      lambda: next((w for w in client_windows() if w not in before), None))
            desktop.focus(opened)
            shoot(opened, name)
            if name == "settings":
                for page in range(1, SETTINGS_PAGES):
                    desktop.key("Down")
                    shoot(opened, "settings_%d" % page)
            desktop.key("Escape")
            desktop.wait_for("the end of " + item, lambda: opened not in client_windows())
            if name == "help" and not os.path.isdir(os.path.join(root, "resources/help", language.lower())):
                # The box said that there is none in this language; the English one opens behind it.
                follows = desktop.wait_for("the help", lambda: next((w for w in client_windows() if w not in before), None))
                desktop.focus(follows)
                desktop.key("Escape")
                desktop.wait_for("the end of the help", lambda: follows not in client_windows())
        if not sheet.endswith(".png"):
            save_for_help(shots, program, sheet)
            return
        subprocess.run(["montage", *(path for _, path in shots), "-background", "#808080", "-geometry", "+12+12", "-tile", "3x", "PNG24:" + sheet], check=True)
        print("%s: %d windows" % (sheet, len(shots)))
    finally:
        program.process.terminate()
        program.process.wait(10)
        shutil.rmtree(run, ignore_errors=True)


if __name__ == "__main__":
    main()
