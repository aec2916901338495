"""What the demo can search: the sample shop, or a real application's package."""

import os
import pathlib
import subprocess

import expected
import sample


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


class Package(sample.Input):
    """What must be found is computed."""

    def rows(self, tables):
        return expected.results(self.sources, os.fsencode(self.extensions), tables)


def mediawiki():
    files = unpacked("mediawiki")
    return Package("mediawiki", first(files, "maintenance/tables-generated.sql"),
                   files / "usr/share/mediawiki", "php,inc")


def cacti():
    files = unpacked("cacti")
    return Package("cacti", first(files, "cacti.sql"), files / "usr/share/cacti", "php,js")


CHOICES = {"sample": sample.sample, "mediawiki": mediawiki, "cacti": cacti}
