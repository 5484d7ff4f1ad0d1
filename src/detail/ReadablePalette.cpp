#include "detail/ReadablePalette.h"

#include <QPalette>
#include <QWidget>

namespace xa518 {

namespace {

QColor Mezcla(const QColor& a, const QColor& b) {
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
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
}

} // namespace xa518
