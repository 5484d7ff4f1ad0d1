#!/usr/bin/env python3
"""Writes the sample company and its import files into catalog/0518/ejemplo. Every name and number is invented; the same
seed gives the same files, so run it again only to change the sample."""

import random
from dataclasses import dataclass, field
from decimal import ROUND_HALF_UP, Decimal
from pathlib import Path

DESTINO = Path(__file__).resolve().parent.parent / "catalog" / "0518" / "ejemplo"
AZAR = random.Random(518)
FORMULARIO = "0518"
PERIODO = "202609"
PERIODO_FALTAS = "202610"

RUBROS = ["COMERCIAL", "DISTRIBUIDORA", "FERRETERIA", "ABARROTES", "INVERSIONES", "BODEGAS", "ALMACENES", "REPUESTOS"]
LUGARES = ["ALTOS DEL MOLLE", "EL QUEÑUAL", "LA ALAMEDA", "CERRO PARDO", "DOS ACEQUIAS", "VALLE HONDO", "PEÑA BLANCA",
           "SAN ROQUILLO", "LA CAÑADA", "PUERTO CALMO", "EL TRÉBOL", "RÍO SECO"]
FORMAS = ["S.A.C.", "S.R.L.", "E.I.R.L.", "S.A."]
APELLIDOS = ["QUISPE", "NÚÑEZ", "ROJAS", "HUAMÁN", "PEÑA", "CASTRO", "IBÁÑEZ", "SALAS", "MEZA", "TORRES", "D'ANGELO",
             "VILCA", "OLAYA", "PRADO", "CÁRDENAS", "LUNA", "ZEVALLOS", "MUÑOZ", "ARCE", "BÉJAR"]
NOMBRES = ["MARÍA ELENA", "JOSÉ LUIS", "ROSA", "CARLOS", "ANA LUCÍA", "PEDRO", "JULIA", "ANDRÉS", "BEGOÑA", "TOMÁS",
           "LUZ", "MIGUEL ÁNGEL", "CARMEN", "RAÚL", "ÍÑIGO"]


def con_digito(diez):
    """A RUC from its first ten digits: modulus 11, weights 2 to 7 from the right."""
    suma = sum(int(c) * (2 + i % 6) for i, c in enumerate(reversed(diez)))
    return diez + {10: "0", 11: "1"}.get(11 - suma % 11, str(11 - suma % 11))


EMPRESA_RUC = con_digito("2099051801")
EMPRESA_NOMBRE = "MAYORISTA LOS QUEÑUALES S.A.C."


@dataclass
class Cliente:
    tipo: str
    numero: str
    razon: str = ""
    nombres: tuple = ("", "", "")
    credito: str = "0"
    listado: str = "0"

    def campos(self):
        return [self.tipo, self.numero, self.razon, *self.nombres]


@dataclass
class Percepcion:
    cliente: Cliente
    serie: str
    numero: int
    fecha: str
    zona: str
    pagos: list = field(default_factory=list)  # type, series, number, date, amount

    def cobrado(self):
        return sum((-m if t == "07" else m) for t, _, _, _, m in self.pagos)

    def lineas(self):
        cabeza = [*self.cliente.campos(), self.serie, str(self.numero), self.fecha, self.cliente.credito, self.zona,
                  self.cliente.listado, str(self.cobrado())]
        return [cabeza + [t, s, str(n), f, str(m)] for t, s, n, f, m in self.pagos]


def persona():
    return (AZAR.choice(APELLIDOS), AZAR.choice(APELLIDOS + [""]), AZAR.choice(NOMBRES))


def clientes():
    empresas = AZAR.sample([f"{r} {l} {f}" for r in RUBROS for l in LUGARES for f in FORMAS], 30)
    lista = [Cliente("06", con_digito(f"20{99100000 + 137 * i}"), razon=e, credito="1", listado=str(AZAR.randint(0, 1)))
             for i, e in enumerate(empresas)]
    lista += [Cliente("06", con_digito(f"10{99200000 + 211 * i}"), nombres=persona(), credito="1") for i in range(8)]
    lista += [Cliente("01", str(90100000 + 1013 * i), nombres=persona()) for i in range(16)]
    lista += [Cliente("04", f"{900100 + 17 * i:09d}", nombres=persona()) for i in range(3)]
    lista += [Cliente("07", f"AX{70100 + 29 * i}", nombres=persona()) for i in range(2)]
    lista.append(Cliente("03", "900004411", nombres=persona()))
    return lista


def fecha(dia, mes=9):
    return f"{dia:02d}/{mes:02d}/2026"


def monto():
    return (Decimal(AZAR.randint(4_000, 950_000)) / 100).quantize(Decimal("0.01"), ROUND_HALF_UP)


SERIES = {"01": "F001", "03": "B001", "08": "F001", "12": "0004", "99": "0009"}


