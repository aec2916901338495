#!/usr/bin/env python3
"""Checks that includes go along the arrows of docs/architecture.md, and nowhere else.

Each folder of src/ may include itself and the folders listed here. Headers of the toolkit and of
the database client stay in the one binding that knows them.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent / "src"

ALLOWED = {
    "framework": set(),
    "plist": {"framework"},
    "splitter": {"framework"},
    "app": {"framework", "plist"},
    "scan": {"framework", "plist", "app"},
    "login": {"framework", "plist", "app", "scan"},
    "actions": {"framework", "plist", "splitter", "app", "scan"},
    "platform/qt": {"framework"},
    "platform/mysql": {"framework"},
    "start": None,  # the one place that knows everything
}

# Headers of a library, and the only folders that may include them.
LIBRARIES = {
    re.compile(r"Q[A-Z]\w*(/\w+)?|qt\w+\.h"): {"platform/qt", "start"},
    re.compile(r"(mysql|mariadb)[\w./]*\.h"): {"platform/mysql"},
    re.compile(r"g(io|lib|object)/.*\.h"): {"platform/qt"},
}

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')


def folder_of(path):
    """The entry of ALLOWED that a path relative to src/ lies under."""
    return next((name for name in ALLOWED if path.startswith(name + "/")), None)


def complaint(folder, quote, header):
    for library, homes in LIBRARIES.items():
        if library.fullmatch(header) and folder not in homes:
            return f"<{header}> belongs to {' and '.join(sorted(homes))}"
    if quote == "<" or ALLOWED[folder] is None:
        return None
    target = folder_of(header)
    if target is None:
        return f'"{header}" is not named from src/'
    if target != folder and target not in ALLOWED[folder]:
        return f"{folder} must not know {target}"
    return None


def complaints():
    for path in sorted(ROOT.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        relative = path.relative_to(ROOT).as_posix()
        folder = folder_of(relative)
        if folder is None:
            yield f"src/{relative}: lies in no known folder"
            continue
        for number, line in enumerate(path.read_text(errors="replace").splitlines(), 1):
            match = INCLUDE.match(line)
            why = match and complaint(folder, match[1], match[2])
            if why:
                yield f"src/{relative}:{number}: {why}"


def main():
    found = list(complaints())
    print("\n".join(found) if found else "All includes go along the arrows.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
