"""The module wants the launcher beside it, and runs once."""

import sys

from month import leaves, starts_module
from screen import MODULE, Screen


def is_refused(screen, title):
    screen.launch("xa518")
    screen.opens(title)
    screen.keys("Return")
    screen.ends(code=1)


def journey(screen):
    is_refused(screen, "Error al ejecutar el módulo")
    starts_module(screen)
    is_refused(screen, "Declaración Pago Anual Impuesto a la Renta")
    screen.comes_back(MODULE)
    leaves(screen)


if __name__ == "__main__":
    with Screen(sys.argv[1]) as screen:
        journey(screen)
