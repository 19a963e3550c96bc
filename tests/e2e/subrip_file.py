"""The times and texts of SubRip files."""

import re


def clock(ms):
    return "%02d:%02d:%02d,%03d" % (ms // 3600000, ms // 60000 % 60, ms // 1000 % 60, ms % 1000)


def captions_of(content):
    """Start and end in ms and the text of each caption of a SubRip file."""
    clock = r"(\d\d):(\d\d):(\d\d),(\d\d\d)"
    captions = []
    for match in re.finditer(r"\d+\r\n%s --> %s\r\n(.*?)\r\n\r\n" % (clock, clock), content, re.S):
        hours = [int(match.group(i)) for i in range(1, 9)]
        start, end = (((h * 60 + m) * 60 + s) * 1000 + ms for h, m, s, ms in (hours[:4], hours[4:]))
        captions.append((start, end, match.group(9)))
    return captions
