#pragma once

#include "app/Dialogs.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"
#include "platform/ProfileFile.h"
#include "support/FormDriver.h"
#include "support/TemporaryBase.h"

namespace xa518::prueba {

/// An installation with a real base in a folder of its own, and the process-wide record of a module over it.
class ModuloDePrueba : public testing::Test {
  protected:
    ModuloDePrueba();
    ~ModuloDePrueba() override;

    /// Makes the record's base open, as the start does.
    void AbreElProceso();
    void Declarante(int tipoDoc, const QString& ruc, const QString& nombre, const QString& usuario) const;
    /// A head and one row in each other table of the declaration.
    void Declaracion(const QString& ruc, const QString& periodo, const QString& correl = {}) const;

    /// Another program that holds the base, until it is let go.
    [[nodiscard]] std::unique_ptr<Base> Bloquea() const;

    BaseTemporal base;
    QString carpetaAnterior;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    Proceso proceso{reloj, {Formulario0518()}, kNumFormulario};
    AvisosDePrueba avisos;
    ArchivoPerfil perfil;
};

} // namespace xa518::prueba
