"""A file with a dozen different faults: what is refused stands in the preview of the report of errors."""

import sys

from from_files import LAST, RUC, as_last_month, name_of, starts_import
from month import leaves, opens_new, starts_module
from screen import DECLARATION, Screen

FAULTS = 2026 * 12 + 10


def journey(screen):
    lines = as_last_month(screen.data / "EJEMPLO", "", FAULTS)
    starts_module(screen)
    opens_new(screen, name_of(LAST))
    starts_import(screen, screen.data / "EJEMPLO")
    screen.answers("Confirmar", "alt+s")
    screen.opens("Presentación Preliminar")
    screen.shows("select CodRep from SPOOL", "PER005")
    screen.keys("Escape")
    screen.closes()
    kept = sorted(screen.data.glob(f"RPT0518{RUC}*"))
    assert [path.suffix.lower() for path in kept] == [".err", ".log"], kept
    refused = kept[1].read_text(encoding="utf-8").splitlines()
    assert len(kept[0].read_text(encoding="utf-8").splitlines()) == len(refused) > 12
    assert set(line.count("|") for line in refused) == {len(lines[0]) - 1}
    screen.keys("alt+s")
    screen.closes()
    screen.keys("alt+s")
    screen.opens(DECLARATION)
    screen.keys("alt+n")
    screen.closes(2)
    leaves(screen)


if __name__ == "__main__":
    with Screen(sys.argv[1]) as screen:
        journey(screen)
