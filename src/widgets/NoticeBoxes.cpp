#include "widgets/NoticeBoxes.h"

#include "widgets/ActiveForm.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QMessageBox::Icon Dibujo(Icono icono) {
    switch (icono) {
    case Icono::Ninguno: return QMessageBox::NoIcon;
    case Icono::Informacion: return QMessageBox::Information;
    case Icono::Exclamacion: return QMessageBox::Warning;
    case Icono::Pregunta: return QMessageBox::Question;
    case Icono::Critico: return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

class Caja : public QMessageBox {
  public:
    Caja(const Mensaje& mensaje, const QString& nombre) : QMessageBox(FormaActiva()) {
        setObjectName(nombre);
        setIcon(Dibujo(mensaje.icono));
        setTextFormat(Qt::PlainText);
        setText(mensaje.texto);
        setWindowTitle(TituloMostrado(mensaje));
    }

    QPushButton* Boton(QLatin1StringView nombre, const QString& texto, ButtonRole papel) {
        QPushButton* boton = addButton(texto, papel);
        boton->setObjectName(nombre);
        return boton;
    }

    /// Waits for the answer with the plain pointer, whatever pointer the work below has set.
    void Espera() {
        QGuiApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
        exec();
        QGuiApplication::restoreOverrideCursor();
    }
};

/// Esc would mean "No", and "No" may throw away what was typed: a question is answered by its buttons only.
class CajaPregunta final : public Caja {
  public:
    using Caja::Caja;

  protected:
    void keyPressEvent(QKeyEvent* evento) override {
        if (!evento->matches(QKeySequence::Cancel))
            Caja::keyPressEvent(evento);
    }
    void closeEvent(QCloseEvent* evento) override { evento->ignore(); }
};

} // namespace

void AvisosEnPantalla::HazMuestra(const Mensaje& mensaje) {
    Caja caja(mensaje, u"CajaAviso"_s);
    caja.Boton("CmdAceptar"_L1, u"&Aceptar"_s, QMessageBox::AcceptRole);
    caja.Espera();
}

Respuesta AvisosEnPantalla::HazPregunta(const Mensaje& mensaje, Respuesta preseleccionada) {
    CajaPregunta caja(mensaje, u"CajaPregunta"_s);
    QPushButton* si = caja.Boton("CmdSi"_L1, u"&Sí"_s, QMessageBox::YesRole);
    QPushButton* no = caja.Boton("CmdNo"_L1, u"&No"_s, QMessageBox::NoRole);
    caja.setDefaultButton(preseleccionada == Respuesta::Si ? si : no);
    caja.Espera();
    return caja.clickedButton() == si ? Respuesta::Si : Respuesta::No;
}

Respuesta AvisosEnPantalla::HazPreguntaConOtra(const Mensaje& mensaje, const QString& otra) {
    Caja caja(mensaje, u"CajaPregunta"_s);
    QPushButton* si = caja.Boton("CmdSi"_L1, u"&Sí"_s, QMessageBox::YesRole);
    QPushButton* no = caja.Boton("CmdNo"_L1, u"&No"_s, QMessageBox::NoRole);
    caja.setEscapeButton(caja.Boton("CmdOtra"_L1, otra, QMessageBox::RejectRole));
    caja.setDefaultButton(si);
    caja.Espera();
    if (caja.clickedButton() == si)
        return Respuesta::Si;
    return caja.clickedButton() == no ? Respuesta::No : Respuesta::Otra;
}

} // namespace xa518
