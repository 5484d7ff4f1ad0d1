#include "printouts/AmountText.h"

#include "values/Format.h"
#include "values/Text.h"

#include <array>
#include <optional>

namespace xa518 {

namespace {

constexpr qsizetype kEnterosMaximos = 12;
constexpr qsizetype kDecimales = 2;

struct Partes {
    bool negativo = false;
    QStringView enteros;
    QStringView decimales;
};

/// The parts of an amount that needs no rounding and no doubt: nothing for any other text, which goes the long way.
std::optional<Partes> Separa(QStringView monto) {
    Partes partes;
    partes.negativo = monto.startsWith(u'-');
    const QStringView cuerpo = partes.negativo ? monto.sliced(1) : monto;
    const qsizetype punto = cuerpo.indexOf(u'.');
    partes.enteros = punto < 0 ? cuerpo : cuerpo.first(punto);
    partes.decimales = punto < 0 ? QStringView() : cuerpo.sliced(punto + 1);
    const bool seguro = !partes.enteros.isEmpty() && partes.enteros.size() <= kEnterosMaximos &&
                        partes.decimales.size() <= kDecimales && SonDigitos(partes.enteros) &&
                        SonDigitos(partes.decimales);
    const bool empiezaEnCero = partes.enteros.startsWith(u'0');
    if (!seguro || (empiezaEnCero && (partes.enteros.size() > 1 || partes.negativo)))
        return std::nullopt;
    return partes;
}

QString Compone(const Partes& partes, QChar signo) {
    std::array<QChar, 24> lugar;
    QChar* escritura = lugar.begin();
    if (partes.negativo)
        *escritura++ = signo;
    qsizetype faltan = partes.enteros.size();
    for (const QChar c : partes.enteros) {
        *escritura++ = c;
        if (--faltan > 0 && faltan % 3 == 0)
            *escritura++ = u',';
    }
    *escritura++ = u'.';
    for (qsizetype i = 0; i < kDecimales; ++i)
        *escritura++ = i < partes.decimales.size() ? partes.decimales[i] : u'0';
    return QString(lugar.data(), escritura - lugar.begin());
}

} // namespace

QString MontoConParentesis(QStringView monto) {
    const std::optional<Partes> partes = Separa(monto);
    if (!partes)
        return Format(monto, u"###,###,###,##0.00;(###,###,###,##0.00)");
    QString texto = Compone(*partes, u'(');
    if (partes->negativo)
        texto += u')';
    return texto;
}

QString MontoConSigno(QStringView monto) {
    const std::optional<Partes> partes = Separa(monto);
    return partes ? Compone(*partes, u'-') : Format(monto, u"###,###,###,##0.00");
}

/// Sums of amounts in cents, as nearly all are, need no text in between.
QString MontoConSigno(const Decimal& monto) {
    constexpr Entero128 kCentimosMaximos = 99'999'999'999'999;
    const Entero128 mantisa = monto.Mantisa();
    if (monto.Decimales() == kDecimales && mantisa >= 100 && mantisa <= kCentimosMaximos) {
        const QString cifras = QString::number(static_cast<qint64>(mantisa));
        const QStringView vista(cifras);
        return Compone({false, vista.chopped(kDecimales), vista.last(kDecimales)}, u'-');
    }
    return MontoConSigno(QStringView(monto.Texto()));
}

} // namespace xa518
