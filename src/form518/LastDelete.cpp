#include "form518/LastDelete.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "form518/WorkOrder.h"
#include "form518/WorkTables.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

using Clase = UltimoBorrado::Clase;

QString ColumnasDeTabla(Base& base, const TablaDeTrabajo& tabla) {
    QStringList nombres;
    for (const Columna& columna : base.Describe(tabla.nombre).columnas)
        nombres.append(columna.nombre);
    return nombres.join(u", "_s);
}

const QString& DelCliente() {
    static const QString condicion = IgualesA(ClaveDeClientes());
    return condicion;
}

const QString& DelComprobante() {
    static const QString condicion = IgualesA(ClaveDeComprobantes());
    return condicion;
}

/// The payment vouchers that hang on it.
const QString& BajoElComprobante() {
    using enum DatoPago;
    static const QString condicion = IgualesA<DatoPago>({TipoDoc, NumDoc, SerieCp, NumeroCp});
    return condicion;
}

QVariantList Valores(const ClaveCliente& cliente) {
    return {cliente.tipoDoc.Valor(), cliente.numero};
}

QVariantList ValoresDePago(const ClaveComprobante& clave) {
    return Valores(clave.cliente) << clave.serie << clave.numero;
}

ClaveCliente ClienteBorrado(const Registros& fila) {
    return {.tipoDoc = CodigoDocumento(static_cast<int>(fila.Entero(0))), .numero = fila.Texto(1)};
}

bool EsDe(const ClaveCliente& uno, const ClaveCliente& otro) {
    return uno.tipoDoc == otro.tipoDoc && uno.numero.compare(otro.numero, Qt::CaseInsensitive) == 0;
}

bool CabeEn(const UltimoBorrado::Borrado& borrado, Clase clase, const ClaveComprobante& bajo) {
    if (borrado.clase != clase || clase == Clase::Cliente)
        return borrado.clase == clase;
    if (!EsDe(borrado.clave.cliente, bajo.cliente))
        return false;
    return clase == Clase::Comprobante ||
           (borrado.clave.serie == bajo.serie && borrado.clave.numero == bajo.numero && bajo.tipCp.isEmpty());
}

Mensaje VuelveEnOtraParte(const UltimoBorrado::Borrado& borrado) {
    const ClaveComprobante& clave = borrado.clave;
    const QString cliente = clave.cliente.numero;
    QString donde;
    switch (borrado.clase) {
    case Clase::Cliente:
        donde = u"el cliente %1. Para recuperarlo pulse Ctrl+Z en la lista de clientes."_s.arg(cliente);
        break;
    case Clase::Comprobante:
        donde = u"un comprobante del cliente %1. Para recuperarlo abra ese cliente y pulse Ctrl+Z en la lista de sus"
                " comprobantes."_s.arg(cliente);
        break;
    case Clase::Pago:
        donde = u"un comprobante de pago del comprobante %1-%2 del cliente %3. Para recuperarlo abra ese comprobante y"
                " pulse Ctrl+Z en la lista de sus comprobantes de pago."_s.arg(clave.serie, clave.numero, cliente);
        break;
    }
    return {Icono::Informacion, u"Lo último que se eliminó es "_s + donde, {}};
}

Mensaje RegistradoOtraVez() {
    return {Icono::Exclamacion,
            u"No se puede recuperar lo que se eliminó: desde entonces se registró otra vez con los mismos datos."_s,
            {}};
}

} // namespace

void UltimoBorrado::Copia(const TablaDeTrabajo& tabla, const QString& condicion, const QVariantList& valores) {
    const QString columnas = ColumnasDeTabla(*m_base, tabla);
    m_base->Ejecuta(u"INSERT INTO %1 (%2, orden) SELECT %2, %3 FROM %4 WHERE %5"_s.arg(
                        tabla.borradas, columnas, OrdenDeTrabajo(*m_base).Columna(), tabla.nombre, condicion),
                    valores);
}

void UltimoBorrado::Guarda(const ClaveCliente& cliente) {
    Olvida();
    for (const TablaDeTrabajo& tabla : TablasPorDependencia())
        Copia(tabla, DelCliente(), Valores(cliente));
}

