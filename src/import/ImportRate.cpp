#include "import/ImportRate.h"

#include "form518/Answers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString ClaseEnBandaB(const Respuestas& r) {
    if (r.cpFact == true && r.listado == true)
        return u"1"_s;
    return r.venta == true ? u"6"_s : u"2"_s;
}

QString ClaseEnBandaC(const Respuestas& r) {
    if (r.cpFact != true)
        return u"5"_s;
    return r.listado == true && r.medPago == true ? u"3"_s : u"4"_s;
}

QString Clase(Banda banda, const Respuestas& respuestas) {
    switch (banda) {
    case Banda::A: return respuestas.cpFact == true && respuestas.listado == true ? u"1"_s : u"2"_s;
    case Banda::B: return ClaseEnBandaB(respuestas);
    case Banda::C: break;
    }
    return ClaseEnBandaC(respuestas);
}

/// Wanted: for the means of payment stands the amount itself, so it is a yes only for an amount of exactly "1". The
/// file carries no answer about them, and none may be put in its place.
Respuestas RespuestasDe(const QString& credito, const QString& venta, const QString& lista, const QString& monto) {
    return {.cpFact = credito == u'1', .listado = lista == u'1', .venta = venta == u'1', .medPago = monto == u'1'};
}

} // namespace

TasaImportacion::TasaImportacion(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv)
    : m_catalogo(base, periodoDeclarado)
    , m_periodo(periodoDeclarado)
    , m_banda(BandaDe(periodoDeclarado, fechaPrimerIgv)) {}

FilaTasa TasaImportacion::NuevaTasa(const QString& credito, const QString& venta, const QString& lista,
                                    const QString& monto) {
    return m_catalogo.Busca(Clase(m_banda, RespuestasDe(credito, venta, lista, monto)), m_periodo);
}

bool TasaImportacion::Conoce(const LineaComprobada& linea) const {
    const Respuestas respuestas = RespuestasDe(linea[Campo::CreditoFiscal], linea[Campo::RespuestaVenta],
                                               linea[Campo::ListaClientes], linea[Campo::MontoCobrado]);
    return m_catalogo.Conoce(Clase(m_banda, respuestas), m_periodo);
}

} // namespace xa518
