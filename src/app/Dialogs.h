#pragma once

#include "declaration/ChosenDeclaration.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <optional>

namespace xa518 {

class Avisos;
class BarradeEstadoQMD;
struct Proceso;

/// The forms of other rooms that the commands open. Each call makes a new one; it is opened modally and then dropped.
/// One that is missing leaves its command with nothing to show.
struct Dialogos {
    /// `Frm518` on the picker's row; a new declaration has none.
    std::function<std::unique_ptr<QDialog>(BarradeEstadoQMD& barra, const std::optional<DeclaracionElegida>& elegida,
                                           QWidget* padre)>
        declaracion;
    /// `frmImprimir`, over the sent declarations or over the registered ones.
    std::function<std::unique_ptr<QDialog>(BarradeEstadoQMD& barra, bool enviadas, QWidget* padre)> impresion;
};

/// What the module's forms work with.
struct Entorno {
    Proceso& proceso;
    Avisos& avisos;
    BarradeEstadoQMD& barra;
    const Dialogos& dialogos;
};

/// Puts a form that hasn't shown yet in the middle of a window, and never above or left of it.
void CentraSobre(const QWidget& ventana, QWidget& forma);

} // namespace xa518
