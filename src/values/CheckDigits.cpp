#include "values/CheckDigits.h"

#include "values/Text.h"

#include <array>

namespace xa518 {

namespace {

constexpr int kLargoMaximo = 17;
constexpr std::array<int, kLargoMaximo> kPesos = {6, 5, 4, 3, 2, 7, 6, 5, 4, 3, 2, 7, 6, 5, 4, 3, 2};

/// A character that is no digit counts 0.
int ValorDe(QChar c) {
    return EsDigito(c) ? c.unicode() - u'0' : 0;
}

int SumaPesada(QStringView numero) {
    int suma = 0;
    auto peso = kPesos.rbegin();
    for (auto c = numero.rbegin(); c != numero.rend(); ++c, ++peso)
        suma += ValorDe(*c) * *peso;
    return suma;
}

/// 11 and 10 don't fit one character: the rule of the tax administration makes them 1 and 0.
int DigitoDe(int resto) {
    const int digito = 11 - resto;
    return digito == 11 ? 1 : digito == 10 ? 0 : digito;
}

} // namespace

QString DigitoVerificador(QString& numero) {
    numero = Recorta(QStringView(numero).left(kLargoMaximo)).toString();
    if (numero.isEmpty())
        return {};
    return numero + QString::number(DigitoDe(SumaPesada(numero) % 11));
}

QString DigitosOrden(QString parte1, const QString& parte2) {
    const QString conDigito = DigitoVerificador(parte1); // cuts parte1 as well, and the text below uses what is left
    const QString d1 = Mid(conDigito, 9, 1).toString();
    // With an order number of ten digits this text has 19 characters and is cut to 17, so that its last digit and d1
    // don't count. Wanted: the administration computes it so.
    QString texto = parte1 + parte2 + d1;
    const QString d2 = DigitoVerificador(texto).right(1);
    return d1 + d2;
}

bool ValidaDigitosOrden(const QString& parte1, const QString& parte2, QStringView digitos) {
    return DigitosOrden(parte1, parte2) == digitos;
}

QString SumaTexto(int& contador, int paso) {
    contador += paso;
    return QString::number(contador);
}

} // namespace xa518
