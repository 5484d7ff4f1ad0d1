#pragma once

#include <QLockFile>

namespace xa518 {

/// A lock file, private to the user, that one process holds while it lives; a crashed holder doesn't keep it.
class MarcaDeProceso {
  public:
    explicit MarcaDeProceso(const QString& ruta);

    /// False while another process holds it. A folder that can't be written keeps nobody out.
    [[nodiscard]] bool Toma();

  private:
    QLockFile m_marca;
};

} // namespace xa518
