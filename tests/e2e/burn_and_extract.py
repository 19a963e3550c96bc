#!/usr/bin/python3
"""Goes through both wizards in the real program's windows and looks at the files that come out: the text stands in the
film's pictures within a frame of its times, the wave has the rate that was chosen.

    burn_and_extract.py BINARY FOLDER
"""

import json
import os
import subprocess
import sys

import desktop
from screenshots import client_windows, film_plays
from wizard import Wizard, menus_of

RATE = 25
START_S, END_S = 2.0, 4.0
WIDTH, HEIGHT = 640, 360
SCRIPT = """[Script Info]
ScriptType: v4.00
PlayResX: 640
PlayResY: 360

[V4 Styles]
Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, BackColour, Bold, Italic, BorderStyle, \
Outline, Shadow, Alignment, MarginL, MarginR, MarginV, AlphaLevel, Encoding
Style: Default,DejaVu Sans,48,16777215,65535,65535,0,0,0,1,2,0,2,10,10,20,0,1

[Events]
Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text
Dialogue: Marked=0,0:00:02.00,0:00:04.00,Default,,0000,0000,0000,,Good evening
Dialogue: Marked=0,0:00:05.00,0:00:05.50,Default,,0000,0000,0000,,and welcome
"""


def run(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


def probe(path, entries):
    return json.loads(run("ffprobe", "-v", "error", "-show_entries", entries, "-of", "json", path))["streams"]


def bright_frames(path, width, height):
    """For each picture whether something in it is nearly white, which the film itself never is."""
    size = width * height
    pictures = run("ffmpeg", "-nostdin", "-v", "error", "-i", path, "-f", "rawvideo", "-pix_fmt", "gray", "-")
    return [max(pictures[at:at + size]) > 200 for at in range(0, len(pictures), size)]


def check_text(path, width, height):
    """The text is there within a frame of its times."""
    frames = bright_frames(path, width, height)
    shown = [i for i, bright in enumerate(frames) if bright and i < 4.5 * RATE]
    first, last = shown[0], shown[-1]
    assert shown == list(range(first, last + 1)), "the text comes and goes: %s" % shown
    assert abs(first - START_S * RATE) <= 1, "the text starts at frame %d" % first
    assert abs(last + 1 - END_S * RATE) <= 1, "the text ends behind frame %d" % last
    print("the text stands in frames %d to %d of %d" % (first, last, len(frames)))


class Walk:
    def __init__(self, binary, folder):
        self.folder = folder
        self.config = os.path.join(folder, "config")
        os.makedirs(os.path.join(self.config, "tessaly-cuewright"))
        self.settings = os.path.join(self.config, "tessaly-cuewright", "settings.ini")
        # A name that a shell would trip over.
        self.film = os.path.join(folder, "a film; $(touch gone) 'x'.avi")
        self.subtitle = os.path.join(folder, "its text.ssa")
        run("ffmpeg", "-y", "-nostdin", "-v", "error", "-f", "lavfi", "-i",
            "color=c=0x204060:s=%dx%d:r=%d:d=6" % (WIDTH, HEIGHT, RATE), "-f", "lavfi", "-i",
            "sine=f=440:r=44100:d=6", "-c:v", "mpeg4", "-q:v", "3", "-c:a", "libmp3lame", self.film)
        with open(self.subtitle, "w", encoding="utf-8", newline="\r\n") as file:
            file.write(SCRIPT)
        with open(self.settings, "w", encoding="utf-8") as file:
            file.write("[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nWindowState=0\nVFileName=%s\n" % self.film)
        self.program = desktop.Program(binary, [self.subtitle], {
            "XDG_CONFIG_HOME": self.config, "XDG_STATE_HOME": folder, "CUEWRIGHT_MPV_OPTIONS": "ao=null",
            "LC_ALL": "C.UTF-8"})
        self.menus = menus_of(self.program)
        self.main = desktop.wait_for("the main window", lambda: (client_windows() or [None])[0])
        desktop.wait_for("the loaded file",
                         lambda: self.program.find("label", "Current subtitle file: its text.ssa"))

    def stored(self, key):
        with open(self.settings, encoding="utf-8") as file:
            found = [line.rstrip("\n").split("=", 1)[1] for line in file if line.startswith(key + "=")]
        return found[0] if found else None

    def open_film(self):
        self.menus.press("mnuVFileName")
        desktop.wait_for("the film", lambda: film_plays(self.program))

    def embed(self):
        self.open_film()
        wizard = Wizard(self.program, self.menus, "mnuEmbed")
        wizard.next("VirtualDub's folder:")
        wizard.next("Output video file name:")
        wizard.next("VBR Files Warning:")
        wizard.button("OK")
        wizard.focus()
        desktop.key("Return")
        target = self.film[:-4] + "[sub].avi"
        desktop.wait_for("the film with the text", lambda: os.path.exists(target), 60)
        wizard.wait_end()
        assert self.program.find("label", "Current subtitle file: its text.ssa") is None, "the document is still open"
        video, sound = probe(target, "stream=codec_name,codec_tag_string,width,height,duration")
        assert (video["codec_name"], video["codec_tag_string"]) == ("mpeg4", "xvid"), video
        assert (video["width"], video["height"]) == (WIDTH, HEIGHT), video
        assert sound["codec_name"] == "mp3", sound
        check_text(target, WIDTH, HEIGHT)

    def extract(self):
        self.open_film()
        wizard = Wizard(self.program, self.menus, "mnuAudioExtract")
        wizard.next("Sample rate (Hz)")
        desktop.wait_for("the focus on the rates", wizard.tab_to_box)
        desktop.key("ctrl+a")
        desktop.type_text("22050")
        wizard.next("VirtualDub's folder:")
        wizard.next("Save audio file as:")
        wizard.next("Checking generated audio file...")
        wizard.button("Finish")
        target = self.film[:-4] + ".wav"
        sound, = probe(target, "stream=codec_name,sample_rate,duration")
        assert (sound["codec_name"], sound["sample_rate"]) == ("pcm_s16le", "22050"), sound
        assert abs(float(sound["duration"]) - 6) < 0.1, sound
        print("the wave has %s Hz and %s s" % (sound["sample_rate"], sound["duration"]))
        wizard.focus()
        desktop.key("Return")
        wizard.wait_end()
        desktop.wait_for("the wave in the Audio bar", lambda: self.stored("AFileName") == target)


def main():
    walk = Walk(*(os.path.abspath(path) for path in sys.argv[1:3]))
    try:
        for step in (walk.extract, walk.embed):
            print(step.__name__, flush=True)
            step()
        left = [name for name in os.listdir(walk.folder) if name.startswith(".cuewright") or name == "gone"]
        assert not left, left
    except BaseException:
        shots = os.environ.get("CUEWRIGHT_SHOTS")
        if shots:
            desktop.screenshot(os.path.join(shots, "burn_and_extract_failed.png"))
        raise
    finally:
        walk.program.quit()


main()
