#!/usr/bin/python3
"""Opens a file in the installed program, in a language that is a file of its own, and looks whether the help and the
runner of the wizards are found.

    use_installed.py PREFIX FOLDER
"""

import os
import sys

import desktop


def main():
    prefix, folder = sys.argv[1:3]
    config = os.path.join(folder, "config", "tessaly-cuewright")
    os.makedirs(config)
    with open(os.path.join(config, "settings.ini"), "w", encoding="utf-8") as file:
        file.write("[Brakemoor Works\\Cuewright]\nLanguage=SPANISH\nWindowState=0\n")
    program = desktop.Program(os.path.join(prefix, "bin", "cuewright"), [os.path.join(folder, "a.srt")],
                              {"XDG_CONFIG_HOME": os.path.join(folder, "config"), "LC_ALL": "C.UTF-8"})
    try:
        window = desktop.wait_for("the main window", lambda: program.window_id("Tessaly Cuewright"))
        desktop.wait_for("the Spanish menu", lambda: program.find("menu item", "Archivo") or program.find("menu", "Archivo"))
        table = desktop.wait_for("the list", lambda: program.find("table"))
        desktop.wait_for("the caption", lambda: table.queryTable().nRows == 1)
        desktop.focus(window)
        desktop.key("F1")
        desktop.wait_for("the help", lambda: program.find("document web") or program.find("text", None) and
                         program.window_id("Ayuda"))
    finally:
        program.quit()


if __name__ == "__main__":
    main()
