#include "values/Text.h"

#include <algorithm>
#include <array>

namespace xa518 {

namespace {

/// Windows-1252 from 128 to 159; elsewhere below 256 it agrees with Latin-1. The five codes that it leaves unused stand
/// for the control characters of the same number, so that no byte is lost and none turns into the end of a text.
constexpr std::array<char16_t, 32> kAltos = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr int kPrimerAlto = 128;
constexpr int kSinCodigo = u'?';

constexpr bool EsLatino(char16_t codigo) {
    return codigo < 128 || (codigo >= 160 && codigo < 256);
}

QChar Mayuscula(QChar c) {
    if (c.unicode() < kPrimerAlto) // most are
        return c >= u'a' && c <= u'z' ? QChar(char16_t(c.unicode() - (u'a' - u'A'))) : c;
    const QChar mayor = c.toUpper();
    const bool existe = CodigoWindows1252(mayor) != kSinCodigo;
    return existe ? mayor : c;
}

} // namespace

QStringView Recorta(QStringView texto) {
    qsizetype desde = 0;
    qsizetype hasta = texto.size();
    while (desde < hasta && texto[desde] == u' ')
        ++desde;
    while (hasta > desde && texto[hasta - 1] == u' ')
        --hasta;
    return texto.sliced(desde, hasta - desde);
}

QStringView Mid(QStringView texto, qsizetype desde, qsizetype largo) {
    const qsizetype inicio = std::clamp<qsizetype>(desde - 1, 0, texto.size());
    return texto.sliced(inicio, std::clamp<qsizetype>(largo, 0, texto.size() - inicio));
}

std::strong_ordering ComparaSinCaja(QStringView a, QStringView b) {
    const auto minuscula = [](QChar c) { return c >= u'A' && c <= u'Z' ? char16_t(c.unicode() + 32) : c.unicode(); };
    return std::lexicographical_compare_three_way(
        a.begin(), a.end(), b.begin(), b.end(),
        [&](QChar x, QChar y) -> std::strong_ordering { return minuscula(x) <=> minuscula(y); });
}

QString Mayusculas(QStringView texto) {
    QString resultado = texto.toString();
    for (QChar& c : resultado)
        c = Mayuscula(c);
    return resultado;
}

int CodigoWindows1252(QChar caracter) {
    const char16_t codigo = caracter.unicode();
    if (EsLatino(codigo))
        return codigo;
    const auto* const alto = std::find(kAltos.begin(), kAltos.end(), codigo);
    return alto == kAltos.end() ? kSinCodigo : kPrimerAlto + static_cast<int>(alto - kAltos.begin());
}

QString DecodificaWindows1252(QByteArrayView bytes) {
    QString texto(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), texto.begin(), [](char byte) {
        const auto codigo = static_cast<unsigned char>(byte);
        const bool alto = codigo >= kPrimerAlto && codigo < kPrimerAlto + kAltos.size();
        return alto ? QChar(kAltos[codigo - kPrimerAlto]) : QChar(char16_t{codigo});
    });
    return texto;
}

bool EsUtf8Valido(QByteArrayView bytes) {
    return bytes.isValidUtf8();
}

bool SonDigitos(QStringView texto) {
    return std::all_of(texto.begin(), texto.end(), EsDigito);
}

QString DecodificaCualquiera(QByteArrayView bytes) {
    return EsUtf8Valido(bytes) ? QString::fromUtf8(bytes) : DecodificaWindows1252(bytes);
}

} // namespace xa518
