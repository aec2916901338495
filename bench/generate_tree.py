#!/usr/bin/env python3
"""Writes a tree of source files and a list of table names, the same at each run.

    generate_tree.py FOLDER NAMES_FILE FILES MEGABYTES NAMES

Sizes spread as in real code bases: half the files below a few kilobytes, some of a megabyte. A name
in twenty is in no file; the others stand there from some dozen times to ten thousands.
"""

import bisect
import os
import random
import sys

FILES_A_FOLDER = 25
POOL_BYTES = 24_000_000
SYLLABLES = """ac ad al an ar as at be ca ce co cu da de di do el en er es et fi fo ga ge gi ha he in
ing ion is it la le li lo ma me mi mo na ne ni no on or ou pa pe pi po qu ra re ri ro sa se si so ta
te ti to tra tu ul un ur us va ve vi vo wa we wi xe ya za""".split()
KEYWORDS = """if else for while return function class public private static new null true false this
self string int array foreach switch case break try catch throw const var let import from def""".split()
MARKS = [" ", " ", " ", " ", "(", ")", ", ", "; ", " = ", "->", ".", " == ", "[", "]", " . ", ": "]
EXTENSIONS = ["php", "php", "php", "js", "inc", "sql", "html", "txt"]


def word(rng):
    return "".join(rng.choice(SYLLABLES) for _ in range(rng.randint(1, 4)))


def table_names(rng, count):
    prefixes = [word(rng) for _ in range(12)]
    names = set()
    while len(names) < count:
        parts = [rng.choice(prefixes)] if rng.random() < 0.6 else []
        parts += [word(rng) for _ in range(rng.randint(1, 3))]
        names.add("_".join(parts) if len("".join(parts)) > 4 else "_".join(parts) + "_" + word(rng))
    return sorted(names)


def line_of(rng, vocabulary, named):
    parts = ["    " * rng.choice((0, 1, 1, 2, 2, 3))]
    for _ in range(rng.randint(2, 12)):
        chance = rng.random()
        if chance < 0.002:
            parts.append(named[int(len(named) * rng.random() ** 3)])
        elif chance < 0.3:
            parts.append(rng.choice(KEYWORDS))
        else:
            text = vocabulary[int(len(vocabulary) * rng.random() ** 2)]
            parts.append("$" + text if chance > 0.7 else text.title() if chance > 0.6 else text)
        parts.append(rng.choice(MARKS))
    return "".join(parts) + "\n"


def text_pool(rng, names):
    """Lines enough to cut all files from, and where each begins."""
    vocabulary = [word(rng) + (rng.choice(("", "", "_")) + word(rng)) * rng.randint(0, 1) for _ in range(20_000)]
    named = rng.sample(names, len(names) - len(names) // 20)
    lines, starts, size = [], [], 0
    while size < POOL_BYTES:
        line = line_of(rng, vocabulary, named)
        starts.append(size)
        lines.append(line)
        size += len(line)
    return "".join(lines).encode(), starts


def main():
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    root, names_file, files, megabytes, name_count = sys.argv[1:]
    rng = random.Random(20)
    names = table_names(rng, int(name_count))
    pool, starts = text_pool(rng, names)
    sizes = [min(rng.lognormvariate(0, 1.35), 300) for _ in range(int(files))]
    scale = int(megabytes) * 1_000_000 / sum(sizes)
    folders = [root]
    for number, size in enumerate(sizes):
        if number % FILES_A_FOLDER == 0:
            parent = folders[int(len(folders) * rng.random())]
            folders.append(os.path.join(parent, word(rng) + str(len(folders))))
            os.makedirs(folders[-1])
        start = starts[int(bisect.bisect(starts, POOL_BYTES - size * scale) * rng.random())]
        path = os.path.join(folders[-1], word(rng) + str(number) + "." + rng.choice(EXTENSIONS))
        with open(path, "wb") as out:
            out.write(pool[start:start + int(size * scale)])
    with open(names_file, "w") as out:
        out.write("\n".join(names) + "\n")


if __name__ == "__main__":
    main()
