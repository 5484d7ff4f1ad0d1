#pragma once

#include "platform/Notices.h"

namespace xa518 {

/// The boxes that the person sees, over the form in front. Objects are named "CajaAviso" and "CajaPregunta", their
/// buttons "CmdAceptar", "CmdSi", "CmdNo" and "CmdOtra".
class AvisosEnPantalla final : public Avisos {
  private:
    void HazMuestra(const Mensaje& mensaje) override;
    Respuesta HazPregunta(const Mensaje& mensaje, Respuesta preseleccionada) override;
    Respuesta HazPreguntaConOtra(const Mensaje& mensaje, const QString& otra) override;
};

} // namespace xa518
