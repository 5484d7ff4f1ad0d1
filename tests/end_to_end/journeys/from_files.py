"""A month taken from the sample's two text files, and what came of them counted against the files themselves."""

import decimal
import re
import sys

from month import DECLARATION, TODAY, leaves, opens_new, starts_module
from screen import Screen

RUC = "20990518018"
SAMPLE = 2026 * 12 + 9  # the month that the sample's files tell of
LAST = TODAY.year * 12 + TODAY.month - 1  # the newest one that is over
IMPORT = "Importar"
CASH_SALES = (30, 70)


def name_of(month):
    year, rest = divmod(month - 1, 12)
    return f"{year}{rest + 1:02}"


def as_last_month(folder, kind, month=SAMPLE):
    """The sample's file with its dates brought to the last month; its fields, line by line."""

    def moved(found):
        day, date_month, year = (int(part) for part in found.groups())
        name = name_of(year * 12 + date_month + LAST - month)
        return f"{min(day, 28):02}/{name[4:]}/{name[:4]}".encode()

    text = (folder / f"0518{RUC}{name_of(month)}{kind}.TXT").read_bytes()
    text = re.sub(rb"(\d\d)/(\d\d)/(\d{4})", moved, text)
    (folder / f"0518{RUC}{name_of(LAST)}{kind}.TXT").write_bytes(text)
    return [line.split("|") for line in text.decode("latin-1").splitlines()]


def total(amounts):
    return sum(map(decimal.Decimal, amounts))


def starts_import(screen, sample):
    screen.keys("alt+o")
    screen.opens(IMPORT)
    screen.keys("alt+c", "ctrl+a")
    screen.fills(screen.path(sample))
    screen.keys("alt+a")


def imports(screen, sample):
    starts_import(screen, sample)
    screen.answers("Mensaje")
    screen.clicks(*CASH_SALES)
    screen.keys("alt+a")
    screen.answers("Confirmar", "alt+s")
    screen.answers("Mensaje")
    screen.keys("alt+s")
    screen.closes()
    screen.keys("alt+g")
    screen.answers(DECLARATION)
    screen.keys("alt+s")
    screen.closes()


def journey(screen):
    sample = screen.data / "EJEMPLO"
    lines, sales = as_last_month(sample, ""), as_last_month(sample, "VC")
    starts_module(screen)
    opens_new(screen, name_of(LAST))
    imports(screen, sample)
    leaves(screen)

    vouchers = {tuple(line[place] for place in (0, 1, 6, 7)): line[12] for line in lines}
    clients = {(line[0], line[1]) for line in lines + sales}
    screen.shows("select count(*) from F518PCAB", len(clients))
    found = {table: screen.rows(f"select {column} from {table}") for table, column in
             (("F518PDET", "mto_base_p"), ("F518PDETVC", "mto_base_p"), ("F518PDETCP", "mto_detcp"))}
    amounts = {table: [amount for (amount,) in rows] for table, rows in found.items()}
    assert len(amounts["F518PDET"]) == len(vouchers) and total(amounts["F518PDET"]) == total(vouchers.values())
    assert len(amounts["F518PDETCP"]) == len(lines)
    assert len(amounts["F518PDETVC"]) == len(sales)
    assert total(amounts["F518PDETVC"]) == total(line[12] for line in sales)
    screen.shows("select casilla, i_valor from DET where casilla in ('501', '510', '513', '516') order by 1",
                 ("501", str(len(clients))), ("510", str(len(vouchers))), ("513", str(len(sales))),
                 ("516", str(len(lines))))


if __name__ == "__main__":
    with Screen(sys.argv[1]) as screen:
        journey(screen)
