#include "import/ImportRate.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

struct Respuestas {
    bool credito;
    bool venta;
    bool lista;
    bool monto;
};

QString ClaseEnBandaB(const Respuestas& r) {
    if (r.credito && r.lista)
        return u"1"_s;
    return r.venta ? u"6"_s : u"2"_s;
}

QString ClaseEnBandaC(const Respuestas& r) {
    if (!r.credito)
        return u"5"_s;
    return r.lista && r.monto ? u"3"_s : u"4"_s;
}

QString Clase(Banda banda, const Respuestas& respuestas) {
    switch (banda) {
    case Banda::A: return respuestas.credito && respuestas.lista ? u"1"_s : u"2"_s;
    case Banda::B: return ClaseEnBandaB(respuestas);
    case Banda::C: break;
    }
    return ClaseEnBandaC(respuestas);
}

} // namespace

TasaImportacion::TasaImportacion(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv)
    : m_catalogo(base, periodoDeclarado)
    , m_periodo(periodoDeclarado)
    , m_banda(BandaDe(periodoDeclarado, fechaPrimerIgv)) {}

/// Wanted: the fourth answer is the amount itself, so it is a yes only for an amount of exactly "1". The file carries
/// no answer about means of payment, and none may be put in its place.
FilaTasa TasaImportacion::NuevaTasa(const QString& credito, const QString& venta, const QString& lista,
                                    const QString& monto) {
    return m_catalogo.Busca(Clase(m_banda, {credito == u'1', venta == u'1', lista == u'1', monto == u'1'}), m_periodo);
}

} // namespace xa518
