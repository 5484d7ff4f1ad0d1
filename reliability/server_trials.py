"""Trials of an office on one server: the server or a connection dies in the midst of the work, the wire goes dead, the
server has no room, and eight programs work at once."""

import itertools
import os
import re
import shutil
import subprocess
import time
from collections import Counter
from contextlib import contextmanager

from server import Server, Wire, holds_a_connection
from trials import (BATCH, BIG_LINES, BIG_PERIOD, DONE, PERIOD, REFUSED, RUC, SAMPLE, SAVED, TOLD, WAITS, Installation,
                    all_at_once, check_copies, demand, spread, told)

USER, BASE, KEPT = "oficina", "oficina", "oficina_antes"
COPIES = ("HCAB", "HDET", "HF518PCAB", "HF518PDET", "HF518PDETVC", "HF518PDETCP")
# A dead wire is noticed in seconds here, on both sides of it; the programs' own patience is half a minute.
IMPATIENT = ("tcp_user_timeout=2000 keepalives_idle=1 keepalives_interval=1 keepalives_count=2 "
             "options='-c tcp_keepalives_idle=1 -c tcp_keepalives_interval=1 -c tcp_keepalives_count=2'")
ADVICE = re.compile(r"(?i)repita|vuelva a|espere|rev[ií]se|cierre|libere|ejecute|avise|búsquelo")
LOST_FOR_GOOD = "no quedó grabado"
DIED = re.compile(r"PANIC|startup process failure")
CLAIMED = re.compile(r"[Ss]e conservan: (\d+)")
OTHERS = ("20990518026", "20990518034")  # companies beside the sample's


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

    def sends(self, ruc=RUC, **options):
        return self.console("--enviar", ruc, PERIOD, **options)

    def imports(self, **options):
        return self.batch("importar", BIG_PERIOD, self.big, **options)

    def prints(self, paper, **options):
        return self.batch("imprimir", PERIOD, None, "--anexos", "--pdf", paper, **options)


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


def moments_of(total, wanted, closely=range(0)):
    """Right before each thing sent and right after it: so many evenly spread, and close by one another those of a part."""
    moments = {divmod(moment, 2) for moment in spread(2 * total, wanted)}
    moments |= {(sent, late) for sent in closely for late in (0, 1)}
    return [(sent + 1, bool(late)) for sent, late in sorted(moments)]


def struck(place, work, happens):
    """Something happens at moments of a work: the old state stands, or the new one, and the user is told which."""
    place.restore()
    place.must(work(), DONE)
    total, new = place.wire.sent, place.stored()
    demand(new != place.old and place.wire.commit, "the work changes nothing")
    seen, from_commit_on = Counter(), range(place.wire.commit - 1, place.wire.work)
    for moment, late in moments_of(total, place.moments, from_commit_on):
        place.restore()
        place.wire.waits_for(moment, happens, late)
        run = work()
        place.ends_what_is_left()
        what = f"{'after' if late else 'before'} {moment} of {total}"
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
    for moment, late in moments_of(total, place.moments):
        place.restore()
        place.wire.waits_for(moment, happens, late)
        run = place.imports()
        place.ends_what_is_left()
        what = f"{'after' if late else 'before'} {moment} of {total}"
        place.server.revive()
        demand(place.stored() == place.old, f"the import touched what is saved, {what}")
        found = place.work_rows()
        if run.returncode in DONE:
            demand(sizes(found) == sizes(whole), f"done, but not whole, {what}")
        else:
            demand_told(run, what)
            claimed = CLAIMED.search(run.stdout + run.stderr)
            demand(not claimed or int(claimed[1]) == len(found[2]), f"claims other lines than {len(found[2])}: {run.stdout}")
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


@contextmanager
def small_disk(place, megabytes):
    """A file system with little room, which only root can lay out."""
    demand(os.geteuid() == 0, "only root can lay out a small file system")
    small = place.server.folder / "small"
    small.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={megabytes}m", "none", small], check=True)
    try:
        place.server.give(small)
        yield small
    finally:
        subprocess.run(["umount", small], check=True)
        small.rmdir()


