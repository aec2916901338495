"""What bracken-scan must answer, by a plain loop over files and names."""

import fnmatch
import os
import pathlib
import re


def holds(text, name, whole):
    """`text` is in lower case."""
    if not whole:
        return name in text
    return re.search(rb"(?<![\w$])" + re.escape(name) + rb"(?![\w$])", text) is not None


def excluded(path, globs):
    return any(fnmatch.fnmatchcase(os.fsdecode(part), glob)
               for glob in globs for part in (path, os.path.basename(path)))


def files_below(folder, excludes):
    """Paths in `folder`; a link to a folder entered before is not followed."""
    entered = set()
    for here, folders, files in os.walk(folder, followlinks=True):
        identity = os.stat(here).st_dev, os.stat(here).st_ino
        repeated = os.path.islink(here) and identity in entered
        entered.add(identity)
        paths = {name: os.path.relpath(os.path.join(here, name), folder) for name in folders + files}
        folders[:] = [] if repeated else sorted(name for name in folders if not excluded(paths[name], excludes))
        if not repeated:
            yield from (paths[name] for name in files if os.path.exists(os.path.join(here, name)))


def pairs(folders, names, extensions=(), excludes=(), whole=False, prefix=b""):
    """(name, path) in the order of the answer; a path of b"" for a name that is nowhere."""
    found = {name: [] for name in names if name}
    for folder in folders:
        for path in files_below(folder, excludes):
            extension = os.path.basename(path).rpartition(b".")[2].lower()
            if excluded(path, excludes) or (extensions and extension not in extensions):
                continue
            file = pathlib.Path(os.fsdecode(os.path.join(folder, path)))
            text = file.read_bytes().lower() if file.is_file() else b""
            shown = folder.rstrip(b"/") + b"/" + path if len(folders) > 1 else path
            for name, paths in found.items():
                sought = {name.lower(), name.removeprefix(prefix).lower()} - {b""}
                if any(holds(text, needle, whole) for needle in sought):
                    paths.append(shown)
    return [(name, path) for name, paths in found.items() for path in sorted(paths) or [b""]]
