#pragma once

#include "values/Message.h"

namespace xa518 {

/// `Otra` only to a question that offers a third answer.
enum class Respuesta { Si, No, Otra };

/// The one way in which a message or a question reaches the person. Answers come only from here, so that a test can
/// give them. An empty title shows as the caption of the form in front.
class Avisos {
  public:
    Avisos() = default;
    Avisos(const Avisos&) = delete;
    Avisos& operator=(const Avisos&) = delete;
    virtual ~Avisos() = default;

    /// A box with one button, "Aceptar".
    void Muestra(const Mensaje& mensaje) { HazMuestra(mensaje); }

    /// A box with "Sí" and "No". Esc and the box's own close button don't answer it.
    [[nodiscard]] Respuesta Pregunta(const Mensaje& mensaje, Respuesta preseleccionada = Respuesta::Si) {
        return HazPregunta(mensaje, preseleccionada);
    }

    /// The same with a third answer of that text, which leaves everything as it is; Esc and the close button give it.
    [[nodiscard]] Respuesta PreguntaConOtra(const Mensaje& mensaje, const QString& otra) {
        return HazPreguntaConOtra(mensaje, otra);
    }

    /// The utility object's message: exclamation icon, one button.
    void MuestraMensaje(const QString& texto, const QString& titulo = {}) {
        HazMuestra({Icono::Exclamacion, texto, titulo});
    }

  private:
    virtual void HazMuestra(const Mensaje& mensaje) = 0;
    virtual Respuesta HazPregunta(const Mensaje& mensaje, Respuesta preseleccionada) = 0;
    virtual Respuesta HazPreguntaConOtra(const Mensaje& mensaje, const QString& otra) = 0;
};

} // namespace xa518
