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
import wave

import desktop
import screenshots

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
RATE = 22050
PAUSE = 0.4


def clock(seconds):
    ms = round(seconds * 1000)
    return "%02d:%02d:%02d,%03d" % (ms // 3600000, ms // 60000 % 60, ms // 1000 % 60, ms % 1000)


def spoken_film(folder):
    """A film in which the lines of the sample are spoken, and its subtitle."""
    with open(os.path.join(ROOT, "samples/good_evening.txt"), encoding="utf-8") as file:
        lines = [line.strip() for line in file if line.strip()]
    sound, records, at = b"", [], 1.0
    sound += bytes(2 * int(RATE * at))
    for number, line in enumerate(lines, 1):
        piece = os.path.join(folder, "line.wav")
        subprocess.run(["espeak-ng", "-v", "en-us", "-w", piece, line], check=True)
        with wave.open(piece) as spoken:
            frames = spoken.readframes(spoken.getnframes())
        records.append("%d\r\n%s --> %s\r\n%s\r\n\r\n" % (number, clock(at), clock(at + len(frames) / 2 / RATE), line))
        sound += frames + bytes(2 * int(RATE * PAUSE))
        at = len(sound) / 2 / RATE
    voice = os.path.join(folder, "voice.wav")
    with wave.open(voice, "wb") as file:
        file.setparams((1, 2, RATE, 0, "NONE", ""))
        file.writeframes(sound)
    film, subtitle = os.path.join(folder, "good_evening.mkv"), os.path.join(folder, "good_evening.srt")
    subprocess.run(["ffmpeg", "-y", "-nostdin", "-v", "error", "-f", "lavfi", "-i",
                    "gradients=s=960x540:r=25:c0=0x182848:c1=0x4b6cb7:c2=0xd08a60:nb_colors=3:seed=3:speed=0.01",
                    "-i", voice, "-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p", "-c:a", "flac",
                    "-shortest", film], check=True)
    with open(subtitle, "w", encoding="utf-8", newline="") as file:
        file.write("".join(records))
    return film, subtitle


def picture(binary, scale, language, scheme, media, target):
    with tempfile.TemporaryDirectory() as run:
        os.makedirs(os.path.join(run, "tessaly-cuewright"))
        with open(os.path.join(run, "tessaly-cuewright", "settings.ini"), "w", encoding="utf-8") as file:
            file.write("[Brakemoor Works\\Cuewright]\nLanguage=%s\nWindowState=2\nM_AUDIOBAR=1\n" % language)
        program = desktop.Program(binary, [media[1]], {
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
        media = spoken_film(made)
        for language in sys.argv[4:]:
            for scheme in ("light", "dark"):
                name = "main_%s_%s_%s.png" % (size, language.lower(), scheme)
                picture(binary, scale, language, scheme, media, os.path.join(folder, name))
                print(name)
    finally:
        shutil.rmtree(made)


if __name__ == "__main__":
    main()
