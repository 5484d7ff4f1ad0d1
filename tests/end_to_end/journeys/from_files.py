"""A month taken from the sample's two text files, and what came of them counted against the files themselves."""

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


def starts_import(screen, sample):
    screen.keys("alt+o")
    screen.opens(IMPORT)
    screen.keys("alt+c", "ctrl+a")
    screen.fills(str(sample))
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
    sample = screen.folder / "xa/EJEMPLO"
    lines, sales = as_last_month(sample, ""), as_last_month(sample, "VC")
    starts_module(screen)
    opens_new(screen, name_of(LAST))
    imports(screen, sample)
    leaves(screen)

    vouchers = {(line[0], line[1], line[6], line[7]) for line in lines}
    clients = {(line[0], line[1]) for line in lines + sales}
    for table, rows in (("CAB", clients), ("DET", vouchers), ("DETVC", sales), ("DETCP", lines)):
        screen.shows(f"select count(*) from F518P{table}", len(rows))
    screen.shows("select casilla, i_valor from DET where casilla in ('501', '510', '513', '516') order by 1",
                 ("501", str(len(clients))), ("510", str(len(vouchers))), ("513", str(len(sales))),
                 ("516", str(len(lines))))


if __name__ == "__main__":
    with Screen(sys.argv[1]) as screen:
        journey(screen)
