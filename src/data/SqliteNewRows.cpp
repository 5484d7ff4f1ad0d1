#include "data/SqliteNewRows.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <memory>
#include <numeric>
#include <string_view>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumnas = 24; ///< more than any table here has
constexpr const char* kClaseDePuntero = "FilasNuevas";
constexpr const char* kEsquema = "CREATE TABLE x(c0,c1,c2,c3,c4,c5,c6,c7,c8,c9,c10,c11,c12,c13,c14,c15,c16,c17,c18,c19,"
                                 "c20,c21,c22,c23,filas HIDDEN)";

using Lectura = AltaSqlite::Lectura;

/// The engine's own records come first in both, since it knows no others.
struct Cursor {
    sqlite3_vtab_cursor delMotor{};
    const Lectura* lectura = nullptr;
    size_t lugar = 0;
    std::array<FilasNuevas::Valor, kColumnas> valores{};

    [[nodiscard]] bool Acaba() const { return lectura == nullptr || lugar >= lectura->hasta; }
    void LeeFila() {
        if (Acaba())
            return;
        FilasNuevas::Lector lector = lectura->filas->Lee((*lectura->orden)[lugar]);
        for (qsizetype i = 0; i < lectura->filas->Columnas().size(); ++i)
            valores[static_cast<size_t>(i)] = lector.Siguiente();
    }
};

Cursor* Propio(sqlite3_vtab_cursor* cursor) {
    return reinterpret_cast<Cursor*>(cursor);
}

int Conecta(sqlite3* conexion, void*, int, const char* const*, sqlite3_vtab** tabla, char**) {
    *tabla = std::make_unique<sqlite3_vtab>().release();
    return sqlite3_declare_vtab(conexion, kEsquema);
}

int Desconecta(sqlite3_vtab* tabla) {
    const std::unique_ptr<sqlite3_vtab> dueno(tabla);
    return SQLITE_OK;
}

/// There is one way to read it: whole, the rows being named by the hidden column.
int Planea(sqlite3_vtab*, sqlite3_index_info* plan) {
    for (int i = 0; i < plan->nConstraint; ++i) {
        if (plan->aConstraint[i].iColumn != kColumnas || plan->aConstraint[i].usable == 0)
            continue;
        plan->aConstraintUsage[i].argvIndex = 1;
        plan->aConstraintUsage[i].omit = 1;
        return SQLITE_OK;
    }
    return SQLITE_CONSTRAINT;
}

int AbreCursor(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
    *cursor = &std::make_unique<Cursor>().release()->delMotor;
    return SQLITE_OK;
}

int CierraCursor(sqlite3_vtab_cursor* cursor) {
    const std::unique_ptr<Cursor> dueno(Propio(cursor));
    return SQLITE_OK;
}

int Empieza(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value** argumentos) {
    Cursor* propio = Propio(cursor);
    propio->lectura = static_cast<const Lectura*>(sqlite3_value_pointer(argumentos[0], kClaseDePuntero));
    propio->lugar = propio->lectura == nullptr ? 0 : propio->lectura->desde;
    propio->LeeFila();
    return SQLITE_OK;
}

int Avanza(sqlite3_vtab_cursor* cursor) {
    ++Propio(cursor)->lugar;
    Propio(cursor)->LeeFila();
    return SQLITE_OK;
}

int Acaba(sqlite3_vtab_cursor* cursor) {
    return Propio(cursor)->Acaba() ? 1 : 0;
}

int DaColumna(sqlite3_vtab_cursor* cursor, sqlite3_context* contexto, int columna) {
    const FilasNuevas::Valor& valor = Propio(cursor)->valores[static_cast<size_t>(columna)];
    if (valor.clase == FilasNuevas::Valor::Clase::Entero)
        sqlite3_result_int(contexto, valor.entero);
    else if (valor.clase == FilasNuevas::Valor::Clase::Texto)
        sqlite3_result_text(contexto, valor.texto.data(), static_cast<int>(valor.texto.size()), SQLITE_STATIC);
    return SQLITE_OK;
}

int DaRowid(sqlite3_vtab_cursor* cursor, sqlite3_int64* rowid) {
    const Lectura& lectura = *Propio(cursor)->lectura;
    *rowid = lectura.ultima + 1 + (*lectura.orden)[Propio(cursor)->lugar];
    return SQLITE_OK;
}

