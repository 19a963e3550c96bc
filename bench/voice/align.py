#!/usr/bin/env python3
"""How many lines of a text are given the time at which a film says them.

    bench/voice/align.py BATCH FOLDER [--conditions clean,music10] [--truth FILE]

BATCH is cuewright-batch, FOLDER one that make_films.py filled: text.txt, lines.tsv (or --truth FILE, the same for own
recordings: a line for each line of the text, its start and end in ms, or two dashes for a line that nobody says) and a
sound a condition. The plain method beside it spreads the lines over the film by their lengths.
"""
import argparse
import json
import os
import subprocess
import tempfile
import time


def quantile(values, share):
    return sorted(values)[min(len(values) - 1, int(share * len(values)))] if values else 0


def read_truth(name):
    with open(name, encoding="utf-8") as file:
        rows = [line.split("\t") for line in file.read().splitlines()]
    return [None if start == "-" else (int(start), int(end)) for start, end in rows]


def spread(lines, until):
    """The starts of lines that are spread evenly by their lengths."""
    whole = sum(map(len, lines))
    passed, starts = 0, []
    for line in lines:
        starts.append(until * passed / whole)
        passed += len(line)
    return starts


def table_row(name, starts, truth):
    errors = [abs(start - times[0]) for start, times in zip(starts, truth) if times]
    near = [sum(error <= limit for error in errors) / len(errors) for limit in (100, 500, 1000)]
    print(f"| {name} | {near[0]:.1%} | {near[1]:.1%} | {near[2]:.1%} | {quantile(errors, 0.5):.0f} "
          f"| {quantile(errors, 0.95):.0f} |", end="")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("batch")
    parser.add_argument("folder")
    parser.add_argument("--conditions", default="clean,music10")
    parser.add_argument("--truth")
    parser.add_argument("--language", default="en")
    options = parser.parse_args()
    text = os.path.join(options.folder, "text.txt")
    truth = read_truth(options.truth or os.path.join(options.folder, "lines.tsv"))
    with open(text, encoding="utf-8") as file:
        lines = file.read().splitlines()
    print("| | within 0.1 s | 0.5 s | 1 s | median ms | 95 % ms | doubtful | wrong by over 0.5 s and sure "
          "| unspoken and doubtful | s |\n|---|---|---|---|---|---|---|---|---|---|")
    for condition in options.conditions.split(","):
        with tempfile.TemporaryDirectory() as folder:
            begun = time.monotonic()
            out = subprocess.run([options.batch, "align", text, "--film", os.path.join(options.folder, condition + ".wav"),
                                  "--language", options.language, "--out", os.path.join(folder, "out.srt"), "--json"],
                                 check=True, capture_output=True, text=True).stdout
            took = time.monotonic() - begun
        rows = [json.loads(line) for line in out.splitlines()]
        table_row(condition, [row["start"] for row in rows], truth)
        said = [(row, times) for row, times in zip(rows, truth) if times]
        unsaid = [row for row, times in zip(rows, truth) if not times]
        wrong = sum(abs(row["start"] - times[0]) > 500 and not row["doubtful"] for row, times in said)
        print(f" {sum(row['doubtful'] for row, _ in said) / len(said):.1%} | {wrong} "
              f"| {sum(row['doubtful'] for row in unsaid)} of {len(unsaid)} | {took:.1f} |")
    table_row("plain", spread(lines, max(times[1] for times in truth if times)), truth)
    print(" | | | |")


if __name__ == "__main__":
    main()
