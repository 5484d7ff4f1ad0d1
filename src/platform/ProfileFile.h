#pragma once

#include <QString>

namespace xa518 {

/// A profile file of sections and keys. Windows' own profile calls read and write it there; elsewhere it is read by
/// their rules: section and key names without case, blanks around names and values dropped, one pair of quotes around a
/// value stripped.
///
/// On Windows a bare name means the system's own folder. An account that may not write there gets what the system gives
/// to older programs: a file of its own below `AppData\Local\VirtualStore`, which begins as a copy and is read instead
/// from then on.
class ArchivoPerfil {
  public:
    explicit ArchivoPerfil(QString ruta);

    /// Where a profile file given by its bare name lies: `$XDG_CONFIG_HOME`, by default `~/.config`; on Windows the
    /// bare name itself, by which the system finds it.
    [[nodiscard]] static QString RutaDe(const QString& nombre);

    [[nodiscard]] bool Existe() const;

    /// The value of a key; the empty text when file, section or key is missing.
    [[nodiscard]] QString Lee(QStringView seccion, QStringView clave) const;

    /// Puts a value, making file (private to the user) and section as needed. Every other byte of the file stays.
    /// Raises `Error` (`AccesoAlDisco`) when the file can't be written.
    void Escribe(QStringView seccion, QStringView clave, QStringView valor) const;

    [[nodiscard]] const QString& Ruta() const { return m_ruta; }

  private:
    [[nodiscard]] QString Vigente() const; ///< of Windows: the name that the system is asked by

    QString m_ruta;
};

} // namespace xa518
