#pragma once

#include "declaration/ChosenDeclaration.h"
#include "declaration/ClientGrid.h"
#include "family/StoredState.h"
#include "family/WorkLock.h"

#include <exception>
#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace xa518 {

class Base;
struct Proceso;

/// The work tables with the rows of one declaration, held for its form.
struct TablasTomadas {
    std::shared_ptr<TrabajoUnico> marca; ///< none over a declaration that is only looked at
    TotalesDeGrilla totales;
    EstadoGuardado guardado; ///< how the declaration stood when its rows were read
    /// What a declaration that is taken up again had half done; nothing of any other.
    std::optional<DetalleCompletado> completado{};

    /// The key of a new declaration stays from here on, and it is this seat's: another one that began the same first
    /// keeps it. What was done earlier with one of that key, sent or deleted since, is nobody's change under this one.
    /// Raises `TrabajoAjeno`.
    void TomaClave(Base& base, const ClaveDeclaracion& clave);
};

/// Takes the work tables for the declaration that was picked, or for a new one, and fills them, beside the window's
/// thread. `alFallar` as in `TareaPedida`. Raises `TrabajoAjeno` while another program has it.
void TomaTablas(QWidget& ventana, const Proceso& proceso, const std::optional<DeclaracionElegida>& elegida,
                std::function<void(const TablasTomadas&)> alTenerlas,
                std::function<void(const std::exception_ptr&)> alFallar = {});

} // namespace xa518
