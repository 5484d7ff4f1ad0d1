#include "declaration/Boxes.h"

#include "values/Error.h"
#include "values/Format.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPagosPrevios = 402;
constexpr QStringView kCalculado = u"#,###,###,##0";

size_t IndiceDe(int casilla) {
    const auto* lugar = std::find(kCasillasMonto.begin(), kCasillasMonto.end(), casilla);
    if (lugar == kCasillasMonto.end())
        throw Error(NumeroError::ArgumentoInvalido, u"No hay casilla de monto %1"_s.arg(casilla));
    return static_cast<size_t>(lugar - kCasillasMonto.begin());
}

/// A result below 0 earns no balance: it shows as "0".
QString NoNegativo(const Decimal& valor) {
    return valor.Signo() < 0 ? u"0"_s : Format(valor, kCalculado);
}

/// The absolute amount through a mask with parentheses; text that is no number stays as it is.
QString EntreParentesis(const QString& texto, QStringView mascara) {
    const std::optional<Decimal> valor = Decimal::Lee(texto);
    return valor ? Format(valor->Absoluto(), mascara) : texto;
}

} // namespace

bool EsMontoDeCasilla(QStringView texto) {
    return !texto.isEmpty() && texto.size() <= kCifrasDeCasilla && SonDigitos(texto);
}

Decimal ValorCasilla(const QString& texto) {
    return Decimal::Valor(Format(texto, u"#########0"));
}

QString TextoAlEntrar(int casilla, const QString& texto) {
    if (casilla != kPagosPrevios)
        return Format(texto, u"###########0");
    if (Recorta(texto).isEmpty())
        return texto;
    return Decimal::Valor(Format(texto, u"############")).Absoluto().Texto();
}

QString TextoAlSalir(int casilla, const QString& texto) {
    if (casilla != kPagosPrevios)
        return Format(texto, u"###,###,###,##0");
    return Recorta(texto).isEmpty() ? texto : EntreParentesis(texto, u"(###,###,###,##0)");
}

QString TextoDeGuardado(int casilla, const QString& valor) {
    return casilla == kPagosPrevios ? EntreParentesis(valor, u"(#,###,###,##0)") : Format(valor, kCalculado);
}

bool Montos::EsDeMonto(int casilla) {
    return std::find(kCasillasMonto.begin(), kCasillasMonto.end(), casilla) != kCasillasMonto.end();
}

const QString& Montos::Texto(int casilla) const {
    return m_textos[IndiceDe(casilla)];
}

void Montos::Pon(int casilla, const QString& texto) {
    m_textos[IndiceDe(casilla)] = texto;
}

void Montos::Cambia(int casilla, const QString& texto) {
    Pon(casilla, texto);
    switch (casilla) {
    case 401:
    case 402: return Calcular403();
    case 403:
    case 404: return Calcular405();
    case 410: return CalcularTotal();
    default: return;
    }
}

/// Prior payments are subtracted by their absolute value, since the box shows them in parentheses. More of them than
/// was perceived gives 0: there is no credit.
void Montos::Calcular403() {
    const bool vacias = Texto(401).isEmpty() && Texto(402).isEmpty();
    const Decimal resto = ValorCasilla(Texto(401)) + ValorCasilla(Texto(402)).Absoluto().Opuesto();
    Pon(403, vacias ? QString() : NoNegativo(resto));
    Calcular405();
}

void Montos::Calcular405() {
    const bool vacias = Texto(403).isEmpty() && Texto(404).isEmpty();
    Pon(405, vacias ? QString() : NoNegativo(ValorCasilla(Texto(403)) + ValorCasilla(Texto(404))));
}

void Montos::CalcularTotal() {
    m_importePagar = Texto(410).isEmpty() ? QString() : NoNegativo(ValorCasilla(Texto(410)));
}

} // namespace xa518
