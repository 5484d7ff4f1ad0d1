#include "support/NoticeScript.h"

#include "widgets/ActiveForm.h"

namespace xa518 {

void AvisosDePrueba::Comprueba() {
    for (const Paso& paso : m_guion)
        ADD_FAILURE() << "a box that was expected didn't show: " << paso.mensaje.texto.toStdString();
    m_guion.clear();
    m_alMostrar = nullptr;
    m_mostrados.clear();
}

void AvisosDePrueba::HazMuestra(const Mensaje& mensaje) {
    m_mostrados.append({{mensaje.icono, mensaje.texto, TituloMostrado(mensaje)}, std::nullopt});
    (void)Atiende(m_mostrados.last().mensaje, false);
}

Respuesta AvisosDePrueba::HazPregunta(const Mensaje& mensaje, Respuesta preseleccionada) {
    m_mostrados.append({{mensaje.icono, mensaje.texto, TituloMostrado(mensaje)}, preseleccionada});
    return Atiende(m_mostrados.last().mensaje, true).value_or(Respuesta::No);
}

Respuesta AvisosDePrueba::HazPreguntaConOtra(const Mensaje& mensaje, const QString& /*otra*/) {
    m_mostrados.append({{mensaje.icono, mensaje.texto, TituloMostrado(mensaje)}, Respuesta::Si});
    return Atiende(m_mostrados.last().mensaje, true).value_or(Respuesta::Otra);
}

std::optional<Respuesta> AvisosDePrueba::Atiende(const Mensaje& mensaje, bool esPregunta) {
    if (m_alMostrar)
        m_alMostrar();
    if (m_guion.isEmpty()) {
        ADD_FAILURE() << "a box that nobody expected: " << mensaje.texto.toStdString();
        return std::nullopt;
    }
    const Paso paso = m_guion.takeFirst();
    EXPECT_EQ(mensaje.texto, paso.mensaje.texto);
    EXPECT_EQ(esPregunta, paso.respuesta.has_value()) << mensaje.texto.toStdString();
    EXPECT_TRUE(!esPregunta || mensaje.icono == Icono::Pregunta) << mensaje.texto.toStdString();
    if (!paso.soloTexto) {
        EXPECT_EQ(mensaje.icono, paso.mensaje.icono) << mensaje.texto.toStdString();
        EXPECT_EQ(mensaje.titulo, paso.mensaje.titulo) << mensaje.texto.toStdString();
    }
    return paso.respuesta;
}

} // namespace xa518