void UltimoBorrado::Guarda(const ClaveComprobante& clave) {
    Olvida();
    Copia(TablaDeComprobantes(), DelComprobante(), ValoresDePago(clave) << clave.tipCp);
    if (clave.tipCp.trimmed().isEmpty())
        Copia(TablaDePagos(), BajoElComprobante(), ValoresDePago(clave));
}

void UltimoBorrado::Guarda(const ClavePago& clave) {
    Olvida();
    Copia(TablaDePagos(), IgualesA(ClaveDePagos()),
          ValoresDePago(clave.comprobante) << clave.tipo << clave.serie << clave.numero);
}

void UltimoBorrado::GuardaTambien(const ClaveCliente& cliente) {
    const std::optional<Borrado> ultimo = Que();
    if (!ultimo || !EsDe(ultimo->clave.cliente, cliente))
        return Guarda(cliente);
    Copia(TablaDeClientes(), DelCliente(), Valores(cliente));
}

void UltimoBorrado::GuardaTambien(const ClaveComprobante& clave) {
    const std::optional<Borrado> ultimo = Que();
    const bool eraSuyo = ultimo && ultimo->clase == Clase::Pago &&
                         ValoresDePago(ultimo->clave) == ValoresDePago(clave) && clave.tipCp.trimmed().isEmpty();
    if (!eraSuyo)
        return Guarda(clave);
    Copia(TablaDeComprobantes(), DelComprobante(), ValoresDePago(clave) << clave.tipCp);
}

std::optional<UltimoBorrado::Borrado> UltimoBorrado::Que() const {
    Registros clientes = m_base->Lee(u"SELECT tip_doc_per, num_doc_per FROM TMPF518BCAB"_s);
    if (clientes.Siguiente())
        return Borrado{Clase::Cliente, {.cliente = ClienteBorrado(clientes)}};
    Registros comprobantes =
        m_base->Lee(u"SELECT tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp FROM TMPF518BDET"_s);
    if (comprobantes.Siguiente())
        return Borrado{Clase::Comprobante,
                       {.cliente = ClienteBorrado(comprobantes),
                        .serie = comprobantes.Texto(2),
                        .numero = comprobantes.Texto(3),
                        .tipCp = comprobantes.Texto(4)}};
    Registros pagos = m_base->Lee(u"SELECT tip_doc_per, num_doc_per, num_serie_cp, num_cp FROM TMPF518BDETCP"_s);
    if (pagos.Siguiente())
        return Borrado{Clase::Pago,
                       {.cliente = ClienteBorrado(pagos), .serie = pagos.Texto(2), .numero = pagos.Texto(3)}};
    return std::nullopt;
}

UltimoBorrado::Vuelta UltimoBorrado::DevuelveEn(Clase clase, const ClaveComprobante& bajo) {
    const std::optional<Borrado> ultimo = Que();
    if (!ultimo)
        return {};
    if (!CabeEn(*ultimo, clase, bajo))
        return {.hecha = false, .motivo = VuelveEnOtraParte(*ultimo)};
    try {
        Devuelve();
    } catch (const ErrorBase& error) {
        if (!error.Es(NumeroError::ClaveDuplicada))
            throw;
        return {.hecha = false, .motivo = RegistradoOtraVez()};
    }
    return {.hecha = true};
}

/// The totals of a client come back as they stood, unless vouchers had gone from it one by one before.
void UltimoBorrado::Devuelve() {
    const std::optional<Borrado> ultimo = Que();
    if (!ultimo)
        return;
    const OrdenDeTrabajo orden(*m_base);
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    for (const TablaDeTrabajo& tabla : TablasPorDependencia()) {
        const QString columnas = ColumnasDeTabla(*m_base, tabla);
        m_base->Ejecuta(u"INSERT INTO %1 (%2, %3) SELECT %2, orden FROM %4"_s.arg(tabla.nombre, columnas,
                                                                                  orden.Columna(), tabla.borradas));
    }
    if (ultimo->clase == Clase::Cliente)
        TablasTrabajo(*m_base).RepasaTotales(ultimo->clave.cliente);
    else
        orden.AnotaCliente(ultimo->clave.cliente);
    Olvida();
    transaccion.Confirma();
}

void UltimoBorrado::Olvida() {
    for (const TablaDeTrabajo& tabla : TablasPorDependencia())
        m_base->Ejecuta(u"DELETE * FROM "_s + tabla.borradas);
}

} // namespace xa518
