#pragma once

#include "printouts/ChangesReport.h"
#include "printouts/DeclarationData.h"
#include "printouts/ErrorReport.h"
#include "reports/PageCommands.h"
#include "reports/SpoolRegistry.h"

#include <QStringList>

#include <variant>

namespace xa518 {

class Avance;
struct Proceso;

/// A declaration's print-out, PER006, or its annex, PER007.
struct PedidoDeclaracion {
    DatosDeclaracion datos;
    bool anexo = false;
};

/// What is to be reported. The refused lines of an import make PER005, a comparison with a sent copy PER008.
using PedidoInforme = std::variant<PedidoDeclaracion, DatosErrores, DatosCambios>;

// Both may be called in any thread, with an environment of its own.

/// Sends a report to its destination: a spool file, or a printer without the detour of a file.
void EjecutaReporte(const EntornoRegistro& entorno, const PedidoInforme& pedido, DestinoInforme& destino);

/// Allocates a spool file, writes the report to it and returns the file's name, without folder.
/// Raises `ErrorBase`, and `Error` (`AccesoAlDisco`) when the folder can't be written.
/// Stopped by `avance` it leaves no file, and like any report that is never written its number taken.
[[nodiscard]] QString EscribeInforme(const EntornoRegistro& entorno, const PedidoInforme& pedido, Avance& avance);

/// The spool files that were written, by their full names, and why the rest wasn't.
struct InformesEmitidos {
    QStringList rutas;
    Veredicto veredicto = Veredicto::Bien();
};

/// The print-out of a declaration and, when asked for, its annex. Refused when there is no such declaration; one
/// without clients gives its print-out alone and the refusal of the annex.
[[nodiscard]] InformesEmitidos ImprimeDeclaracion(Proceso& proceso, const ClaveDeclaracion& clave, bool anexos);

/// What a print-out is called as a document.
[[nodiscard]] QString TituloDe(const ClaveDeclaracion& clave, bool anexo);

/// The pages that the dialog of the page range tells: what the head says, and for an annex one more. Wanted: its
/// head tells an estimate, and the last page must not be left out.
[[nodiscard]] int HojasDeImpresion(const PedidoDeclaracion& pedido, int hojas);

} // namespace xa518
