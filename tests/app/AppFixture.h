#pragma once

#include "app/Dialogs.h"
#include "family/InstallationFixture.h"
#include "support/FormDriver.h"

namespace xa518::prueba {

/// The module over an installation of its own.
class ModuloDePrueba : public InstalacionDePrueba {
  protected:
    ModuloDePrueba();

    /// Makes the record's base open, as the start does.
    void AbreElProceso();
    void Declarante(int tipoDoc, const QString& ruc, const QString& nombre, const QString& usuario) const;
    /// A head and one row in each other table of the declaration.
    void Declaracion(const QString& ruc, const QString& periodo, const QString& correl = {}) const;

    AvisosDePrueba avisos;
};

} // namespace xa518::prueba
