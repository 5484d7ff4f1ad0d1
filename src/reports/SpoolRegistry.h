#pragma once

#include <QString>

namespace xa518 {

struct Proceso;

/// Allocates the name of a spool file and registers it in `SPOOL`, where the launcher finds it. One transaction, so
/// that two programs at once never get one name. The row stays even if the report is never written: wanted, its
/// number is never given again. Raises `ErrorBase`.
[[nodiscard]] QString NuevoReporte(Proceso& proceso, const QString& codigo, int tipoDoc, const QString& doc);

/// The full name of a spool file in the folder of reports, `Proceso::rutaRPT`.
[[nodiscard]] QString RutaDeInforme(const QString& rutaRPT, const QString& archivo);

} // namespace xa518
