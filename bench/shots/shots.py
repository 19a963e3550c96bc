#!/usr/bin/env python3
"""How well `cuewright-batch shots` finds the changes of shot in films whose changes are known, and what that costs.

    bench/shots/shots.py build/release/bin/cuewright-batch [--set tune|report] [--seeds 100] [--films 2] [--shots 12]
        [--rounds 3] [--keep DIR]

The films are those of films.py. A cut counts as found when its frame is right; any other cut is wrong, also within a
fade. A fade counts as found when it lies within the fade, once; any other one is wrong. A subtitle that begins at the
time told for a cut is burned into each film, and the first picture that shows it has to be that of the cut. The
processor time is measured against that of ffmpeg decoding the film into nothing, the least of some rounds each, in turns.
"""
import argparse
import collections
import os
import re
import resource
import subprocess
import tempfile

import films

COUNTS = ["cuts found", "missed", "wrong", "off by one", "fades found", "missed", "wrong"]


def found_in(batch, path):
    """Frame, ms and kind of each change of shot."""
    out = subprocess.run([batch, "shots", path], check=True, stdout=subprocess.PIPE, text=True).stdout
    return [(int(frame), int(ms), kind) for frame, ms, kind in (line.split("\t") for line in out.splitlines())]


def scdet(path):
    """The same by ffmpeg's own detector, whose frames are all cuts."""
    log = subprocess.run(["ffmpeg", "-nostdin", "-hide_banner", "-i", path, "-vf", "scale=320:180,showinfo,scdet=10",
                          "-vsync", "passthrough", "-enc_time_base", "-1", "-f", "null", "-"], check=True,
                         stderr=subprocess.PIPE, text=True).stderr
    frame, found = -1, []
    for line in log.splitlines():
        shown = re.search(r"showinfo.* n: *(\d+)", line)
        if shown:
            frame = int(shown[1])
        if "lavfi.scd.score" in line and frame >= 0:
            found.append((frame, 0, "cut"))
    return found


def scored(found, truth):
    """The counts, the fades that were missed by their kind, and how far from the middle the others lie, in frames."""
    cuts = {frame for frame, _, kind in found if kind == "cut"}
    fades = [frame for frame, _, kind in found if kind == "fade"]
    wrong, missed = cuts - truth.cuts, truth.cuts - cuts
    near = sum(1 for frame in wrong if frame - 1 in missed or frame + 1 in missed)
    lost, away = collections.Counter(), []
    for first, end, kind in truth.fades:
        inside = [abs(frame - (first + end) / 2) for frame in fades if first <= frame <= end]
        if inside:
            away.append(min(inside))
        else:
            lost[kind] += 1
    counts = [len(cuts & truth.cuts), len(missed), len(wrong), near, len(away), sum(lost.values()),
              len(fades) - len(away)]
    return counts, lost, away


def hashes(path, *options):
    out = subprocess.run(["ffmpeg", "-nostdin", "-v", "fatal", "-i", path, "-map", "0:v:0", *options, "-vsync",
                          "passthrough", "-enc_time_base", "-1", "-f", "framemd5", "-"], check=True,
                         stdout=subprocess.PIPE, text=True).stdout
    return [line.split(",")[-1] for line in out.splitlines() if not line.startswith("#")]


def times_of(path):
    """The presentation times of the film's pictures in ms."""
    out = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v:0", "-show_entries", "packet=pts_time", "-of",
                          "csv=p=0", path], check=True, stdout=subprocess.PIPE, text=True).stdout
    return sorted(1000 * float(line.strip(",")) for line in out.split())


def burned(path, found, folder):
    """How many cuts have a subtitle that begins at the time told for them and is burned in; how many of these show it first
    in the picture of the cut; and how many of the others come in the same millisecond as the picture before, so that no
    subtitle's time tells them apart."""
    srt = os.path.join(folder, "burned.srt")

    def clock(ms):
        return f"{ms // 3600000:02}:{ms // 60000 % 60:02}:{ms // 1000 % 60:02},{ms % 1000:03}"

    cuts = [(frame, ms) for frame, ms, kind in found if kind == "cut"]
    with open(srt, "w") as file:
        for number, (_, ms) in enumerate(cuts, 1):
            file.write(f"{number}\n{clock(ms)} --> {clock(ms + 80)}\nShot {number}\n\n")
    bare, shown = hashes(path), hashes(path, "-vf", f"subtitles={srt}")
    marked = [a != b for a, b in zip(bare, shown)]
    late = [frame for frame, _ in cuts if not marked[frame] or marked[frame - 1]]
    times = times_of(path)
    return len(cuts), len(cuts) - len(late), sum(1 for frame in late if int(times[frame - 1]) == int(times[frame]))


