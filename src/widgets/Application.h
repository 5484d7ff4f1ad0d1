#pragma once

#include "widgets/KeyManners.h"

#include <QApplication>
#include <QTranslator>

#include <concepts>
#include <utility>

namespace xa518 {

class Avisos;

/// The application object with the general error handler. It shows a critical box with the caption of the form in
/// front and the error's text, brings the pointer back, and the program goes on with what was typed. Every event is
/// covered, also within a modal form's own event loop; but the toolkit doesn't tidy up behind an exception that
/// crosses it, so a handler that works with the database or with files is connected through `Protegido`.
/// What the toolkit says of itself is Spanish too, wherever the program runs. No key held down decides twice.
class Aplicacion : public QApplication {
    Q_OBJECT
  public:
    /// `argc` and `argv` must outlive the object, and so must `avisos`.
    Aplicacion(int& argc, char** argv, Avisos& avisos);

    bool notify(QObject* receptor, QEvent* evento) override;

    /// What the handler does with an error's text; also for a failure outside any event.
    void AtiendeFalla(const QString& texto);

  private:
    Avisos* m_avisos;
    QTranslator m_idioma; ///< the toolkit's own texts, as in the window that saves a file
    ModalesDeTeclado m_teclado;
    bool m_mostrando = false;
};

/// Hands the exception that is being caught to the general error handler.
void AtiendeFallaEnCurso();

/// A handler whose failure goes straight to the general error handler and never crosses the toolkit:
/// `connect(boton, &QPushButton::clicked, this, Protegido([this] { Graba(); }))`.
template <typename Manejador>
class Protegido {
  public:
    explicit Protegido(Manejador manejador) : m_manejador(std::move(manejador)) {}

    template <typename... Argumentos>
    requires std::invocable<Manejador&, Argumentos...>
    void operator()(Argumentos&&... argumentos) {
        try {
            m_manejador(std::forward<Argumentos>(argumentos)...);
        } catch (...) {
            AtiendeFallaEnCurso();
        }
    }

  private:
    Manejador m_manejador;
};

} // namespace xa518
