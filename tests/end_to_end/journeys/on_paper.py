"""With the mouse: a saved month is previewed and kept as PDF, shown again by the launcher, and deleted."""

import sys

from month import leaves, starts_module
from screen import LAUNCHER, MODULE, Screen

RUC = "20990518018"
PERIOD = "202609"  # of the sample's file
PRINT, DELETE = (134, 40), (97, 40)  # on the toolbar
ROW_TO_PRINT, ROW_TO_DELETE = (150, 137), (150, 96)
PREVIEW = "Presentación Preliminar"
KEEP = "Guardar como PDF"


def keeps_it_as_pdf(screen):
    screen.clicks(*PRINT)
    screen.opens("Imprimir")
    screen.clicks(*ROW_TO_PRINT, times=2)
    screen.opens(PREVIEW)
    screen.shows("select CodRep, Archivo from SPOOL", ("PER006", "00000001.PRN"))
    screen.keys("ctrl+s")
    screen.opens(KEEP)
    paper = screen.data.parent / "month.pdf"
    screen.keys("ctrl+a")
    screen.fills(screen.path(paper))
    screen.answers(PREVIEW)  # where it lies, and its pages
    screen.closes()
    screen.until(lambda: paper.exists() and b"/Count 4" in paper.read_bytes(), "a document of four pages")
    screen.clicks(-45, 20)
    screen.closes()
    screen.clicks(-60, -25)
    screen.closes()


def is_shown_by_launcher(screen):
    screen.switches(LAUNCHER)
    screen.keys("alt+i", "Return")
    screen.opens(PREVIEW)
    screen.keys("Escape")
    screen.closes()
    screen.switches(MODULE)


def is_deleted(screen):
    screen.clicks(*DELETE)
    screen.opens("Eliminar Declaraciones")
    screen.clicks(*ROW_TO_DELETE, times=2)
    screen.opens("Eliminar Declaraciones")
    screen.clicks(-150, -25)
    screen.closes()
    for table in ("CAB", "DET", "F518PCAB", "F518PDET", "F518PDETCP"):
        screen.shows(f"select count(*) from {table}", 0)
    screen.clicks(-60, -25)
    screen.closes()


def journey(screen):
    screen.runs("xa518-lote", "declarar", "--ruc", RUC, "--periodo", PERIOD, "--percepciones",
                screen.data / "EJEMPLO", "--efectivo", "--hoy", "15/11/2026")
    starts_module(screen)
    keeps_it_as_pdf(screen)
    is_shown_by_launcher(screen)
    is_deleted(screen)
    leaves(screen)


if __name__ == "__main__":
    with Screen(sys.argv[1]) as screen:
        journey(screen)
