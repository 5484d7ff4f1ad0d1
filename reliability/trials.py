"""Trials of what the programs leave behind when they are killed, when the disk fails, when the base is held, gone or
damaged, and when several of them share it. Prints a table row for each trial; fails when one of them found a fault."""

import os
import random
import re
import shutil
import sqlite3
import subprocess
import tempfile
import threading
import time
from collections import Counter
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
SAMPLE = ROOT / "catalog" / "0518" / "ejemplo"
RUC, PERIOD, BIG_PERIOD = "20990518018", "202609", "202610"
SAVED = ("CAB", "DET", "F518PCAB", "F518PDET", "F518PDETVC", "F518PDETCP")
WORK = ("TMPF518PCAB", "TMPF518PDET", "TMPF518PDETCP")
BATCH, BIG_LINES = 10_000, 21_000
PART_LINES, WHOLE_LINES = 150, 245
MODULE_FORMS = ("MDIFrm FrmContAbrir FrmContAbrirE Frm518 FrmConsist FrmAgePer FrmDetAgePer frmPerDet frmTransferencia "
                "frmImprimir frmImpxPag frmPreview FrmConsultas frmAcercade FrmAyuda")
LAUNCHER_FORMS = "FrmConsola FrmDeclarante frmPreview FrmAyuda"
TOLD = re.compile(r"\(error \d+\)")
WAITS = re.compile(r"Otro programa|ocupada|está abierta por|en uso|se encuentra abierto")
DONE, REFUSED = (0, 1, 4), 2
OUTCOMES = ("done", "told to wait", "nothing to do")


class Fault(Exception):
    """What a trial found that must not be."""


def demand(holds, what):
    if not holds:
        raise Fault(what)


class Installation:
    """The sample company in a folder of its own, its base put back as it was before each attempt."""

    killed = -9  # what a program ends with that dies at once

    def __init__(self, build, folder, moments):
        self.build, self.folder, self.base = build, folder / "xa518", folder / "xa518" / "XA000.DB"
        self.moments = moments  # at how many of them it is killed or damaged
        self.environment = {**os.environ, "XDG_CONFIG_HOME": str(folder / "config"), "HOME": str(folder),
                            "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8", "TZ": "UTC"}
        (folder / "config").mkdir()
        self.part, self.big = folder / "part", folder / "big"
        self.installs()
        self.write_files()
        self.must(self.batch("declarar", PERIOD, self.part, "--efectivo"))
        self.must(self.batch("importar", PERIOD, SAMPLE), (0, 1))  # the part is there already: its lines are refused
        self.keeps()

    def installs(self):
        self.must(self.console("--instalar", "--carpeta", self.folder, "--ejemplo"))

    def keeps(self):
        """What each attempt begins with."""
        self.kept = self.base.read_bytes()
        self.old = self.saved()

    def end(self):
        """Nothing but files is left, which go with their folder."""

    def write_files(self):
        """A month's first lines, and a month of several batches."""
        self.part.mkdir()
        name = f"0518{RUC}{PERIOD}.TXT"
        lines = (SAMPLE / name).read_bytes().splitlines(keepends=True)
        (self.part / name).write_bytes(b"".join(lines[:PART_LINES]))
        self.big.mkdir()
        client = lines[0].decode("cp1252").split("|")[:6]
        with open(self.big / f"0518{RUC}{BIG_PERIOD}.TXT", "w", encoding="cp1252") as file:
            for n in range(1, BIG_LINES + 1):
                voucher = ["P001", str(n), "15/10/2026", "1", "0", "0", "100.00"]
                file.write("|".join(client + voucher + ["01", "F001", str(n), "10/10/2026", "100.00"]) + "|\n")

    def run(self, program, *arguments, fault=None, **options):
        environment = dict(self.environment)
        if fault:
            environment |= {"LD_PRELOAD": str(self.build / "reliability/libfaulty_disk.so"),
                            "FALLA_CARPETA": str(self.folder), "FALLA_MODO": fault[0], "FALLA_EN": str(fault[1])}
        run = subprocess.run([self.build / program, *arguments], env=environment, capture_output=True, text=True,
                             timeout=120, check=False, **options)
        demand(run.returncode >= 0 or fault, f"{program} {arguments} died: {run.returncode} {run.stderr}")
        return run

    def console(self, *arguments, **options):
        return self.run("bin/consola", *arguments, **options)

    def batch(self, order, period, files=None, *more, ruc=RUC, **options):
        key = ("--ruc", ruc, "--hoy", "21/11/2026", "--periodo", period)
        return self.run("bin/xa518-lote", order, *key, *(("--percepciones", files) if files else ()), *more, **options)

    def save(self, **options):
        return self.batch("declarar", PERIOD, None, "--rectifica", **options)

    def delete(self, **options):
        return self.run("reliability/delete_declaration", self.base, RUC, PERIOD, **options)

    @staticmethod
    def must(run, codes=(0,)):
        demand(run.returncode in codes, f"{run.args}: {run.stdout}{run.stderr}")

    def restore(self, content=None):
        for beside in self.folder.glob("XA000.DB*"):
            beside.unlink()
        self.base.write_bytes(content or self.kept)

    def rows(self, table, columns="*", path=None):
        with sqlite3.connect(path or self.base) as base:
            return base.execute(f"SELECT {columns} FROM {table} ORDER BY rowid").fetchall()

    def saved(self):
        """All that is stored of the declarations, once the engine has found the base sound. Read from a copy: whoever
        reads a base first mends it, and that is left to the programs."""
        with tempfile.TemporaryDirectory() as apart:
            for file in self.base.parent.glob(f"{self.base.name}*"):
                if file.suffix != ".trabajo":
                    shutil.copy(file, apart)
            copy = Path(apart) / self.base.name
            with sqlite3.connect(copy) as base:
                demand(base.execute("PRAGMA integrity_check").fetchone() == ("ok",), "the base isn't sound")
            return {table: self.rows(table, path=copy) for table in SAVED}


