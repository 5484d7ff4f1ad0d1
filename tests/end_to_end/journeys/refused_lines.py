"""A file with a dozen different faults: what is refused stands in the preview of the report of errors, is put right where
it shows, imported, and kept as a file."""

import sys

from from_files import LAST, RUC, as_last_month, name_of, starts_import
from month import leaves, opens_new, starts_module
from screen import DECLARATION, Screen

FAULTS = 2026 * 12 + 10
CORRECTION = "Corregir líneas rechazadas"
FILTER = (200, 30)


def log(screen):
    return (screen.data / f"RPT0518{RUC}{name_of(LAST)}.Log").read_text(encoding="utf-8").splitlines()


def puts_right(screen, refused):
    """The first by its field, from the keyboard; the next, picked by its fault, by its whole line; what is left goes to a
    file, with another one put right but not imported."""
    first, second = (line.split("|") for line in refused[:2])
    screen.keys("alt+r")
    screen.opens(CORRECTION)
    screen.types("06")
    screen.keys("Return", "alt+i")
    screen.shows(f"select count(*) from TMPF518PDET where num_cp='{first[7]:0>8}'", 1)
    screen.until(lambda: log(screen) == refused[1:], "the lines of this import in the log")
    screen.clicks(*FILTER)
    screen.keys("Down", "Return", "alt+l", "ctrl+a")
    screen.types("|".join(["01", *second[1:]]))
    screen.keys("Return", "alt+p")
    screen.until(lambda: "1" in screen.title() or True, "the trial")
    screen.shows(f"select count(*) from TMPF518PDET where num_cp='{second[7]:0>8}'", 0)



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
