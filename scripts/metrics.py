#!/usr/bin/env python3
"""Measures the code: what is long, what is cast, what hangs together.

    scripts/metrics.py [--list] [REVISION...]

Each revision is a column, and the files as they stand are the last. --list names what is long or has too many parts.
"""

import io
import os
import re
import subprocess
import sys
import tarfile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
LONG_FILE, LONG_FUNCTION, MANY_PARTS = 400, 40, 6
NOT_CODE = {"tests", "bench", "fuzz", "docs", "resources", "scripts", "packaging", "cmake", "build", "samples", ".ci"}
# A check box of the settings, by whose name all that it costs can be found.
CHECK_BOX = re.compile("RulesOnLoad", re.I)

CASTS = re.compile(r"\b(?:static|reinterpret|const|dynamic)_cast<"
                   r"|\((?:unsigned |const )?(?:int|long|char|short|float|double|unsigned|std::u?int\d+_t|std::size_t)"
                   r"\s*\*?\)\s*[\w(]")
MESSAGE_NUMBER = re.compile(r"\b(?:s|strings_?|Strings\(\))\[\s*\d+\s*\]|\bMessage[({]\s*\d+|static_cast<Message>\(\s*\d+")
HOOK = re.compile(r"^\s*(?:mutable )?std::function<.*>\s+\w+\s*(?:;|=|\{)", re.M)
INCLUDE = re.compile(r'^\s*#\s*include\s*"([a-z_]+)/', re.M)
# What stands in front of a brace that is no function's body.
NO_FUNCTION = re.compile(r"(?:^|[\s;])(?:namespace|class|struct|enum|union|extern)\b[^()]*$")
CONTROL = re.compile(r"^(?:if|for|while|switch|do|else|try|catch|return|case)\b")


def tree_of(revision):
    """The texts of a revision's files by path; of the files as they stand for None."""
    if revision is None:
        names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                               capture_output=True, text=True).stdout.split("\n")
        paths = (name for name in names if name and os.path.isfile(os.path.join(ROOT, name)))
        raw = ((name, open(os.path.join(ROOT, name), "rb").read()) for name in paths)
    else:
        archive = subprocess.run(["git", "archive", revision], cwd=ROOT, check=True, capture_output=True).stdout
        tar = tarfile.open(fileobj=io.BytesIO(archive))
        raw = ((entry.name, tar.extractfile(entry).read()) for entry in tar if entry.isfile())
    return {name: content.decode("utf-8", "replace") for name, content in raw}


def without_words(code):
    """The code with blanks for comments and the contents of literals, so that every brace in it is one."""
    def blank(match):
        text = match.group(0)
        return re.sub(r"[^\n]", " ", text) if text.startswith("/") else '"' + re.sub(r"[^\n]", " ", text[2:]) + '"'

    return re.sub(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"'
                  r"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'", blank, code, flags=re.S)


def functions(code):
    """(name, line, lines) of each function with a body; what is in it counts as its own."""
    code = re.sub(r"^[ \t]*#[^\n]*", lambda line: " " * len(line.group(0)), code, flags=re.M)
    found, stack, begun = [], [], 0
    for at, sign in ((m.start(), m.group(0)) for m in re.finditer(r"[{};]", code)):
        if sign == "{":
            head = " ".join(re.sub(r"\b(?:public|private|protected) *:", "", code[begun:at]).split())
            inside = any(is_function for is_function, _, _ in stack)
            is_function = (not inside and re.search(r"\)\s*(?:const|noexcept|override|final|->[^;]*|:.*|\s)*$", head) is not None
                           and not CONTROL.match(head) and not NO_FUNCTION.search(head))
            stack.append((is_function, head, at))
        elif sign == "}" and stack:
            is_function, head, start = stack.pop()
            if is_function:
                first = code.count("\n", 0, start) + 1
                name = re.findall(r"([\w:~]+|operator\W+)\s*\(", head)
                found.append((name[0] if name else head, first, code.count("\n", start, at) + 1))
        begun = at + 1
    return found


