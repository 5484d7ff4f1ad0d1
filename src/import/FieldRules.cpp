#include "import/FieldRules.h"

#include "values/Dates.h"
#include "values/Decimal.h"
#include "values/Format.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Longer numbers than amounts hold stand in no list.
constexpr qsizetype kLargoComparable = 36;
constexpr int kAnchoSerie = 4;

bool PasaNumero(QChar c) {
    return ObjetoUtil::EsTeclaNumero(c.unicode());
}

/// Digits, and the codes of Backspace and Enter, which come from the amount fields of the dialogs.
bool SoloNumero(QChar c) {
    return EsDigito(c) || c == QChar(8) || c == QChar(13);
}

bool EsMontoNumerico(QStringView campo, bool admiteSigno) {
    // Wanted: the sign can't come this far, since an amount not above zero is refused before.
    const QStringView cifras = admiteSigno && campo.startsWith(u'-') ? campo.sliced(1) : campo;
    return std::all_of(cifras.begin(), cifras.end(), [](QChar c) { return c == u'.' || SoloNumero(c); });
}

Codigo CompruebaAncho(QStringView campo, const ReglaMonto& regla) {
    const qsizetype punto = campo.indexOf(u'.');
    if ((punto < 0 ? campo.size() : punto) > regla.maximoEnteros)
        return regla.enteros;
    return punto >= 0 && campo.size() > regla.maximoEnteros + 3 ? regla.largo : kAceptado;
}

} // namespace

bool EstaEnLista(QStringView campo, QStringView lista) {
    return campo.size() <= kLargoComparable && lista.contains(Format(campo, u"00"));
}

bool CompletaSerie(QString& campo) {
    if (campo.isEmpty() || campo.size() > kAnchoSerie)
        return false;
    campo = ObjetoUtil::CompletaIzquierda(campo, kAnchoSerie, u'0');
    return ObjetoUtil::EsTeclaValida(campo.front().unicode()) &&
           std::all_of(campo.cbegin() + 1, campo.cend(), PasaNumero);
}

bool CompletaNumero(QString& campo, int ancho) {
    if (campo.isEmpty() || campo.size() > ancho)
        return false;
    campo = ObjetoUtil::CompletaIzquierda(campo, ancho, u'0');
    return std::all_of(campo.cbegin(), campo.cend(), PasaNumero) && SignoDelValor(campo) > 0;
}

std::optional<QDate> FechaImportada(QStringView campo) {
    if (!ObjetoUtil::FechaEnRango(campo, u"01/01/1850", u"01/01/2500"))
        return std::nullopt;
    return LeeFecha(campo);
}

bool Fechadesistema(const QDate& fecha, const QDate& hoy) {
    return fecha <= hoy;
}

bool EmpiezaConDigito(QStringView serie) {
    return !serie.isEmpty() && EsDigito(serie.front());
}

bool EsSerieConLetra(QStringView serie) {
    if (serie.size() < kAnchoSerie || !(EsLetra(serie.front()) || EsDigito(serie.front())))
        return false;
    const QStringView resto = serie.sliced(1, kAnchoSerie - 1);
    return std::none_of(resto.begin(), resto.end(), EsLetra);
}

Codigo CompruebaMonto(QStringView campo, const ReglaMonto& regla) {
    if (campo.isEmpty())
        return regla.vacio;
    if (SignoDelValor(campo) <= 0)
        return regla.noValido;
    if (!EsMontoNumerico(campo, regla.admiteSigno))
        return regla.noNumerico;
    // Wanted: amounts below zero have left above; the code stands for the day that rule changes.
    if (SignoDelValor(campo) < 0)
        return regla.negativo;
    if (campo.count(u'.') >= 2)
        return regla.puntos;
    return CompruebaAncho(campo, regla);
}

} // namespace xa518
