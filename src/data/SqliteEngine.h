#pragma once

#include "data/Engine.h"

struct sqlite3;

namespace xa518 {

/// SQLite: one file, shared by the programs of the family.
class MotorSqlite final : public Motor {
  public:
    MotorSqlite();
    ~MotorSqlite() override;

    void Abre(const QString& ruta, ModoApertura modo) override;
    [[nodiscard]] QSqlDatabase Conexion() const override;
    [[nodiscard]] QString Traduce(const QString& sql) const override;
    [[nodiscard]] ErrorBase ErrorDe(const QSqlError& error) const override;
    [[nodiscard]] QString SqlComienza() const override;
    [[nodiscard]] QString SqlMemoria(Memoria memoria) const override;
    [[nodiscard]] QString SqlColumnas(const QString& tabla) const override;

  private:
    void Prepara(const QString& ruta);
    void Pide(const QString& sql) const;

    QString m_nombre;
};

/// Adds the dialect's functions to a connection: `val`, `format` with a mask, and a `sum` that adds decimals exactly.
void RegistraFunciones(sqlite3* conexion);

} // namespace xa518
