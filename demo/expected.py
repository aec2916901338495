"""What the results list must show, by a plain loop over files and tables, and what comes of it.

Written to be obviously right, and independently of the program:

    expected.py FOLDER EXTENSIONS < TABLES

reads table names, one a line, and prints table, files and paths, tab-separated.
"""

import os
import sys

NOT_FOUND = "Not Found Yet"


def entries(folder):
    """Names in byte order, without links that lead nowhere; none if the folder can't be listed."""
    try:
        names = os.listdir(os.fsencode(folder))
    except OSError:
        return []
    return [name for name in sorted(names) if os.path.exists(os.path.join(folder, name))]


def files(folder, above=()):
    """All files in walk order: folders among files, links followed unless they lead back up."""
    facts = os.stat(folder)
    identity = (facts.st_dev, facts.st_ino)
    if identity in above and os.path.islink(folder):
        return
    for name in entries(folder):
        path = os.path.join(folder, name)
        if os.path.isdir(path):
            yield from files(path, above + (identity,))
        else:
            yield path


def passes(name, extensions):
    """Whether the name's last field lies anywhere in the list; an empty field lies nowhere."""
    field = name.lower().split(b".")[-1]
    return extensions == b"" or (field != b"" and field in extensions.lower())


def read(path):
    if not os.path.isfile(path):
        return b""
    with open(path, "rb") as file:
        return file.read()


def results(folder, extensions, tables):
    """Rows of (table, found, paths), all bytes, as the three columns of the list hold them."""
    rows = [[table, b"", b""] for table in tables]
    for path in files(os.fsencode(folder)):
        name = os.path.basename(path)
        if not passes(name, extensions):
            continue
        text = read(path).lower()
        for row in rows:
            listed = name.lower() in row[1].lower()
            if row[0] and row[0].lower() in text and not listed:
                row[1] += name + b","
                row[2] += path + b","
    return [(table, found or NOT_FOUND.encode(), paths) for table, found, paths in rows]


def exported(rows):
    """The bytes of an export of these rows."""
    return b"".join(row[0] + b"\t" + row[1] + b"\n" for row in rows)


def report(rows):
    """The bytes of a report on these rows."""
    cells = b"".join(b"<tr><td>" + row[0] + b"</td><td>" + row[1] + b"</td></tr>" for row in rows)
    return (b"<html><bod><table cellspacing=0 border><tr><th>Table</th><th>Found In</th></tr>"
            + cells + b"</table></body></html>")


def main():
    folder, extensions = sys.argv[1], os.fsencode(sys.argv[2])
    tables = sys.stdin.buffer.read().splitlines()
    for row in results(folder, extensions, tables):
        sys.stdout.buffer.write(b"\t".join(row) + b"\n")


if __name__ == "__main__":
    main()