def parts_of(text):
    """How many parameters stand between the parentheses that begin here."""
    depth, count, empty = 0, 1, True
    for sign in text:
        if sign in "(<{[":
            depth += 1
        elif sign in ")>}]":
            depth -= 1
            if depth == 0:
                return 0 if empty else count
        elif sign == "," and depth == 1:
            count += 1
        if not sign.isspace() and sign != "(":
            empty = False
    return 0


def many_parted(code):
    """The classes with a constructor of more parts than it should have."""
    return [match.group(1) for match in re.finditer(r"^\s+(?:explicit )?([A-Z]\w+)\(", code, re.M)
            if re.search(r"\b(?:class|struct) %s\b[^;]*\{" % match.group(1), code)
            and parts_of(code[match.end() - 1:]) > MANY_PARTS]


def lines_of(texts):
    return sum(text.count("\n") for text in texts)


def measure(tree):
    """(what, number, names) for all that is measured."""
    code = {path: text for path, text in tree.items()
            if path.endswith((".h", ".cpp")) and path.split("/")[0] not in NOT_CODE}
    tests = [text for path, text in tree.items() if path.endswith((".h", ".cpp", ".py", ".sh"))
             and path.split("/")[0] in ("tests", "bench", "fuzz")]
    bare = {path: without_words(text) for path, text in code.items()}
    headers = {path: text for path, text in bare.items() if path.endswith(".h")}
    long_files = ["%s %d" % (path, text.count("\n")) for path, text in code.items() if text.count("\n") > LONG_FILE]
    long_functions = ["%s:%d %s %d" % (path, line, name, lines) for path, text in bare.items()
                      for name, line, lines in functions(text) if lines > LONG_FUNCTION]
    constructors = ["%s %s" % (path, name) for path, text in headers.items() for name in many_parted(text)]
    hooks = ["%s %d" % (path, len(HOOK.findall(text))) for path, text in headers.items() if HOOK.search(text)]
    casts = sum(len(CASTS.findall(text)) for text in bare.values())
    numbers = sum(len(MESSAGE_NUMBER.findall(text)) for text in bare.values())
    includes = [(path.split("/")[0], folder) for path, text in code.items() for folder in INCLUDE.findall(text)]
    crossing = [(source, target) for source, target in includes if source != target]
    box = {path: sum(1 for line in text.split("\n") if CHECK_BOX.search(line)) for path, text in tree.items()
           if path.split("/")[0] not in ("tests", "docs", "bench") and "/help/" not in path
           and not path.endswith((".md", "metrics.py"))}
    box = {path: count for path, count in box.items() if count}
    return [
        ("files over %d lines" % LONG_FILE, len(long_files), long_files),
        ("functions over %d lines" % LONG_FUNCTION, len(long_functions), long_functions),
        ("casts", casts, []),
        ("bare message numbers", numbers, []),
        ("std::function members in headers", sum(int(hook.split()[-1]) for hook in hooks), hooks),
        ("constructors of more than %d parts" % MANY_PARTS, len(constructors), constructors),
        ("files that one check box touches", len(box), ["%s %d" % row for row in box.items()]),
        ("lines that one check box touches", sum(box.values()), []),
        ("folders that include another, in pairs", len(set(crossing)), []),
        ("includes from folder to folder", len(crossing), []),
        ("lines of code", lines_of(code.values()), []),
        ("lines of tests, benches and fuzzers", lines_of(tests), []),
        ("lines of documents", lines_of(text for path, text in tree.items() if path.endswith(".md")), []),
    ]


def main():
    names = "--list" in sys.argv
    revisions = [name for name in sys.argv[1:] if name != "--list"] + [None]
    columns = [measure(tree_of(revision)) for revision in revisions]
    print("%-40s %s" % ("", " ".join("%10s" % (revision or "now")[:10] for revision in revisions)))
    for row in zip(*columns):
        print("%-40s %s" % (row[0][0], " ".join("%10d" % number for _, number, _ in row)))
        for name in sorted(row[-1][2]) if names else ():
            print("    " + name)


main()
