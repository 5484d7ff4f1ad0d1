#pragma once

#include "declaration/ChosenDeclaration.h"

#include <QDialog>

#include <exception>
#include <functional>
#include <memory>
#include <optional>

namespace xa518 {

class Avisos;
class BarradeEstadoQMD;
struct Proceso;

/// A declaration that is to be opened.
struct AperturaPedida {
    QWidget& ventana; ///< over which it is filled in first, beside the window's thread
    QWidget* padre;
    std::optional<DeclaracionElegida> elegida;                 ///< the picker's row; a new declaration has none
    std::optional<ClaveDeclaracion> rectificada{};             ///< the sent copy that a new one is to rectify
    std::function<void(QDialog&)> muestra;                     ///< opens the form, which is dropped behind it
    std::function<void(const std::exception_ptr&)> alFallar{}; ///< instead of the general error handler
};

/// The forms of other rooms that the commands open. Each call makes a new one; it is opened modally and then dropped.
/// One that is missing leaves its command with nothing to show.
struct Dialogos {
    /// `Frm518`. First asks about a declaration that isn't saved yet, which would be lost; it may open in its place.
    std::function<void(BarradeEstadoQMD& barra, const AperturaPedida& pedida)> declaracion;
    /// The same question by itself: about whichever there is, or, with one picked, about that one. `sigue` runs when
    /// there is nothing more to lose.
    std::function<void(BarradeEstadoQMD& barra, const AperturaPedida& pedida, const std::function<void()>& sigue)>
        retoma;
    /// Offers those that were put aside, one by one.
    std::function<void(BarradeEstadoQMD& barra, const AperturaPedida& pedida)> retomaApartada;
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
