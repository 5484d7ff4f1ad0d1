#pragma once

#include "import/CheckedLine.h"
#include "import/SaleTypes.h"
#include "values/Period.h"
#include "values/Ruc.h"

#include <QDate>

#include <span>

namespace xa518 {

/// What a run's checks compare with, the same for all its lines.
struct ContextoImportacion {
    Ruc docDeclarante;
    Periodo periodoDeclarado;
    QDate hoy;
    TiposDeVenta ventas{}; ///< only filled for a file of cash sales
};

/// Checks one field, which comes trimmed and in upper case and may come back filled, cut or cleaned. The first fault
/// decides the code, so a check ends there; what it would go on to look at can't change the answer.
///
/// Wanted: four codes belong to the checks though no file raises them. "0854": a mother's surname may be empty, and one
/// that isn't can't become so, since it comes trimmed. "0876": no real date has a month below 1. "0983": an amount
/// below zero has been refused as not above it. "0201": a file with a line too short is refused whole, before its first
/// line.
using Comprobacion = Codigo (*)(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);

/// Checks a line's fields in their order, each by the function at its place; the line ends at its first refusal. A line
/// with too few fields is refused when those that it has have passed.
[[nodiscard]] Refutacion CompruebaLinea(std::span<const Comprobacion> comprobaciones, const QStringList& campos,
                                        const ContextoImportacion& contexto, LineaComprobada& linea);

/// Client.
Codigo CompruebaTipoDoc(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaNumDoc(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaRazonSocial(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaApellidoPaterno(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaApellidoMaterno(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaNombres(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);

/// Perception voucher.
Codigo CompruebaSeriePercepcion(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaNumeroPercepcion(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaFechaEmision(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaCreditoFiscal(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaRespuestaVenta(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaListaClientes(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaMontoCobrado(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);

/// Payment voucher.
Codigo CompruebaTipoCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaSerieCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaNumeroCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaFechaCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaMontoCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);

/// Cash-sale voucher, where its checks differ: the catalogue says which types there are.
Codigo CompruebaTipoDocVenta(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaNumDocVenta(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);
Codigo CompruebaTipoCpVenta(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto);

} // namespace xa518
