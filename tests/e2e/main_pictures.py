#!/usr/bin/python3
"""Takes pictures of the main window of the real program at work: a film in which somebody speaks, its captions, and the
wave, on a screen of one size, in languages and both colour schemes.

usage: main_pictures.py BINARY FOLDER SCALE LANGUAGE [LANGUAGE...]
"""

import os
import shutil
import subprocess
import sys
import tempfile

import desktop
import screenshots
from spoken_film import spoken_film


def picture(binary, scale, language, scheme, subtitle, target):
    with tempfile.TemporaryDirectory() as run:
        os.makedirs(os.path.join(run, "tessaly-cuewright"))
        with open(os.path.join(run, "tessaly-cuewright", "settings.ini"), "w", encoding="utf-8") as file:
            file.write("[Brakemoor Works\\Cuewright]\nLanguage=%s\nWindowState=2\nM_AUDIOBAR=1\n" % language)
        program = desktop.Program(binary, [subtitle], {
            "XDG_CONFIG_HOME": run, "XDG_STATE_HOME": run, "XDG_CACHE_HOME": run, "CUEWRIGHT_COLOR_SCHEME": scheme,
            "QT_SCALE_FACTOR": scale, "CUEWRIGHT_MPV_OPTIONS": "ao=null", "LC_ALL": "C.UTF-8"})
        try:
            main = desktop.wait_for("the main window", lambda: (screenshots.client_windows() or [None])[0])
            desktop.focus(main)
            # The film of the subtitle's name is offered.
            desktop.wait_for("the offer of the film", lambda: len(screenshots.client_windows()) > 1)
            desktop.key("Return")
            desktop.wait_for("the film", lambda: screenshots.film_plays(program))
            desktop.focus(main)
            desktop.key("x")
            desktop.wait_for("the film's sound", lambda: screenshots.sound_is_there(run))
            for _ in range(3):
                desktop.key("Down")
            screenshots.settle(main)
            subprocess.run(["import", "-window", main, "-colors", "256", "-strip", target], check=True)
        finally:
            program.quit()


def main():
    binary, folder, scale = sys.argv[1:4]
    size = os.environ["SCREEN"]
    # The window shows the film's path.
    made = os.path.join(tempfile.gettempdir(), "films")
    os.makedirs(made)
    try:
        _, subtitle, _ = spoken_film(made)
        for language in sys.argv[4:]:
            for scheme in ("light", "dark"):
                name = "main_%s_%s_%s.png" % (size, language.lower(), scheme)
                picture(binary, scale, language, scheme, subtitle, os.path.join(folder, name))
                print(name)
    finally:
        shutil.rmtree(made)


if __name__ == "__main__":
    main()
