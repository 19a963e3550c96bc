#!/usr/bin/python3
"""Burning in and taking out, by vdrun and by FFmpeg alone with the same settings, taken in turns.

    bench/external/compare.py build/release/bin/vdrun/vdrun [RUNS] [--moment]

60 seconds of 640x360; with --moment six, once, which only shows that all of it still runs. Prints the median times in seconds and their ratios.
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time

MOMENT = "--moment" in sys.argv
if MOMENT:
    sys.argv.remove("--moment")
SECONDS = 6 if MOMENT else 60
SCRIPT_HEAD = """[Script Info]
ScriptType: v4.00

[V4 Styles]
Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, BackColour, Bold, Italic, BorderStyle, \
Outline, Shadow, Alignment, MarginL, MarginR, MarginV, AlphaLevel, Encoding
Style: Default,DejaVu Sans,24,16777215,65535,65535,0,0,0,1,2,0,2,10,10,20,0,1

[Events]
Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text
"""


def timed(command, folder):
    start = time.monotonic()
    subprocess.run(command, check=True, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.PIPE)
    return time.monotonic() - start


def write(path, text):
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(text)


def main():
    vdrun = os.path.abspath(sys.argv[1])
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 1 if MOMENT else 7
    with tempfile.TemporaryDirectory() as folder:
        film = os.path.join(folder, "film.avi")
        subprocess.run(["ffmpeg", "-y", "-nostdin", "-v", "error", "-f", "lavfi", "-i",
                        "testsrc2=s=640x360:r=25:d=%d" % SECONDS, "-f", "lavfi", "-i",
                        "sine=f=440:r=44100:d=%d" % SECONDS, "-c:v", "mpeg4", "-q:v", "4", "-c:a", "libmp3lame", film],
                       check=True)
        text = os.path.join(folder, "text.ssa")
        write(text, SCRIPT_HEAD + "".join(
            "Dialogue: Marked=0,0:00:%02d.00,0:00:%02d.00,Default,,0000,0000,0000,,This is caption number %d\n"
            % (at, at + 2, at) for at in range(0, SECONDS - 2, 3)))
        write(os.path.join(folder, "embed.vcf"), "\r\n".join((
            'VirtualDub.Open("%s",0,0);' % film, "VirtualDub.video.SetCompression(0x64697678,0,10000,0);",
            'VirtualDub.video.filters.Add("subtitler");',
            'VirtualDub.video.filters.instance[0].Config(1, "%s", 0, 0);' % text,
            'VirtualDub.SaveAVI("ours.avi");', "VirtualDub.Close();", "")))
        write(os.path.join(folder, "extract.vcf"), "\r\n".join((
            'VirtualDub.Open("%s",0,0);' % film, "VirtualDub.audio.SetMode(1);",
            "VirtualDub.audio.SetConversion(22050,0,0);", 'VirtualDub.SaveWAV("ours.wav");', "")))
        alone = ["ffmpeg", "-y", "-nostdin", "-v", "error", "-i", film]
        cases = (
            ("burning in", [vdrun, "/s", "embed.vcf", "/x"],
             alone + ["-vf", "subtitles=f=text.ssa", "-c:v", "libxvid", "-tag:v", "xvid", "-q:v", "4", "-c:a", "copy",
                      "theirs.avi"], 1.1),
            ("taking out", [vdrun, "/s", "extract.vcf", "/x"],
             alone + ["-vn", "-c:a", "pcm_s16le", "-ar", "22050", "theirs.wav"], 1.2))
        print("%-12s %8s %8s %7s %7s" % ("", "vdrun", "ffmpeg", "ratio", "aim"))
        for name, ours, theirs, aim in cases:
            times = {"ours": [], "theirs": []}
            for command in (ours, theirs):
                timed(command, folder)
            for turn in range(runs):
                order = (("ours", ours), ("theirs", theirs))
                for who, command in order if turn % 2 == 0 else reversed(order):
                    times[who].append(timed(command, folder))
            mine, peer = (statistics.median(times[who]) for who in ("ours", "theirs"))
            print("%-12s %8.3f %8.3f %7.3f %7s" % (name, mine, peer, mine / peer, "<= %g" % aim))
            assert os.path.getsize(os.path.join(folder, "ours.avi")) > (10000 if MOMENT else 100000)


main()
