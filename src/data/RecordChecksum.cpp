#include "data/RecordChecksum.h"

#include "data/Base.h"
#include "values/Format.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMayorEntero16 = 32767;

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

QString UltimosTres(const Decimal& suma) {
    if (suma.Decimales() == 0 && suma.Signo() >= 0)
        return QString::number(static_cast<int>(suma.Mantisa() % 1000)).rightJustified(3, u'0');
    return Format(suma, u"00000000000000000000").right(15).right(3);
}

} // namespace

void Checksum::Numero(QStringView texto) {
    m_numeros = m_numeros + Decimal::Lee(texto).value_or(Decimal());
}

void Checksum::Texto(QStringView texto) {
    m_codigos += SumaDeCodigos(Recorta(texto));
}

QString Checksum::Digitos() const {
    return UltimosTres(m_numeros) + UltimosTres(Decimal::DeEntero(m_codigos));
}

QString ChecksumRegistro(const Registro& registro, int primeros) {
    Checksum checksum;
    const auto ultimo = static_cast<int>(registro.Valores().size()) - 1;
    for (int i = 0; i < primeros; ++i)
        checksum.Numero(registro.TextoDe(i));
    for (int i = primeros; i < ultimo; ++i)
        checksum.Texto(registro.TextoDe(i));
    return checksum.Digitos();
}

void PonChecksum(Registro& registro, int primeros) {
    registro.Pon(static_cast<int>(registro.Valores().size()) - 1, ChecksumRegistro(registro, primeros));
}

void AgregaConChecksum(Base& base, Registro& registro, int primeros) {
    PonChecksum(registro, primeros);
    base.Agrega(registro);
}

CamposDeCopia::CamposDeCopia(const Tabla& tabla, const CopiaDeFilas& copia)
    : expresiones(tabla.columnas.size() - 1, u"NULL"_s) {
    QList<QVariantList> valoresDe(expresiones.size());
    for (const DatoDeCopia& dato : copia.datos) {
        const int lugar = tabla.Indice(dato.columna);
        expresiones[lugar] = dato.expresion;
        valoresDe[lugar] = dato.valores;
    }
    for (const QVariantList& suyos : valoresDe)
        valores += suyos;
}

void CopiaConChecksum(Base& base, const CopiaDeFilas& copia, int primeros) {
    try {
        base.CopiaConChecksum(copia, primeros);
    } catch (const ErrorBase& falla) {
        if (falla.Es(NumeroError::Desbordamiento))
            throw Desbordamiento();
        throw;
    }
}

} // namespace xa518
