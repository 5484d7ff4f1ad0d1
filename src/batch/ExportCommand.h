#pragma once

namespace xa518 {

struct Argumentos;
struct Informe;
struct Proceso;

/// Leaves the detail of a declaration, registered or sent, in a folder as import files, one of each kind that it has
/// rows for. Files that are there already stay, which raises `Rechazo`, as does a declaration that isn't there. Raises
/// `Error` when the base or a file fails; no file is ever left in part.
void Exportar(Proceso& proceso, const Argumentos& argumentos, Informe& informe);

} // namespace xa518
