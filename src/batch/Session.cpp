#include "batch/Session.h"

#include "app/Forms.h"
#include "family/Configuration.h"
#include "form518/Form0518.h"

namespace xa518 {

Rechazo RechazaCon(const QString& texto) {
    return {{Icono::Critico, texto, {}}};
}

std::unique_ptr<Proceso> AbreSesion(const ArchivoPerfil& perfil, const Reloj& reloj) {
    ExigeInstalacion(perfil);
    auto proceso = std::make_unique<Proceso>(reloj, FormulariosConocidos(), kNumFormulario);
    LeerIni(*proceso, perfil);
    AbrirBase(*proceso, perfil);
    LeerCatalogoInicial(*proceso);
    return proceso;
}

} // namespace xa518
