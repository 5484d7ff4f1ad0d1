#pragma once

#include "values/Message.h"

class QWidget;

namespace xa518 {

class Avisos;

/// Shows what a rule refuses and puts the focus on the field at fault, if it is enabled. True when the rule passed.
[[nodiscard]] bool Atiende(const QWidget& forma, Avisos& avisos, const Veredicto& veredicto);

/// Shows a refusal that has no field.
void Rechaza(Avisos& avisos, const QString& texto);

/// Asks with the question icon; true for "Sí".
[[nodiscard]] bool Confirma(Avisos& avisos, const QString& texto);
/// The question before a delete: "No" is preselected.
[[nodiscard]] bool ConfirmaEliminacion(Avisos& avisos);
/// The question before entered data is dropped.
[[nodiscard]] bool PreguntaGuardar(Avisos& avisos);

} // namespace xa518
