"""What a run is made on: the sample shop, or a real application's package."""

import dataclasses
import os
import pathlib
import subprocess

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


def cache():
    base = os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache")
    return pathlib.Path(base) / "bracken-lens"


def unpacked(package):
    """The package's files below a cache folder; downloaded and unpacked the first time only."""
    folder = cache() / package
    if folder.is_dir():
        return folder
    download = cache() / (package + ".download")
    subprocess.run(["rm", "-rf", str(download)], check=True)
    (download / "files").mkdir(parents=True)
    # The archive's own sandboxed user could not write into the home folder.
    subprocess.run(["apt-get", "-q", "-o", "APT::Sandbox::User=root", "download", package],
                   cwd=download, check=True)
    archive = next(download.glob("*.deb"))
    subprocess.run(["dpkg-deb", "-x", str(archive), str(download / "files")], check=True)
    (download / "files").rename(folder)
    subprocess.run(["rm", "-rf", str(download)], check=True)
    return folder


def first(folder, name):
    found = sorted(folder.rglob(name))
    if not found:
        raise FileNotFoundError(f"no {name} below {folder}")
    return found[0]


def mediawiki():
    files = unpacked("mediawiki")
    return Input("mediawiki", first(files, "maintenance/tables-generated.sql"),
                 files / "usr/share/mediawiki", "php,inc")


def cacti():
    files = unpacked("cacti")
    return Input("cacti", first(files, "cacti.sql"), files / "usr/share/cacti", "php,js")


CHOICES = {"sample": sample, "mediawiki": mediawiki, "cacti": cacti}
