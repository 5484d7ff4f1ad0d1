#pragma once

#include "values/ProcessMark.h"

namespace xa518 {

class Base;

/// Holds the work tables of a base for one program: they have room for one declaration, and a second program that
/// loaded another one would have it saved under the first one's key. The mark is a lock file beside the base, which a
/// crashed holder doesn't keep.
class TrabajoUnico {
  public:
    /// Raises `Error` (`BaseBloqueada`) while another program works on a declaration. A folder that can't be written is
    /// no reason to refuse: the base itself tells that better.
    explicit TrabajoUnico(const Base& base);

  private:
    MarcaDeProceso m_marca;
};

} // namespace xa518
