#pragma once

#include "family/Process.h"
#include "platform/Clock.h"
#include "platform/ProfileFile.h"
#include "support/TemporaryBase.h"

namespace xa518::prueba {

/// An installation with a real base in a folder of its own, and the process-wide record of a program over it.
class InstalacionDePrueba : public testing::Test {
  protected:
    /// Of a launcher, or of the program of the form of that number.
    explicit InstalacionDePrueba(Formularios formularios = {}, QString numero = {});
    ~InstalacionDePrueba() override;

    /// Another program that holds the base, until it is let go.
    [[nodiscard]] std::unique_ptr<Base> Bloquea() const;

    BaseTemporal base;
    QString carpetaAnterior;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    Proceso proceso;
    ArchivoPerfil perfil;
};

} // namespace xa518::prueba
