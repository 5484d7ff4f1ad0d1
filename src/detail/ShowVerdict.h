#pragma once

#include "platform/Notices.h"
#include "values/Message.h"
#include "widgets/WidgetHelpers.h"

namespace xa518 {

/// Shows what a rule refuses and puts the focus on the field at fault, if it is enabled; `control` gives the form's
/// widget for a field. True when the rule passed.
template <typename Campo, typename Control>
[[nodiscard]] bool Atiende(Avisos& avisos, const VeredictoDe<Campo>& veredicto, const Control& control) {
    if (veredicto)
        return true;
    avisos.Muestra(veredicto.Motivo());
    if (const std::optional<Campo> campo = veredicto.ElCampo())
        Enfoca(control(*campo));
    return false;
}

/// Shows a refusal that has no field.
void Rechaza(Avisos& avisos, const QString& texto);

/// Asks with the question icon; true for "Sí".
[[nodiscard]] bool Confirma(Avisos& avisos, const QString& texto);
/// The question before a delete: "No" is preselected.
[[nodiscard]] bool ConfirmaEliminacion(Avisos& avisos);
/// The question before entered data is dropped.
[[nodiscard]] bool PreguntaGuardar(Avisos& avisos);

} // namespace xa518
