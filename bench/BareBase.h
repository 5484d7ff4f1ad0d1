#pragma once

#include <sqlite3.h>

#include <QString>

#include <memory>

namespace xa518::medida {

/// What a floor runs on: the engine's own C interface with the pragmas of the house, nothing between.
class BaseDesnuda {
  public:
    struct CierraSentencia {
        void operator()(sqlite3_stmt* sentencia) const { sqlite3_finalize(sentencia); }
    };
    using Sentencia = std::unique_ptr<sqlite3_stmt, CierraSentencia>;

    explicit BaseDesnuda(const QString& ruta);

    void Pide(const char* sql);
    [[nodiscard]] Sentencia Prepara(const char* sql);
    /// Raises `std::runtime_error` with the engine's words unless the condition holds.
    void Exige(bool condicion) const;

  private:
    struct CierraConexion {
        void operator()(sqlite3* conexion) const { sqlite3_close(conexion); }
    };
    std::unique_ptr<sqlite3, CierraConexion> m_conexion;
};

} // namespace xa518::medida
