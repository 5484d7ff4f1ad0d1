#include "data/Base.h"
#include "form518/DetailColumns.h"
#include "printouts/DeclarationReport.h"
#include "printouts/PrintedClient.h"
#include "values/Decimal.h"
#include "values/Format.h"
#include "values/ObjetoUtil.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoMonto = 18;
constexpr int kLargoDocumento = 26; ///< characters up to the next box
constexpr int kLargoNombre = 40;

constexpr int kIzquierda = 180;
constexpr int kDerecha = 11000;
constexpr int kXBase = 7000;
constexpr int kXPercepcion = 9070;

/// Short name and number; a name too long for the column gives way, the number never.
QString Documento(const QString& corto, const QString& numero) {
    const qsizetype sobra = kLargoDocumento - 1 - numero.size();
    return (corto.left(std::max<qsizetype>(sobra, 0)) + u' ' + numero).trimmed();
}

QString MontoDeFila(const QString& monto) {
    return ObjetoUtil::AlineaDerecha(Format(monto, u"###,###,###,##0.00"), kAnchoMonto);
}

/// Rows show decimals and the total row drops them. Wanted: the declaration's boxes are whole amounts.
QString MontoDeTotal(const Decimal& monto) {
    return ObjetoUtil::AlineaDerecha(Format(monto, u"##,###,###,###,##0"), kAnchoMonto);
}

} // namespace

struct InformeDeclaracion::TotalesLista {
    Decimal base;
    Decimal percepcion;

    void Suma(const ClienteImpreso& cliente) {
        base = base + Decimal::Valor(cliente.base);
        percepcion = percepcion + Decimal::Valor(cliente.percepcion);
    }
};

void InformeDeclaracion::ListaClientes() {
    const ClaveDeclaracion& clave = m_datos->clave;
    const NombresDocumento nombres = CargarGrilla(*m_base);
    Registros filas = m_base->Lee(
        u"Select %1 from %2 %3 Order by %4"_s.arg(ClienteImpreso::Columnas().join(u", "_s), clave.Tabla(u"F518PCAB"_s),
                                                  clave.Condicion(), ColumnaDe(DatoCliente::NumDoc)),
        clave.Valores());
    TotalesLista totales;
    int impresas = 0;
    while (filas.Siguiente()) {
        const ClienteImpreso cliente = ClienteImpreso::De(filas, 0);
        if (impresas == 0)
            EncabezaLista();
        FilaCliente(cliente, nombres.value(cliente.tipoDoc));
        totales.Suma(cliente);
        if (++impresas % kClientesPorPagina == 0) {
            m_escritor->NuevaPagina();
            IniciaPagina();
            EncabezaLista();
        }
    }
    if (impresas > 0)
        FilaTotales(totales);
}

/// The first row keeps clear of the boxes of a sent copy, which reach down into the row at which the page starts.
void InformeDeclaracion::EncabezaLista() {
    m_posY += kAltoFila;
    CuadroEnFila(kIzquierda, kDerecha);
    TituloEnFila(370, u"PERCEPCIONES "_s);
    m_posY += kAltoFila;
    CuadroEnFila(kIzquierda, kDerecha);
    CuadroEnFila(kIzquierda, 2800);
    CuadroEnFila(6800, 9000);
    TituloEnFila(700, u"DOCUMENTO "_s);
    TituloEnFila(3500, u"NOMBRE O RAZON SOCIAL"_s);
    TituloEnFila(kXBase, u"MONTO COBRADO "_s);
    TituloEnFila(9440, u"PERCEPCIÓN"_s);
}

void InformeDeclaracion::FilaCliente(const ClienteImpreso& cliente, const QString& tipoDoc) {
    m_posY += kAltoFila;
    CuadroEnFila(kIzquierda, kDerecha);
    CuadroEnFila(2800, 6800);
    CuadroEnFila(6800, 9000);
    TextoEnFila(300, Documento(tipoDoc, cliente.numero));
    TextoEnFila(2900, cliente.nombre.left(kLargoNombre));
    TextoEnFila(kXBase, MontoDeFila(cliente.base));
    TextoEnFila(kXPercepcion, MontoDeFila(cliente.percepcion));
}

void InformeDeclaracion::FilaTotales(const TotalesLista& totales) {
    m_posY += kAltoFila;
    CuadroEnFila(kIzquierda, kDerecha);
    CuadroEnFila(6800, 9000);
    TextoEnFila(6200, u"TOTAL"_s);
    TextoEnFila(kXBase, MontoDeTotal(totales.base));
    TextoEnFila(kXPercepcion, MontoDeTotal(totales.percepcion));
}

} // namespace xa518
