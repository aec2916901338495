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


def installed(name):
    path = shutil.which(name, path=os.environ.get("PATH", "") + ":/usr/sbin:/usr/bin")
    if path is None:
        raise FileNotFoundError(f"{name} is not installed; scripts/setup installs it")
    return path


class Server:
    """Runs within a `with` block; stopped at its end, whatever happened within."""

    def __init__(self):
        # Short, as a socket's path must stay under 108 bytes.
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="lens-db-", dir="/tmp"))
        self.socket = self.folder / "socket"
        self.process = None

    def __enter__(self):
        try:
            self._install()
            self._start()
            self._make_user()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self.process is not None:
            self.process.terminate()
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _own(self, *names):
        user = subprocess.check_output(["id", "-un"], text=True).strip()
        # Servers that share a folder for temporary files take each other's.
        return ["--no-defaults", f"--user={user}", f"--datadir={self.folder}/data",
                f"--tmpdir={self.folder}", *names]

    def _install(self):
        options = self._own("--auth-root-authentication-method=normal", "--skip-test-db",
                            "--skip-name-resolve")
        process = subprocess.Popen([installed("mariadb-install-db"), *options], text=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                   start_new_session=True)
        try:
            output, _ = process.communicate()
        except BaseException:
            # It has started processes of its own, which hold the pipe until they end.
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            raise
        if process.returncode != 0:
            raise RuntimeError(output)

    def _start(self):
        options = self._own(f"--socket={self.socket}", "--skip-networking", "--skip-name-resolve",
                            f"--pid-file={self.folder}/pid", f"--log-error={self.folder}/log",
                            "--character-set-server=utf8mb4")
        # A session of its own, so that Ctrl+C in the terminal reaches it through __exit__ only.
        self.process = subprocess.Popen([installed("mariadbd"), *options], start_new_session=True,
                                        stderr=subprocess.DEVNULL)
        wait_for(self._answers, "the server to answer")

    def _answers(self):
        if self.process.poll() is not None:
            raise RuntimeError((self.folder / "log").read_text(errors="replace"))
        client = self._client()
        return subprocess.run(client, input=b"select 1", capture_output=True).returncode == 0

    def _client(self, *options):
        return [installed("mariadb"), "--no-defaults", f"--socket={self.socket}", "--user=root",
                "--default-character-set=utf8mb4", "--batch", "--skip-column-names", *options]

    def _make_user(self):
        self.run(f"create user '{USER}'@'localhost' identified by '{PASSWORD}';"
                 f"grant all on *.* to '{USER}'@'localhost';")

    def run(self, statements, database=""):
        """Runs SQL text or a file of it as root and gives the output's lines, as bytes."""
        source = statements if isinstance(statements, pathlib.Path) else None
        text = source.read_bytes() if source else statements.encode()
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
