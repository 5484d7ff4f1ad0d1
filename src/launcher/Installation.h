#pragma once

#include "family/FormDescription.h"
#include "platform/ProfileFile.h"
#include "values/Message.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace xa518 {

class Base;
class Reloj;

/// What the launcher puts on a machine: the folder of the family with its subfolders, the base with its tables and
/// catalogue, the workgroup file, the help of each form, and the profile file that names them. Doing it again over an
/// installation refreshes catalogue and help and keeps everything else: declarations, declarants, users and their
/// kinds, sample files.
class Instalacion {
  public:
    /// `carpeta` becomes absolute. `servidor` is the text of the connection to the base, if it is to be on a server; a
    /// login that only works there finds the tables made, and doesn't touch them.
    Instalacion(const QString& carpeta, ArchivoPerfil perfil, Formularios formularios, const QString& servidor = {});

    /// The folder of the installation that the profile file names, or `porOmision` when it names none.
    [[nodiscard]] static QString CarpetaVigente(const ArchivoPerfil& perfil, const QString& porOmision);

    /// Folder and user can be written down so that every module reads them.
    [[nodiscard]] Veredicto Valida(const QString& usuario) const;

    /// Installs, and returns what it did, a line for each thing. `usuario` becomes `SysUser` where the profile file
    /// names nobody. The profile file is written last: it never points to half an installation.
    /// Raises `Error`; `VersionAjena` for a base that a later build made, which stays untouched, and `TrabajoAjeno`
    /// while another program has a declaration open, whose tables and catalogue would change under it.
    [[nodiscard]] QStringList Instala(const QString& usuario);

    /// Registers the sample company of each form that has one, if nobody has yet, and copies its files.
    [[nodiscard]] QStringList InstalaEjemplo(const Reloj& reloj);

  private:
    void CreaCarpetas() const;
    [[nodiscard]] Veredicto ValidaBase() const;
    [[nodiscard]] QString PreparaGrupo() const;
    [[nodiscard]] QString InstalaAyuda(const Formulario& formulario) const;
    [[nodiscard]] QStringList InstalaEjemploDe(const Formulario& formulario, Base& base, const Reloj& reloj) const;
    void EscribePerfil(const QString& usuario) const;
    [[nodiscard]] bool EsLaVigente() const;
    [[nodiscard]] QString OpcionVigente(QStringView clave, const QString& porOmision) const;

    QString m_carpeta; ///< with its separator
    ArchivoPerfil m_perfil;
    Formularios m_formularios;
    QString m_nombreBase;
    QString m_carpetaBase; ///< empty for a base on a server
};

} // namespace xa518
