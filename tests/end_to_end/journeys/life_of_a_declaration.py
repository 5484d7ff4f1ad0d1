"""One declaration from the first key to its end, without the mouse: typed in and saved with inconsistencies, refused
by the launcher, mended, sent, its order number registered, deleted."""

import sys

from month import (COMPANY, DECLARATION, LAUNCHER, MODULE, PERIOD, accepts, enters_voucher, leaves, opens_client,
                   opens_new, starts_module)
from screen import Screen

ORDER = "12345678"
STATES = "select estado from CAB"
SENT = "select norden from HCAB"


def digit(number):
    """The tax administration's check digit of a number, of which no more than 17 digits count."""
    weighed = sum(int(figure) * (2 + place % 6) for place, figure in enumerate(reversed(number[:17])))
    return {11: "1", 10: "0"}.get(11 - weighed % 11, str(11 - weighed % 11))


def types_it_in(screen):
    opens_new(screen)
    opens_client(screen, COMPANY, "BODEGA RIO SECO")
    enters_voucher(screen, "P001", "123", "1000", ("01", "F001", "77"), "1100.5")
    accepts(screen)
    screen.keys("alt+g")
    screen.answers(DECLARATION)
    screen.keys("alt+s")
    screen.closes()
    screen.shows(STATES, 9)


def mends_it(screen):
    screen.keys("alt+d", "m")
    screen.opens("Modificar Declaraciones")
    screen.keys("Return")
    screen.opens(DECLARATION)
    screen.keys("alt+v")
    screen.opens("Inconsistencias detectadas")
    accepts(screen)
    screen.keys("alt+t", "Tab", "Tab")
    screen.types("20")
    screen.keys("alt+c", "Tab", "Down", "Down", "Return")  # by cheque, on the second bank
    screen.types("000123")
    screen.keys("alt+v")
    screen.answers(DECLARATION)
    screen.keys("alt+g")
    screen.answers(DECLARATION)
    screen.keys("alt+s")
    screen.closes()
    screen.keys("alt+s")
    screen.closes()
    screen.shows("select estado, cheque, bcolibrad from CAB", (0, "20", "02"))
    screen.shows("select casilla, i_valor from DET where casilla in ('012', '405', '410', '999') order by 1",
                 ("012", "000123"), ("405", "20"), ("410", "20"), ("999", "C"))


def sends_it(screen, refused):
    screen.switches(LAUNCHER)
    screen.keys("alt+r", "alt+e")
    screen.answers(LAUNCHER, "Return" if refused else "alt+s")
    if not refused:
        screen.answers(LAUNCHER)
    screen.shows(STATES, *([9] if refused else []))
    screen.shows(SENT, *([] if refused else ["0"]))
    screen.switches(MODULE)


def registers_its_number(screen):
    control = screen.rows("select control from HCAB")[0][0]
    right = digit(control) + digit(control + ORDER + digit(control))
    screen.keys("alt+e", "r")
    screen.opens("Registrar número de orden")
    screen.keys("Return")
    screen.opens(DECLARATION)
    screen.fills(ORDER, right)
    screen.keys("alt+r")
    screen.answers(DECLARATION)
    screen.shows(SENT, ORDER)
    screen.keys("alt+s")
    screen.closes()
    screen.keys("alt+s")
    screen.closes()


def deletes_it(screen):
    screen.keys("alt+e", "e")
    screen.opens("Eliminar Declaraciones Enviadas")
    screen.keys("Return")
    screen.answers("Eliminar Declaraciones Enviadas", "alt+s")
    screen.shows(SENT)
    screen.shows("select count(*) from HF518PDET", 0)
    screen.keys("alt+s")
    screen.closes()


def journey(screen):
    starts_module(screen)
    types_it_in(screen)
    sends_it(screen, refused=True)
    mends_it(screen)
    sends_it(screen, refused=False)
    screen.shows("select periodo, correl, estado, length(control) from HCAB", (PERIOD, "1", 1, 8))
    registers_its_number(screen)
    deletes_it(screen)
    leaves(screen)


if __name__ == "__main__":
    with Screen(sys.argv[1]) as screen:
        journey(screen)