def disk_full(place):
    """The database lies on a file system of its own, with so little room left that a save or an import runs out of it
    somewhere: the server refuses."""
    with small_disk(place, 48) as small:
        place.server.asks(f"CREATE TABLESPACE small LOCATION '{small}'")
        place.space = "TABLESPACE small"
        try:
            return fills_up(place, small, {"save": 400, "import": 16_000})
        finally:
            place.space = ""
            place.restore()
            place.server.asks("DROP TABLESPACE small")


def log_disk_full(place):
    """The server's own log of what it writes lies there: without room for it the server dies, and mends itself."""
    with small_disk(place, 96) as small:
        place.server.keeps_its_log_in(small / "wal")
        try:
            return fills_up(place, small, {"save": 2_000, "import": 40_000})
        finally:
            place.server.keeps_its_log_in(place.server.folder / "wal")


def fills_up(place, small, kilobytes):
    """With more room from attempt to attempt, up to that of each work."""
    place.restore()
    place.must(place.declares(), DONE)
    new, seen, filler = place.stored(), Counter(), small / "filler"
    steps = max(place.moments // 10, 2)
    works = (("save", place.declares), ("import", place.imports))
    for room, (name, work) in itertools.product(range(steps), works):
        before = len(place.server.log())
        place.restore()
        system = os.statvfs(small)
        left = room * kilobytes[name] * 1024 // steps
        filler.write_bytes(bytes(max(system.f_bavail * system.f_frsize - left, 0)))
        run = work()
        filler.unlink()  # looking takes room as well
        place.server.revive()
        found = place.stored()
        demand(found == place.old or name == "save" and found == new, f"half a state, {left} bytes left")
        if run.returncode in DONE:
            demand(name == "import" or found == new, f"said to be done, {left} bytes left")
        else:
            demand_told(run, f"{left} bytes left")
            log = place.server.log()[before:]
            demand("disco" in run.stderr.lower() or DIED.search(log), f"not told of the disk: {run.stderr} {log}")
            demand(found == place.old or LOST_FOR_GOOD not in run.stderr, f"told as lost, yet stored, {left} bytes left")
        seen[name, run.returncode in DONE] += 1
    demand(seen["save", False] and seen["import", False], f"never full: {seen}")
    patiently(place, place.declares)
    return sum(seen.values()), "; ".join(f"{name}: {seen[name, False]} told, {seen[name, True]} done" for name, _ in works)


def opens_companies(place):
    """Two more, each with the month of the sample company saved, and its files."""
    for ruc in OTHERS:
        place.must(place.console("--declarante", ruc, "--nombre", f"COMERCIAL {ruc} S.A.C."))
        for folder, source, period in ((place.part, SAMPLE, PERIOD), (place.big, place.big, BIG_PERIOD)):
            shutil.copy(source / f"0518{RUC}{period}.TXT", folder / f"0518{ruc}{period}.TXT")
        place.must(place.batch("declarar", PERIOD, place.part, "--efectivo", ruc=ruc))


def eight_at_once(place, seconds):
    """Eight programs over the same three companies; what stands afterwards is whole, and each number was given once."""
    place.restore()
    opens_companies(place)
    companies = itertools.cycle((RUC, *OTHERS))
    paper = itertools.count()

    def declares():
        ruc = next(companies)
        files = SAMPLE if ruc == RUC else place.part
        return place.batch("declarar", PERIOD, files, "--rectifica", "--efectivo", ruc=ruc)

    def prints():
        return place.prints(place.folder / f"{next(paper)}.pdf", ruc=next(companies))

    imports = lambda: place.imports(ruc=next(companies))
    sends = lambda: place.sends(next(companies))
    seen = all_at_once([("declare", declares)] * 3 + [("import", imports)] * 2 + [("send", sends)] * 2 +
                       [("print", prints)], seconds)
    demand(all(seen[name, "done"] for name in ("declare", "import", "send", "print")), f"never done: {seen}")
    check_copies(place, seen["send", "done"])
    entries = Counter(row[2] for row in place.rows("bitacora", "Doc_id_d, periodo, Suceso"))
    demand(entries["ENVIAR"] == seen["send", "done"], f"{seen['send', 'done']} sent, but the log has {entries}")
    return sum(seen.values()), told(seen)


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
        ("Disk of the servidor's log full", 1, log_disk_full),
        (f"Eight programs on the servidor, {seconds} s", 1, lambda p: eight_at_once(p, seconds)),
    ]
