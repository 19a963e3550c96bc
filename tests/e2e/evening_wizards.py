"""The evening's scenes with the two wizards: nothing that exists is replaced before it was asked."""

import os
import subprocess

import desktop
from wizard import Wizard, menus_of

ASKED = "already exists"
SSA = """[Script Info]
ScriptType: v4.00

[V4 Styles]
Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, BackColour, Bold, Italic, BorderStyle, \
Outline, Shadow, Alignment, MarginL, MarginR, MarginV, AlphaLevel, Encoding
Style: Default,DejaVu Sans,48,16777215,65535,65535,0,0,0,1,2,0,2,10,10,20,0,1

[Events]
Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text
Dialogue: Marked=0,0:00:00.20,0:00:00.80,Default,,0000,0000,0000,,Good evening
"""


def open_wizard(s, item):
    """A wizard over a film of a second and its text."""
    film = s.path("short.avi")
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", "color=s=320x240:r=25:d=1", "-f", "lavfi",
                    "-i", "sine=r=44100:d=1", "-c:v", "mpeg4", "-c:a", "libmp3lame", film], check=True)
    s.start(s.write("its text.ssa", SSA.replace("\n", "\r\n")), options="VFileName=%s\n" % film)
    s.wait_rows(1)
    menus = menus_of(s.program)
    menus.press("mnuVFileName")
    s.wait_film()
    return Wizard(s.program, menus, item)


def next_twice(s, wizard, answer):
    """Both presses are there before the program sees the first; the question comes all the same, and only once."""
    wizard.focus()
    s.tab_to("push button", "Next >")
    with s.stopped():
        desktop.key("space", "space")
    s.box(ASKED, answer)
    s.box_gone(ASKED)
    wizard.focus()


def save_as(s, wizard, name, answer):
    """Chooses a target without an ending, over the file that has the ending."""
    s.press_button("Save as...")
    s.save_dialog(s.path(name), replaces=answer)
    wizard.focus()


def burning_in_replaces_nothing_unasked(s):
    wizard = open_wizard(s, "mnuEmbed")
    s.write("short[sub].avi", "an older film")
    s.write("other.avi", "another film")
    wizard.next("VirtualDub's folder:")
    wizard.next("Output video file name:")
    next_twice(s, wizard, "No")
    save_as(s, wizard, "other", "No")
    next_twice(s, wizard, "No")
    assert s.read("short[sub].avi") == "an older film" and s.read("other.avi") == "another film"
    save_as(s, wizard, "other", "Yes")
    # The dialog has asked about this name.
    s.tab_to("push button", "Next >")
    desktop.key("space")
    wizard.wait_page("VBR Files Warning:")
    wizard.button("OK")
    wizard.focus()
    s.press_button("OK")
    desktop.wait_for("the film with the text", lambda: os.path.getsize(s.path("other.avi")) > 1000, 60)
    wizard.wait_end()
    with open(s.path("other.avi"), "rb") as file:
        assert file.read(4) == b"RIFF"
    assert s.read("short[sub].avi") == "an older film"
    s.close_asking_nothing()


def taking_sound_out_replaces_nothing_unasked(s):
    wizard = open_wizard(s, "mnuAudioExtract")
    s.write("short.wav", "an older sound")
    s.write("other.wav", "another sound")
    for page in ("Sample rate (Hz)", "VirtualDub's folder:", "Save audio file as:"):
        wizard.next(page)
    next_twice(s, wizard, "No")
    save_as(s, wizard, "other", "No")
    next_twice(s, wizard, "No")
    assert s.read("short.wav") == "an older sound" and s.read("other.wav") == "another sound"
    save_as(s, wizard, "other", "Yes")
    s.tab_to("push button", "Next >")
    desktop.key("space")
    wizard.wait_page("Checking generated audio file...")
    wizard.button("Finish")
    with open(s.path("other.wav"), "rb") as file:
        content = file.read()
    assert content[:4] == b"RIFF" and 80000 < len(content) < 200000, len(content)
    assert s.read("short.wav") == "an older sound"
    s.press_button("Finish")
    wizard.wait_end()
    s.close_asking_nothing()


WIZARD_SCENES = [burning_in_replaces_nothing_unasked, taking_sound_out_replaces_nothing_unasked]
