#pragma once

#include "data/Workgroup.h"
#include "platform/ProfileFile.h"

#include <QStringList>

namespace xa518 {

struct Proceso;

/// The profile file that the programs of the family share.
[[nodiscard]] ArchivoPerfil PerfilCompartido();

/// The names of the profile file, fixed for the whole family.
inline const QString kArchivoIni = QStringLiteral("XA000.INI");
inline const QString kSeccionOpciones = QStringLiteral("Options");
inline const QString kArchivoGrupo = QStringLiteral("XA000.MDW");

/// The account that opens the database: from two values set when the program is built, or those of the keys `Cuenta`
/// and `Clave` in section `Grupo` of the profile file.
[[nodiscard]] Cuenta CuentaConfigurada(const ArchivoPerfil& perfil);

/// The full name of the base that the profile file names. That of a server has no folder, whatever `DBPath` says.
[[nodiscard]] QString BaseConfigurada(const ArchivoPerfil& perfil);

/// Fills the process-wide values from the profile file and makes the installation folder the current one.
/// A missing key reads as the empty text, and nothing is tested: the next operation that needs the value fails.
void LeerIni(Proceso& proceso, const ArchivoPerfil& perfil);

/// Writes `SystemDB`, checks the account against the workgroup file and opens the database. Raises `ErrorBase`.
void AbrirBase(Proceso& proceso, const ArchivoPerfil& perfil);

/// The keys of the profile file that a program can't start without. A base on a server has no folder.
[[nodiscard]] QStringList ClavesExigidas(const ArchivoPerfil& perfil);

/// What the tools without a window ask before they open: the profile file is there and names folder and base. Without
/// it there is nothing to find the base by, and writing a new one would only hide that. Raises `Error`.
void ExigeInstalacion(const ArchivoPerfil& perfil);

/// What the module reads once the base is open: `FechaPrimerIgv`.
void LeerCatalogoInicial(Proceso& proceso);

} // namespace xa518
