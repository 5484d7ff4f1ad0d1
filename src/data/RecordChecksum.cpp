#include "data/RecordChecksum.h"

#include "data/Base.h"
#include "values/Decimal.h"
#include "values/Format.h"
#include "values/Text.h"

#include <QHash>

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

int PrimerosDe(const QString& tabla) {
    static const QHash<QString, int> primeros = {
        {u"CAB"_s, 5},       {u"DET"_s, 6},       {u"HCAB"_s, 6},        {u"HDET"_s, 6},
        {u"F518PCAB"_s, 6},  {u"F518PDET"_s, 8},  {u"F518PDETVC"_s, 9},  {u"F518PDETCP"_s, 10},
        {u"HF518PCAB"_s, 6}, {u"HF518PDET"_s, 8}, {u"HF518PDETVC"_s, 9}, {u"HF518PDETCP"_s, 10},
    };
    const auto entrada = primeros.constFind(tabla.toUpper());
    if (entrada == primeros.cend())
        throw ErrorBase(NumeroError::TablaNoExiste, u"La tabla %1 no lleva cNumero"_s.arg(tabla));
    return *entrada;
}

void PonChecksum(Registro& registro) {
    const Tabla& tabla = registro.DeTabla();
    registro.Pon(static_cast<int>(tabla.columnas.size()) - 1, ChecksumRegistro(registro, PrimerosDe(tabla.nombre)));
}

void AgregaConChecksum(Base& base, Registro& registro) {
    PonChecksum(registro);
    base.Agrega(registro);
}

} // namespace xa518
