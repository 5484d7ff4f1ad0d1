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

// The fields stand in the statement twice, as what is stored and as what is summed.
void CopiaConChecksum(Base& base, const CopiaDeFilas& copia, int primeros) {
    const Tabla& tabla = base.Describe(copia.tabla);
    QStringList campos(tabla.columnas.size() - 1, u"NULL"_s);
    QList<QVariantList> valoresDe(campos.size());
    for (const DatoDeCopia& dato : copia.datos) {
        const int lugar = tabla.Indice(dato.columna);
        campos[lugar] = dato.expresion;
        valoresDe[lugar] = dato.valores;
    }
    QVariantList valores;
    for (const QVariantList& suyos : valoresDe)
        valores += suyos;
    const QString lista = campos.join(u", "_s);
    const QString sql = u"INSERT INTO %1 SELECT %2, checksum(%3, %2) "_s.arg(copia.tabla, lista).arg(primeros);
    try {
        base.Ejecuta(sql + copia.desde, valores + valores);
    } catch (const ErrorBase& falla) {
        if (falla.Es(NumeroError::Desbordamiento))
            throw Desbordamiento();
        throw;
    }
}

} // namespace xa518
