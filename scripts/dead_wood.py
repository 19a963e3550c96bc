#!/usr/bin/env python3
"""Lists what the headers declare and the program doesn't use: nothing but its declaration and its definition names it.

    scripts/dead_wood.py [FOLDER...]     all folders of the program otherwise

What the tests alone use is marked so. Names that are overridden, and those of the toolkit, are left out.
"""

import collections
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
TEST_FOLDERS = ("tests", "bench", "fuzz")
FUNCTION = re.compile(r"^\s*(?:\[\[\w+\]\] )?(?!return\b|using\b|else\b|delete\b|throw\b)[\w:<>,*& ]+[ *&](\w+)\([^;{]*\)"
                      r"(?: const)?(?: noexcept)?\s*(?:;|\{| = 0)", re.M)
MEMBER = re.compile(r"^  (?:mutable |static |inline |constexpr |const )*[\w:]+(?:<[^;()]*>)?[*& ]+(\w+)(?: = [^;]*|\{[^;]*\})?;", re.M)
CONSTANT = re.compile(r"\bconstexpr [\w:<>, ]+? (k[A-Z]\w*)\b")
# Called by the toolkit or by the language.
LEFT_OUT = re.compile(r"operator|^main$|Event$|^(?:sizeHint|minimumSizeHint|begin|end|size|paint|what)$")


def sources():
    names = subprocess.run(["git", "ls-files", "*.h", "*.cpp"], cwd=ROOT, check=True, capture_output=True,
                           text=True).stdout.split()
    for name in names:
        if os.path.exists(os.path.join(ROOT, name)):
            with open(os.path.join(ROOT, name), encoding="utf-8") as file:
                yield name, re.sub(r"//[^\n]*", "", file.read())


def main():
    code = dict(sources())
    wanted = sys.argv[1:] or sorted({name.split("/")[0] for name in code} - set(TEST_FOLDERS))
    uses, tested = collections.Counter(), collections.Counter()
    for name, text in code.items():
        (tested if name.startswith(TEST_FOLDERS) else uses).update(re.findall(r"\w+", text))
    count = 0
    for name, text in code.items():
        if name.split("/")[0] not in wanted:
            continue
        declared = set(CONSTANT.findall(text))
        if name.endswith(".h"):
            plain = "\n".join(line for line in text.split("\n") if "override" not in line and "virtual" not in line)
            declared |= set(FUNCTION.findall(plain)) | set(MEMBER.findall(plain))
        body = code.get(name[:-2] + ".cpp", "") if name.endswith(".h") else ""
        for word in sorted(declared):
            # A definition outside of its class, and a constructor's first value, are no uses.
            begun = r"|[:,] +%s[({]" % word if word.endswith("_") else ""
            own = len(re.findall(r"\w::~?%s\(%s" % (word, begun), body + text))
            if uses[word] - own > 1 or LEFT_OUT.search(word):
                continue
            count += 1
            print("%s: %s%s" % (name, word, " (the tests use it)" if tested[word] else ""))
    return 1 if count else 0


sys.exit(main())
