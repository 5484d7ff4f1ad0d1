"""A declaration that wasn't saved, and whose module was killed: it is offered again with all that was typed and imported,
taken up and saved; the next one is put aside instead, and brought back from there. On a file, or on a server."""

import os
import sys
import time

from from_files import LAST, as_last_month, name_of, starts_import
from month import DECLARATION, LAUNCHER, MODULE, leaves, opens_new, starts_module
from screen import Screen

SAVED = "select casilla, i_valor from DET where casilla in ('402', '404', '510', '999') order by 1"


def types_and_imports(screen, sample):
    """Boxes on the last page, a month's lines on the one before, and back to the boxes."""
    opens_new(screen, name_of(LAST))
    starts_import(screen, sample)
    screen.answers("Mensaje")
    screen.keys("alt+s")
    screen.closes()
    time.sleep(1)  # the form sums up what has come, and takes no keys meanwhile
    screen.keys("alt+t")
    screen.fills("7", "50")


def is_kept(screen, vouchers):
    """What the seat or the file has; the name of a seat's schema is its number's."""
    where = "puesto_1." if "XA518_TEST_SERVER" in os.environ else ""
    screen.until(lambda: any("(7)" in str(row) and '"50"' in str(row) for row in
                             screen.rows(f"select Escrito from {where}TMPF518SINGRABAR")), "what was typed to be kept")
    found = screen.rows(f"select count(*) from {where}TMPF518PDET")
    assert int(found[0][0]) == vouchers, found


def dies(screen):
    """As in a power cut: the module has no time to say anything."""
    screen.kills()
    screen.comes_back(LAUNCHER)


def starts_anew(screen, answer):
    """The question stands in front of the main window, which has shown before it."""
    screen.keys("alt+m")
    screen.asks_at_start(MODULE)
    screen.goes(answer)


def is_taken_up(screen, vouchers):
    starts_anew(screen, "alt+s")
    screen.opens(DECLARATION)
    screen.keys("alt+g")
    screen.answers(DECLARATION)
    number = str if "XA518_TEST_SERVER" in os.environ else lambda value: value
    screen.shows(SAVED, ("402", "-7"), ("404", "50"), ("510", str(vouchers)), ("999", "X"))
    screen.shows("select count(*) from F518PDET", number(vouchers))
    screen.keys("alt+s")
    screen.comes_back(MODULE)


def is_put_aside_and_brought_back(screen):
    """No, and then from the menu; and left on purpose, after which nothing is asked any more."""
    screen.keys("alt+d", "m")
    screen.opens("Modificar Declaraciones")
    screen.keys("Return")
    screen.opens(DECLARATION)
    screen.keys("alt+t", "Tab", "ctrl+a")
    screen.fills("99")
    where = "puesto_1." if "XA518_TEST_SERVER" in os.environ else ""
    kept = f"select count(*) from {where}TMPF518SINGRABAR where Escrito like '%99%'"
    screen.until(lambda: int(screen.rows(kept)[0][0]) == 1, "the change to be kept")
    dies(screen)
    starts_anew(screen, "alt+n")
    screen.until(lambda: int(screen.rows(f"select count(*) from {where}TMPF518APARTADA")[0][0]) == 1, "it put aside")
    screen.keys("alt+d", "r")
    screen.answers(MODULE, "alt+s")
    screen.opens(DECLARATION)
    screen.keys("alt+s")
    screen.answers(DECLARATION, "alt+c")  # it stays
    screen.keys("alt+s")
    screen.answers(DECLARATION, "alt+n")
    screen.comes_back(MODULE)
    screen.until(lambda: int(screen.rows(kept)[0][0]) == 0, "nothing to be kept any more")


def journey(screen):
    sample = screen.data / "EJEMPLO"
    lines = as_last_month(sample, "")
    vouchers = len({(line[0], line[1], line[6], line[7]) for line in lines})
    starts_module(screen)
    types_and_imports(screen, sample)
    is_kept(screen, vouchers)
    dies(screen)
    is_taken_up(screen, vouchers)
    is_put_aside_and_brought_back(screen)
    leaves(screen)


def on_server(programs):
    from two_seats import BASE, Seat, asks

    asks(f"CREATE DATABASE {BASE}")
    try:
        with Seat(programs, "ANA") as screen:
            asks("INSERT INTO familia.claves VALUES ('ANA', '0') ON CONFLICT DO NOTHING", BASE)
            screen.runs("consola", "--instalar", "--carpeta", screen.data, "--ejemplo")
            journey(screen)
    finally:
        asks(f"DROP DATABASE {BASE} WITH (FORCE)")


if __name__ == "__main__":
    if "XA518_TEST_SERVER" in os.environ:
        on_server(sys.argv[1])
    else:
        with Screen(sys.argv[1]) as screen:
            journey(screen)
