#pragma once

#include "data/Engine.h"

#include <optional>

struct sqlite3;

namespace xa518 {

/// SQLite: one file, shared by the programs of the family.
class MotorSqlite final : public Motor {
  public:
    MotorSqlite();
    ~MotorSqlite() override;

    void Abre(const LugarDeBase& lugar, ModoApertura modo) override;
    [[nodiscard]] QSqlDatabase Conexion() const override;
    [[nodiscard]] QString Traduce(const QString& sql) const override;
    [[nodiscard]] std::exception_ptr FallaDe(const QSqlError& error) const override;
    void PonVigia(Vigia vigia) override;
    [[nodiscard]] QStringList SqlComienza(Turno turno) const override;
    void PonMemoria(Memoria memoria) override;
    [[nodiscard]] QString SqlVersion() const override;
    [[nodiscard]] QString SqlVersionDelEsquema() const override;
    [[nodiscard]] QString SqlPonVersionDelEsquema(int version) const override;
    QList<size_t> AgregaFilas(const FilasNuevas& filas) override;
    void CopiaConChecksum(Base& base, const CopiaDeFilas& copia, int primeros) override;
    [[nodiscard]] QString SqlColumnas(const QString& tabla) const override;
    [[nodiscard]] QString SqlTablas() const override;
    [[nodiscard]] QString NumeroDeFila(const QString& tabla) const override;
    [[nodiscard]] QString SqlEnOrdenDeAlta(const QString& tabla, const QString& condicion) const override;
    [[nodiscard]] QString SqlUnidas(const QStringList& columnas) const override;
    [[nodiscard]] QStringList Defectos() override;
    void CopiaEn(const QString& archivo) override;
    void ExigeSola() override;

  private:
    [[nodiscard]] ErrorBase ErrorDe(const QSqlError& error) const;
    [[nodiscard]] QStringList ClaveDe(const QString& tabla) const;
    [[nodiscard]] ErrorBase ErrorDe(int codigo, const QString& motor) const;
    void Prepara();
    [[nodiscard]] QString ExplicacionDe(int codigo, const QString& motor) const;
    void Pide(const QString& sql) const;

    QString m_nombre;
    QString m_ruta;
    Vigia m_vigia;
    qint64 m_filasAntes = 0; ///< changed before the watch began
};

/// Adds the dialect's functions to a connection: `val`, `format` with a mask, `importe`, an amount not below 0, the
/// `checksum` of a row, and a `sum` that adds decimals exactly from their texts and takes no binary number.
void RegistraFunciones(sqlite3* conexion);

/// The number of the `Error` that one of these functions ended with, out of the engine's code; nothing for a code of
/// the engine's own.
[[nodiscard]] std::optional<int> NumeroDeFuncion(int codigo);

} // namespace xa518
