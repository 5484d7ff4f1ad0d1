"""Trials of an office on one server: the server or a connection dies in the midst of the work, the wire goes dead, the
server has no room, and eight programs work at once."""

import itertools
import os
import re
import subprocess
import threading
import time
from collections import Counter

from server import Server, Wire, holds_a_connection
from trials import (BATCH, BIG_LINES, BIG_PERIOD, PERIOD, RUC, SAMPLE, SAVED, Installation, check_copies, demand, spread)

USER, BASE, KEPT = "oficina", "oficina", "oficina_antes"
COPIES = ("HCAB", "HDET", "HF518PCAB", "HF518PDET", "HF518PDETVC", "HF518PDETCP")
# A dead wire is noticed in seconds here, on both sides of it; the programs' own patience is half a minute.
IMPATIENT = ("tcp_user_timeout=2000 keepalives_idle=1 keepalives_interval=1 keepalives_count=2 "
             "options='-c tcp_keepalives_idle=1 -c tcp_keepalives_interval=1 -c tcp_keepalives_count=2'")
TOLD = re.compile(r"\(error \d+\)")
ADVICE = re.compile(r"(?i)repita|vuelva a|espere|revise|cierre|libere|ejecute|avise")
LOST_FOR_GOOD = "no quedó grabado"
WAITS = re.compile(r"Otro programa|ocupada|está abierta por")
DONE, REFUSED = (0, 1, 4), 2


class Office(Installation):
    """The sample company in a database of a server of its own, reached over a wire."""

    def __init__(self, build, folder, moments):
        self.server = Server()
        self.wire = Wire(self.server)
        self.space = ""
        super().__init__(build, folder, moments)

    def end(self):
        self.wire.end()
        self.server.end()

    def installs(self):
        self.server.asks(f"CREATE ROLE {USER} LOGIN; CREATE DATABASE {BASE} OWNER {USER}")
        self.folder.mkdir()
        self.base = f"host=127.0.0.1 port={self.wire.port} user={USER} dbname={BASE} sslmode=disable {IMPATIENT}"
        profile = self.folder.parent / "config" / "XA000.INI"
        profile.write_text(f"[Options]\nSysPath={self.folder}/\nDBName={self.base}\n")
        self.must(self.console("--instalar", "--carpeta", self.folder, "--ejemplo"))

    def keeps(self):
        self.server.asks(f"CREATE DATABASE {KEPT} TEMPLATE {BASE}")
        self.old = self.stored()

    def restore(self, content=None):
        self.wire.waits_for(0)
        self.wire.drops_the_rest()
        self.server.revive()
        self.server.asks(f"DROP DATABASE IF EXISTS {BASE} WITH (FORCE)")
        self.server.asks(f"CREATE DATABASE {BASE} TEMPLATE {KEPT} OWNER {USER} {self.space}")

    def ends_what_is_left(self):
        """Nothing is under way any more, on either side of the wire."""
        self.wire.settles()
        self.wire.waits_for(0)
        self.wire.drops_the_rest()
        self.server.forgets(USER)

    def rows(self, table, columns="*"):
        """In the order in which they were entered, which stands in a column of its own behind the others."""
        lines = self.server.asks(f"SELECT {columns} FROM familia.{table} ORDER BY alta", BASE)
        return [tuple(line.split("\t")[:-1] if columns == "*" else line.split("\t")) for line in lines]

    def stored(self):
        """Declarations and copies, each row behind the name of its table; and what the log tells of."""
        tables = [f"SELECT '{table}', t.* FROM familia.{table} AS t ORDER BY alta" for table in (*SAVED, *COPIES)]
        lines = self.server.asks(";".join(tables), BASE)
        log = self.server.asks("SELECT Doc_id_d, periodo, Suceso FROM familia.bitacora ORDER BY alta", BASE)
        return [line.rpartition("\t")[0] for line in lines], log

    def work_rows(self):
        """Clients, vouchers and payments of every seat."""
        schemas = self.server.asks("SELECT nspname FROM pg_class AS c JOIN pg_namespace AS n ON n.oid = c.relnamespace"
                                   " WHERE relname = 'tmpf518pdetcp' ORDER BY 1", BASE)
        return [[line for schema in schemas for line in self.server.asks(f"SELECT * FROM {schema}.{table} ORDER BY alta",
                                                                        BASE)]
                for table in ("tmpf518pcab", "tmpf518pdet", "tmpf518pdetcp")]

    # The works

    def declares(self, **options):
        return self.batch("declarar", PERIOD, SAMPLE, "--rectifica", "--efectivo", **options)

    def sends(self, **options):
        return self.console("--enviar", RUC, PERIOD, **options)

    def imports(self, **options):
        return self.batch("importar", BIG_PERIOD, self.big, **options)


