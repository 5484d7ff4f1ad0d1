"""An import that was a mistake is undone, the same file named before it comes again, and a deleted client brought back;
with a server to work on, at a seat of it."""

import os
import sys

from from_files import IMPORT, LAST, as_last_month, name_of, starts_import
from month import DECLARATION, leaves, opens_new, starts_module
from screen import Screen

ROW = (120, 170)  # in the list of clients


def counts(screen, work, *wanted):
    """Rows of the work tables: clients, vouchers, payment vouchers."""
    tables = ("TMPF518PCAB", "TMPF518PDET", "TMPF518PDETCP")
    question = " union all ".join(f"select count(*), {n} from {work}{table}" for n, table in enumerate(tables))
    screen.shows(question + " order by 2", *[tuple(map(type(wanted[0]), (count, n))) for n, count in enumerate(wanted)])


def journey(screen, work_of=lambda: ""):
    files = screen.data / "EJEMPLO"
    lines = as_last_month(files, "")
    number = str if work_of() is None else int
    vouchers = {tuple(line[place] for place in (0, 1, 6, 7)) for line in lines}
    clients = {(line[0], line[1]) for line in lines}
    starts_module(screen)
    opens_new(screen, name_of(LAST))
    starts_import(screen, files)
    screen.answers("Mensaje")
    work = work_of() or ""
    all_of_it = [number(len(found)) for found in (clients, vouchers, lines)]
    nothing = [number(0)] * 3
    counts(screen, work, *all_of_it)

    screen.keys("alt+d")
    screen.answers("Confirmar", "alt+n")
    counts(screen, work, *all_of_it)
    screen.keys("alt+d")
    screen.answers("Confirmar", "alt+s")
    screen.answers("Mensaje")
    counts(screen, work, *nothing)

    screen.keys("alt+a")
    screen.answers("Confirmar", "alt+s")  # once more in this opening of the window
    screen.answers("Mensaje")
    screen.keys("alt+a")
    screen.answers("Confirmar", "alt+s")
    screen.answers("Confirmar", "alt+n")  # the same file
    counts(screen, work, *all_of_it)
    screen.keys("alt+s")
    screen.closes()

    screen.clicks(*ROW)
    screen.keys("alt+e")
    screen.answers(DECLARATION, "alt+s")
    screen.shows(f"select count(*) from {work}TMPF518PCAB", number(len(clients) - 1))
    screen.keys("ctrl+z")
    counts(screen, work, *all_of_it)

    screen.keys("alt+o")  # in a later opening of the window
    screen.opens(IMPORT)
    screen.keys("alt+d")
    screen.answers("Confirmar", "alt+s")
    screen.answers("Mensaje")
    counts(screen, work, *nothing)
    screen.keys("alt+s")
    screen.closes()
    screen.keys("alt+s")
    screen.answers(DECLARATION, "alt+n")
    screen.closes()
    leaves(screen)


def at_a_seat(programs):
    from two_seats import BASE, Seat, asks

    asks(f"CREATE DATABASE {BASE}")
    try:
        with Seat(programs, "ANA") as ana:
            asks("INSERT INTO familia.claves VALUES ('ANA', '0') ON CONFLICT DO NOTHING", BASE)
            ana.runs("consola", "--instalar", "--carpeta", ana.data, "--ejemplo")

            def seat():
                found = asks("SELECT esquema FROM familia.puestos WHERE ruc IS NOT NULL", BASE)
                return f"{found[0][0]}." if found else None

            journey(ana, seat)
    finally:
        asks(f"DROP DATABASE {BASE} WITH (FORCE)")


if __name__ == "__main__":
    if "XA518_TEST_SERVER" in os.environ:
        at_a_seat(sys.argv[1])
    else:
        with Screen(sys.argv[1]) as screen:
            journey(screen)
