#pragma once

#include "platform/ProcessMark.h"

#include <QString>

namespace xa518 {

/// Tells whether another process of the same executable runs already for this user. The mark is a lock file that a
/// crashed holder doesn't keep.
class InstanciaUnica {
  public:
    /// `carpeta` is where the lock lies; by default the user's run-time folder.
    explicit InstanciaUnica(const QString& ejecutable, const QString& carpeta = CarpetaDeMarcas());

    /// True when this process is the only one. It stays so while the object lives. A folder that can't be written
    /// is no reason to refuse: then it is True as well.
    [[nodiscard]] bool Toma();

    [[nodiscard]] static QString CarpetaDeMarcas();

  private:
    MarcaDeProceso m_marca;
};

} // namespace xa518
