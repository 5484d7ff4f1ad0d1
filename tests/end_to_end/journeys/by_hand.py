"""A month typed in from nothing, without the mouse: a company and a person, an ordinary voucher with an invoice and a
credit note behind it, and a cash sale."""

import sys

from month import (COMPANY, DATE, DECLARATION, PERIOD, PERSON, accepts, enters_cash_sale, enters_voucher, leaves,
                   opens_client, opens_new, starts_module)
from screen import Screen


def journey(screen):
    starts_module(screen)
    opens_new(screen)

    opens_client(screen, COMPANY, "BODEGA RIO SECO")
    before = screen.pressed
    enters_voucher(screen, "P001", "123", "1000", ("01", "F001", "77", "1100.5"))
    print("Keys for a voucher with one payment voucher:", screen.pressed - before)
    enters_voucher(screen, "P001", "124", "500", ("01", "F001", "78", "600"), ("07", "F001", "5", "100"))
    accepts(screen)
    opens_client(screen, PERSON, "ROJAS", "CASTRO", "CARLOS")
    enters_cash_sale(screen, "03", "B001", "9", "200")
    accepts(screen)
    screen.keys("alt+g")
    screen.answers(DECLARATION)
    screen.keys("alt+s")
    screen.closes()
    leaves(screen)

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


if __name__ == "__main__":
    with Screen(sys.argv[1]) as screen:
        journey(screen)
