#pragma once

#include <QString>
#include <QStringList>

namespace xa518 {

class Base;

enum class ResultadoEsquema {
    Creado,      ///< there were no tables
    Vigente,     ///< nothing to do
    Actualizado, ///< steps were missing and have been made
    MasNuevo,    ///< a later build made the base: nothing was touched
    Fallido,     ///< a step failed and was undone; the earlier ones stay
};

struct EstadoEsquema {
    ResultadoEsquema resultado;
    int version = 0; ///< the base's, after the work
    int numero = 0;  ///< of the engine's error, when it failed
    QString motivo;  ///< its words
};

/// The tables of the base as numbered steps, whatever folders they come from, made in their order, each in a
/// transaction of its own that also writes the version. A statement ends with a semicolon at the end of a line, and a
/// comment fills whole lines.
class Esquema {
  public:
    explicit Esquema(QStringList carpetas) : m_carpetas(std::move(carpetas)) {}

    /// Makes the steps that the base lacks.
    [[nodiscard]] EstadoEsquema Aplica(Base& base) const;

  private:
    QStringList m_carpetas;
};

} // namespace xa518
