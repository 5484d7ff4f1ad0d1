#include "BareBase.h"

#include <stdexcept>

namespace xa518::medida {

BaseDesnuda::BaseDesnuda(const QString& ruta) {
    sqlite3* conexion = nullptr;
    const int abierta = sqlite3_open_v2(ruta.toUtf8().constData(), &conexion, SQLITE_OPEN_READWRITE, nullptr);
    m_conexion.reset(conexion);
    Exige(abierta == SQLITE_OK);
    Pide("PRAGMA foreign_keys=ON; PRAGMA journal_mode=DELETE; PRAGMA synchronous=EXTRA; PRAGMA cache_size=-32768");
}

void BaseDesnuda::Pide(const char* sql) {
    Exige(sqlite3_exec(m_conexion.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK);
}

BaseDesnuda::Sentencia BaseDesnuda::Prepara(const char* sql) {
    sqlite3_stmt* sentencia = nullptr;
    Exige(sqlite3_prepare_v2(m_conexion.get(), sql, -1, &sentencia, nullptr) == SQLITE_OK);
    return Sentencia(sentencia);
}

void BaseDesnuda::Exige(bool condicion) const {
    if (!condicion)
        throw std::runtime_error(sqlite3_errmsg(m_conexion.get()));
}

} // namespace xa518::medida
