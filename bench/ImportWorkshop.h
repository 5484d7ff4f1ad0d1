#pragma once

#include "ImportSample.h"

#include "family/Process.h"
#include "platform/Clock.h"
#include "support/TemporaryBase.h"

#include <memory>

namespace xa518::medida {

/// What an import needs around it: a base with the shipped tables, rates, and a folder with the file.
class Taller {
  public:
    /// `vale`: the lines pass; otherwise all of them bear a date outside the declared month.
    explicit Taller(const Tamanio& tamanio, bool vale = true);

    /// The open declaration, with a base of its own. The workshop must outlive it.
    [[nodiscard]] std::unique_ptr<Proceso> Abre() const;
    [[nodiscard]] static ClaveDeclaracion Clave();
    [[nodiscard]] QString Carpeta() const { return m_base.Carpeta(); }

  private:
    prueba::BaseTemporal m_base;
    RelojFijo m_reloj;
};

/// Raises `std::runtime_error` with the reason.
void Exige(bool condicion, const char* motivo);

} // namespace xa518::medida
