#pragma once

namespace xa518 {

struct Argumentos;
struct Informe;
struct Proceso;

/// Stores the order number that a sent copy got. A number that doesn't fit its check digits is raised as `Rechazo`,
/// and so is a copy that isn't there; `TrabajoAjeno` while another program works on a declaration.
void RegistrarOrden(Proceso& proceso, const Argumentos& argumentos, Informe& informe);

/// Deletes a registered declaration or a sent copy, with an entry in the log. Raises as above.
void Borrar(Proceso& proceso, const Argumentos& argumentos, Informe& informe);

} // namespace xa518
