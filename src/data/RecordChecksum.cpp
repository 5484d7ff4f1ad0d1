#include "data/RecordChecksum.h"

#include "data/Base.h"
#include "values/Decimal.h"
#include "values/Format.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMayorEntero16 = 32767;

Decimal SumaDeNumeros(const Registro& registro, int primeros) {
    Decimal suma;
    for (int i = 0; i < primeros; ++i)
        suma = suma + Decimal::Lee(registro.TextoDe(i)).value_or(Decimal());
    return suma;
}

qint64 SumaDeCodigos(QStringView texto) {
    qint64 suma = 0;
    for (qsizetype j = 0; j < texto.size(); ++j) {
        const qint64 producto = CodigoWindows1252(texto[j]) * (j + 1);
        if (producto > kMayorEntero16) // sixteen bits, as the receiver computes it: past them there is no valid sum
            throw Desbordamiento();
        suma += producto;
    }
    return suma;
}

/// The position starts again in every field.
qint64 SumaDeTextos(const Registro& registro, int primeros) {
    qint64 suma = 0;
    const auto ultimo = static_cast<int>(registro.Valores().size()) - 1;
    for (int i = primeros; i < ultimo; ++i)
        suma += SumaDeCodigos(registro.TextoDe(i));
    return suma;
}

QString UltimosTres(const Decimal& suma) {
    return Format(suma, u"00000000000000000000").right(15).right(3);
}

} // namespace

QString ChecksumRegistro(const Registro& registro, int primeros) {
    return UltimosTres(SumaDeNumeros(registro, primeros)) +
           UltimosTres(Decimal::DeEntero(SumaDeTextos(registro, primeros)));
}

void PonChecksum(Registro& registro, int primeros) {
    registro.Pon(static_cast<int>(registro.Valores().size()) - 1, ChecksumRegistro(registro, primeros));
}

void AgregaConChecksum(Base& base, Registro& registro, int primeros) {
    PonChecksum(registro, primeros);
    base.Agrega(registro);
}

} // namespace xa518