def seconds_of(*command):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def cost(batch, path, rounds):
    """Processor seconds of the decoder alone and of finding shots."""
    decoding, finding = [], []
    for _ in range(rounds):
        decoding.append(seconds_of("ffmpeg", "-nostdin", "-i", path, "-map", "0:v:0", "-f", "null", "-"))
        finding.append(seconds_of(batch, "shots", path))
    return min(decoding), min(finding)


def f1(hits, missed, wrong):
    return 2 * hits / max(2 * hits + missed + wrong, 1)


def film_of(options, film, folder):
    """The path of a film, which is made when it isn't kept, and its truth."""
    path = os.path.join(options.keep or folder, f"{options.set}_{film.seed}_{options.shots or film.shots}.mp4")
    if not os.path.exists(path + ".truth"):
        truth = films.make(path, options.set, film, options.shots)
        with open(path + ".truth", "w") as file:
            file.write(repr(tuple(truth)))
    with open(path + ".truth") as file:
        return path, films.Truth(*eval(file.read(), {}))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("batch")
    parser.add_argument("--set", choices=films.SETS, default="tune")
    parser.add_argument("--seeds", type=int, default=0, help="added to those of the set: other films of its kind")
    parser.add_argument("--films", type=int, help="only the first ones")
    parser.add_argument("--shots", type=int, help="of each film")
    parser.add_argument("--rounds", type=int, default=3, help="of measuring the time; 0 leaves that out")
    parser.add_argument("--keep", help="a folder where the films stay")
    options = parser.parse_args()
    totals = {"cuewright": [0] * 7, "scdet 10": [0] * 7}
    kinds, lost, away, marks = collections.Counter(), collections.Counter(), [], [0, 0, 0]
    with tempfile.TemporaryDirectory() as folder:
        for film in films.SETS[options.set][:options.films]:
            film = film._replace(seed=film.seed + options.seeds)
            path, truth = film_of(options, film, folder)
            found = found_in(options.batch, path)
            counts, lost_here, away_here = scored(found, truth)
            kinds += collections.Counter(kind for _, _, kind in truth.fades)
            lost += lost_here
            away += away_here
            marks = [a + b for a, b in zip(marks, burned(path, found, folder))]
            for name, more in (("cuewright", counts), ("scdet 10", scored(scdet(path), truth)[0])):
                totals[name] = [a + b for a, b in zip(totals[name], more)]
            rate = film.rate + (" varying" if film.vfr else "")
            print(f"{film.size:>9} {rate:>14}  cuts {f1(*counts[:3]):.3f}  fades {f1(*counts[4:]):.3f}", end="")
            if options.rounds:
                decoding, finding = cost(options.batch, path, options.rounds)
                print(f"  decoder {decoding:.2f} s, ours {finding / decoding:.2f} times that", end="")
            print(flush=True)
    for name, counts in totals.items():
        print(f"{name:10} cuts F1 {f1(*counts[:3]):.3f}  fades F1 {f1(*counts[4:]):.3f}  ",
              ", ".join(f"{what} {count}" for what, count in zip(COUNTS, counts)))
    print("fades found by kind:", ", ".join(f"{kind} {count - lost[kind]} of {count}" for kind, count in kinds.items()))
    print("fades from their middle: median {:.1f} frames, nine of ten within {:.1f}".format(
        sorted(away)[len(away) // 2], sorted(away)[len(away) * 9 // 10]) if away else "no fades")
    print(f"burned in: {marks[1]} of {marks[0]} subtitles begin with the picture of their cut; of the others {marks[2]} "
          "stand for a picture in the same millisecond as the one before")


if __name__ == "__main__":
    main()