sqlite3_module HazModulo() {
    sqlite3_module modulo{};
    modulo.xConnect = Conecta; // without a maker there is no table to make: it is there by its name alone
    modulo.xBestIndex = Planea;
    modulo.xDisconnect = Desconecta;
    modulo.xOpen = AbreCursor;
    modulo.xClose = CierraCursor;
    modulo.xFilter = Empieza;
    modulo.xNext = Avanza;
    modulo.xEof = Acaba;
    modulo.xColumn = DaColumna;
    modulo.xRowid = DaRowid;
    return modulo;
}

/// The key as bytes that compare as the index does, near enough: a wrong place costs time, nothing else.
void AgregaOrden(std::string& bytes, const FilasNuevas::Valor& valor) {
    if (valor.clase == FilasNuevas::Valor::Clase::Entero)
        bytes.push_back(static_cast<char>(valor.entero));
    for (const char c : valor.texto)
        bytes.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c);
    bytes.push_back('\0');
}

struct Clave {
    size_t desde = 0;
    quint32 largo = 0;
    quint32 fila = 0;
};

/// The rows by their key.
std::vector<quint32> OrdenDeClave(const FilasNuevas& filas, const QStringList& clave) {
    std::vector<bool> esDeClave;
    for (const QString& columna : filas.Columnas())
        esDeClave.push_back(clave.contains(columna, Qt::CaseInsensitive));
    std::string bytes;
    std::vector<Clave> claves;
    claves.reserve(filas.Cuantas());
    for (size_t fila = 0; fila < filas.Cuantas(); ++fila) {
        const size_t desde = bytes.size();
        FilasNuevas::Lector lector = filas.Lee(fila);
        for (const bool deClave : esDeClave) {
            const FilasNuevas::Valor valor = lector.Siguiente();
            if (deClave)
                AgregaOrden(bytes, valor);
        }
        claves.push_back({desde, static_cast<quint32>(bytes.size() - desde), static_cast<quint32>(fila)});
    }
    const auto texto = [&](const Clave& c) { return std::string_view(bytes).substr(c.desde, c.largo); };
    std::sort(claves.begin(), claves.end(), [&](const Clave& a, const Clave& b) { return texto(a) < texto(b); });
    std::vector<quint32> orden;
    orden.reserve(claves.size());
    for (const Clave& c : claves)
        orden.push_back(c.fila);
    return orden;
}

QByteArray SqlDeAlta(const FilasNuevas& filas) {
    QStringList leidas;
    for (qsizetype i = 0; i < filas.Columnas().size(); ++i)
        leidas.append(u"c%1"_s.arg(i));
    return u"INSERT INTO %1 (%2, rowid) SELECT %3, rowid FROM filas_nuevas(?)"_s
        .arg(filas.NombreDeTabla(), filas.Columnas().join(u", "_s), leidas.join(u", "_s))
        .toUtf8();
}

} // namespace

int RegistraFilasNuevas(sqlite3* conexion) {
    static const sqlite3_module kModulo = HazModulo();
    return sqlite3_create_module(conexion, "filas_nuevas", &kModulo, nullptr);
}

AltaSqlite::AltaSqlite(sqlite3* conexion, const FilasNuevas& filas, const QStringList& clave)
    : m_orden(OrdenDeClave(filas, clave)) {
    m_lectura.filas = &filas;
    m_lectura.orden = &m_orden;
    const QByteArray ultima = u"SELECT max(rowid) FROM %1"_s.arg(filas.NombreDeTabla()).toUtf8();
    sqlite3_stmt* consulta = nullptr;
    m_codigo = sqlite3_prepare_v2(conexion, ultima.constData(), -1, &consulta, nullptr);
    if (consulta != nullptr && sqlite3_step(consulta) == SQLITE_ROW)
        m_lectura.ultima = std::max<qint64>(sqlite3_column_int64(consulta, 0), filas.Piso());
    const int cierre = sqlite3_finalize(consulta);
    if (m_codigo == SQLITE_OK)
        m_codigo = cierre;
    if (m_codigo == SQLITE_OK)
        m_codigo = sqlite3_prepare_v2(conexion, SqlDeAlta(filas).constData(), -1, &m_sentencia, nullptr);
}

AltaSqlite::~AltaSqlite() {
    sqlite3_finalize(m_sentencia);
}

int AltaSqlite::Tramo(size_t desde, size_t hasta) {
    if (m_codigo != SQLITE_OK)
        return m_codigo;
    m_lectura.desde = desde;
    m_lectura.hasta = hasta;
    sqlite3_bind_pointer(m_sentencia, 1, &m_lectura, kClaseDePuntero, nullptr);
    sqlite3_step(m_sentencia);
    return sqlite3_reset(m_sentencia);
}

} // namespace xa518
