#!/usr/bin/env python3
"""Loading of long wave files from a warm page cache: the Audio bar's reader against a bare C++ floor, FFmpeg and SoX.

usage: bench/wave/compare.py [BUILD_FOLDER] [ROUNDS] [--moment]   (default: build/release, 9)

With --moment the files are short and read once: it only shows that all of it still runs.

All programs run in turn, round by round, over the same files. What counts is the processor's time of each process,
which other work on the machine hardly changes.
"""

import os
import random
import shutil
import statistics
import struct
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
MOMENT = "--moment" in sys.argv
if MOMENT:
    sys.argv.remove("--moment")
BUILD = sys.argv[1] if len(sys.argv) > 1 else os.path.join(ROOT, "build", "release")
ROUNDS = int(sys.argv[2]) if len(sys.argv) > 2 else 1 if MOMENT else 9
FILES = (("90 min, 44.1 kHz, 16 bit, stereo", 44100, 2), ("90 min, 22.05 kHz, 16 bit, mono", 22050, 1))
MINUTES = 1 if MOMENT else 90


def make(path, rate, channels):
    """A file of noise whose level changes every second."""
    size = rate * channels * 2 * 60 * MINUTES
    if os.path.exists(path) and os.path.getsize(path) == size + 44:
        return
    dice = random.Random(1)
    second = rate * channels * 2
    blocks = [b"".join(struct.pack("<h", dice.randint(-top, top)) for _ in range(second // 2))
              for top in (900, 5000, 12000, 26000)]
    with open(path, "wb") as out:
        out.write(b"RIFF" + struct.pack("<I", size + 36) + b"WAVEfmt " +
                  struct.pack("<IHHIIHH", 16, 1, channels, rate, second, channels * 2, 16) +
                  b"data" + struct.pack("<I", size))
        for i in range(60 * MINUTES):
            out.write(blocks[i % len(blocks)])


def run(command):
    """Processor time in ms."""
    devnull = [(os.POSIX_SPAWN_OPEN, fd, os.devnull, os.O_RDWR, 0) for fd in (0, 1, 2)]
    pid = os.posix_spawnp(command[0], command, os.environ, file_actions=devnull)
    _, status, usage = os.wait4(pid, 0)
    if status != 0:
        raise SystemExit(f"{command[0]} failed")
    return (usage.ru_utime + usage.ru_stime) * 1000


def memory_of(path):
    """Most memory in MiB that loading a file took."""
    words = subprocess.run([os.path.join(BUILD, "bin", "wave_load"), path], capture_output=True, text=True).stdout.split()
    return int(words[-2]) / 1024


def main():
    subprocess.run(["cmake", "--build", BUILD, "--target", "wave_floor", "wave_load"], check=True,
                   stdout=subprocess.DEVNULL)
    work = os.path.join(BUILD, "bench-wave")
    os.makedirs(work, exist_ok=True)
    idle = memory_of(make_short(work))
    for title, rate, channels in FILES:
        path = os.path.join(work, f"{rate}-{channels}.wav")
        make(path, rate, channels)
        contestants = {"wave_load": [os.path.join(BUILD, "bin", "wave_load"), path],
                       "floor": [os.path.join(BUILD, "bin", "wave_floor"), path]}
        if shutil.which("ffmpeg"):
            contestants["ffmpeg"] = ["ffmpeg", "-nostdin", "-v", "error", "-i", path, "-f", "null", "-"]
        if shutil.which("sox"):
            contestants["sox"] = ["sox", path, "-n", "stat"]
        times = {name: [] for name in contestants}
        for round_number in range(-1, ROUNDS):  # the first one warms the cache
            for name, command in contestants.items():
                ms = run(command)
                if round_number >= 0:
                    times[name].append(ms)
        report(title, times, memory_of(path) - idle)
        os.remove(path)


def make_short(work):
    path = os.path.join(work, "short.wav")
    with open(path, "wb") as out:
        out.write(b"RIFF" + struct.pack("<I", 1036) + b"WAVEfmt " +
                  struct.pack("<IHHIIHH", 16, 1, 1, 8000, 16000, 2, 16) + b"data" + struct.pack("<I", 1000) + bytes(1000))
    return path


def report(title, times, more):
    ours = statistics.median(times["wave_load"])
    print(title)
    for name, values in times.items():
        median = statistics.median(values)
        line = f"  {name:10} {median:8.1f} ms"
        if name == "wave_load":
            line += f"   {more:.1f} MiB more than for a short file (at most 20)"
        elif name == "floor":
            line += f"   ours takes {ours / median:.2f} times this (at most 1.1)"
        else:
            line += f"   ours is {median / ours:.1f} times faster" + (" (at least 9)" if name == "ffmpeg" else "")
        print(line, flush=True)


if __name__ == "__main__":
    main()
