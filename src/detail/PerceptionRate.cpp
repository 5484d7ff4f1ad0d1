#include "detail/PerceptionRate.h"

#include "data/Base.h"
#include "data/CatalogLayout.h"
#include "form518/DetailColumns.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kMontoMaximo = u"999999999999.99"_s;

QString ClaseEnBandaA(const Respuestas& r) {
    if (!*r.cpFact)
        return u"2"_s;
    if (!r.listado)
        return {};
    return *r.listado ? u"1"_s : u"2"_s;
}

QString ClaseEnBandaB(const Respuestas& r) {
    if (!r.venta)
        return {};
    if (*r.cpFact && r.listado == true)
        return u"1"_s;
    return *r.venta ? u"6"_s : u"2"_s;
}

QString ClaseEnBandaC(const Respuestas& r) {
    if (!*r.cpFact)
        return u"5"_s;
    if (!r.listado)
        return {};
    if (!*r.listado)
        return u"4"_s;
    if (!r.medPago)
        return {};
    return *r.medPago ? u"3"_s : u"4"_s;
}

} // namespace

QString ClaseTasa(Banda banda, const Respuestas& respuestas) {
    if (!respuestas.cpFact)
        return {};
    switch (banda) {
    case Banda::A: return ClaseEnBandaA(respuestas);
    case Banda::B: return ClaseEnBandaB(respuestas);
    case Banda::C: return ClaseEnBandaC(respuestas);
    }
    return {};
}

QString LblTipo(Periodo declarado, Periodo primerIgv, const Contestacion& cpFact) {
    if (cpFact != true)
        return u"3"_s;
    return HastaPrimerIgv(declarado, primerIgv) ? u"1"_s : u"2"_s;
}

TasaPercepcion::TasaPercepcion(Base& base, Periodo declarado, Periodo primerIgv)
    : m_banda(BandaDe(declarado, primerIgv)), m_catalogo(base, declarado) {}

FilaTasa TasaPercepcion::Calcular(const Respuestas& respuestas, Periodo emision) {
    return m_catalogo.Busca(ClaseTasa(m_banda, respuestas), emision);
}

QString TextoFactor(const QString& factor) {
    return Format(Importe::De(Decimal::Valor(factor) * Decimal::DeEntero(100)), u"##0.#0");
}

QString LimitaMonto(const QString& monto) {
    const Decimal valor = Decimal::Valor(Format(monto, kMascaraDeMonto));
    return valor > Decimal::Valor(kMontoMaximo) ? kMontoMaximo : monto;
}

QString Percepcion(const QString& monto, const FilaTasa& fila) {
    if (monto.isEmpty())
        return u" "_s; // one blank, not the empty text: wanted, it is no amount of 0
    const Decimal cobrado = Decimal::Valor(Format(monto, kMascaraDeMonto));
    return Format(Importe::De(cobrado * Decimal::Valor(fila.factor)), kMascaraDeMonto);
}

QString IniIgv(Base& base, const QString& argumento, const QString& numeroIgv, Periodo periodo) {
    const QString desde = TramosImpuesto::kDesde.Sql(u"ARGUMENTO");
    Registros filas = base.Lee(
        u"SELECT %1 AS PER, %2 AS IGV FROM PARAM WHERE numero=? AND %1<= ? AND %3=? "
        "order by %1"_s.arg(desde, TramosImpuesto::kTasa.Sql(u"FUNCION"), TramosImpuesto::kClase.Sql(u"ARGUMENTO")),
        {numeroIgv, periodo.Texto(), argumento});
    QString tasa;
    while (filas.Siguiente())
        tasa = Decimal::Valor(filas.Texto(u"IGV")).Texto();
    return tasa;
}

} // namespace xa518
