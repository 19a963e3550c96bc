"""A film in which somebody speaks, and the subtitle that fits it."""

import os
import subprocess
import wave

from subrip_file import clock

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
RATE = 22050
PAUSE = 0.4


def spoken_film(folder):
    """A film in which the lines of the sample are spoken, its subtitle, and start and end of each line in seconds."""
    with open(os.path.join(ROOT, "samples/good_evening.txt"), encoding="utf-8") as file:
        lines = [line.strip() for line in file if line.strip()]
    at = 1.0
    sound, records, times = bytes(2 * int(RATE * at)), [], []
    for number, line in enumerate(lines, 1):
        piece = os.path.join(folder, "line.wav")
        subprocess.run(["espeak-ng", "-v", "en-us", "-w", piece, line], check=True)
        with wave.open(piece) as spoken:
            frames = spoken.readframes(spoken.getnframes())
        times.append((at, at + len(frames) / 2 / RATE))
        records.append("%d\r\n%s --> %s\r\n%s\r\n\r\n" % (number, *(clock(round(1000 * time)) for time in times[-1]), line))
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
    return film, subtitle, times