def patiently(place, work):
    """Done once more, as soon as the server has let go of what a dead connection held."""
    for _ in range(40):
        run = work()
        if run.returncode in (*DONE, REFUSED):
            return
        demand(WAITS.search(run.stderr), f"the repetition fails: {run.returncode} {run.stderr}")
        time.sleep(0.25)
    demand(False, f"the repetition waits in vain: {run.stderr}")


def demand_told(run, what):
    demand(run.returncode not in DONE and TOLD.search(run.stderr) and ADVICE.search(run.stderr),
           f"unclear, {what}: {run.returncode} {run.stderr}")


def struck(place, work, happens):
    """Something happens at moments of a work: the old state stands, or the new one, and the user is told which."""
    place.restore()
    place.must(work(), DONE)
    total, new = place.wire.sent, place.stored()
    demand(new != place.old, "the work changes nothing")
    seen = Counter()
    for i, moment in enumerate(spread(total, place.moments)):
        place.restore()
        place.wire.waits_for(moment + 1, happens, late=i % 2 == 1)
        run = work()
        place.ends_what_is_left()
        what = f"at {moment + 1} of {total}"
        place.server.revive()
        found = place.stored()
        demand(found in (place.old, new), f"half a state, {what}")
        if run.returncode in DONE:
            demand(found == new, f"said to be done, {what}: {run.stdout}")
        else:
            demand_told(run, what)
            demand(found == place.old or LOST_FOR_GOOD not in run.stderr, f"told as lost, yet stored, {what}")
        seen["new" if found == new else "old"] += 1
        patiently(place, work)
        demand(place.stored()[0] == new[0], f"the repetition differs, {what}")
    return sum(seen.values()), f"{total} sendings; {seen['old']} left the old state, {seen['new']} the new one"


def struck_import(place, happens):
    """Of the lines whole batches stay, and what is saved stays untouched."""
    place.restore()
    start = place.work_rows()
    place.must(place.imports())
    total, whole = place.wire.sent, place.work_rows()
    demand(len(whole[2]) == BIG_LINES, "the whole file isn't there")
    seen = Counter()
    for i, moment in enumerate(spread(total, place.moments)):
        place.restore()
        place.wire.waits_for(moment + 1, happens, late=i % 2 == 1)
        run = place.imports()
        place.ends_what_is_left()
        what = f"at {moment + 1} of {total}"
        place.server.revive()
        demand(place.stored() == place.old, f"the import touched what is saved, {what}")
        found = place.work_rows()
        if run.returncode in DONE:
            demand(sizes(found) == sizes(whole), f"done, but not whole, {what}")
        else:
            demand_told(run, what)
        seen["as before" if found == start else state_of(found, what)] += 1
    return sum(seen.values()), f"{total} sendings; " + ", ".join(f"{seen[state]} {state}" for state in sorted(seen))


def sizes(found):
    return [len(rows) for rows in found]


def state_of(found, what):
    clients, vouchers, payments = sizes(found)
    demand(payments % BATCH == 0 or payments == BIG_LINES, f"half a batch: {payments}, {what}")
    demand(vouchers == payments and bool(clients) == bool(vouchers), f"half a line's rows, {what}")
    return f"with {payments} lines"


def works(place):
    return {"save": place.declares, "delete": place.delete, "send": place.sends}


def killed(place, name):
    return struck(place, works(place)[name], lambda _: place.server.kill())


def ended(place, name):
    happens = lambda _: place.server.end_backends(USER)
    return struck_import(place, happens) if name == "import" else struck(place, works(place)[name], happens)


def cut(place, name):
    happens = lambda connection: connection.stops()
    return struck_import(place, happens) if name == "import" else struck(place, works(place)[name], happens)


def refused_by_all(place, words):
    """Every program says why, and what to do; nothing is written."""
    all_works = [*works(place).values(), place.imports]
    for work in all_works:
        run = work()
        demand_told(run, "no room")
        demand(re.search(words, run.stderr), f"expected {words}: {run.stderr}")
    return len(all_works)


def too_many(place):
    place.restore()
    held = []
    while connection := holds_a_connection(place.server, USER, BASE):
        held.append(connection)
    count = refused_by_all(place, "no admite más conexiones")
    for connection in held:
        connection.close()
    demand(place.stored() == place.old, "a refused write left something")
    patiently(place, place.declares)
    return count, f"all refused beside {len(held)} others, nothing written, and done once these had gone"