def percepciones(lista, cuantas):
    numeros = {"01": 4100, "03": 8800, "08": 300, "12": 61000, "99": 700, "07": 150}
    resultado = []
    for i in range(cuantas):
        cliente = lista[i] if i < len(lista) else AZAR.choice(lista)
        dia = AZAR.randint(2, 28)
        p = Percepcion(cliente, AZAR.choice(["P001", "0002"]), 20_000 + i, fecha(dia), AZAR.choice("0000001"))
        tipos = ["01", "01", "01", "08", "12"] if cliente.credito == "1" else ["03", "03", "12", "99"]
        if p.zona != "0":
            tipos = [t for t in tipos if t != "03"]  # a sales ticket doesn't go with the emergency zone
        for _ in range(AZAR.choice([1, 1, 1, 2, 3])):
            tipo = AZAR.choice(tipos)
            numeros[tipo] += 1
            p.pagos.append((tipo, SERIES[tipo], numeros[tipo], fecha(AZAR.randint(1, dia), AZAR.choice([9, 9, 8])), monto()))
        if i % 12 == 5:
            numeros["07"] += 1
            parte = (p.pagos[0][4] / 5).quantize(Decimal("0.01"), ROUND_HALF_UP)
            p.pagos.append(("07", "F001", numeros["07"], p.fecha, parte))
        resultado.append(p)
    return resultado


def ventas_al_contado(lista):
    sin_letras = [c for c in lista if c.numero.isdigit()]
    filas = []
    for i in range(24):
        cliente = AZAR.choice(sin_letras)
        tipo = AZAR.choice(["01", "12"] if cliente.credito == "1" else ["03", "12"])
        zona = "0"
        filas.append([*cliente.campos(), SERIES[tipo], str(91_000 + i), fecha(AZAR.randint(1, 28)), cliente.credito, zona,
                      cliente.listado, str(monto()), tipo])
    return filas


def buena(cliente, numero, pago="01"):
    return [*cliente.campos(), "P001", str(numero), fecha(15, 10), cliente.credito, "0", cliente.listado, "118.00", pago,
            SERIES[pago], str(numero + 500), fecha(14, 10), "118.00"]


def con(fila, **cambios):
    fila = list(fila)
    for campo, valor in cambios.items():
        fila[int(campo[1:]) - 1] = valor
    return fila


def mes_con_faltas(lista):
    """Each faulty line stands between good ones; the code that refuses it is told behind it."""
    empresa, natural, dni = lista[0], lista[30], lista[38]
    faltas = [
        con(buena(empresa, 30_101), c1="006"),  # 0888
        con(buena(dni, 30_102, "03"), c1="05"),  # 0009
        con(buena(empresa, 30_103), c2=EMPRESA_RUC),  # 0221
        con(buena(empresa, 30_104), c2=empresa.numero[:10] + str((int(empresa.numero[10]) + 5) % 10)),  # 0001
        con(buena(dni, 30_105, "03"), c2=dni.numero[:7]),  # 0010
        con(buena(natural, 30_106), c3="BODEGA DE LA ESQUINA"),  # 0992
        con(buena(empresa, 30_107), c4="ROJAS"),  # 0993
        con(buena(dni, 30_108, "03"), c4="DE LA PUERTA Y FERNANDEZ DE LEON"),  # 0889
        con(buena(empresa, 30_109), c7="P0001"),  # 0857
        con(buena(empresa, 30_110), c9="30/09/2026"),  # 0991
        con(buena(empresa, 30_111), c9="15/10/2099"),  # 0989
        con(buena(empresa, 30_112), c12="2"),  # 0873
        con(buena(empresa, 30_113), c13="11O.00"),  # 0885
        con(buena(empresa, 30_114), c14="05"),  # 0883
        con(buena(empresa, 30_115), c14="03"),  # 0891
        con(buena(empresa, 30_116), c17="02/11/2026"),  # 0868
        con(buena(empresa, 30_117), c18=""),  # 0984
        con(buena(empresa, 30_118), c18="-118.00"),  # 0988
        con(buena(empresa, 30_001), c13="236.00", c16="30990"),  # 0872: same voucher, another amount
        buena(natural, 30_002),  # 0228: the same line again
    ]
    filas = [buena(empresa, 30_001), buena(natural, 30_002), buena(dni, 30_003, "03")]
    for i, falta in enumerate(faltas):
        filas.append(falta)
        if i % 2:
            filas.append(buena(lista[40 + i], 30_010 + i, "03") if lista[40 + i].credito == "0" else buena(lista[1], 30_010 + i))
    return filas


def escribe(nombre, filas, codificacion, fin):
    texto = "".join("|".join(fila) + "|" + fin for fila in filas)
    (DESTINO / nombre).write_bytes(texto.encode(codificacion))


def main():
    DESTINO.mkdir(parents=True, exist_ok=True)
    lista = clientes()
    lineas = [linea for p in percepciones(lista, 150) for linea in p.lineas()]
    escribe(f"{FORMULARIO}{EMPRESA_RUC}{PERIODO}.TXT", lineas, "cp1252", "\r\n")
    escribe(f"{FORMULARIO}{EMPRESA_RUC}{PERIODO}VC.TXT", ventas_al_contado(lista), "utf-8", "\n")
    escribe(f"{FORMULARIO}{EMPRESA_RUC}{PERIODO_FALTAS}.TXT", mes_con_faltas(lista), "utf-8", "\n")
    (DESTINO / "empresa.csv").write_text(f"ruc,nombre\n{EMPRESA_RUC},{EMPRESA_NOMBRE}\n", encoding="utf-8")
    print(f"{len(lista)} clientes, {len(lineas)} líneas")


if __name__ == "__main__":
    main()
