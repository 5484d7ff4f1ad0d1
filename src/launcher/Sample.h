#pragma once

#include "launcher/Declarants.h"

#include <QString>
#include <QStringList>

namespace xa518 {

/// An invented company with files to import into a form, for trials.
class Ejemplo {
  public:
    /// `recurso` is where the form has it, `carpeta` where the files go.
    Ejemplo(QString recurso, QString carpeta) : m_recurso(std::move(recurso)), m_carpeta(std::move(carpeta)) {}

    /// The company, owned by nobody yet.
    [[nodiscard]] Declarante Empresa() const;

    /// Puts the files in the folder. One that is there with other content stays: somebody is working on it.
    /// Returns a line for each file. Raises `Error` (`AccesoAlDisco`) when one can't be written.
    [[nodiscard]] QStringList CopiaArchivos() const;

  private:
    QString m_recurso;
    QString m_carpeta;
};

} // namespace xa518