class UnderWine(Installation):
    """The same by the programs of a Windows build. What a save changes is counted by a program of its own; Wine's folder
    and libraries come from the environment."""

    killed = 9

    def run(self, program, *arguments, fault=None, **options):
        name = "killed_batch" if fault else Path(program).name
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "TZ": "UTC"}
        if fault:
            environment |= {"FALLA_MODO": fault[0], "FALLA_EN": str(fault[1])}
        known = [f"Z:{argument}" if isinstance(argument, Path) else argument for argument in arguments]
        return subprocess.run([ROOT / "scripts/wine", self.build / "bin" / f"{name}.exe", *known], env=environment,
                              capture_output=True, text=True, timeout=120, check=False, **options)


def spread(total, moments):
    """All moments when they are not too many, otherwise so many evenly spread ones, the first and the last among them."""
    count = total if total <= 2 * moments else moments
    return [i * (total - 1) // (count - 1) for i in range(count)]


def changes_of(work):
    return int(re.search(r"cambios (\d+)", work(fault=("cuenta", 0)).stderr).group(1))


def killed(place, work):
    """Dies before or in the midst of each change of a save or a delete: the old state stands, or the new one."""
    place.restore()
    total = changes_of(work)
    new = place.saved()
    demand(new != place.old, "the work changes nothing")
    seen = Counter()
    for moment in spread(2 * total, place.moments):
        place.restore()
        fault = (("mata", "rasga")[moment % 2], moment // 2 + 1)
        demand(work(fault=fault).returncode == place.killed, f"not killed at {fault}")
        found = place.saved()
        demand(found in (place.old, new), f"half a state, {fault}")
        seen["new" if found == new else "old"] += 1
        work()  # and the next one finds nothing in its way
        demand(place.saved() == new, f"the repetition differs, {fault}")
    return sum(seen.values()), f"{total} changes; {seen['old']} left the old state, {seen['new']} the new one"


def import_killed(place):
    """Dies at a change or by the clock: of the lines whole batches stay, and totals are those of all or of none."""
    work = lambda fault=None: place.batch("importar", BIG_PERIOD, place.big, fault=fault)
    place.restore()
    start = [place.rows(table) for table in WORK]
    total = changes_of(work)
    place.restore()
    begin = time.monotonic()
    place.must(work())
    microseconds = int((time.monotonic() - begin) * 1e6)
    whole = [place.rows(table) for table in WORK]
    demand(len(whole[2]) == BIG_LINES, "the whole file isn't there")
    half = place.moments // 2
    faults = [("mata" if i % 2 else "rasga", 1 + i * total // half) for i in range(half)]
    faults += [("alarma", 1 + i * microseconds // half) for i in range(half)]
    seen = Counter()
    for fault in faults:
        place.restore()
        seen[import_state(place, work(fault).returncode, start, whole, fault)] += 1
    demand(any("lines" in state for state in seen), "no death fell between two batches")
    return len(faults), f"{total} changes; " + ", ".join(f"{seen[state]} {state}" for state in sorted(seen))


def import_state(place, code, start, whole, fault):
    demand(place.saved() == place.old, f"the import touched what is saved, {fault}")
    clients, vouchers, payments = found = [place.rows(table) for table in WORK]
    if code == 0:
        demand(found == whole, f"done, but not whole, {fault}")
        return "over before"
    demand(code in (-9, -14), f"ended with {code}, {fault}")
    if found == start:
        return "as before"
    demand(len(payments) % BATCH == 0 or len(payments) == BIG_LINES, f"half a batch: {len(payments)}, {fault}")
    demand(payments == whole[2][:len(payments)], f"other payment vouchers, {fault}")
    demand([row[:3] for row in vouchers] == [row[:3] for row in whole[1][:len(vouchers)]], f"other vouchers, {fault}")
    demand({row[1] for row in vouchers} == {row[1] for row in clients}, f"vouchers without their client, {fault}")
    for client in clients:  # the run sums up at its end
        totals = [float(total or 0) for total in client[7:9]]
        demand(totals in ([0, 0], [100 * len(vouchers), 2 * len(vouchers)]), f"half a total: {totals}, {fault}")
    return f"with {len(payments)} lines" if payments else "with empty work tables"


def disk_full(place, kind):
    """A save through the real program, the disk failing once or from a change on: the old declaration stays and the
    user is told, or the change didn't matter."""
    place.restore()
    total = changes_of(place.save)
    new = place.saved()
    seen = Counter()
    for change in range(1, total + 1):
        place.restore()
        run = place.save(fault=(kind, change))
        found = place.saved()
        demand(found in (place.old, new), f"half a state at change {change}")
        if run.returncode == 3:
            demand(TOLD.search(run.stderr) and "el disco" in run.stderr.lower(), f"unclear at change {change}: {run.stderr}")
            seen["refused, old state" if found == place.old else "told as failed, yet new state"] += 1
        else:
            demand(run.returncode in (0, 1, 4) and found == new, f"change {change}: {run.returncode} {run.stderr}")
            seen["saved all the same"] += 1
    return total, ", ".join(f"{n} {state}" for state, n in sorted(seen.items()))


def disk_fails_a_print_out(place):
    """The disk fails once while a declaration and its annex become a PDF: the whole document, or none and a word."""
    paper = place.folder / "paper.pdf"
    work = lambda fault=None: place.batch("imprimir", PERIOD, None, "--anexos", "--pdf", paper, fault=fault)
    place.restore()
    total = changes_of(work)
    whole = paper.stat().st_size
    seen = Counter()
    for change in range(1, total + 1):
        place.restore()
        paper.unlink(missing_ok=True)
        run = work(("una", change))
        if run.returncode == 3:
            demand(TOLD.search(run.stderr) and not paper.exists(), f"half a document at change {change}: {run.stderr}")
        else:
            demand(run.returncode == 0 and paper.stat().st_size == whole, f"change {change}: {run.returncode} {run.stderr}")
        seen["told, no document" if run.returncode else "whole document all the same"] += 1
    return total, ", ".join(f"{n} {state}" for state, n in sorted(seen.items()))


def writers(place):
    return [lambda **o: place.batch("declarar", PERIOD, SAMPLE, "--rectifica", **o),
            lambda **o: place.batch("importar", PERIOD, SAMPLE, **o),
            lambda **o: place.console("--enviar", RUC, PERIOD, **o),
            place.delete]


def refused_by_all(place, words, number, **options):
    for work in writers(place):
        run = work(**options)
        demand(run.returncode == 3 and f"(error {number})" in run.stderr and re.search(words, run.stderr),
               f"expected {number}: {run.args} {run.returncode} {run.stderr}")


def locked(place):
    """Another program writes, or only reads without end."""
    rounds = 5
    for statements in (("BEGIN EXCLUSIVE",), ("BEGIN", "SELECT * FROM CAB")):
        for _ in range(rounds):
            place.restore()
            holder = sqlite3.connect(place.base, isolation_level=None)
            for statement in statements:
                holder.execute(statement).fetchone()
            refused_by_all(place, "ocupada|se encuentra abierto", 3051)
            holder.close()
            demand(place.saved() == place.old, "a refused write left something")
    return 2 * rounds * len(writers(place)), "all refused with error 3051, nothing written"


def read_only(place):
    place.restore()
    place.base.chmod(0o444)
    options = {"user": 65534, "group": 65534} if os.geteuid() == 0 else {}  # to the superuser nothing is read-only
    if options:
        subprocess.run(["chown", "-R", "65534:65534", place.folder.parent], check=True)
    refused_by_all(place, "sólo lectura", 3051, **options)
    if options:
        subprocess.run(["chown", "-R", "0:0", place.folder.parent], check=True)
    place.base.chmod(0o600)
    demand(place.saved() == place.old, "a refused write left something")
    return len(writers(place)), "all refused with error 3051"


def removed(place):
    place.restore()
    place.base.unlink()
    refused_by_all(place, "No se encuentra", 3024)
    demand(not place.base.exists(), "an empty base took the place of the missing one")
    place.restore()
    group = place.folder / "XA000.MDW"
    kept = group.read_bytes()
    group.unlink()
    run = place.console("--enviar", RUC, PERIOD)
    demand(run.returncode == 3 and "(error 3028)" in run.stderr, f"workgroup file: {run.stderr}")
    group.write_bytes(kept)
    return len(writers(place)) + 1, "base: error 3024, none made in its place; workgroup file: error 3028"


def corrupted(place, seed):
    """Bytes overwritten at many places, and the file cut short: no crash, and what can't be read is told."""
    chance = random.Random(seed)
    orders = [lambda: place.batch("validar", PERIOD), lambda: place.batch("declarar", PERIOD, SAMPLE, "--rectifica"),
              lambda: place.console("--enviar", RUC, PERIOD)]
    seen, places = Counter(), place.moments // 2
    for i in range(places):
        content = bytearray(place.kept)
        where = i * len(content) // places
        if i % 5 == 4:
            del content[where:]
        else:
            content[where:where + 64] = chance.randbytes(64)
        for order in orders:
            place.restore(bytes(content) or b"\0")
            run = order()
            told = run.returncode == 3 and TOLD.search(run.stderr)
            demand(told or run.returncode in (0, 1, 2, 4), f"byte {where}: {run.args} {run.returncode} {run.stderr}")
            seen["told with its number" if told else "not met by the work"] += 1
    return places * len(orders), ", ".join(f"{n} {state}" for state, n in sorted(seen.items())) + ", no crash"


def outcome(run):
    """Of a program that shares the base with others; nothing when it did neither its work nor said that it waits."""
    if run.returncode in DONE:
        return "done"
    if WAITS.search(run.stderr):
        return "told to wait"
    return "nothing to do" if run.returncode == REFUSED else None


def all_at_once(jobs, seconds):
    """Does each work, behind its name, again and again; counts by name and outcome."""
    seen, faults, until = Counter(), [], time.monotonic() + seconds

    def repeats(name, work):
        while time.monotonic() < until and not faults:
            try:
                run = work()
            except (Fault, subprocess.TimeoutExpired) as fault:
                faults.append(f"{name}: {fault}")
                return
            seen[name, outcome(run)] += 1
            if not outcome(run):
                faults.append(f"{name}: {run.returncode} {run.stderr}")

    threads = [threading.Thread(target=repeats, args=job) for job in jobs]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    demand(not faults, faults and faults[0])
    return seen


def told(seen):
    """One clause for each name."""
    names = dict.fromkeys(name for name, _ in seen)
    return "; ".join(f"{name}: " + ", ".join(f"{seen[name, kind]} {kind}" for kind in OUTCOMES if seen[name, kind])
                     for name in names)


def shared(place, seconds):
    """Two programs declare and the launcher sends, all at once."""
    place.restore()
    seen = all_at_once([("declare", lambda: place.batch("declarar", PERIOD, SAMPLE, "--rectifica", "--efectivo")),
                        ("declare", lambda: place.batch("declarar", BIG_PERIOD, None, "--efectivo")),
                        ("send", lambda: place.console("--enviar", RUC, PERIOD))], seconds)
    place.saved()
    check_copies(place, seen["send", "done"])
    return sum(seen.values()), told(seen)


def check_copies(place, sent):
    """Each sent copy is there once and whole: a company's first one may have the part's rows alone, the others have the
    whole file's."""
    copies = place.rows("HCAB", "Doc_id_d, correl, control")
    demand(len(copies) == sent, f"{sent} sent, {len(copies)} copies")
    numbers = {copy[:2] for copy in copies}
    demand(len(numbers) == len({copy[2] for copy in copies}) == sent, "a number was given twice")
    sizes = Counter(place.rows("HF518PDETCP", "Doc_id_d, correl"))
    demand(set(sizes.values()) <= {PART_LINES, WHOLE_LINES} and set(sizes) == numbers, f"a copy in part: {sizes}")


def monkey(place, window, seconds, seed, forms):
    """Random keys and clicks; the test itself fails on a crash, an escaped error or a complaint of the toolkit."""
    environment = {**place.environment, "MONO_SEGUNDOS": str(seconds), "MONO_SEMILLA": str(seed)}
    run = subprocess.run([place.build / "tests/end_to_end/monkey_test", f"--gtest_filter=*{window}*"], env=environment,
                         capture_output=True, text=True, timeout=seconds + 120, check=False)
    demand(run.returncode == 0, f"{run.returncode}: {run.stdout}{run.stderr}")
    steps, counts = re.search(r"pasos (\d+): (.*)", run.stdout).groups()
    met = {pair.split()[0] for pair in counts.split(", ")}
    missed = [form for form in forms.split() if form not in met]
    demand(seconds < 60 or not missed, f"never met: {missed}")
    return f"{steps} steps", f"no crash; {len(met & set(forms.split()))} of {len(forms.split())} forms met, base sound"


def all_of(seconds, seed):
    """Name, how many of the moments wanted are enough for it, as a part of them, and what is tried."""
    return [
        ("Killed in a save", 1, lambda p: killed(p, p.save)),
        ("Killed in a delete", 1, lambda p: killed(p, p.delete)),
        ("Killed in an import", 1, import_killed),
        ("Disk fails at one change of a save", 1, lambda p: disk_full(p, "una")),
        ("Disk full from a change of a save on", 1, lambda p: disk_full(p, "lleno")),
        ("Disk fails at one change of a print-out", 1, disk_fails_a_print_out),
        ("Base locked by another program", 1, locked),
        ("Base read-only", 1, read_only),
        ("Base or workgroup file removed", 1, removed),
        ("Base damaged", 1, lambda p: corrupted(p, seed)),
        (f"Two programs and the launcher, {seconds} s", 1, lambda p: shared(p, seconds)),
        (f"Random keys and clicks, module, {seconds} s", 1, lambda p: monkey(p, "Module", seconds, seed, MODULE_FORMS)),
        (f"Random keys and clicks, launcher, {seconds} s", 1,
         lambda p: monkey(p, "Launcher", seconds, seed, LAUNCHER_FORMS)),
    ]


def tries(kind, build, moments, trials, wanted):
    """Runs those trials whose names have a wanted part, all in one installation of that kind, and prints a row for
    each; false when one of them found a fault."""
    chosen = [trial for trial in trials if any(part.lower() in trial[0].lower() for part in wanted or [""])]
    if not chosen:
        return True
    sound = True
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        place = kind(build, Path(folder), moments)
        try:
            for name, part, trial in chosen:
                place.moments = max(moments // part, 2)
                try:
                    count, result = trial(place)
                except Fault as fault:
                    sound, count, result = False, "", f"FAULT: {fault}"
                print(f"| {name} | {count} | {result} |", flush=True)
        finally:
            place.end()
    return sound
