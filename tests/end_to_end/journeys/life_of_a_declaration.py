"""One declaration from the first key to its end, without the mouse: a month typed in from nothing and saved with
inconsistencies, refused by the launcher, mended, sent, its order number registered, deleted."""

import sys

from month import (COMPANY, DATE, DECLARATION, LAUNCHER, MODULE, PERIOD, PERSON, VOUCHER, accepts, enters_cash_sale,
                   enters_voucher, leaves, opens_client, opens_new, starts_module)
from screen import Screen

ORDER = "12345678"
STATES = "select estado from CAB"
SENT = "select norden from HCAB"


def digit(number):
    """The tax administration's check digit of a number, of which no more than 17 digits count."""
    weighed = sum(int(figure) * (2 + place % 6) for place, figure in enumerate(reversed(number[:17])))
    return {11: "1", 10: "0"}.get(11 - weighed % 11, str(11 - weighed % 11))


def types_it_in(screen):
    """A company and a person, ordinary vouchers with invoices and a credit note behind them, and a cash sale."""
    opens_new(screen)
    opens_client(screen, COMPANY, "BODEGA RIO SECO")
    thinks_better_of_it(screen)
    enters_voucher(screen, "P001", "123", "1000", ("01", "F001", "77", "1100.5"))
    enters_voucher(screen, "P001", "124", "500", ("01", "F001", "78", "600"), ("07", "F001", "5", "100"))
    accepts(screen)
    opens_client(screen, PERSON, "ROJAS", "CASTRO", "CARLOS")
    enters_cash_sale(screen, "03", "B001", "9", "200")
    accepts(screen)
    screen.keys("alt+g")
    screen.answers(DECLARATION)
    screen.keys("alt+s")
    screen.closes()


def thinks_better_of_it(screen):
    """A voucher and its question go together at one Enter: the keyboard stays with the form behind, which takes no
    part of an Enter that is held down. Several times, as it depends on which of the two the window manager sees go
    first."""
    for answers in (screen.keys,) * 4 + (() if screen.loses_keyboard else (screen.holds,)):
        screen.keys("alt+n")
        screen.opens(VOUCHER)
        screen.keys("Tab")
        screen.types("P009")
        screen.keys("alt+s")
        screen.opens(VOUCHER)
        answers("Return")
        screen.closes(2)


def is_stored(screen):
    screen.shows("select periodo, estado from CAB", (PERIOD, 9))
    screen.shows("select des_razon, des_apellido_p, ctd_docs, mto_base_p, mto_imp_p from F518PCAB order by tip_doc_per",
                 (None, "ROJAS", 1, "200.00", "4.00"), ("BODEGA RIO SECO", None, 2, "1500.00", "30.00"))
    screen.shows("select num_cp, fec_emision_cp, mto_base_p, por_tasa_p, mto_imp_p from F518PDET order by num_cp",
                 ("00000123", DATE, "1000.00", "2.00", "20.00"), ("00000124", DATE, "500.00", "2.00", "10.00"))
    screen.shows("select tip_cp, num_serie_cp, num_cp, mto_imp_p from F518PDETVC", ("03", "B001", "00000009", "4.00"))
    screen.shows("select num_cp, tip_doc_detcp, num_serie_detcp, num_detcp, mto_detcp from F518PDETCP order by 1, 2",
                 ("00000123", "01", "F001", "00000077", "1100.50"), ("00000124", "01", "F001", "00000078", "600.00"),
                 ("00000124", "07", "F001", "00000005", "-100.00"))
    screen.shows("select casilla, i_valor from DET where casilla in ('401', '405', '501', '502', '517') order by 1",
                 ("401", "34"), ("405", "34"), ("501", "2"), ("502", "1700"), ("517", "1601"))


def mends_it(screen):
    screen.keys("alt+d", "m")
    screen.opens("Modificar Declaraciones")
    screen.keys("Return")
    screen.opens(DECLARATION)
    screen.keys("alt+v")
    screen.opens("Inconsistencias detectadas")
    accepts(screen)
    screen.keys("alt+t", "Tab", "Tab")
    screen.types("34")
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
    screen.shows("select estado, cheque, bcolibrad from CAB", (0, "34", "02"))
    screen.shows("select casilla, i_valor from DET where casilla in ('012', '405', '410', '999') order by 1",
                 ("012", "000123"), ("405", "34"), ("410", "34"), ("999", "C"))


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
    screen.fills(ORDER, f"{(int(right) + 1) % 100:02}")
    screen.keys("alt+r")
    screen.answers(DECLARATION)
    screen.shows(SENT, "0")
    screen.keys("Tab", "ctrl+a")
    screen.types(right)
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
    screen.answers("Eliminar Declaraciones Enviadas")  # "No" is what Enter says
    screen.shows(SENT, ORDER)
    screen.keys("Return")
    screen.answers("Eliminar Declaraciones Enviadas", "alt+s")
    screen.shows(SENT)
    screen.shows("select count(*) from HF518PDET", 0)
    screen.keys("alt+s")
    screen.closes()


def journey(screen):
    starts_module(screen)
    types_it_in(screen)
    is_stored(screen)
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