def disk_full(place):
    """The database lies on a file system of its own, with so little room left that a save or an import runs out of it
    somewhere."""
    if os.geteuid() != 0:
        return 0, "only root can lay out a small file system"
    small = place.server.folder / "small"
    small.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=48m", "none", small], check=True)
    try:
        place.server.give(small)
        place.server.asks(f"CREATE TABLESPACE small LOCATION '{small}'")
        place.space = "TABLESPACE small"
        return fills_up(place, small)
    finally:
        place.space = ""
        place.restore()
        place.server.asks("DROP TABLESPACE small")
        subprocess.run(["umount", small], check=True)


def fills_up(place, small):
    seen, filler = Counter(), small / "filler"
    steps = max(place.moments // 10, 2)
    for room, (name, work) in itertools.product(range(steps), (("save", place.declares), ("import", place.imports))):
        place.restore()
        system = os.statvfs(small)
        left = room * (400 if name == "save" else 8000) * 1024 // steps
        filler.write_bytes(bytes(max(system.f_bavail * system.f_frsize - left, 0)))
        run = work()
        filler.unlink()  # looking takes room as well
        found = place.stored()
        if run.returncode in DONE:
            demand(name == "import" or found != place.old, "said to be done")
        else:
            demand_told(run, f"{left} bytes left")
            demand("disco" in run.stderr.lower(), f"not told of the disk: {run.stderr}")
            demand(found == place.old, f"a refused {name} left something, {left} bytes left")
        seen[name, run.returncode in DONE] += 1
    demand(seen["save", False] and seen["import", False], f"never full: {seen}")
    patiently(place, place.declares)
    return sum(seen.values()), "; ".join(f"{name}: {seen[name, False]} told, old state, {seen[name, True]} done"
                                         for name in ("save", "import"))


def at_once(place, seconds):
    """Eight programs over the same companies; what stands afterwards is whole, and each number was given once."""
    place.restore()
    seen, faults, until = Counter(), [], time.monotonic() + seconds

    def repeats(name, work):
        while time.monotonic() < until and not faults:
            run = work()
            kind = "done" if run.returncode in DONE else "nothing to do" if run.returncode == REFUSED else "told to wait"
            seen[name, kind] += 1
            if kind == "told to wait" and not (TOLD.search(run.stderr) and WAITS.search(run.stderr)):
                faults.append(f"{name}: {run.returncode} {run.stderr}")

    paper = itertools.count()
    prints = lambda: place.batch("imprimir", PERIOD, None, "--anexos", "--pdf", place.folder / f"{next(paper)}.pdf")
    big = lambda: place.batch("declarar", BIG_PERIOD, None, "--efectivo")
    jobs = [("declare", place.declares), ("declare", place.declares), ("declare", big), ("import", place.imports),
            ("import", place.imports), ("send", place.sends), ("send", place.sends), ("print", prints)]
    threads = [threading.Thread(target=repeats, args=job) for job in jobs]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    demand(not faults, faults and faults[0])
    demand(all(seen[name, "done"] for name in ("declare", "import", "send", "print")), f"never done: {seen}")
    check_copies(place, seen["send", "done"])
    entries = Counter(row[2] for row in place.rows("bitacora", "Doc_id_d, periodo, Suceso"))
    sent = len(place.rows("HCAB"))
    demand(sent in entries.values(), f"{sent} copies, but the log has {entries}")
    kinds = ("done", "told to wait", "nothing to do")
    return sum(seen.values()), "; ".join(
        f"{name}: " + ", ".join(f"{seen[name, kind]} {kind}" for kind in kinds if seen[name, kind])
        for name in ("declare", "import", "send", "print"))


def all_of(seconds):
    """As those of one desk."""
    return [
        ("Servidor killed in a save", 4, lambda p: killed(p, "save")),
        ("Servidor killed in a send", 4, lambda p: killed(p, "send")),
        ("Servidor ends the connection of a save", 3, lambda p: ended(p, "save")),
        ("Servidor ends the connection of a delete", 3, lambda p: ended(p, "delete")),
        ("Servidor ends the connection of an import", 3, lambda p: ended(p, "import")),
        ("Wire to the servidor cut in a save", 16, lambda p: cut(p, "save")),
        ("Wire to the servidor cut in a delete", 16, lambda p: cut(p, "delete")),
        ("Wire to the servidor cut in a send", 16, lambda p: cut(p, "send")),
        ("Wire to the servidor cut in an import", 16, lambda p: cut(p, "import")),
        ("Too many connections to the servidor", 1, too_many),
        ("Disk of the servidor full", 1, disk_full),
        (f"Eight programs on the servidor, {seconds} s", 1, lambda p: at_once(p, seconds)),
    ]
