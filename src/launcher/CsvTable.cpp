#include "launcher/CsvTable.h"

#include "values/Error.h"

#include <QFile>

// The reader cuts the file names in its errors at 255 characters and ends them itself; the compiler sees only the cut.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wstringop-truncation"
#endif
#include <libfccp/csv.h>

#include <array>
#include <string>
#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The reader fixes the number of columns when it is compiled: it gets room for the widest file, and the columns that
/// a narrower one lacks keep names that no header has.
constexpr unsigned kMaxColumnas = 16;

using Textos = std::array<std::string, kMaxColumnas>;
using Lector = io::CSVReader<kMaxColumnas, io::trim_chars<' '>, io::double_quote_escape<',', '"'>>;

Textos NombresDe(const QStringList& columnas) {
    Textos nombres;
    for (unsigned i = 0; i < kMaxColumnas; ++i)
        nombres[i] = i < columnas.size() ? columnas[i].toStdString() : '\x01' + std::to_string(i);
    return nombres;
}

template <std::size_t... I>
void LeeCabecera(Lector& lector, const Textos& nombres, std::index_sequence<I...>) {
    lector.read_header(io::ignore_missing_column, nombres[I]...);
}

template <std::size_t... I>
bool LeeFila(Lector& lector, Textos& valores, std::index_sequence<I...>) {
    return lector.read_row(valores[I]...);
}

void ExigeColumnas(const Lector& lector, const QStringList& columnas) {
    for (const QString& columna : columnas) {
        if (!lector.has_column(columna.toStdString()))
            throw Error(NumeroError::ArgumentoInvalido, u"Falta la columna '%1'."_s.arg(columna));
    }
}

QList<QStringList> LeeFilas(Lector& lector, qsizetype cuantas) {
    QList<QStringList> filas;
    Textos valores;
    while (LeeFila(lector, valores, std::make_index_sequence<kMaxColumnas>())) {
        QStringList fila;
        for (qsizetype i = 0; i < cuantas; ++i)
            fila.append(QString::fromStdString(valores[static_cast<std::size_t>(i)]));
        filas.append(fila);
    }
    return filas;
}

} // namespace

QList<QStringList> LeeCsv(const QString& nombre, const QByteArray& contenido, const QStringList& columnas) {
    Q_ASSERT(columnas.size() <= kMaxColumnas);
    try {
        Lector lector(nombre.toStdString(), contenido.constData(), contenido.constData() + contenido.size());
        LeeCabecera(lector, NombresDe(columnas), std::make_index_sequence<kMaxColumnas>());
        ExigeColumnas(lector, columnas);
        return LeeFilas(lector, columnas.size());
    } catch (const io::error::base& error) {
        throw Error(NumeroError::ArgumentoInvalido, u"El archivo '%1' no tiene la forma de una tabla."_s.arg(nombre),
                    QString::fromUtf8(error.what()));
    }
}

QList<QStringList> LeeArchivoCsv(const QString& ruta, const QStringList& columnas) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw Error(NumeroError::ArchivoNoEncontrado, u"No se puede leer '%1'."_s.arg(ruta));
    return LeeCsv(ruta, archivo.readAll(), columnas);
}

} // namespace xa518
