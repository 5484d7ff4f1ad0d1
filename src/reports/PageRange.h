#pragma once

#include "reports/SpoolReport.h"
#include "values/Message.h"

namespace xa518 {

/// How a finished report reaches the user: short ones at once, long ones by way of the dialog of the page range.
enum class ViaInforme { Directa, ConRango };

[[nodiscard]] ViaInforme ViaPara(int hojas);

/// The fields of the dialog that a rule may name.
enum class CampoRango { Desde, Hasta };
using VeredictoRango = VeredictoDe<CampoRango>;

/// The checks of the dialog, the first failure with its message and the field at fault. A last page past the total
/// passes: the report simply ends.
[[nodiscard]] VeredictoRango ValidaRango(const QString& desde, const QString& hasta, int total);

/// The range of two fields that passed.
[[nodiscard]] RangoPaginas TomaRango(const QString& desde, const QString& hasta);

/// Whether a key or character stays in the fields: digits, Backspace, the point and the blank.
[[nodiscard]] bool EsTeclaDePagina(int tecla);

/// Titles of the dialog: from the preview choice, and from the print button.
[[nodiscard]] QString TituloPaginas(int hojas);
[[nodiscard]] QString TituloImpresion(int hojas);

/// "1 página", "13 páginas".
[[nodiscard]] QString CuantasPaginas(int paginas);

/// What will be printed of a report of so many pages, in a sentence; why nothing will, when the range lies behind its
/// end.
[[nodiscard]] QString TextoRango(const RangoPaginas& rango, int paginas);

} // namespace xa518
