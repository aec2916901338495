#!/usr/bin/env python3
"""Checks that includes go along the arrows of docs/architecture.md, and nowhere else.

Each folder of src/, and tools/bracken-scan, may include itself and the folders listed here; a folder of the framework may
also include those above it in the list, which begins at the ground floor. Headers of the toolkit and
of the database client stay in the one binding that knows them. Libraries may not need each other in
a ring.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

FRAMEWORK = [
    "framework/platform",
    "framework/text",
    "framework/containers",
    "framework/values",
    "framework/threads",
    "framework/files",
    "framework/dialogs",
    "framework/database",
    "framework/graphics",
    "framework/controls",
    "framework/windows",
]
CONTROLS = FRAMEWORK.index("framework/controls")

ALLOWED = {
    **{folder: {"framework", *FRAMEWORK[:floor]} for floor, folder in enumerate(FRAMEWORK)},
    "framework": set(),  # exceptions and references, which everything uses
    "plist": {"framework", *FRAMEWORK},
    "splitter": {"framework", *FRAMEWORK},
    "scan": {"framework", *FRAMEWORK[:CONTROLS]},
    "program": {"framework", *FRAMEWORK, "plist", "splitter", "scan"},
    "platform/qt": {"framework", *FRAMEWORK},
    "platform/mysql": {"framework", *FRAMEWORK},
    "start": None,  # the one place that knows everything
    "tools/bracken-scan": {"framework", *FRAMEWORK[:CONTROLS], "scan", "platform/mysql"},
}

# Headers of a library, and the only folders that may include them.
LIBRARIES = {
    re.compile(r"Q[A-Z]\w*(/\w+)?|qt\w+\.h|gio/.*"): {"platform/qt", "start"},
    re.compile(r"(mysql|mariadb)[\w./]*\.h"): {"platform/mysql"},
    re.compile(r"g(io|lib|object)/.*\.h"): {"platform/qt"},
}

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')
LIBRARY = re.compile(r"^bracken_library\((\w+)([^)]*)\)", re.M)


def folder_of(path):
    """The entry of ALLOWED that a path relative to src/, or to the root for tools/, lies under."""
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


def sources():
    """Each with its path as an include names it."""
    for root in (ROOT / "src", ROOT / "tools/bracken-scan"):
        for path in sorted(root.rglob("*")):
            if path.suffix in (".h", ".cpp"):
                yield path, path.relative_to(ROOT).as_posix().removeprefix("src/")


def include_complaints():
    for path, included in sources():
        relative = path.relative_to(ROOT).as_posix()
        folder = folder_of(included)
        if folder is None:
            yield f"{relative}: lies in no known folder"
            continue
        for number, line in enumerate(path.read_text(errors="replace").splitlines(), 1):
            match = INCLUDE.match(line)
            why = match and complaint(folder, match[1], match[2])
            if why:
                yield f"{relative}:{number}: {why}"


def library_complaints():
    needs = {}
    for lists in (ROOT / "src").rglob("CMakeLists.txt"):
        for name, libraries in LIBRARY.findall(lists.read_text()):
            needs[name] = re.findall(r"bracken_(\w+)", libraries)
    for start in sorted(needs):
        reached, waiting = set(), list(needs[start])
        while waiting:
            name = waiting.pop()
            if name not in reached:
                reached.add(name)
                waiting += needs.get(name, [])
        if start in reached:
            yield f"bracken_{start}: needs itself by way of its libraries"


def main():
    found = [*include_complaints(), *library_complaints()]
    print("\n".join(found) if found else "All includes go along the arrows.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
