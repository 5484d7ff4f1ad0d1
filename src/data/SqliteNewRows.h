#pragma once

#include "data/NewRows.h"

struct sqlite3;
struct sqlite3_stmt;

namespace xa518 {

/// Lets statements of a connection read packed rows as if they were a table.
/// Returns the engine's code.
[[nodiscard]] int RegistraFilasNuevas(sqlite3* conexion);

/// Puts packed rows into their table, each statement a stretch of them. The table's own order, by rowid, is theirs, but
/// they are written in the order of the table's key: then the pages of its index are gone through once, not one for
/// each row.
class AltaSqlite {
  public:
    AltaSqlite(sqlite3* conexion, const FilasNuevas& filas, const QStringList& clave);
    AltaSqlite(const AltaSqlite&) = delete;
    AltaSqlite& operator=(const AltaSqlite&) = delete;
    ~AltaSqlite();

    /// Writes all rows, or none. Returns the engine's code.
    [[nodiscard]] int Todas() { return Tramo(0, m_orden.size()); }
    /// Writes the row at that place of the writing order alone.
    [[nodiscard]] int Una(size_t lugar) { return Tramo(lugar, lugar + 1); }
    [[nodiscard]] size_t Fila(size_t lugar) const { return m_orden[lugar]; }

    /// What the virtual table reads: a stretch of the rows.
    struct Lectura {
        const FilasNuevas* filas = nullptr;
        const std::vector<quint32>* orden = nullptr;
        qint64 ultima = 0; ///< the table's last rowid before
        size_t desde = 0;
        size_t hasta = 0;
    };

  private:
    [[nodiscard]] int Tramo(size_t desde, size_t hasta);

    sqlite3_stmt* m_sentencia = nullptr;
    int m_codigo = 0; ///< of what was prepared
    std::vector<quint32> m_orden;
    Lectura m_lectura;
};

} // namespace xa518
