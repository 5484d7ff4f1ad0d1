#pragma once

#include "family/FormDescription.h"

#include <QString>

#include <memory>
#include <optional>

namespace xa518 {

class Avance;
class MandoDeServidor;

/// A new database beside the one of a connection, filled from a copy. It goes with the object, unless it has taken the
/// other one's place.
class BaseDePaso {
  public:
    /// Makes it, empty. Raises `ErrorBase`.
    explicit BaseDePaso(const QString& conexion);
    BaseDePaso(const BaseDePaso&) = delete;
    BaseDePaso& operator=(const BaseDePaso&) = delete;
    ~BaseDePaso();

    /// As `Base::Abre` takes it.
    [[nodiscard]] const QString& Conexion() const { return m_conexion; }

    /// Puts the rows of a copy into it and brings its tables up to date. Why it can't take the base's place; empty when
    /// it can. Raises `Detenido`.
    [[nodiscard]] QString Llena(const QString& archivo, const Formularios& formularios, Avance& avance) const;

    enum class Cambio {
        Hecho,
        EnUso, ///< some program was inside: nothing has changed
    };
    /// Takes the base's place, in one transaction. What stood there goes, or keeps the name that this had.
    [[nodiscard]] Cambio TomaElLugar(bool conservaLaAnterior);

  private:
    std::unique_ptr<MandoDeServidor> m_mando;
    QString m_vigente; ///< names of databases
    QString m_nombre;
    QString m_conexion;
    bool m_tomoElLugar = false;
};

/// As long as it lives nobody changes the base of a connection. Whoever was inside has it, and it isn't made.
class BaseQuieta {
  public:
    /// None while a program is inside. Raises `ErrorBase`.
    [[nodiscard]] static std::optional<BaseQuieta> De(const QString& conexion);

  private:
    explicit BaseQuieta(std::unique_ptr<MandoDeServidor> mando);
    std::unique_ptr<MandoDeServidor> m_mando;

  public:
    BaseQuieta(BaseQuieta&&) noexcept;
    BaseQuieta& operator=(BaseQuieta&&) = delete;
    BaseQuieta(const BaseQuieta&) = delete;
    BaseQuieta& operator=(const BaseQuieta&) = delete;
    ~BaseQuieta();
};

} // namespace xa518
