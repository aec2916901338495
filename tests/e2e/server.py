"""A private MariaDB server in a folder of its own, reached by its socket only."""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from waiting import wait_for

USER = "shopkeeper"
PASSWORD = "tea & <biscuits>"
SCRIPT = pathlib.Path(__file__).resolve().parents[1] / "support/private_server"


class Server:
    """Runs within a `with` block; stopped at its end, whatever happened within."""

    def __init__(self):
        # Short, as a socket's path must stay under 108 bytes.
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="lens-db-", dir="/tmp"))
        self.socket = self.folder / "s"
        self.process = None

    def __enter__(self):
        try:
            # A session of its own, so that Ctrl+C in the terminal reaches it through __exit__ only.
            self.process = subprocess.Popen(
                [str(SCRIPT), str(self.folder), "--skip-networking",
                 "--character-set-server=utf8mb4"],
                start_new_session=True, stderr=subprocess.DEVNULL)
            wait_for(self._answers, "the server to answer")
            self.run(f"create user '{USER}'@'localhost' identified by '{PASSWORD}';"
                     f"grant all on *.* to '{USER}'@'localhost';")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self.process is not None and self.process.poll() is None:
            # The group, as it may still be at making the data folder.
            os.killpg(self.process.pid, signal.SIGTERM)
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _answers(self):
        if self.process.poll() is not None:
            raise RuntimeError((self.folder / "log").read_text(errors="replace"))
        return subprocess.run(self._client(), input=b"select 1", capture_output=True).returncode == 0

    def _client(self, *options):
        return ["mariadb", "--no-defaults", f"--socket={self.socket}", "--user=root",
                "--default-character-set=utf8mb4", "--batch", "--skip-column-names", *options]

    def run(self, statements, database=""):
        """Runs SQL text or a file of it as root and gives the output's lines, as bytes."""
        file = isinstance(statements, pathlib.Path)
        text = statements.read_bytes() if file else statements.encode()
        done = subprocess.run(self._client(*([database] if database else [])), input=text,
                              capture_output=True)
        if done.returncode != 0:
            raise RuntimeError(done.stderr.decode(errors="replace"))
        return done.stdout.splitlines()

    def load(self, database, script):
        """Makes the database and fills it from the SQL file."""
        self.run(f"create database `{database}` character set utf8mb4")
        self.run(script, database)

    def tables(self, database):
        return self.run(f"show tables in `{database}`")
