#pragma once

#include "platform/Notices.h"
#include "support/Test.h"

#include <functional>
#include <optional>

namespace xa518 {

/// Answers from a script and keeps what was shown. A box that nobody expected fails the test, and so does an
/// expectation that nobody used.
class AvisosDePrueba final : public Avisos {
  public:
    struct Mostrado {
        Mensaje mensaje; ///< with the title as it would show
        std::optional<Respuesta> preseleccionada;
    };

    ~AvisosDePrueba() override { Comprueba(); }

    /// The next box shows exactly this message.
    void Espera(const Mensaje& mensaje) { m_guion.append({mensaje, false, std::nullopt}); }
    /// The next box shows this text; icon and title aren't looked at.
    void Espera(const QString& texto) { m_guion.append({{Icono::Ninguno, texto, {}}, true, std::nullopt}); }
    void EsperaPregunta(const QString& texto, Respuesta respuesta) {
        m_guion.append({{Icono::Ninguno, texto, {}}, true, respuesta});
    }

    /// Runs while a box shows, to look at what lies under it.
    void AlMostrar(std::function<void()> mira) { m_alMostrar = std::move(mira); }

    [[nodiscard]] const QList<Mostrado>& Mostrados() const { return m_mostrados; }

    /// Fails the test when an expected box didn't show, and begins anew.
    void Comprueba();

  private:
    struct Paso {
        Mensaje mensaje;
        bool soloTexto;
        std::optional<Respuesta> respuesta;
    };

    void HazMuestra(const Mensaje& mensaje) override;
    Respuesta HazPregunta(const Mensaje& mensaje, Respuesta preseleccionada) override;
    Respuesta HazPreguntaConOtra(const Mensaje& mensaje, const QString& otra) override;
    [[nodiscard]] std::optional<Respuesta> Atiende(const Mensaje& mensaje, bool esPregunta);

    QList<Paso> m_guion;
    std::function<void()> m_alMostrar;
    QList<Mostrado> m_mostrados;
};

/// What the general error handler of the test program shows with. It is compared with its script after each test.
[[nodiscard]] AvisosDePrueba& AvisosDelPrograma();

} // namespace xa518
