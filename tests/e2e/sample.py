"""What a run is made on, and what it must find; the sample shop."""

import dataclasses
import os
import pathlib

import expected

ROOT = pathlib.Path(__file__).resolve().parents[2]


@dataclasses.dataclass
class Input:
    database: str
    script: pathlib.Path   # SQL that makes the tables
    sources: pathlib.Path  # the folder to search
    extensions: str
    committed: pathlib.Path = None  # expected results, else they are computed

    def rows(self, tables):
        """The rows that the list must show for these tables, as (table, found, paths) in bytes."""
        if self.committed is None:
            return expected.results(self.sources, os.fsencode(self.extensions), tables)
        rows = [line.split(b"\t") for line in self.committed.read_bytes().splitlines()]
        by_table = {table: (table, found, self._absolute(paths)) for table, found, paths in rows}
        if sorted(by_table) != sorted(tables):
            raise RuntimeError(f"{self.committed} lists other tables than {self.script} makes")
        return [by_table[table] for table in tables]

    def _absolute(self, paths):
        below = os.fsencode(self.sources) + b"/"
        return b"".join(below + path + b"," for path in paths.split(b",")[:-1])


def sample():
    folder = ROOT / "samples"
    return Input("shop", folder / "shop.sql", folder / "sources",
                 (folder / "extensions").read_text().strip(), folder / "expected.tsv")
