#include "form518/WorkVouchers.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "form518/FormCatalogs.h"
#include "form518/LastDelete.h"
#include "form518/WorkOrder.h"
#include "form518/WorkPayments.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kComprobantes = u"TMPF518PDET"_s;

const QString& DelComprobante() {
    static const QString condicion = u" WHERE "_s + IgualesA(ClaveDeComprobantes());
    return condicion;
}

QVariantList Valores(const ClaveComprobante& clave) {
    return {clave.cliente.tipoDoc.Valor(), clave.cliente.numero, clave.serie, clave.numero, clave.tipCp};
}

/// An empty text is kept as null.
QVariant SinVacio(const QString& texto) {
    return texto.isEmpty() ? QVariant() : QVariant(texto);
}

} // namespace

QString TextoDePercepcion(const std::optional<Importe>& percepcion) {
    return percepcion ? Format(*percepcion, kMascaraDeMonto) : QString();
}

/// In the order of `ColumnaComprobante`.
ConsultaDeLista ComprobantesTrabajo::SqlDeCliente(const ClaveCliente& cliente) {
    using Tipo = TramosTipoComprobante;
    const QString descripcion =
        u"(Select %1 FROM param Where numero='233' And param.argumento=TMPF518PDET.%2 AND %3='1') as des_cdp"_s.arg(
            Tipo::kDescripcion.Sql(u"funcion"), ColumnaDe(TipCp), Tipo::kUso.Sql(u"FUNCION"));
    return {.columnas = ListaDe<DatoComprobante>(
                            {Serie, Numero, Fecha, MontoBase, Tasa, Percepcion, CpFact, ListaClie, MedPago, TipCp}) +
                        u", "_s + descripcion,
            .desde = u"FROM TMPF518PDET"_s,
            .tablas = {u"TMPF518PDET"_s},
            .filtro = IgualesA<DatoComprobante>({TipoDoc, NumDoc}),
            .valores = {cliente.tipoDoc.Valor(), cliente.numero}};
}

ComprobantesTrabajo::ComprobantesTrabajo(Base& base)
    : m_base(&base), m_tabla(&base.Describe(kComprobantes)), m_lugar(*m_tabla, DatosDeComprobantes()) {}

void ComprobantesTrabajo::PonCampos(Registro& fila, const CamposComprobante& campos) const {
    if (!campos.cpFact.isEmpty())
        fila.Pon(m_lugar[CpFact], campos.cpFact);
    fila.Pon(m_lugar[ListaClie], campos.listaClie)
        .Pon(m_lugar[MedPago], campos.medPago)
        .Pon(m_lugar[Fecha], campos.fecha)
        .Pon(m_lugar[MontoBase], SinVacio(campos.base.Texto()))
        .Pon(m_lugar[Percepcion], SinVacio(TextoDePercepcion(campos.percepcion)))
        .Pon(m_lugar[Tasa], campos.tasa);
}

bool ComprobantesTrabajo::Existe(const ClaveComprobante& clave) const {
    static const QString sql = u"SELECT count(*) FROM TMPF518PDET"_s + DelComprobante();
    Registros fila = m_base->Lee(sql, Valores(clave));
    return fila.Siguiente() && fila.Entero(0) > 0;
}

void ComprobantesTrabajo::Agrega(const ClaveComprobante& clave, const CamposComprobante& campos) {
    Registro fila(*m_tabla);
    fila.Pon(m_lugar[TipoDoc], clave.cliente.tipoDoc.Valor())
        .Pon(m_lugar[NumDoc], clave.cliente.numero)
        .Pon(m_lugar[Serie], clave.serie)
        .Pon(m_lugar[Numero], clave.numero)
        .Pon(m_lugar[TipCp], clave.tipCp);
    PonCampos(fila, campos);
    const OrdenDeTrabajo orden(*m_base);
    orden.Agrega(TablaDeComprobantes(), fila);
    orden.AnotaCliente(clave.cliente);
}

void ComprobantesTrabajo::Modifica(const ClaveComprobante& clave, const CamposComprobante& campos) {
    std::optional<Registro> fila = m_base->Busca(kComprobantes, DelComprobante(), Valores(clave));
    if (!fila)
        return;
    const QVariantList antes = fila->Valores();
    PonCampos(*fila, campos);
    m_base->Actualiza(*fila, DelComprobante(), Valores(clave));
    if (fila->Valores() == antes)
        return;
    const OrdenDeTrabajo orden(*m_base);
    orden.AnotaCambio(TablaDeComprobantes(), DelComprobante(), Valores(clave));
    orden.AnotaCliente(clave.cliente);
}

void ComprobantesTrabajo::Quita(const ClaveComprobante& clave) {
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s + DelComprobante(), Valores(clave));
    OrdenDeTrabajo(*m_base).AnotaCliente(clave.cliente);
}

void ComprobantesTrabajo::Borra(const ClaveComprobante& clave) {
    if (!Existe(clave))
        return; // what was deleted before it can still come back
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    UltimoBorrado(*m_base).GuardaTambien(clave);
    Quita(clave);
    transaccion.Confirma();
}

void ComprobantesTrabajo::Elimina(const ClaveComprobante& clave) {
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    UltimoBorrado(*m_base).Guarda(clave);
    if (clave.tipCp.trimmed().isEmpty())
        PagosTrabajo(*m_base).BorraDe(clave);
    Quita(clave);
    transaccion.Confirma();
}

void ComprobantesTrabajo::BarreAlSalir(const ClaveComprobante& clave, bool esNuevo, bool sinPagos) {
    const bool registrado = Existe(clave);
    if (!registrado)
        PagosTrabajo(*m_base).BorraDe(clave);
    else if (!esNuevo && sinPagos)
        Borra(clave);
}

} // namespace xa518
