"""The month that the journeys declare, and how a person types it in: from the keyboard alone."""

import datetime

from screen import DECLARATION, LAUNCHER, MODULE

CLIENT = "Información del Sujeto de Percepción"
VOUCHER = "Detalle de la Percepción"
PAYMENT = "0518 - Detalle del Comprobante de Pago Involucrado"

TODAY = datetime.date.today()
DATE = TODAY.strftime("%d/%m/%Y")
PERIOD = TODAY.strftime("%Y%m")

COMPANY = ("06", "20991000004")
PERSON = ("01", "90104052")


def typed(date):
    return date.replace("/", "")


def starts_module(screen):
    screen.launch("consola")
    screen.opens(LAUNCHER)
    screen.keys("alt+m")
    screen.opens(MODULE)


def leaves(screen):
    """Both programs, the module first."""
    screen.keys("alt+d", "s")
    screen.comes_back(LAUNCHER)
    screen.keys("alt+F4")
    screen.ends()


def opens_new(screen, period=PERIOD, company=1):
    """A new declaration of the sample company, or of a later one of the list, on the page of its clients."""
    screen.keys("alt+d", "n")
    screen.opens(DECLARATION)
    screen.picks("Down", *["Down"] * (company - 1), "Return")
    screen.types(period[4:] + period[:4])
    screen.keys("alt+p")


def opens_client(screen, document, *names):
    screen.keys("alt+n")
    screen.opens(CLIENT)
    kind, number = document
    screen.types(kind)
    screen.keys("Tab")
    screen.types(number)
    screen.keys("Tab")
    screen.fills(*names)


def enters_voucher(screen, series, number, amount, *payments):
    """An ordinary perception voucher, its payments each as type, series, number and amount."""
    screen.keys("alt+n")
    screen.opens(VOUCHER)
    screen.keys("Tab")
    screen.fills(series, number, typed(DATE), amount)
    screen.keys("s", "Tab", "n", "Tab", "n")  # tax credit, listed client, materials for the damaged zone
    screen.keys("alt+n")
    screen.opens(PAYMENT)
    for kind, *fields, value in payments:
        screen.types(kind)
        screen.fills(*fields, typed(DATE), value)
        screen.keys("alt+a")
        screen.answers(PAYMENT)
    screen.keys("alt+s")
    screen.closes()
    accepts(screen)


def enters_cash_sale(screen, kind, series, number, amount):
    screen.keys("alt+n")
    screen.opens(VOUCHER)
    screen.keys("s", "Tab")
    screen.types(kind)
    screen.fills(series, number, typed(DATE), amount)
    screen.keys("n", "Tab", "n")
    accepts(screen)


def accepts(screen):
    screen.keys("alt+a")
    screen.closes()
