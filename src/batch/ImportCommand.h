#pragma once

namespace xa518 {

class ObservadorImportacion;
struct Argumentos;
struct ClaveDeclaracion;
struct Informe;
struct Proceso;

/// Loads the declaration into the work tables, where a new one starts empty, and adds the files. All of them are looked
/// through before the first line of the first: a refusal, raised as `Rechazo`, leaves everything as it was. A trial
/// leaves it in any case.
void CargaTrabajo(Proceso& proceso, const Argumentos& argumentos, const ClaveDeclaracion& clave,
                  ObservadorImportacion& avance, Informe& informe);

} // namespace xa518
