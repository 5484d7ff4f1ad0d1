#pragma once

#include "launcher/Declarants.h"

#include <QString>
#include <QStringList>

namespace xa518 {

/// An invented company with files to import, for trials: a clean month, its cash sales, and a month full of faults.
class Ejemplo {
  public:
    explicit Ejemplo(QString carpeta) : m_carpeta(std::move(carpeta)) {}

    /// The company, owned by nobody yet.
    [[nodiscard]] static Declarante Empresa();

    /// Puts the files in the folder. One that is there with other content stays: somebody is working on it.
    /// Returns a line for each file. Raises `Error` (`AccesoAlDisco`) when one can't be written.
    [[nodiscard]] QStringList CopiaArchivos() const;

  private:
    QString m_carpeta;
};

} // namespace xa518
