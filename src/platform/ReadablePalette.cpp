#include "platform/ReadablePalette.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPalette>
#include <QWidget>

namespace xa518 {

namespace {

QColor Mezcla(const QColor& a, const QColor& b) {
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

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
    for (QComboBox* lista : forma.findChildren<QComboBox*>())
        Entinta(*lista);
}

} // namespace xa518
