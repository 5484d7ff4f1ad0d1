#include "values/Decimal.h"

#include "values/Error.h"
#include "values/Text.h"

#include <algorithm>
#include <limits>

namespace xa518 {

namespace {

constexpr int kDigitosMaximos = 36;

/// The parts of a numeric text: what lies between sign or parentheses, split at the point.
struct Partes {
    bool negativo = false;
    QStringView enteros;
    QStringView decimales;
};

/// Digits without commas, or groups of three with the first one shorter at most.
bool EsParteEntera(QStringView texto) {
    qsizetype coma = texto.indexOf(u',');
    if (coma < 0)
        return SonDigitos(texto);
    if (coma == 0 || coma > 3 || !SonDigitos(texto.first(coma)))
        return false;
    QStringView resto = texto.sliced(coma);
    while (!resto.isEmpty()) {
        if (resto.size() < 4 || resto[0] != u',' || !SonDigitos(resto.sliced(1, 3)))
            return false;
        resto = resto.sliced(4);
    }
    return true;
}

std::optional<Partes> Separa(QStringView texto) {
    Partes partes;
    QStringView cuerpo = Recorta(texto);
    if (cuerpo.size() >= 2 && cuerpo.startsWith(u'(') && cuerpo.endsWith(u')')) {
        partes.negativo = true;
        cuerpo = cuerpo.sliced(1, cuerpo.size() - 2);
    } else if (cuerpo.startsWith(u'-') || cuerpo.startsWith(u'+')) {
        partes.negativo = cuerpo[0] == u'-';
        cuerpo = cuerpo.sliced(1);
    }
    const qsizetype punto = cuerpo.indexOf(u'.');
    partes.enteros = punto < 0 ? cuerpo : cuerpo.first(punto);
    partes.decimales = punto < 0 ? QStringView() : cuerpo.sliced(punto + 1);
    const bool vacio = partes.enteros.isEmpty() && partes.decimales.isEmpty();
    if (vacio || !EsParteEntera(partes.enteros) || !SonDigitos(partes.decimales))
        return std::nullopt;
    return partes;
}

/// The part that reads as a number from the start: sign, digits, one point.
QStringView ParteNumerica(QStringView texto) {
    const QStringView cuerpo = Recorta(texto);
    qsizetype fin = cuerpo.startsWith(u'-') || cuerpo.startsWith(u'+') ? 1 : 0;
    bool punto = false;
    for (; fin < cuerpo.size(); ++fin) {
        const QChar c = cuerpo[fin];
        if (c == u'.' && !punto)
            punto = true;
        else if (!EsDigito(c))
            break;
    }
    return cuerpo.first(fin);
}

Entero128 Potencia10(int exponente) {
    if (exponente > kDigitosMaximos + 1)
        throw Desbordamiento();
    Entero128 potencia = 1;
    for (int i = 0; i < exponente; ++i)
        potencia *= 10;
    return potencia;
}

void AgregaDigitos(Entero128& mantisa, QStringView digitos) {
    static const Entero128 tope = Potencia10(kDigitosMaximos - 1);
    for (const QChar c : digitos) {
        if (c == u',')
            continue;
        if (mantisa >= tope)
            throw Desbordamiento();
        mantisa = mantisa * 10 + (c.unicode() - u'0');
    }
}

bool Cabe(Entero128 mantisa) {
    static const Entero128 tope = Potencia10(kDigitosMaximos);
    return mantisa < tope && mantisa > -tope;
}

Entero128 Producto(Entero128 a, Entero128 b) {
    Entero128 resultado = 0;
    if (__builtin_mul_overflow(a, b, &resultado) || !Cabe(resultado))
        throw Desbordamiento();
    return resultado;
}

/// Of a value that has no more decimals than that; most terms of a sum have as many.
Entero128 MantisaCon(const Decimal& valor, int decimales) {
    return valor.Decimales() == decimales ? valor.Mantisa() : valor.RedondeaFuera(decimales).Mantisa();
}

enum class Empate { Fuera, Par };

/// `mantisa` divided by 10^`lugares`, rounded to nearest.
Entero128 DivideRedondeando(Entero128 mantisa, int lugares, Empate empate) {
    if (lugares > kDigitosMaximos)
        return 0;
    const Entero128 divisor = Potencia10(lugares);
    Entero128 cociente = mantisa / divisor;
    const Entero128 resto = mantisa % divisor;
    const Entero128 doble = (resto < 0 ? -resto : resto) * 2;
    const bool impar = cociente % 2 != 0;
    if (doble > divisor || (doble == divisor && (empate == Empate::Fuera || impar)))
        cociente += mantisa < 0 ? -1 : 1;
    return cociente;
}

QString DigitosDe(Entero128 valor) {
    if (valor == 0)
        return QStringLiteral("0");
    QString digitos;
    for (Entero128 resto = valor < 0 ? -valor : valor; resto > 0; resto /= 10)
        digitos.prepend(QChar(u'0' + static_cast<char16_t>(resto % 10)));
    return digitos;
}

} // namespace

bool EsNumerico(QStringView texto) {
    return Separa(texto).has_value();
}

bool EsNumericoCero(QStringView texto) {
    const auto esCeroOComa = [](QChar c) { return c == u'0' || c == u','; };
    const std::optional<Partes> partes = Separa(texto);
    return partes && std::all_of(partes->enteros.begin(), partes->enteros.end(), esCeroOComa) &&
           std::all_of(partes->decimales.begin(), partes->decimales.end(), esCeroOComa);
}

int SignoDelValor(QStringView texto) {
    const QStringView parte = ParteNumerica(texto);
    const bool esCero = std::none_of(parte.begin(), parte.end(), [](QChar c) { return c >= u'1' && c <= u'9'; });
    return esCero ? 0 : parte.startsWith(u'-') ? -1 : 1;
}

std::optional<Decimal> Decimal::Lee(QStringView texto) {
    const std::optional<Partes> partes = Separa(texto);
    if (!partes)
        return std::nullopt;
    Entero128 mantisa = 0;
    AgregaDigitos(mantisa, partes->enteros);
    AgregaDigitos(mantisa, partes->decimales);
    return Decimal(partes->negativo ? -mantisa : mantisa, static_cast<int>(partes->decimales.size()));
}

Decimal Decimal::Valor(QStringView texto) {
    return Lee(ParteNumerica(texto)).value_or(Decimal());
}

Decimal Decimal::RedondeaFuera(int decimales) const {
    if (decimales >= m_decimales)
        return {Producto(m_mantisa, Potencia10(decimales - m_decimales)), decimales};
    return {DivideRedondeando(m_mantisa, m_decimales - decimales, Empate::Fuera), decimales};
}

Decimal Decimal::RedondeaPar(int decimales) const {
    if (decimales >= m_decimales)
        return RedondeaFuera(decimales);
    return {DivideRedondeando(m_mantisa, m_decimales - decimales, Empate::Par), decimales};
}

QString Decimal::Texto() const {
    QString digitos = DigitosDe(m_mantisa).rightJustified(m_decimales + 1, u'0');
    if (m_decimales > 0) {
        digitos.insert(digitos.size() - m_decimales, u'.');
        while (digitos.endsWith(u'0'))
            digitos.chop(1);
        if (digitos.endsWith(u'.'))
            digitos.chop(1);
    }
    return m_mantisa < 0 ? u'-' + digitos : digitos;
}

Decimal operator*(const Decimal& a, const Decimal& b) {
    return {Producto(a.m_mantisa, b.m_mantisa), a.m_decimales + b.m_decimales};
}

Decimal operator+(const Decimal& a, const Decimal& b) {
    const int decimales = std::max(a.m_decimales, b.m_decimales);
    Entero128 suma = 0;
    if (__builtin_add_overflow(MantisaCon(a, decimales), MantisaCon(b, decimales), &suma) || !Cabe(suma))
        throw Desbordamiento();
    return {suma, decimales};
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
    const int decimales = std::max(a.m_decimales, b.m_decimales);
    const Entero128 izquierda = a.RedondeaFuera(decimales).m_mantisa;
    const Entero128 derecha = b.RedondeaFuera(decimales).m_mantisa;
    return izquierda < derecha   ? std::strong_ordering::less
           : izquierda > derecha ? std::strong_ordering::greater
                                 : std::strong_ordering::equal;
}

std::optional<Importe> Importe::Lee(QStringView texto) {
    const std::optional<Decimal> valor = Decimal::Lee(texto);
    return valor ? std::optional(De(*valor)) : std::nullopt;
}

Importe Importe::De(const Decimal& valor) {
    const Entero128 fijo = valor.RedondeaPar(4).Mantisa();
    if (fijo > std::numeric_limits<qint64>::max() || fijo < -std::numeric_limits<qint64>::max())
        throw Desbordamiento();
    return Importe(static_cast<qint64>(fijo));
}

Importe operator+(Importe a, Importe b) {
    qint64 suma = 0;
    if (__builtin_add_overflow(a.m_diezmilesimos, b.m_diezmilesimos, &suma) ||
        suma == std::numeric_limits<qint64>::min())
        throw Desbordamiento();
    return Importe(suma);
}

} // namespace xa518
