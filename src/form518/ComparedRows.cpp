#include "form518/ComparedRows.h"

#include "data/Base.h"
#include "form518/DetailColumns.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A company's name, or a person's in full: the work tables and the stored ones keep the same parts of it.
QString SqlClientesDe(const QString& desde) {
    using enum DatoCliente;
    const QString nombre = u"CASE WHEN %1 = 6 AND mid(%2, 1, 2) = '20' THEN %3 ELSE %4 & ' ' & %5 & ' ' & %6 END"_s.arg(
        ColumnaDe(TipoDoc), ColumnaDe(NumDoc), ColumnaDe(Razon), ColumnaDe(ApellidoP), ColumnaDe(ApellidoM),
        ColumnaDe(Nombres));
    return u"SELECT %1, %2, %3, %4, %5 FROM %6"_s.arg(ColumnaDe(TipoDoc), ColumnaDe(NumDoc), nombre,
                                                      ColumnaDe(MontoBase), ColumnaDe(Percepcion), desde);
}

/// An ordinary voucher has no column of the type where it is stored.
QString SqlComprobantes(bool conTipo, const QString& desde) {
    QStringList columnas = ColumnasDe(DatosDeComprobantes());
    const QString tipo = ColumnaDe(DatoComprobante::TipCp);
    if (!conTipo)
        columnas.replace(columnas.indexOf(tipo), u"'' AS "_s + tipo);
    return u"SELECT %1 FROM %2"_s.arg(columnas.join(u", "_s), desde);
}

QString SqlPagos(const QString& desde) {
    return u"SELECT %1 FROM %2"_s.arg(ListaDe(DatosDePagos()), desde);
}

/// What one row has beside its key.
using Resto = QStringList;
using FilasPorClave = QHash<QStringList, Resto>;

/// The rows of a selection that the other doesn't have as they are.
FilasPorClave LeeDistintas(Base& base, const Seleccion& de, const Seleccion& otra, qsizetype clave) {
    FilasPorClave distintas;
    Registros filas = base.Lee(u"SELECT * FROM (%1) AS A EXCEPT SELECT * FROM (%2) AS B"_s.arg(de.sql, otra.sql),
                               de.valores + otra.valores);
    while (filas.Siguiente()) {
        QStringList llave;
        Resto resto;
        for (int i = 0; i < filas.Columnas(); ++i)
            (i < clave ? llave : resto).append(i < clave ? filas.Texto(i).toUpper() : filas.Texto(i));
        distintas.insert(llave, resto);
    }
    return distintas;
}

/// ".50" and "0.50" are one amount: what is typed and what is imported are written differently.
bool SonIguales(const QString& uno, const QString& otro) {
    if (uno == otro)
        return true;
    const std::optional<Decimal> valor = Decimal::Lee(uno);
    return valor && valor == Decimal::Lee(otro);
}

bool SonIguales(const Resto& uno, const Resto& otro) {
    return std::equal(uno.cbegin(), uno.cend(), otro.cbegin(), otro.cend(),
                      [](const QString& a, const QString& b) { return SonIguales(a, b); });
}

DocumentoDeCliente ClienteDe(const QStringList& llave) {
    return {llave.at(0).toInt(), llave.at(1)};
}

} // namespace

LadoComparado LadoComparado::DelTrabajo() {
    return {.clientes = {SqlClientesDe(u"TMPF518PCAB"_s), {}},
            .comprobantes = {SqlComprobantes(true, u"TMPF518PDET"_s), {}},
            .pagos = {SqlPagos(u"TMPF518PDETCP"_s), {}}};
}

LadoComparado LadoComparado::De(const ClaveDeclaracion& clave) {
    const auto filasDe = [&](const QString& tabla) { return clave.Tabla(tabla) + u' ' + clave.Condicion(); };
    const QString comprobantes = SqlComprobantes(false, filasDe(u"F518PDET"_s)) + u" UNION ALL "_s +
                                 SqlComprobantes(true, filasDe(u"F518PDETVC"_s));
    const QString pagos = clave.Tabla(u"F518PDETCP"_s) + u' ' + clave.CondicionSinTipo();
    return {.clientes = {SqlClientesDe(filasDe(u"F518PCAB"_s)), clave.Valores()},
            .comprobantes = {comprobantes, clave.Valores() + clave.Valores()},
            .pagos = {SqlPagos(pagos), clave.Valores()}};
}

ClientesLeidos LeeClientes(Base& base, const Seleccion& clientes) {
    ClientesLeidos leidos;
    Registros filas = base.Lee(clientes.sql, clientes.valores);
    while (filas.Siguiente())
        leidos.insert(
            {static_cast<int>(filas.Entero(0)), filas.Texto(1).toUpper()},
            {.nombre = filas.Texto(2).simplified(),
             .sumas = {.base = Importe::Valor(filas.Texto(3)), .percepcion = Importe::Valor(filas.Texto(4))}});
    return leidos;
}

MovimientosPorCliente ComparaFilas(Base& base, const Seleccion& antes, const Seleccion& despues, qsizetype clave) {
    FilasPorClave anteriores = LeeDistintas(base, antes, despues, clave);
    const FilasPorClave posteriores = LeeDistintas(base, despues, antes, clave);
    MovimientosPorCliente movimientos;
    for (auto fila = posteriores.cbegin(); fila != posteriores.cend(); ++fila) {
        const auto anterior = anteriores.constFind(fila.key());
        if (anterior == anteriores.cend())
            ++movimientos[ClienteDe(fila.key())].agregados;
        else if (!SonIguales(*anterior, *fila))
            ++movimientos[ClienteDe(fila.key())].cambiados;
        anteriores.remove(fila.key());
    }
    for (auto fila = anteriores.cbegin(); fila != anteriores.cend(); ++fila)
        ++movimientos[ClienteDe(fila.key())].quitados;
    return movimientos;
}

} // namespace xa518
