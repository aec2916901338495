"""What bracken-scan must answer, by a plain loop over files and names."""

import fnmatch
import os
import stat

WORD = frozenset(b"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_$")


def holds(text, name, whole):
    """`text` is in lower case."""
    at = text.find(name)
    while whole and at >= 0:
        before, after = text[at - 1:at] if at else b"", text[at + len(name):at + len(name) + 1]
        if not (before and before[0] in WORD) and not (after and after[0] in WORD):
            return True
        at = text.find(name, at + 1)
    return at >= 0


def excluded(path, globs):
    return any(fnmatch.fnmatchcase(os.fsdecode(part), glob)
               for glob in globs for part in (path, os.path.basename(path)))


def files_below(folder, excludes, entered, below=b"", through_link=False):
    here = os.path.join(folder, below)
    identity = os.stat(here)[stat.ST_DEV], os.stat(here)[stat.ST_INO]
    if through_link and identity in entered:
        return
    entered.add(identity)
    for name in sorted(os.listdir(here)):
        path = os.path.join(below, name)
        whole = os.path.join(folder, path)
        if not os.path.exists(whole) or (os.path.isdir(whole) and excluded(path, excludes)):
            continue
        if os.path.isdir(whole):
            yield from files_below(folder, excludes, entered, path, os.path.islink(whole))
        else:
            yield path


def pairs(folders, names, extensions=(), excludes=(), whole=False, prefix=b""):
    """(name, path) in the order of the answer; a path of b"" for a name that is nowhere."""
    found = {name: [] for name in names if name}
    sought = {name: {name.lower()} for name in found}
    for name in found:
        if name.startswith(prefix) and name != prefix:
            sought[name].add(name[len(prefix):].lower())
    for folder in folders:
        for path in files_below(folder, excludes, set()):
            dot = os.path.basename(path).rpartition(b".")
            kept = not extensions or (dot[1] and dot[2].lower() in extensions)
            if not kept or excluded(path, excludes):
                continue
            whole_path = os.path.join(folder, path)
            text = b""
            if stat.S_ISREG(os.stat(whole_path).st_mode):
                with open(whole_path, "rb") as file:
                    text = file.read().lower()
            shown = folder.rstrip(b"/") + b"/" + path if len(folders) > 1 else path
            for name, needles in sought.items():
                if any(holds(text, needle, whole) for needle in needles):
                    found[name].append(shown)
    return [(name, path) for name, paths in found.items() for path in sorted(paths) or [b""]]
