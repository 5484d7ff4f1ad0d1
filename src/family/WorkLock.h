#pragma once

#include "platform/ProcessMark.h"
#include "values/Error.h"

#include <optional>

namespace xa518 {

class Base;

/// Another program works on a declaration: `BaseBloqueada`, and a text that says what to do.
class TrabajoAjeno : public Error {
  public:
    TrabajoAjeno();
};

/// Holds the work tables of a base for one program: they have room for one declaration, and a second program that
/// loaded another one would have it saved under the first one's key. Whoever takes away what an open declaration is to
/// be saved over, by sending it, removing its declarant or replacing the base, holds them as well. The mark is a lock
/// file beside the base, or a lock of the server, which a crashed holder doesn't keep.
class TrabajoUnico {
  public:
    /// Raises `TrabajoAjeno` while another program works on a declaration. A folder that can't be written is
    /// no reason to refuse: the base itself tells that better.
    explicit TrabajoUnico(Base& base);
    /// The same for a base that may be missing or broken. On a server there is nothing to hold before it is opened.
    explicit TrabajoUnico(const QString& rutaBase);
    TrabajoUnico(const TrabajoUnico&) = delete;
    TrabajoUnico& operator=(const TrabajoUnico&) = delete;
    ~TrabajoUnico();

  private:
    void TomaMarca(const QString& rutaBase);

    std::optional<MarcaDeProceso> m_marca;
    Base* m_base = nullptr; ///< whose connection holds the mark, on a server
};

} // namespace xa518
