#include "values/Format.h"

#include <algorithm>

namespace xa518 {

namespace {

/// One section of a mask, taken apart.
struct Seccion {
    QStringView prefijo;
    QStringView sufijo;
    qsizetype enterosForzados = 0;
    qsizetype decimales = 0;
    qsizetype decimalesForzados = 0;
    bool agrupa = false;
    bool punto = false;
};

bool EsLugar(QChar c) {
    return c == u'#' || c == u'0';
}

bool EsDeNumero(QChar c) {
    return EsLugar(c) || c == u',' || c == u'.';
}

Seccion Analiza(QStringView mascara) {
    Seccion seccion;
    const auto* primero = std::find_if(mascara.begin(), mascara.end(), EsDeNumero);
    const auto* ultimo = std::find_if_not(primero, mascara.end(), EsDeNumero);
    seccion.prefijo = mascara.first(primero - mascara.begin());
    seccion.sufijo = mascara.sliced(ultimo - mascara.begin());

    const QStringView lugares = mascara.sliced(primero - mascara.begin(), ultimo - primero);
    const qsizetype punto = lugares.indexOf(u'.');
    const QStringView enteros = punto < 0 ? lugares : lugares.first(punto);
    const QStringView decimales = punto < 0 ? QStringView() : lugares.sliced(punto + 1);
    seccion.punto = punto >= 0;
    seccion.agrupa = enteros.contains(u',');
    const qsizetype cero = enteros.indexOf(u'0');
    seccion.enterosForzados = cero < 0 ? 0 : std::count_if(enteros.begin() + cero, enteros.end(), EsLugar);
    seccion.decimales = decimales.size();
    seccion.decimalesForzados = decimales.lastIndexOf(u'0') + 1;
    return seccion;
}

QString AgrupaMillares(QString digitos) {
    for (qsizetype lugar = digitos.size() - 3; lugar > 0; lugar -= 3)
        digitos.insert(lugar, u',');
    return digitos;
}

Decimal Redondea(const Decimal& valor, const Seccion& seccion) {
    return valor.RedondeaFuera(static_cast<int>(seccion.decimales));
}

/// The absolute value, already rounded to the section's decimals, laid out by the section.
QString Compone(const Decimal& redondeado, const Seccion& seccion) {
    const QString texto = redondeado.Absoluto().Texto();
    const qsizetype punto = texto.indexOf(u'.');
    QString enteros = punto < 0 ? texto : texto.first(punto);
    QString decimales = punto < 0 ? QString() : texto.sliced(punto + 1);
    if (enteros == u"0")
        enteros.clear();
    enteros = enteros.rightJustified(seccion.enterosForzados, u'0');
    if (seccion.agrupa)
        enteros = AgrupaMillares(enteros);
    decimales = decimales.leftJustified(seccion.decimalesForzados, u'0');
    if (seccion.punto)
        enteros += u'.' + decimales;
    return seccion.prefijo.toString() + enteros + seccion.sufijo.toString();
}

} // namespace

QString Format(const Decimal& valor, QStringView mascara) {
    const qsizetype corte = mascara.indexOf(u';');
    if (corte >= 0 && valor.Signo() < 0) {
        const Seccion negativa = Analiza(mascara.sliced(corte + 1));
        const Decimal redondeado = Redondea(valor, negativa);
        if (redondeado.Signo() < 0) // what rounds to zero has no sign, so it belongs to the first section
            return Compone(redondeado, negativa);
    }
    const Seccion seccion = Analiza(corte < 0 ? mascara : mascara.first(corte));
    const Decimal redondeado = Redondea(valor, seccion);
    return (redondeado.Signo() < 0 ? QStringLiteral("-") : QString()) + Compone(redondeado, seccion);
}

QString Format(QStringView texto, QStringView mascara) {
    if (texto.isEmpty())
        return {};
    const std::optional<Decimal> valor = Decimal::Lee(texto);
    return valor ? Format(*valor, mascara) : texto.toString();
}

QString Format(Importe valor, QStringView mascara) {
    return Format(valor.ADecimal(), mascara);
}

QString Format(qint64 valor, QStringView mascara) {
    return Format(Decimal::DeEntero(valor), mascara);
}

} // namespace xa518
