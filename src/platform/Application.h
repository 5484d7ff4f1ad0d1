#pragma once

#include <QApplication>

namespace xa518 {

class Avisos;

/// The application object with the general error handler: an exception that escapes any handler, also within a modal
/// form's own event loop, ends here. It shows a critical box with the caption of the form in front and the error's
/// text, brings the pointer back, and the program goes on with what was typed.
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
    bool m_mostrando = false;
};

} // namespace xa518
