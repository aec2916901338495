"""What a run is made on, and what it must find; the sample shop."""

import dataclasses
import os
import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[2]


@dataclasses.dataclass
class Input:
    database: str
    script: pathlib.Path   # SQL that makes the tables
    sources: pathlib.Path  # the folder to search
    extensions: str


class Sample(Input):
    """Comes with what must be found."""

    def rows(self, tables):
        """The rows that the list must show for these tables, as (table, found, paths) in bytes."""
        committed = self.script.with_name("expected.tsv").read_bytes()
        rows = [line.split(b"\t") for line in committed.splitlines()]
        by_table = {table: (table, found, self._absolute(paths)) for table, found, paths in rows}
        return [by_table[table] for table in tables]

    def _absolute(self, paths):
        below = os.fsencode(self.sources) + b"/"
        return b"".join(below + path + b"," for path in paths.split(b",")[:-1])


def sample():
    folder = ROOT / "samples"
    return Sample("shop", folder / "shop.sql", folder / "sources",
                  (folder / "extensions").read_text().strip())
