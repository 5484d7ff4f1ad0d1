#include "widgets/ActiveForm.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace xa518 {

QWidget* FormaActiva() {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* activa = QApplication::activeWindow())
        return activa;
    const auto todas = QApplication::topLevelWidgets();
    const auto visible = std::find_if(todas.begin(), todas.end(), [](const QWidget* w) { return w->isVisible(); });
    return visible == todas.end() ? nullptr : *visible;
}

QString TituloMostrado(const Mensaje& mensaje) {
    const QWidget* forma = FormaActiva();
    return mensaje.titulo.isEmpty() && forma ? forma->windowTitle() : mensaje.titulo;
}

} // namespace xa518
