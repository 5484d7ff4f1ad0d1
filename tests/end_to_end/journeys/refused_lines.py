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


def has_imported(screen, line):
    """With its client's total, which comes last."""
    number = line.split("|")[7]
    screen.shows(f"select count(*) from TMPF518PDET where num_cp='{number:0>8}'", 1)
    screen.shows("select (select sum(mto_base_p * 1) from TMPF518PCAB) = (select sum(mto_base_p * 1) from TMPF518PDET)", 1)


def saves(screen, folder):
    """The lines that are left; they are asked about no more."""
    folder.mkdir()
    screen.keys("alt+g")
    screen.opens("Guardar como archivo")
    screen.types(screen.path(folder))
    screen.keys("Return")
    screen.closes()
    saved = folder / f"0518{RUC}{name_of(LAST)}.TXT"
    screen.until(saved.exists, "the file")
    return saved.read_bytes().decode("cp1252").split("\r\n")[:-1]


def puts_right(screen, refused):
    """A field from the keyboard, imported; a whole line, picked by its fault with the mouse, imported; a third one that only
    goes to a file, with those that are left."""
    screen.keys("alt+r")
    screen.opens(CORRECTION)
    screen.types("06")
    screen.keys("Return", "alt+i")
    has_imported(screen, refused[0])
    screen.shows("select count(*) from SPOOL", 2)
    assert log(screen) == refused[1:], "the lines that this import has refused"

    screen.clicks(*FILTER)
    screen.keys("Down", "Return", "alt+l", "Home", "Delete", "Delete")
    screen.types("01")
    screen.keys("Return", "alt+i")
    has_imported(screen, refused[1])
    assert log(screen) == refused[1:], "which stays, as this one has refused none"

    screen.keys("alt+f")
    screen.types("20991000004")
    screen.keys("Return")
    left = saves(screen, screen.folder / "corregido")
    changed = [new for old, new in zip(refused[2:], left, strict=True) if old != new]
    assert len(changed) == 1 and "|20991000004|" in changed[0], changed
    screen.keys("alt+s")
    screen.closes()


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
    puts_right(screen, refused)
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
