#!/usr/bin/python3
"""Walks every menu of the real program by the keyboard alone: each item that can be chosen is reached by arrow keys, in
the submenus too, and the list's own menu opens by its key.

    walk_menus.py BINARY FOLDER
"""

import os
import sys

import desktop

SUBRIP = "1\r\n00:00:01,000 --> 00:00:02,000\r\nHello\r\n\r\n2\r\n00:00:03,000 --> 00:00:04,000\r\nthere\r\n\r\n"

# Items that a loaded document needs nothing more for.
WANTED = ("Tools > Spell check", "Help > Check for updates...", "Help > About Tessaly Cuewright")


def has(node, *states):
    found = node.getState()
    return any(found.contains(state) for state in states)


def is_active(node):
    return has(node, desktop.pyatspi.STATE_FOCUSED, desktop.pyatspi.STATE_SELECTED)


def items_of(popup):
    """The items of an open menu that the user sees and that are no separators."""
    children = (popup.getChildAtIndex(i) for i in range(popup.childCount))
    return [node for node in children
            if node.getRoleName() != "separator" and node.name and has(node, desktop.pyatspi.STATE_VISIBLE)]


def popup_of(item):
    return item.getChildAtIndex(0) if item.childCount > 0 else None


def walk(popup, path, seen):
    """Goes down the open menu once round; submenus are entered and left by the arrow keys."""
    items = desktop.wait_for("the items of " + path, lambda: items_of(popup))
    reached = []
    for _ in range(2 * len(items)):
        active = desktop.wait_for("an active item in " + path, lambda: next((n for n in items if is_active(n)), None))
        if active.name in reached:
            break
        reached.append(active.name)
        below = popup_of(active)
        if below is not None and has(active, desktop.pyatspi.STATE_ENABLED):
            desktop.key("Right")
            walk(below, path + " > " + active.name, seen)
            desktop.key("Left")
            desktop.wait_for("the way back to " + active.name, lambda: is_active(active))
        before = active
        desktop.key("Down")
        desktop.wait_for("the next item of " + path, lambda: len(items) == 1 or not is_active(before))
    wanted = [node.name for node in items if has(node, desktop.pyatspi.STATE_ENABLED)]
    missing = [name for name in wanted if name not in reached]
    if missing:
        raise AssertionError("%s: not reached by the keyboard: %s" % (path, ", ".join(missing)))
    seen.extend(path + " > " + name for name in wanted)


def main():
    binary, folder = sys.argv[1:3]
    config = os.path.join(folder, "config", "tessaly-cuewright")
    os.makedirs(config)
    with open(os.path.join(config, "settings.ini"), "w", encoding="utf-8") as file:
        file.write("[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nWindowState=0\n")
    document = os.path.join(folder, "a.srt")
    with open(document, "w", encoding="utf-8", newline="") as file:
        file.write(SUBRIP)
    program = desktop.Program(binary, [document], {
        "XDG_CONFIG_HOME": os.path.join(folder, "config"), "XDG_STATE_HOME": folder, "LC_ALL": "C.UTF-8"})
    try:
        window = desktop.wait_for("the main window", lambda: program.window_id("Tessaly Cuewright [0-9]"))
        desktop.wait_for("the loaded file", lambda: program.find("label", "Current subtitle file: a.srt"))
        desktop.focus(window)
        bar = desktop.wait_for("the menu bar", lambda: program.find("menu bar"))
        seen = []
        for i in range(bar.childCount):
            top = bar.getChildAtIndex(i)
            # The letters of the menu bar: File, Edit, fOrmat, View, fIlm, Tools, Settings, Help.
            desktop.key("alt+" + "feovitsh"[i])
            walk(popup_of(top), top.name, seen)
            desktop.key("Escape")
            desktop.key("Escape")
            desktop.wait_for("the end of " + top.name, lambda: not items_of(popup_of(top)))
        for item in seen:
            print(item)
        print("%d items reached" % len(seen))
        if len(seen) < 40:
            raise AssertionError("the menus are not all there")
        for item in WANTED:
            if item not in seen:
                raise AssertionError("not to be chosen: " + item)
    finally:
        program.process.terminate()
        program.process.wait(10)


if __name__ == "__main__":
    main()
