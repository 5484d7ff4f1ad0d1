#pragma once

#include "family/Presence.h"
#include "platform/ProcessMark.h"

#include <optional>

namespace xa518 {

/// Holds what a program works on. A file has work tables for one declaration, and a second program that loaded another
/// one would have it saved under the first one's key: they are held whole, by a lock file beside the base. On a server
/// each seat has its own, and the declaration is held. Whoever takes away what an open declaration is to be saved over,
/// by sending it, removing its declarant or replacing the base, holds it as well. A crashed holder keeps nothing.
class TrabajoUnico {
  public:
    /// Raises `TrabajoAjeno` while another program works on a declaration, on a server on this one. A folder that can't
    /// be written is no reason to refuse: the base itself tells that better.
    TrabajoUnico(Base& base, const ClaveDeclaracion& clave);
    /// The same for all declarations of a declarant.
    TrabajoUnico(Base& base, const Ruc& ruc);
    /// The same for a base that may be missing or broken. On a server there is nothing to hold before it is opened.
    explicit TrabajoUnico(const QString& rutaBase);
    TrabajoUnico(const TrabajoUnico&) = delete;
    TrabajoUnico& operator=(const TrabajoUnico&) = delete;

    /// Of the declaration; nothing where none is held.
    [[nodiscard]] Presencia* LaPresencia() { return m_presencia ? &*m_presencia : nullptr; }

  private:
    void TomaMarca(const QString& rutaBase);

    std::optional<MarcaDeProceso> m_marca;
    std::optional<Presencia> m_presencia;
};

} // namespace xa518
