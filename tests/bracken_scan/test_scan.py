#!/usr/bin/env python3
"""Compares bracken-scan with a plain loop, and checks its uses: test_scan.py PROGRAM [UNITTEST-ARGUMENT...]"""

import fcntl
import itertools
import json
import os
import pathlib
import random
import re
import signal
import subprocess
import sys
import tempfile
import unittest

import reference

PROGRAM = None
NAMES = [b"users", b"user", b"Users", b"user_id", b"a", b"id", b"wp_", b"wp_posts", b"wp_id", b"old log",
         b"$x", b"x-y", b"z\0z", b"t\tb", b"\xff\xfe", b"gr\xc3\xbcn", b"nowhere", b"b\\s", b"q" * 64]
UNESCAPED = {b"\\": b"\\", b"t": b"\t", b"n": b"\n", b"r": b"\r"}


def run(*arguments, names=None, cwd=None, **environment):
    return subprocess.run([PROGRAM, *arguments], input=names, capture_output=True, cwd=cwd,
                          env={**os.environ, **environment})


def pairs_of(tsv):
    lines = [line.split(b"\t") for line in tsv.split(b"\n")[:-1]]
    return [tuple(re.sub(rb"\\(.)", lambda escape: UNESCAPED[escape[1]], field) for field in line) for line in lines]


def plant(root, rng):
    """A tree of what is nasty: odd names, links in circles."""
    pieces = [b" ", b"\n", b"_", b"$", b"0", b"-", b"\xff", b"\0", b"USER", b"User_Id", b"posts", b"wp_",
              *NAMES]
    folders = [b"", b".hidden", b"b", b"b/deep", b"b/deep/.git", b"vendor", b"vendor/lib", b"z\n\t\\"]
    for folder in folders:
        os.makedirs(os.path.join(root, folder), exist_ok=True)
        for name in [b"a.php", b".b.PHP", b"c", b"d.php5", b"e.", b"f.tar.gz", b"\xff.js", b"[x].js"]:
            text = b"".join(rng.choice(pieces) for _ in range(rng.randint(0, 30)))
            pathlib.Path(os.fsdecode(os.path.join(root, folder, name))).write_bytes(text)
    for link, target in [(b"0link", b"b"), (b"b/up", b".."), (b"b/deep/other", b"../../vendor"),
                         (b"vendor/self", b"."), (b"gone", b"nothing"), (b"zfile", b"b/a.php"),
                         (b"zz", b"b/deep/.git")]:
        os.symlink(target, os.path.join(root, link))
    os.mkfifo(os.path.join(root, b"pipe"))


def plant_edges(root):
    """Names that lie across the edge of what is read at a time, or end or begin there."""
    os.mkdir(root)
    for name, after, before in itertools.product((b"user", b"q" * 64), (b"", b"s", b" "), (0, 1, 3, 4, 64)):
        with open(os.path.join(root, b"%d-%d%s" % (len(name), before, after)), "wb") as file:
            file.write(b"." * (65535 - before) + b" " + name + after)


class Answers(unittest.TestCase):
    def test_pairs_are_those_of_a_plain_loop(self):
        folder = os.fsencode(self.enterContext(tempfile.TemporaryDirectory(prefix="bracken-scan-")))
        root, edges = folder + b"/tree", folder + b"/edges"
        plant(root, random.Random(17))
        plant_edges(edges)
        globs = [["vendor"], ["*.git"], ["b/*", "?.php"], [".*", "[[]x*"], ["0link", "b\\deep"], ["[!a-z]*"]]
        cases = [([root], {}), ([root], {"whole": True}), ([edges], {}), ([edges], {"whole": True}),
                 ([root], {"prefix": b"wp_", "whole": True}),
                 ([root + b"/b//", root, root + b"/b/deep"], {"prefix": b"wp_"}),
                 ([root], {"extensions": [b"php", b"gz", b"tar.gz"], "whole": True}),
                 *(([root], {"excludes": excludes}) for excludes in globs)]
        for folders, choice in cases:
            options = [f"--exclude={glob}" for glob in choice.get("excludes", [])]
            options += [b"--extensions=." + name.upper() for name in choice.get("extensions", [])]
            options += ["--whole-names"] if choice.get("whole") else []
            options += [b"--strip-prefix", choice["prefix"]] if "prefix" in choice else []
            expected = reference.pairs(folders, NAMES, **choice)
            for threads in "1", "8":
                done = run(f"--threads={threads}", "--tables=-", "--format=tsv", *options, *folders,
                           names=b"\n".join(NAMES))
                with self.subTest(case=choice, folders=folders, threads=threads):
                    self.assertEqual((pairs_of(done.stdout), done.stderr), (expected, b""))


