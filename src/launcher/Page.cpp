#include "launcher/Page.h"

#include "launcher/Session.h"
#include "platform/Notices.h"
#include "widgets/Application.h"
#include "widgets/WidgetHelpers.h"

#include <QPushButton>

namespace xa518 {

Pagina::Pagina(const EntornoPagina& entorno, QWidget* padre) : QWidget(padre), m_entorno(entorno) {}

QStringList Pagina::ConFormulario(QStringList celdas, const QString& formulario) const {
    if (LaSesion().LosFormularios().size() > 1)
        celdas.append(formulario);
    return celdas;
}

void Pagina::Habilita(QPushButton& boton, bool si) const {
    Impide(boton, m_sinEscritura);
    boton.setEnabled(si && m_sinEscritura.isEmpty());
}

std::function<void()> Pagina::Accion(std::function<void()> trabajo) {
    return Protegido([this, trabajo = std::move(trabajo)] {
        try {
            trabajo();
        } catch (const Error& error) {
            Cuenta(error);
        }
        Q_EMIT Cambio();
    });
}

void Pagina::Cuenta(const Error& error) const {
    LosAvisos().Muestra({Icono::Critico, TextoDeFalla(error, LaSesion().RutaBase()), {}});
}

std::function<void(const std::exception_ptr&)> Pagina::AlFallar() {
    return [this](const std::exception_ptr& falla) {
        try {
            std::rethrow_exception(falla);
        } catch (const Error& error) {
            Cuenta(error);
        }
        Q_EMIT Cambio();
    };
}

} // namespace xa518
