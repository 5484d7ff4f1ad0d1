#include "launcher/TableCopy.h"

#include "data/Base.h"
#include "data/LongReading.h"
#include "data/NewRows.h"

#include <QCryptographicHash>

#include <limits>
#include <optional>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kFilasPorEnvio = 5000;
const QString kColumnaDeSuma = u"cNumero"_s;

QStringList NombresDe(const Tabla& tabla) {
    QStringList nombres;
    for (const Columna& columna : tabla.columnas)
        nombres.append(columna.nombre);
    return nombres;
}

QString SqlEnOrden(const Base& base, const Tabla& tabla) {
    return u"SELECT %1 FROM %2 ORDER BY %3"_s.arg(NombresDe(tabla).join(u", "_s), tabla.nombre,
                                                  base.NumeroDeFila(tabla.nombre));
}

/// Sums up the rows of a table as they go by.
class Sumador {
  public:
    explicit Sumador(const Tabla& tabla) {
        const auto ultima = static_cast<int>(tabla.columnas.size()) - 1;
        if (tabla.columnas[ultima].nombre.compare(kColumnaDeSuma, Qt::CaseInsensitive) == 0)
            m_columnaDeSuma = ultima;
    }

    void Pon(const Registros& fila) {
        ++m_huella.filas;
        if (m_columnaDeSuma)
            m_huella.suma += fila.Texto(*m_columnaDeSuma).toLongLong();
        for (int columna = 0; columna < fila.Columnas(); ++columna) {
            // The length comes first, so that no value can pass for a piece of its neighbour.
            const QByteArray valor = fila.Texto(columna).toUtf8();
            m_firma.addData(fila.EsNulo(columna) ? "-"_ba : QByteArray::number(valor.size()) + ':' + valor);
        }
    }
    [[nodiscard]] HuellaDeTabla Termina() {
        m_huella.firma = m_firma.result();
        return m_huella;
    }

  private:
    HuellaDeTabla m_huella;
    QCryptographicHash m_firma{QCryptographicHash::Md5};
    std::optional<int> m_columnaDeSuma;
};

int EnteroDe(const Registros& fila, int columna) {
    const qint64 entero = fila.Entero(columna);
    if (entero < std::numeric_limits<int>::min() || entero > std::numeric_limits<int>::max())
        throw Desbordamiento();
    return static_cast<int>(entero);
}

/// Packs a row as the table has declared it.
void Empaca(const Registros& fila, const Tabla& tabla, FilasNuevas& filas) {
    for (int columna = 0; columna < fila.Columnas(); ++columna) {
        if (fila.EsNulo(columna))
            filas.PonNulo();
        else if (tabla.columnas[columna].entera)
            filas.Pon(EnteroDe(fila, columna));
        else
            filas.Pon(fila.Texto(columna));
    }
    filas.CierraFila();
}

void Vierte(Base& destino, FilasNuevas& filas) {
    if (!destino.AgregaFilas(filas).isEmpty())
        throw ErrorBase(NumeroError::ClaveDuplicada,
                        u"La tabla %1 tiene dos filas con la misma clave."_s.arg(filas.NombreDeTabla()));
    filas.Vacia();
}

} // namespace

HuellaDeTabla HuellaDe(Base& base, const QString& tabla, const AlLeerFila& alLeer) {
    const LecturaLarga conPocaMemoria(base);
    const Tabla& forma = base.Describe(tabla);
    Sumador sumador(forma);
    Registros fila = base.Lee(SqlEnOrden(base, forma));
    while (fila.Siguiente()) {
        alLeer();
        sumador.Pon(fila);
    }
    return sumador.Termina();
}

HuellaDeTabla CopiaTabla(Base& origen, Base& destino, const QString& tabla, const AlLeerFila& alLeer) {
    const LecturaLarga conPocaMemoria(origen);
    const Tabla& forma = origen.Describe(tabla);
    FilasNuevas filas(destino.Describe(tabla), NombresDe(forma));
    Sumador sumador(forma);
    Registros fila = origen.Lee(SqlEnOrden(origen, forma));
    while (fila.Siguiente()) {
        alLeer();
        sumador.Pon(fila);
        Empaca(fila, forma, filas);
        if (filas.Cuantas() >= kFilasPorEnvio)
            Vierte(destino, filas);
    }
    Vierte(destino, filas);
    return sumador.Termina();
}

qint64 CuentaDeFilas(Base& base, const QString& tabla) {
    Registros fila = base.Lee(u"SELECT count(*) FROM "_s + tabla);
    return fila.Siguiente() ? fila.Entero(0) : 0;
}

} // namespace xa518
