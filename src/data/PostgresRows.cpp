#include "data/PostgresRows.h"

#include "data/PostgresErrors.h"

#include <array>
#include <charconv>
#include <vector>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kEnvio = size_t(64) * 1024;

/// What a stretch of packed rows meets: all are in, or one stands there already and none is.
enum class Encuentro { Entran, Duplicada };

void Copia(PGconn* conexion, const FilasNuevas& filas, size_t desde, size_t hasta) {
    EntradaDeFilas entrada(conexion, filas.NombreDeTabla(), filas.Columnas());
    for (size_t fila = desde; fila < hasta; ++fila) {
        FilasNuevas::Lector lector = filas.Lee(fila);
        for (qsizetype columna = 0; columna < filas.Columnas().size(); ++columna) {
            const FilasNuevas::Valor valor = lector.Siguiente();
            std::array<char, 16> cifras{};
            if (valor.clase == FilasNuevas::Valor::Clase::Nulo)
                entrada.PonNulo();
            else if (valor.clase == FilasNuevas::Valor::Clase::Texto)
                entrada.Pon(valor.texto);
            else
                entrada.Pon({cifras.data(), std::to_chars(cifras.begin(), cifras.end(), valor.entero).ptr});
        }
        entrada.CierraFila();
    }
    entrada.Termina();
}

Encuentro Prueba(PGconn* conexion, const FilasNuevas& filas, size_t desde, size_t hasta) {
    Pide(conexion, u"SAVEPOINT filas_nuevas"_s);
    try {
        Copia(conexion, filas, desde, hasta);
        Pide(conexion, u"RELEASE SAVEPOINT filas_nuevas"_s);
        return Encuentro::Entran;
    } catch (const ErrorBase& error) {
        if (!error.Es(NumeroError::ClaveDuplicada))
            throw;
    }
    Pide(conexion, u"ROLLBACK TO SAVEPOINT filas_nuevas"_s);
    return Encuentro::Duplicada;
}

/// Rows that follow one another.
struct Trecho {
    size_t desde;
    size_t hasta;
};

/// A stretch with a duplicate is halved until that stands alone: few are, and the others go in by many. Tells which are
/// refused, in their order.
QList<size_t> Entran(PGconn* conexion, const FilasNuevas& filas) {
    QList<size_t> rechazadas;
    std::vector<Trecho> pendientes{{0, filas.Cuantas()}};
    while (!pendientes.empty()) {
        const Trecho tramo = pendientes.back();
        pendientes.pop_back();
        if (Prueba(conexion, filas, tramo.desde, tramo.hasta) == Encuentro::Entran)
            continue;
        const size_t medio = tramo.desde + (tramo.hasta - tramo.desde) / 2;
        if (medio == tramo.desde) {
            rechazadas.append(tramo.desde);
            continue;
        }
        pendientes.push_back({medio, tramo.hasta});
        pendientes.push_back({tramo.desde, medio});
    }
    return rechazadas;
}

} // namespace

ResultadoPg Pide(PGconn* conexion, const QString& sql) {
    ResultadoPg resultado(PQexec(conexion, sql.toUtf8().constData()));
    const ExecStatusType estado = PQresultStatus(resultado.get());
    if (PQstatus(conexion) == CONNECTION_BAD)
        throw ConexionPerdida(QString::fromUtf8(PQerrorMessage(conexion)).trimmed());
    if (estado != PGRES_COMMAND_OK && estado != PGRES_TUPLES_OK && estado != PGRES_COPY_IN)
        throw ErrorDeResultado(resultado.get());
    return resultado;
}

EntradaDeFilas::EntradaDeFilas(PGconn* conexion, const QString& tabla, const QStringList& columnas)
    : m_conexion(conexion) {
    Pide(conexion, u"COPY %1 (%2) FROM STDIN"_s.arg(tabla, columnas.join(u", "_s)));
    m_bytes.reserve(kEnvio + kEnvio / 4);
}

EntradaDeFilas::~EntradaDeFilas() {
    if (!m_abierta)
        return;
    PQputCopyEnd(m_conexion, "the rows were not ended");
    while (const ResultadoPg resto{PQgetResult(m_conexion)}) {
    }
}

void EntradaDeFilas::Separa() {
    if (!m_comienzaFila)
        m_bytes.push_back('\t');
    m_comienzaFila = false;
}

void EntradaDeFilas::Pon(QByteArrayView utf8) {
    Separa();
    for (const char c : utf8) {
        switch (c) {
        case '\\': m_bytes += "\\\\"; break;
        case '\t': m_bytes += "\\t"; break;
        case '\n': m_bytes += "\\n"; break;
        case '\r': m_bytes += "\\r"; break;
        default: m_bytes.push_back(c);
        }
    }
}

void EntradaDeFilas::PonNulo() {
    Separa();
    m_bytes += "\\N";
}

void EntradaDeFilas::CierraFila() {
    m_bytes.push_back('\n');
    m_comienzaFila = true;
    if (m_bytes.size() >= kEnvio)
        Envia();
}

void EntradaDeFilas::Envia() {
    if (PQputCopyData(m_conexion, m_bytes.data(), static_cast<int>(m_bytes.size())) < 0)
        throw ConexionPerdida(QString::fromUtf8(PQerrorMessage(m_conexion)).trimmed());
    m_bytes.clear();
}

void EntradaDeFilas::Termina() {
    Envia();
    m_abierta = false;
    PQputCopyEnd(m_conexion, nullptr);
    std::optional<ErrorBase> falla;
    while (const ResultadoPg resultado{PQgetResult(m_conexion)}) {
        if (PQresultStatus(resultado.get()) != PGRES_COMMAND_OK && !falla)
            falla = ErrorDeResultado(resultado.get());
    }
    if (PQstatus(m_conexion) == CONNECTION_BAD)
        throw ConexionPerdida(QString::fromUtf8(PQerrorMessage(m_conexion)).trimmed());
    if (falla)
        throw *falla;
}

QList<size_t> AltaPostgres(PGconn* conexion, const FilasNuevas& filas) {
    return Entran(conexion, filas);
}

} // namespace xa518
