#pragma once

#include <QString>

namespace xa518 {

struct ClaveDeclaracion;
struct Informe;
struct Proceso;

/// Makes a folder for print-outs where there is none. Raises `Error` (`AccesoAlDisco`) when it can't be written.
void PreparaCarpeta(const QString& carpeta);

/// Prints a declaration, and its annex behind it when asked for, to one PDF. A declaration without clients gives its
/// print-out alone and the message about it. Raises `Rechazo` when there is no such declaration, and `Error`.
void ImprimeEnPdf(Proceso& proceso, const ClaveDeclaracion& clave, bool anexos, const QString& rutaPdf,
                  Informe& informe);

/// Leaves a declaration in a folder as "0518<RUC><AAAAMM>.pdf", and its annex, when it has clients, as the same with
/// "-anexo".
void DejaPdf(Proceso& proceso, const ClaveDeclaracion& clave, const QString& carpeta, Informe& informe);

} // namespace xa518
