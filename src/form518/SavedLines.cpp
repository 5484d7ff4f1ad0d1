#include "form518/SavedLines.h"

#include "values/DocumentCode.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kClientesGuardados = u"F518PCAB"_s;
const QString kPercepcionesGuardadas = u"F518PDET"_s;
const QString kVentasGuardadas = u"F518PDETVC"_s;
const QString kDetalleDePagos = u"F518PDETCP"_s;

QList<DatoComprobante> ComprobantesDe(ClaseDeComprobante clase) {
    QList<DatoComprobante> datos = DatosDeComprobantes();
    if (clase == ClaseDeComprobante::Percepcion)
        datos.removeOne(DatoComprobante::TipCp);
    return datos;
}

QList<DatoCliente> DatosDeClientes() {
    using enum DatoCliente;
    return {NumDoc, Razon, ApellidoP, ApellidoM, Nombres};
}

QStringList ColumnasDeClave(const ClaveDeclaracion& clave) {
    QStringList columnas{u"tip_doc_d"_s, u"Doc_id_d"_s, u"periodo"_s, u"Formulario"_s};
    if (clave.enviada)
        columnas.append(u"correl"_s);
    return columnas;
}

/// "A.x = D.x AND A.y = D.y".
QString Iguales(const QString& uno, const QString& otro, const QStringList& columnas) {
    QStringList partes;
    for (const QString& columna : columnas)
        partes.append(u"%1.%3 = %2.%3"_s.arg(uno, otro, columna));
    return partes.join(u" AND "_s);
}

/// The rows of that declaration, in a query that names the table so.
QString DeLaDeclaracion(const ClaveDeclaracion& clave, const QString& alias) {
    QStringList partes{alias + u".tip_doc_d = 6"_s};
    for (const QString& columna : ColumnasDeClave(clave).sliced(1))
        partes.append(u"%1.%2 = ?"_s.arg(alias, columna));
    return partes.join(u" AND "_s);
}

QStringList ColumnasDelCliente() {
    return ColumnasDe(ClaveDeClientes());
}

QStringList ColumnasDelComprobante() {
    using enum DatoComprobante;
    return ColumnasDe<DatoComprobante>({TipoDoc, NumDoc, Serie, Numero});
}

/// That no row of the table has those columns alike.
QString NoHay(const ClaveDeclaracion& clave, const QString& tabla, const QStringList& columnas) {
    return u" AND NOT EXISTS (SELECT 1 FROM %1 AS D WHERE %2)"_s.arg(
        clave.Tabla(tabla), Iguales(u"D"_s, u"A"_s, ColumnasDeClave(clave) + columnas));
}

/// The columns of each row in one text; the first is the client's type of document.
QStringList Nombradas(Registros filas) {
    QStringList nombres;
    while (filas.Siguiente()) {
        QStringList partes{CodigoDocumento(static_cast<int>(filas.Entero(0))).Texto()};
        for (int i = 1; i < filas.Columnas(); ++i)
            partes.append(filas.Texto(i));
        nombres.append(partes.join(u' '));
    }
    return nombres;
}

} // namespace

LineasGuardadas::LineasGuardadas(Base& base, const ClaveDeclaracion& clave, ClaseDeComprobante clase)
    : m_clase(clase)
    , m_comprobante(ComprobantesDe(clase), 0)
    , m_cliente(DatosDeClientes(), m_comprobante.Fin())
    , m_pago(DatosDePagos(), m_cliente.Fin())
    , m_filas(base.Lee(Sql(base, clave), clave.Valores())) {}

QString LineasGuardadas::Sql(Base& base, const ClaveDeclaracion& clave) const {
    const bool conPagos = m_clase == ClaseDeComprobante::Percepcion;
    const QStringList delaClave = ColumnasDeClave(clave);
    QString columnas = ListaDe(ComprobantesDe(m_clase), u"A"_s) + u", "_s + ListaDe(DatosDeClientes(), u"C"_s);
    QString desde = u"FROM %1 AS A LEFT JOIN %2 AS C ON %3"_s.arg(
        clave.Tabla(conPagos ? kPercepcionesGuardadas : kVentasGuardadas), clave.Tabla(kClientesGuardados),
        Iguales(u"C"_s, u"A"_s, delaClave + ColumnasDelCliente()));
    QString orden = base.NumeroDeFila(u"A"_s);
    if (conPagos) {
        columnas += u", "_s + ListaDe(DatosDePagos(), u"P"_s);
        desde += u" LEFT JOIN %1 AS P ON %2"_s.arg(clave.Tabla(kDetalleDePagos),
                                                   Iguales(u"P"_s, u"A"_s, delaClave + ColumnasDelComprobante()));
        orden += u", "_s + base.NumeroDeFila(u"P"_s);
    }
    return u"SELECT %1 %2 WHERE %3 ORDER BY %4"_s.arg(columnas, desde, DeLaDeclaracion(clave, u"A"_s), orden);
}

QString LineasGuardadas::Dato(DatoComprobante dato) const {
    return m_comprobante.Tiene(dato) ? m_filas.Texto(m_comprobante[dato]) : QString();
}

QString LineasGuardadas::Dato(DatoPago dato) const {
    return TienePago() ? m_filas.Texto(m_pago[dato]) : QString();
}

bool LineasGuardadas::TienePago() const {
    return m_clase == ClaseDeComprobante::Percepcion && !m_filas.EsNulo(m_pago[DatoPago::Numero]);
}

QStringList ClientesSinComprobante(Base& base, const ClaveDeclaracion& clave) {
    return Nombradas(
        base.Lee(u"SELECT %1 FROM %2 AS A WHERE %3%4%5 ORDER BY %6"_s.arg(
                     ListaDe(ClaveDeClientes(), u"A"_s), clave.Tabla(kClientesGuardados),
                     DeLaDeclaracion(clave, u"A"_s), NoHay(clave, kPercepcionesGuardadas, ColumnasDelCliente()),
                     NoHay(clave, kVentasGuardadas, ColumnasDelCliente()), base.NumeroDeFila(u"A"_s)),
                 clave.Valores()));
}

QStringList PagosSinComprobante(Base& base, const ClaveDeclaracion& clave) {
    return Nombradas(
        base.Lee(u"SELECT %1 FROM %2 AS A WHERE %3%4 ORDER BY %5"_s.arg(
                     ListaDe(ClaveDePagos(), u"A"_s), clave.Tabla(kDetalleDePagos), DeLaDeclaracion(clave, u"A"_s),
                     NoHay(clave, kPercepcionesGuardadas, ColumnasDelComprobante()), base.NumeroDeFila(u"A"_s)),
                 clave.Valores()));
}

} // namespace xa518
