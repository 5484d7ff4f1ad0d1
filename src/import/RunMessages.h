#pragma once

#include "import/FileSurvey.h"
#include "values/Error.h"
#include "values/Message.h"

namespace xa518 {

/// What the user is told about an error that has ended a run.
[[nodiscard]] Mensaje Errores_Transferencia(const Error& error);

/// Why the whole file is refused.
[[nodiscard]] Mensaje MensajeDe(Defecto defecto);

/// Which line it is for, how many fields that has where `campos` are wanted, and how many lines are like it.
[[nodiscard]] QString DetalleDe(const Revision& revision, int campos);

/// What is wrong with a line that bars its file, in which lines have `campos` fields.
[[nodiscard]] QString MotivoDeLinea(Defecto defecto, int campos);

/// The end of a run without a refused line.
[[nodiscard]] Mensaje MensajeTransferido(const QString& archivo);

/// The end of a run with refused lines: a question, whether to show the report of errors.
[[nodiscard]] Mensaje PreguntaPorReporte(const QString& rutaLog);

/// After an error: lines that were transferred and undone again, and how many are left.
[[nodiscard]] QString NoSeConservaron(qint64 perdidas, qint64 conservadas);

/// After a connection that broke while lines were made permanent, where nobody can tell what became of them.
[[nodiscard]] QString NoSeSabeSiQuedaron(qint64 dudosas, qint64 conservadas);

/// After a run that has left the clients' totals as they were: a question, whether to try them again.
[[nodiscard]] Mensaje PreguntaPorTotales(const Error& error);

/// The end of a trial.
[[nodiscard]] Mensaje MensajeDePrueba(const QString& archivo, qint64 rechazados);

} // namespace xa518
