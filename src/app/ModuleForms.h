#pragma once

#include "app/Dialogs.h"

namespace xa518 {

class ArchivoPerfil;
class DialogosDeArchivo;

/// The one place where the forms of other rooms are put into the commands and into the declaration form. What is passed
/// by reference must outlive them.
[[nodiscard]] Dialogos FormasDelModulo(Proceso& proceso, Avisos& avisos, DialogosDeArchivo& archivos,
                                       const ArchivoPerfil& perfil);

} // namespace xa518
