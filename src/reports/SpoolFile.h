#pragma once

#include "reports/PageCommands.h"

#include <QFile>

namespace xa518 {

/// Writes a report as a spool file, one command per line, private to the user. It never holds more than a small block.
class ArchivoSpool final : public DestinoInforme {
  public:
    /// Raises `Error` (`AccesoAlDisco`) when the file can't be made.
    explicit ArchivoSpool(const QString& ruta);

    void Recibe(const Comando& comando) override;
    void Termina() override;
    /// Removes the file: the report isn't wanted any more. Nothing may follow.
    void Retira();

  private:
    void Vierte();

    QFile m_archivo;
    QByteArray m_bloque;
};

} // namespace xa518