class Uses(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="bracken-scan-")))
        for path, text in {"src/a.php": "users", "src/b.js": "orders USERS", "allow": "# users\n\nTMP[Z-a]?\r\n",
                           "names": "users\r\n\n\r\nusers\ntmp_1\nold", "src/vendor/c.php": "none"}.items():
            (self.folder / path).parent.mkdir(exist_ok=True)
            (self.folder / path).write_text(text, newline="")

    def scan(self, *arguments, **rest):
        return run(*arguments, cwd=self.folder, **rest)

    def test_statuses(self):
        for status, error, *arguments in [
                (1, "", "--tables=names", "src"), (1, "", "src", "--tables", "names", "--allow=allow"),
                (0, "", "--tables=-", "--", "src", "src/"), (0, "", "--help", "--tables"), (0, "", "--version"),
                (2, "b.js: Not a directory", "--tables=-", "src", "src/b.js"),
                (2, "none: No such file", "--tables=-", "src", "none"), (2, ": No such file", "--tables=-", ""),
                (2, "together", "--tables=-", "--database=x", "src"), (2, "is needed", "src"),
                (2, "FOLDER", "--tables=-"), (2, "no option --foo", "--foo"), (2, "no option -x", "-xy"),
                (2, "takes a value", "--tables"), (2, "takes no value", "--unused=1"),
                (2, "extension", "--tables=-", "--extensions=php,.", "src"),
                *((2, "--threads", "--tables=-", f"--threads={n}", "src") for n in ("0", "x", "9" * 20)),
                (2, "--port", "--database=x", "--port=65536", "src"), (2, "--format", "--format=xml"),
                (2, "no table name", "--tables=/dev/null", "src"), (2, "src: Is a dir", "--tables=src", "src"),
                (2, "none: No such", "--tables=-", "--allow=none", "src"),
                (2, "connect", "--database=x", "--socket=/none", "src")]:
            with self.subTest(arguments):
                done = self.scan(*arguments, names=b"users\n\norders")
                self.assertEqual(done.returncode, status, done.stderr)
                self.assertIn(error.encode(), done.stderr)
                self.assertEqual(bool(done.stderr), bool(error))

    def test_json(self):
        done = self.scan("--format=json", "--tables=names", "--allow=allow", "--exclude=vendor",
                         "--extensions=php", "none", "./src//")
        *tables, summary = map(json.loads, done.stdout.splitlines())
        self.assertEqual(tables, [
            {"type": "table", "name": "users", "files": ["./src/a.php"], "allowed": False},
            {"type": "table", "name": "tmp_1", "files": [], "allowed": True},
            {"type": "table", "name": "old", "files": [], "allowed": False}])
        self.assertGreaterEqual(summary.pop("milliseconds"), 0)
        self.assertEqual(summary, {
            "type": "summary", "tables": 3, "unused": 1, "allowed": 1, "files": 1, "bytes": 5, "filtered": 1,
            "unreadable": [{"path": "none", "reason": "No such file or directory"}]})

    def test_text(self):
        plain = self.scan("--tables=names", "--allow=allow", "--unused", "src").stdout
        self.assertTrue(plain.startswith(b"tmp_1: named nowhere, allowed\nold: named nowhere\n\n3 tables"))
        painted = self.scan("--tables=names", "--color=always", "src", NO_COLOR="1").stdout
        self.assertIn(b"users\n    a.php\n    b.js\n\033[31mtmp_1: named nowhere\033[0m\n", painted)

    def test_endings(self):
        """A reader that goes, and Ctrl+C while the answer waits for a reader."""
        names = b"".join(b"%07d\n" % number for number in range(10_000))
        for ending, status in [("close", 141), ("interrupt", 130)]:
            process = self.enterContext(subprocess.Popen(
                [PROGRAM, "--tables=-", "--format=tsv", "src"], cwd=self.folder,
                stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE))
            fcntl.fcntl(process.stdout, fcntl.F_SETPIPE_SZ, 4096)
            process.stdin.write(names)
            process.stdin.close()
            got = process.stdout.read(1)
            if ending == "interrupt":
                process.send_signal(signal.SIGINT)
                got += process.stdout.read()
                self.assertTrue(got.endswith(b"\t\n") and len(got) < len(names), got[-20:])
            process.stdout.close()
            self.assertEqual((process.wait(), process.stderr.read()), (status, b""))


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
