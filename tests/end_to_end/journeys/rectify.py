"""A month that was sent is rectified: brought back from its copy, a client taken away and another one typed in, what
changes looked at and put on paper, saved and sent; and begun once more from the launcher, without the copy. Over a file,
or over a server where one is named."""

import contextlib
import os
import sys
import time

from month import (COMPANY, DECLARATION, LAUNCHER, MODULE, PERIOD, PERSON, accepts, enters_voucher, leaves, opens_client,
                   opens_new, starts_module)
from screen import Screen

CHANGES = "Qué cambia"
PREVIEW = "Presentación Preliminar"
OTHER = ("06", "20991000012")


def types_client(screen, client, number, *names):
    opens_client(screen, client, *names)
    enters_voucher(screen, "P001", number, "1000", ("01", "F001", number, "1100"))
    accepts(screen)


def saves(screen):
    screen.keys("alt+g")
    screen.answers(DECLARATION)
    screen.keys("alt+s")
    screen.closes()


def sends(screen):
    screen.switches(LAUNCHER)
    screen.keys("alt+r", "alt+e")
    screen.answers(LAUNCHER, "alt+s")
    screen.answers(LAUNCHER)
    screen.switches(MODULE)


def sends_a_month(screen):
    opens_new(screen)
    types_client(screen, COMPANY, "123", "BODEGA RIO SECO")
    types_client(screen, PERSON, "124", "ROJAS", "CASTRO", "CARLOS")
    screen.keys("alt+t", "Tab", "Tab")
    screen.types("40")
    screen.keys("alt+e")  # in cash
    saves(screen)
    sends(screen)
    shows(screen, "select correl, rectifica from HCAB order by 1", ("1", ""))


def shows(screen, question, *rows):
    """Of both engines: what one has as a number the other tells as a text."""
    wanted = [tuple(str(value) for value in row) for row in rows]

    def found():
        return [tuple(str(value) for value in row) for row in screen.rows(question)]

    screen.until(lambda: found() == wanted, f"{question}: {wanted}")


def brings_it(screen):
    """The question comes when the period is left."""
    screen.keys("alt+d", "n")
    screen.opens(DECLARATION)
    screen.picks("Down", "Return")
    screen.types(PERIOD[4:] + PERIOD[:4])
    screen.keys("Tab")
    screen.answers(DECLARATION, "alt+s")
    time.sleep(1)  # while the rows are brought no key does anything
    screen.keys("alt+p")


def changes_it(screen):
    screen.keys("Down", "alt+e")
    screen.answers(DECLARATION, "alt+s")
    types_client(screen, OTHER, "125", "FERRETERIA LOMAS")


def looks_at_changes(screen, picture=None):
    screen.keys("alt+q")
    screen.opens(CHANGES)
    if picture:
        screen.picture(picture)
    screen.keys("alt+p")
    screen.opens(PREVIEW)
    shows(screen, "select CodRep from SPOOL", ("PER008",))
    screen.keys("Escape")
    screen.closes()
    screen.keys("alt+s")
    screen.closes()


def begins_again_from_launcher(screen):
    """Without what was sent it is another original, of which the save asks."""
    screen.keys("alt+d", "s")
    screen.comes_back(LAUNCHER)
    screen.keys("alt+s", "alt+t")
    screen.opens(MODULE)
    screen.opens_asking(DECLARATION)
    screen.answers(DECLARATION, "alt+n")
    screen.keys("alt+g")
    screen.answers(DECLARATION)  # "No" is what Enter says
    shows(screen, "select count(*) from CAB", ("0",))
    screen.keys("alt+s")
    screen.closes()


def journey(screen):
    starts_module(screen)
    sends_a_month(screen)
    brings_it(screen)
    changes_it(screen)
    looks_at_changes(screen)
    saves(screen)
    shows(screen, "select num_doc_per, mto_imp_p from F518PCAB order by 1", (COMPANY[1], "20.00"), (OTHER[1], "20.00"))
    shows(screen, "select num_doc_per from F518PDETCP order by 1", (COMPANY[1],), (OTHER[1],))
    shows(screen, "select casilla, i_valor from DET where casilla in ('401', '410', '871', '999') order by 1",
          ("401", "40"), ("410", "40"), ("871", "1"), ("999", "E"))
    sends(screen)
    shows(screen, "select correl, rectifica from HCAB order by 1", ("1", ""), ("2", "1"))
    begins_again_from_launcher(screen)
    leaves(screen)


@contextlib.contextmanager
def somewhere(programs):
    if "XA518_TEST_SERVER" not in os.environ:
        with Screen(programs) as screen:
            yield screen
        return
    from two_seats import BASE, Seat, asks  # pylint: disable=import-outside-toplevel
    asks(f"CREATE DATABASE {BASE}")
    try:
        with Seat(programs, "ANA") as screen:
            screen.runs("consola", "--instalar", "--carpeta", screen.data, "--ejemplo")
            yield screen
    finally:
        asks(f"DROP DATABASE {BASE} WITH (FORCE)")


if __name__ == "__main__":
    with somewhere(sys.argv[1]) as where:
        journey(where)
