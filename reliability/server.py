"""A database server of the trials' own, and a wire to it that can be cut."""

import array
import os
import re
import shutil
import signal
import socket
import struct
import subprocess
import tempfile
import threading
import time
from pathlib import Path

SETTINGS = """
listen_addresses = ''
fsync = off
synchronous_commit = on
shared_buffers = 32MB
max_connections = 60
min_wal_size = 2MB
max_wal_size = 32MB
wal_recycle = off
"""
PATIENCE = 60.0
COMMIT = re.compile(rb"Q....COMMIT", re.DOTALL)
ENDING = re.compile(rb"Q....DEALLOCATE|X", re.DOTALL)
SO_ATTACH_FILTER = 26


class Server:
    """Made and started in a folder of its own, run by an unprivileged user when root runs the trials. What it confirms
    outlives its processes: the system keeps what they have written."""

    def __init__(self):
        self.programs = Path(subprocess.run(["pg_config", "--bindir"], capture_output=True, text=True,
                                            check=True).stdout.strip())
        self.folder = Path(tempfile.mkdtemp(prefix="xa-server"))
        self.folder.chmod(0o755)
        self.owner = {"user": "postgres", "group": "postgres", "extra_groups": []} if os.geteuid() == 0 else {}
        self.give(self.folder)
        self._owned("initdb", "-D", "data", "-U", "postgres", "-E", "UTF8", "--locale=C", "-A", "trust", "--no-sync",
                    "--wal-segsize=1")
        with open(self.folder / "data" / "postgresql.conf", "a", encoding="utf-8") as file:
            file.write(f"{SETTINGS}unix_socket_directories = '{self.folder}'\n")
        self.start()

    def give(self, path):
        if self.owner:
            shutil.chown(path, "postgres", "postgres")

    def _owned(self, program, *arguments):
        subprocess.run([self.programs / program, *arguments], cwd=self.folder, stdout=subprocess.DEVNULL, check=True,
                       **self.owner)

    def start(self):
        self._launch()
        self._awaits()

    def _awaits(self):
        """Started once more when it ends by itself, as it does while it finds something of an earlier one."""
        deadline = time.monotonic() + PATIENCE
        while not self.answers():
            if time.monotonic() > deadline:
                raise RuntimeError(self.log()[-2000:])
            time.sleep(0.05)
            if self.process.poll() is not None:
                self._launch()

    def _launch(self):
        with open(self.folder / "server.log", "ab") as log:
            self.process = subprocess.Popen([self.programs / "postgres", "-D", "data"], cwd=self.folder, stdout=log,
                                            stderr=log, **self.owner)

    def answers(self):
        try:
            connection = holds_a_connection(self, "postgres", "postgres")
        except OSError:
            return False
        if connection:
            connection.close()
        return bool(connection)

    def _backends(self):
        """Those that serve somebody, or do the server's own work."""
        children = Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children")
        return [int(pid) for pid in children.read_text().split()]

    def kill(self):
        """All its processes at once, in whatever they are at. It is held meanwhile: a child that it makes behind this
        one's back would keep the next server from its memory."""
        self._signal(self.process.pid, signal.SIGSTOP)
        self._waits_for("TZ", self.process.pid)
        backends = self._backends()
        for pid in [*backends, self.process.pid]:
            self._signal(pid, signal.SIGKILL)
        self.process.wait()
        for pid in backends:
            self._waits_for("Z", pid)

    @staticmethod
    def _waits_for(states, pid):
        """Until the process is gone, or in one of these states."""
        try:
            while Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[0] not in states:
                time.sleep(0.005)
        except (FileNotFoundError, ProcessLookupError):
            pass

    def keeps_its_log_in(self, folder):
        """From now on, in a folder that isn't there yet."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGINT)
            self.process.wait()
        shutil.rmtree(folder, ignore_errors=True)
        log = self.folder / "data" / "pg_wal"
        shutil.move(log.resolve(), folder)
        if log.is_symlink():
            log.unlink()
        log.symlink_to(folder)
        for path in (folder, *folder.rglob("*")):
            self.give(path)
        self.start()

    def log(self):
        return (self.folder / "server.log").read_text()

    def revive(self):
        """It answers again, whether it has ended or is at mending what a dead process of its own left."""
        if self.process.poll() is not None:
            self._launch()
        self._awaits()

    def _backends_of(self, user):
        for pid in self._backends():
            try:
                title = Path(f"/proc/{pid}/cmdline").read_text()
            except (FileNotFoundError, ProcessLookupError):
                continue
            if title.startswith(f"postgres: {user} "):
                yield pid

    def end_backends(self, user):
        """What an administrator's pg_terminate_backend does to each connection of that user."""
        for pid in self._backends_of(user):
            self._signal(pid, signal.SIGTERM)

    def forgets(self, user):
        """Waits until every connection of that user, which nobody holds any more, has ended."""
        deadline = time.monotonic() + PATIENCE
        while self.process.poll() is None and any(self._backends_of(user)) and time.monotonic() < deadline:
            time.sleep(0.02)

    @staticmethod
    def _signal(pid, which):
        try:
            os.kill(pid, which)
        except ProcessLookupError:
            pass

    def asks(self, sql, base="postgres"):
        """Rows as texts, columns parted by tabs."""
        run = subprocess.run([self.programs / "psql", "-X", "-q", "-A", "-t", "-F", "\t", "-v", "ON_ERROR_STOP=1", "-h",
                              self.folder, "-U", "postgres", "-d", base], input=sql, capture_output=True, text=True,
                             check=False)
        if run.returncode != 0:
            raise RuntimeError(f"{sql}: {run.stderr}")
        return run.stdout.splitlines()

    def end(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGQUIT)
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class Connection:
    """A program's connection, carried over to the server."""

    def __init__(self, program, server, sends):
        self.program, self.server, self.sends = program, server, sends
        self.cut = threading.Event()
        self.carriers = [threading.Thread(target=self._carry, args=ends, daemon=True)
                         for ends in ((program, server, True), (server, program, False))]
        for carrier in self.carriers:
            carrier.start()

    def _carry(self, source, target, counts):
        try:
            while data := source.recv(65536):
                after = self.sends(self, data) if counts else None
                if self.cut.is_set():
                    return
                target.sendall(data)
                if after:
                    after()
        except OSError:
            pass
        if self.cut.is_set():
            return
        for end in (source, target):
            try:
                end.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass

    def stops(self):
        """As when a cable is pulled: nothing comes through any more and nobody is told, not even by the system, whose
        acknowledgements stay away as well."""
        self.cut.set()
        drop = array.array("B", struct.pack("HBBI", 0x06, 0, 0, 0))  # the one instruction of a filter: take no byte
        address, _ = drop.buffer_info()
        self.program.setsockopt(socket.SOL_SOCKET, SO_ATTACH_FILTER, struct.pack("HxxxxxxQ", 1, address))


