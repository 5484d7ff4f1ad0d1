"""Two seats of an office, each with its own screen and user, over one database server: both take a month from a file
at once, one looks at what the other has open, and one sends what still stands in the other's list."""

import os
import shutil
import subprocess
import sys
import time

from from_files import LAST, RUC, as_last_month, name_of, starts_import
from month import DECLARATION, LAUNCHER, MODULE, leaves, opens_new, starts_module
from screen import Screen

SERVER = os.environ["XA518_TEST_SERVER"]
BASE = f"viaje_{os.getpid()}"
OTHER_RUC = "20999000518"
MODIFY = "Modificar Declaraciones"
LOOKED_AT = DECLARATION + " (sin modificar)"


def asks(sql, base="postgres"):
    """Rows as tuples of texts."""
    command = ["psql", "-X", "-q", "-A", "-t", "-F", "\t", "-v", "ON_ERROR_STOP=1", f"{SERVER} dbname={base}"]
    done = subprocess.run(command, input=sql, capture_output=True, text=True, check=True)
    return [tuple(line.split("\t")) for line in done.stdout.splitlines()]


class Seat(Screen):
    """A screen whose installation has its base on the server."""

    def __init__(self, programs, user, environment=None):
        super().__init__(programs, {"USER": user} | (environment or {}), whose=f"_{user}")
        self._user = user

    def _installs(self):
        profile = self.folder / "config" / "XA000.INI"
        profile.parent.mkdir()
        profile.write_text(f"[Options]\nSysPath={self.data}/\nDBName={SERVER} dbname={BASE}\n"
                           f"SysUser={self._user}\n", encoding="utf-8")
        self.runs("consola", "--instalar", "--carpeta", self.data)

    def rows(self, question, *values):
        return asks(f"SET search_path = familia, pg_catalog; {question}", BASE)


def prepares(ana, eva):
    """Each has a company of her own, and both may see all."""
    asks("INSERT INTO familia.claves VALUES ('ANA', '0'), ('EVA', '0') ON CONFLICT DO NOTHING", BASE)
    ana.runs("consola", "--instalar", "--carpeta", ana.data, "--ejemplo")
    eva.runs("consola", "--declarante", OTHER_RUC, "--nombre", "BODEGA RIO SECO")
    files = ana.data / "EJEMPLO"
    lines = as_last_month(files, "")
    theirs = eva.folder / "files"
    theirs.mkdir()
    shutil.copy(files / f"0518{RUC}{name_of(LAST)}.TXT", theirs / f"0518{OTHER_RUC}{name_of(LAST)}.TXT")
    return files, theirs, len(lines)


def import_together(ana, eva, files, theirs):
    """Each in a declaration of her own company: neither waits, and neither's rows come into the other's."""
    opens_new(ana, name_of(LAST))
    opens_new(eva, name_of(LAST), company=2)
    starts_import(ana, files)
    starts_import(eva, theirs)
    for seat in (eva, ana):
        seat.answers("Mensaje")
        seat.keys("alt+s")
        seat.closes()
        seat.settles()


def pays(seat, amount):
    """By cheque, on the second bank: what isn't paid can't be sent."""
    seat.keys("alt+t", "Tab", "Tab")
    seat.types(amount)
    seat.keys("alt+c", "Tab", "Down", "Down", "Return")
    seat.types("000123")


def saves(seat, ruc):
    """The box that tells of it has the title of the box that shows how far it has come."""
    seat.keys("alt+g")
    seat.shows(f"select count(*) from CAB where Doc_id_d = '{ruc}'", "1")
    time.sleep(1)
    seat.answers(DECLARATION)


def journey(ana, eva):
    files, theirs, lines = prepares(ana, eva)
    for seat in (ana, eva):
        starts_module(seat)
    import_together(ana, eva, files, theirs)
    pays(ana, "17424")
    saves(ana, RUC)
    saves(eva, OTHER_RUC)
    ana.shows("select Doc_id_d, count(*) from F518PDETCP group by 1 order by 1", (RUC, str(lines)),
              (OTHER_RUC, str(lines)))

    ana.keys("alt+s")
    ana.closes()
    ana.keys("alt+d", "m")
    ana.opens(MODIFY)
    ana.keys("Down", "Return")  # what Eva has open
    ana.answers(MODIFY, "alt+s")
    ana.opens(LOOKED_AT)
    ana.keys("alt+s")
    ana.closes()

    eva.switches(LAUNCHER)
    eva.keys("alt+r", "alt+e")
    eva.answers(LAUNCHER, "alt+s")
    eva.answers(LAUNCHER)
    eva.shows("select Doc_id_d, correl from HCAB", (RUC, "1"))

    ana.keys("Up", "Return")  # sent, yet still in her list
    ana.answers(MODIFY)
    ana.shows("select Doc_id_d from CAB", OTHER_RUC)
    ana.keys("alt+s")
    ana.closes()
    leaves(ana)
    eva.switches(DECLARATION)
    eva.keys("alt+s")
    eva.comes_back(MODULE)
    leaves(eva)


if __name__ == "__main__":
    asks(f"CREATE DATABASE {BASE}")
    try:
        with Seat(sys.argv[1], "ANA") as ana, Seat(sys.argv[1], "EVA") as eva:
            journey(ana, eva)
    finally:
        asks(f"DROP DATABASE {BASE} WITH (FORCE)")
