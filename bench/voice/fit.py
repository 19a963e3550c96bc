#!/usr/bin/env python3
"""How near `cuewright-batch fit` comes to the voice, beside the press as it was and a constant correction.

    bench/voice/fit.py build/release/bin/cuewright-batch [--set report] [--seeds 11,12] [--captions 60] [--keep DIR]
                       [--language en | --no-words] [--reaction MS|auto]
    bench/voice/fit.py PROGRAM --truth TRUTH.srt --held HELD.srt --film FILM [--language en] [--reaction MS|auto]

The first makes films by make_films.py and prints a line a condition; the second judges a recording of one's own, whose
true times stand in TRUTH.srt. The constant takes off each held time the median lateness that these presses really have,
which no program can know better. The detector is that of WebRTC, where voice_detector.py finds it: the last edge of
its voice before a press or release, no further away than 0.7 s, or else the constant. All figures are in ms: median / 95th percentile of the distance from the truth.
`worse` is the share of times that are more than a frame of 24 a second (42 ms) worse than the constant.
"""
import argparse
import json
import os
import re
import resource
import subprocess
import sys
import tempfile

import voice_detector

FRAME = 42
REACH = 700  # ms before a press in which the detector's edge is looked for
CONDITIONS = ["clean", "pink20", "pink10", "pink5", "babble20", "babble10", "babble5", "music20", "music10", "music5"]


def read_srt(name):
    """The times of a file in ms."""
    def ms(hours, minutes, seconds, fraction):
        return ((int(hours) * 60 + int(minutes)) * 60 + int(seconds)) * 1000 + int(fraction)
    with open(name, encoding="utf-8-sig") as file:
        lines = re.findall(r"(\d+):(\d+):(\d+),(\d+) --> (\d+):(\d+):(\d+),(\d+)", file.read())
    return [(ms(*line[:4]), ms(*line[4:])) for line in lines]


def quantile(values, share):
    return sorted(values)[min(len(values) - 1, int(share * len(values)))]


def fit(options, held, film, language):
    """The fitted times, and the seconds of processor time that they took."""
    with tempfile.TemporaryDirectory() as folder:
        call = [options.program, "fit", held, "--film", film, "--out", os.path.join(folder, "out.srt"), "--json"]
        call += ["--reaction", options.reaction]
        if language:
            call += ["--language", language]
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        done = subprocess.run(call, stdout=subprocess.PIPE, check=True, text=True)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        used = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        rows = [json.loads(line) for line in done.stdout.splitlines()]
        written = read_srt(os.path.join(folder, "out.srt"))
    if [(row["start"], row["end"]) for row in rows] != written:
        sys.exit("what was told is not what was written")
    return written, used


class Figures:
    """Distances from the truth of one kind of time, in several ways."""

    def __init__(self):
        self.press, self.constant, self.detector, self.fitted = [], [], [], []

    def add(self, truth, held, edges, fitted):
        late = quantile([press - true for press, true in zip(held, truth)], 0.5)
        if edges is not None:
            found = voice_detector.last_edges(edges, held, late, REACH)
            self.detector += [abs(time - true) for time, true in zip(found, truth)]
        for true, press, found in zip(truth, held, fitted):
            self.press.append(abs(press - true))
            self.constant.append(abs(press - late - true))
            self.fitted.append(abs(found - true))

    def text(self):
        def pair(values):
            if not values:
                return f"{'-':>10}"
            return f"{quantile(values, 0.5):4.0f} /{quantile(values, 0.95):4.0f}"
        worse = sum(found > constant + FRAME for found, constant in zip(self.fitted, self.constant))
        within = sum(found <= FRAME for found in self.fitted)
        count = len(self.fitted)
        return f"{pair(self.press)} {pair(self.constant)} {pair(self.detector)} {pair(self.fitted)}  {100 * within / count:3.0f} %  " \
               f"{100 * worse / count:4.1f} %"


def detected(film):
    """The rises and falls that the detector finds; None where it isn't installed."""
    functions = voice_detector.library()
    return voice_detector.edges(functions, film) if functions else None


def show(name, cases):
    """A line for starts and one for ends of a condition; a case is truth and held times, what the detector says, and
    fitted times."""
    for place, kind in enumerate(["start", "end"]):
        figures = Figures()
        for case in cases:
            truth, held, edges, fitted = case
            figures.add(*([times[place] for times in part] for part in (truth, held)), edges and edges[place],
                        [times[place] for times in fitted])
        print(f"{name:16} {kind:6} {figures.text()}", flush=True)


def head():
    print(f"{'':16} {'':6} {'press':>10} {'constant':>10} {'detector':>10} {'fitted':>10}  {'42ms':>5}  {'worse':>6}")


def bench(options):
    """Makes the films and prints the table."""
    folder = options.keep or tempfile.mkdtemp()
    folders = []
    for seed in options.seeds.split(","):
        folders.append(os.path.join(folder, f"{options.set}{seed}"))
        if not os.path.exists(os.path.join(folders[-1], "late.mkv")):
            subprocess.run([sys.executable, os.path.join(os.path.dirname(os.path.abspath(__file__)), "make_films.py"),
                            folders[-1], "--set", options.set, "--seed", seed, "--captions", str(options.captions),
                            "--conditions", ",".join(CONDITIONS + ["late"])], check=True)
    wanted = options.conditions.split(",") if options.conditions else CONDITIONS + ["late"]
    cases = [(name, name, "press.srt") for name in wanted]
    if not options.conditions:
        cases += [("slow " + name, name, "slow.srt") for name in ["clean", "babble10", "music10"]]
        cases += [("other language", name, "foreign.srt") for name in ["clean", "babble10", "music10"]]
    head()
    used, captions = 0, 0
    for name, condition, held in cases:
        parts = []
        for each in folders:
            film = os.path.join(each, condition + (".mkv" if condition == "late" else ".wav"))
            fitted, seconds = fit(options, os.path.join(each, held), film, options.language)
            used, captions = used + seconds, captions + len(fitted)
            parts.append((read_srt(os.path.join(each, "truth.srt")), read_srt(os.path.join(each, held)), detected(film),
                          fitted))
        show(name if held != "foreign.srt" else f"other l. {condition}", parts)
    print(f"{1000 * used / captions:.0f} ms of processor time a caption, with reading the film and speaking the text")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--set", default="report")
    parser.add_argument("--seeds", default="11,12")
    parser.add_argument("--captions", type=int, default=60)
    parser.add_argument("--conditions")
    parser.add_argument("--keep")
    parser.add_argument("--language", default="en")
    parser.add_argument("--no-words", dest="language", action="store_const", const=None)
    parser.add_argument("--reaction", default="auto")
    parser.add_argument("--truth")
    parser.add_argument("--held")
    parser.add_argument("--film")
    options = parser.parse_args()
    if not options.truth:
        bench(options)
        return
    fitted, _ = fit(options, options.held, options.film, options.language)
    head()
    show(os.path.basename(options.film), [(read_srt(options.truth), read_srt(options.held), detected(options.film), fitted)])


if __name__ == "__main__":
    main()