class Wire:
    """Carries connections to a server's local socket; something can be made to happen at the nth thing sent."""

    def __init__(self, server):
        self._server = server
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.port = self._listener.getsockname()[1]
        self._lock = threading.Lock()
        self._connections = []
        self.waits_for(0)
        threading.Thread(target=self._accepts, daemon=True).start()

    def waits_for(self, moment, happens=None, late=False):
        """Counts anew. At that moment `happens` is called with the connection: before what was sent is carried over,
        or right after."""
        with self._lock:
            self.sent, self._moment, self._happens, self._late = 0, moment, happens, late
            self.commit = self.work = 0  # the last ones sent, but for what ends a connection

    def _sends(self, connection, data):
        with self._lock:
            self.sent += 1
            if not ENDING.match(data):
                self.work = self.sent
            if COMMIT.match(data):
                self.commit = self.sent
            if self.sent != self._moment:
                return None
            happens = self._happens
        if self._late:
            return lambda: happens(connection)
        happens(connection)
        return None

    def _accepts(self):
        while True:
            try:
                program, _ = self._listener.accept()
            except OSError:
                return
            server = socket.socket(socket.AF_UNIX)
            try:
                server.connect(str(self._server.folder / ".s.PGSQL.5432"))
            except OSError:
                program.close()
                server.close()
                continue
            self._connections.append(Connection(program, server, self._sends))

    def settles(self):
        """Waits until what the programs have sent is carried over, and what was to happen has happened."""
        for connection in self._connections:
            for carrier in connection.carriers:
                while carrier.is_alive() and not connection.cut.is_set():
                    carrier.join(0.05)

    def drops_the_rest(self):
        """What was cut ends for the server too, which on a wire of its own its keepalives see to."""
        for connection in self._connections:
            for end in (connection.program, connection.server):
                try:
                    end.shutdown(socket.SHUT_RDWR)
                except OSError:
                    pass
                end.close()
        self._connections.clear()

    def end(self):
        self._listener.close()
        self.drops_the_rest()


def holds_a_connection(server, user, base):
    """One more that does nothing but stand open; None when the server has no room for it."""
    words = b"".join(word.encode() + b"\0" for word in ("user", user, "database", base)) + b"\0"
    connection = socket.socket(socket.AF_UNIX)
    connection.settimeout(PATIENCE)
    connection.connect(str(server.folder / ".s.PGSQL.5432"))
    connection.sendall(struct.pack("!ii", len(words) + 8, 196608) + words)
    answer = connection.makefile("rb")
    while len(head := answer.read(5)) == 5:
        kind, length = struct.unpack("!ci", head)
        if kind == b"E":
            break
        answer.read(length - 4)
        if kind == b"Z":  # ready for whatever is asked
            return connection
    connection.close()
    return None
