#pragma once

#include <QString>

namespace xa518 {

/// The account with which the programs of the family open the database.
struct Cuenta {
    QString usuario;
    QString clave;
};

/// Builds one of the account's texts, character by character, from its configured codes: eight masked bytes in hex.
[[nodiscard]] QString TextoDeCodigos(const QString& codigos);

/// The workgroup file: the accounts that may open the database, each with an Argon2id hash of its password.
class GrupoTrabajo {
  public:
    explicit GrupoTrabajo(QString ruta) : m_ruta(std::move(ruta)) {}

    /// Passes silently, or raises `ErrorBase`: `GrupoNoExiste` without the file, `CuentaRechazada` for an unknown
    /// account or a wrong password. Raises `Error` when the file can't be read, or in `Admite` written.
    void Verifica(const Cuenta& cuenta) const;

    /// Lets the account in, whatever its password was before. The file is made when it is missing, private to the user.
    void Admite(const Cuenta& cuenta) const;

  private:
    QString m_ruta;
};

} // namespace xa518
