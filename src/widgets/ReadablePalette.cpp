#include "widgets/ReadablePalette.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOptionComboBox>
#include <QWidget>

#include <cstdlib>

namespace xa518 {

namespace {

QColor Mezcla(const QColor& a, const QColor& b) {
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

/// Styles draw a closed list as a button, whose ground hardly changes when it is disabled. This one draws a disabled
/// list as a field, with its arrow.
class EstiloDeListas final : public QProxyStyle {
  public:
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* opcion, QPainter* pintor,
                            const QWidget* lista) const override {
        if (control == CC_ComboBox && !opcion->state.testFlag(State_Enabled))
            DibujaComoCampo(*opcion, *pintor, lista);
        else
            QProxyStyle::drawComplexControl(control, opcion, pintor, lista);
    }

  private:
    void DibujaComoCampo(const QStyleOptionComplex& opcion, QPainter& pintor, const QWidget* lista) const {
        QStyleOptionFrame campo;
        const QStyleOption& comun = opcion;
        campo.QStyleOption::operator=(comun);
        campo.lineWidth = pixelMetric(PM_DefaultFrameWidth, &opcion, lista);
        drawPrimitive(PE_PanelLineEdit, &campo, &pintor, lista);
        QStyleOption flecha(comun);
        const QRect sitio = subControlRect(CC_ComboBox, &opcion, SC_ComboBoxArrow, lista);
        const int lado = sitio.width() / 2;
        flecha.rect = QRect(sitio.center() - QPoint(lado / 2, lado / 2), QSize(lado, lado));
        drawPrimitive(PE_IndicatorArrowDown, &flecha, &pintor, lista);
    }
};

void Entinta(QWidget& campo) {
    QPalette colores = campo.palette();
    for (const QPalette::ColorRole papel : {QPalette::Text, QPalette::ButtonText})
        colores.setColor(QPalette::Disabled, papel, colores.color(QPalette::Active, papel));
    campo.setPalette(colores);
}

} // namespace

void AclaraDeshabilitados(QWidget& forma) {
    QPalette paleta = forma.palette();
    const auto aclara = [&paleta](QPalette::ColorRole texto, QPalette::ColorRole fondo) {
        paleta.setColor(QPalette::Disabled, texto,
                        Mezcla(paleta.color(QPalette::Active, texto), paleta.color(QPalette::Active, fondo)));
    };
    aclara(QPalette::WindowText, QPalette::Window);
    aclara(QPalette::ButtonText, QPalette::Button);
    aclara(QPalette::Text, QPalette::Window);
    forma.setPalette(paleta);
    for (QLineEdit* campo : forma.findChildren<QLineEdit*>())
        Entinta(*campo);
    auto* estilo = new EstiloDeListas;
    estilo->setParent(&forma);
    for (QComboBox* lista : forma.findChildren<QComboBox*>()) {
        Entinta(*lista);
        lista->setStyle(estilo);
    }
}

void ComoSoloLectura(QWidget& forma) {
    QPalette paleta = forma.palette();
    paleta.setColor(QPalette::Disabled, QPalette::WindowText, paleta.color(QPalette::Active, QPalette::WindowText));
    forma.setPalette(paleta);
}

QColor ColorDeEnlace(const QPalette& paleta) {
    constexpr int kContraste = 60;
    const QColor enlace = paleta.color(QPalette::Link);
    const int distancia = std::abs(qGray(enlace.rgb()) - qGray(paleta.color(QPalette::Base).rgb()));
    return distancia >= kContraste ? enlace : paleta.color(QPalette::Highlight).lighter();
}

} // namespace xa518
